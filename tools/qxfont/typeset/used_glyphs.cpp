#include "qxfont/typeset/used_glyphs.h"

#include <algorithm>

namespace qxfont {
namespace {

UsedGlyphs& ofFace(std::vector<UsedGlyphs>& all, std::size_t face) {
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const UsedGlyphs& one) { return one.face == face; });
  if (found != all.end()) return *found;
  all.push_back({face, {}, {}});
  return all.back();
}

}  // namespace

std::vector<unsigned short> UsedGlyphs::gids() const {
  std::vector<unsigned short> ids;
  for (const auto& [gid, text] : texts) ids.push_back(gid);
  return ids;
}

unsigned short UsedGlyphs::codeOf(unsigned short gid) const {
  const auto found = codes.find(gid);
  return found != codes.end() ? found->second : gid;
}

std::vector<UsedGlyphs> usedGlyphs(const std::vector<Page>& pages) {
  std::vector<UsedGlyphs> all;
  for (const Page& page : pages) {
    for (const PlacedLine& line : page.lines) {
      for (const Glyph& glyph : line.glyphs) {
        const icu::UnicodeString text = glyph.gid == 0 ? icu::UnicodeString() : glyph.text;
        ofFace(all, glyph.face).texts.emplace(glyph.gid, text);
      }
    }
  }
  return all;
}

}  // namespace qxfont
