#include <fmt/format.h>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/cid_post_script.h"
#include "qxfont/embed/form.h"
#include "qxfont/postscript/ps_document.h"

namespace qxfont {

PsFont psFont(const QXFontService_NS::FS_FontInfo& font, UsedGlyphs& used) {
  if (!formOf("cid-ps").serves(font)) {
    throw ToolError(Status::wrongCall,
                    fmt::format("{} has TrueType outlines, and PostScript takes those in CFF",
                                utf8(font.getFontFileName().getLocalPath(true))),
                    "typeset to .pdf takes both");
  }
  CidPostScript resource = cidPostScript(font, used.gids());
  used.codes = {{0, 0}};
  for (std::size_t i = 0; i < resource.glyphs.size(); ++i)
    used.codes.emplace(resource.glyphs[i], static_cast<unsigned short>(i + 1));
  return {std::move(resource.name), std::move(resource.text)};
}

}  // namespace qxfont
