#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/cid_post_script.h"
#include "qxfont/embed/form.h"
#include "qxfont/embed/type1_names.h"
#include "qxfont/embed/type1_page.h"
#include "qxfont/postscript/ps_document.h"

namespace qxfont {
namespace {

/// A CID-keyed font may have its matrix in each Font DICT, where the resource, which has one for
/// all of them, takes none from.
double scaleOf(const QXFontService_NS::FS_FontInfo& font, const std::string& resource) {
  constexpr std::string_view kMatrix = "/FontMatrix [";
  const std::size_t at = resource.find(kMatrix);
  const double unit = at != std::string::npos ? std::atof(&resource[at + kMatrix.size()]) : 0;
  if (unit <= 0 || font.getUnitsPerEm() <= 0) return 1;
  const double em = unit * font.getUnitsPerEm();
  constexpr double kRounding = 0.001;
  return std::fabs(em - 1) < kRounding ? 1 : 1 / em;
}

PsFont type1Font(const QXFontService_NS::FS_FontInfo& font, const UsedGlyphs& used) {
  const Type1Page page = type1Pages(font, used.gids()).front();
  PsFont out;
  out.name = definedName(page);
  out.resource = asPostScript(page);
  out.encoding = namesOnCodePage(font, used.texts);
  if (!out.name.empty()) return out;
  throw ToolError(Status::badFont, fmt::format("the font program of {} does not name its font",
                                               utf8(font.getFontFileName().getLocalPath(true))));
}

}  // namespace

PsFont psFont(const QXFontService_NS::FS_FontInfo& font, UsedGlyphs& used) {
  if (used.codePage != UsedGlyphs::kNoCodePage) return type1Font(font, used);
  if (!formOf("cid-ps").serves(font)) {
    throw ToolError(Status::wrongCall,
                    fmt::format("{} has TrueType outlines, and PostScript takes those in CFF",
                                utf8(font.getFontFileName().getLocalPath(true))),
                    "a .pdf takes both");
  }
  CidPostScript resource = cidPostScript(font, used.gids());
  used.codes = {{0, 0}};
  for (std::size_t i = 0; i < resource.glyphs.size(); ++i)
    used.codes.emplace(resource.glyphs[i], static_cast<unsigned short>(i + 1));
  const double scale = scaleOf(font, resource.text);
  return {std::move(resource.name), std::move(resource.text), scale, std::nullopt};
}

}  // namespace qxfont
