#include "qxfont/typeset/used_glyphs.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace qxfont {
namespace {

UsedGlyphs& ofFace(std::vector<UsedGlyphs>& all, std::size_t face) {
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const UsedGlyphs& one) { return one.face == face; });
  if (found != all.end()) return *found;
  all.emplace_back().face = face;
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

bool UsedGlyphs::has(const Glyph& glyph) const {
  return face == glyph.face && (codePage == kNoCodePage || codePage == glyph.gid >> 8);
}

std::string UsedGlyphs::hexOf(unsigned short gid) const {
  const unsigned code = codeOf(gid);
  return codePage == kNoCodePage ? fmt::format("{:04X}", code) : fmt::format("{:02X}", code & 0xFF);
}

std::size_t indexOf(const std::vector<UsedGlyphs>& fonts, const Glyph& glyph) {
  std::size_t index = 0;
  while (index < fonts.size() && !fonts[index].has(glyph)) ++index;
  return index;
}

std::vector<UsedGlyphs> splitByCodePage(const UsedGlyphs& used) {
  std::map<int, UsedGlyphs> pages;
  for (const auto& [gid, text] : used.texts) {
    UsedGlyphs& page = pages[gid >> 8];
    page.face = used.face;
    page.codePage = gid >> 8;
    page.texts.emplace(gid, text);
    page.codes.emplace(gid, static_cast<unsigned short>(gid & 0xFF));
    page.widths.emplace(gid, used.widths.at(gid));
  }
  std::vector<UsedGlyphs> split;
  for (auto& [number, page] : pages) split.push_back(std::move(page));
  return split;
}

std::vector<UsedGlyphs> usedGlyphs(const std::vector<Page>& pages) {
  std::vector<UsedGlyphs> all;
  for (const Page& page : pages) {
    for (const PlacedLine& line : page.lines) {
      for (const Glyph& glyph : line.glyphs) {
        const icu::UnicodeString text = glyph.gid == 0 ? icu::UnicodeString() : glyph.text;
        UsedGlyphs& used = ofFace(all, glyph.face);
        used.texts.emplace(glyph.gid, text);
        used.widths.emplace(glyph.gid, glyph.width);
      }
    }
  }
  return all;
}

}  // namespace qxfont
