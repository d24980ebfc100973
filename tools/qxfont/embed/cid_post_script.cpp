#include "qxfont/embed/cid_post_script.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/cid_system_info.h"
#include "qxfontservice/glyph_draw_info.h"

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;
using Gids = std::vector<unsigned short>;

constexpr std::size_t kBlock = 8192;
constexpr std::size_t kMostNamed = 8;  // glyphs in an error

bool isBlank(const fs::FS_FontInfo& font, unsigned short gid) {
  fs::FS_GlyphDrawInfo drawn;
  return font.getGlyphDrawInfo(gid, drawn, false) && drawn.contours.empty();
}

bool write(const fs::FS_FontInfo& font, const Gids& gids, CidPostScript& out) {
  QXCommonNS::QXMemStream stream(nullptr, kBlock, false, true);
  icu::UnicodeString name;
  fs::FS_CIDSystemInfo info;
  if (!font.makePostScriptCIDFontType0(gids, stream, name, info)) return false;
  stream.clear();
  stream.seekg(0);
  out.text = {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  out.name = utf8(name);
  return true;
}

/// Why a font cannot be written: its .notdef, which is always there, or some of the glyphs.
std::string reason(const fs::FS_FontInfo& font, const Gids& gids) {
  CidPostScript unused;
  if (!write(font, {}, unused)) return "its .notdef does not convert, and every CIDFont needs it";
  std::vector<std::string> bad;
  for (const unsigned short gid : gids) {
    if (bad.size() < kMostNamed && !write(font, {gid}, unused)) bad.push_back(std::to_string(gid));
  }
  return fmt::format("glyphs that do not convert: {}", fmt::join(bad, ", "));
}

}  // namespace

CidPostScript cidPostScript(const fs::FS_FontInfo& font, const Gids& gids) {
  CidPostScript out;
  for (const unsigned short gid : gids) {
    if (gid != 0) (isBlank(font, gid) ? out.blank : out.glyphs).push_back(gid);
  }
  if (write(font, out.glyphs, out)) return out;
  throw ToolError(Status::badFont,
                  fmt::format("{} cannot be written as CIDFontType 0",
                              utf8(font.getFontFileName().getLocalPath(true))),
                  reason(font, out.glyphs));
}

}  // namespace qxfont
