#include "qxfont/specimen/form_sizes.h"

#include "qxfont/cli/status.h"
#include "qxfont/embed/glyph_choice.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;
using Gids = std::vector<unsigned short>;

Gids glyphsFor(const fs::FS_FontInfo& font, const std::vector<int>& characters) {
  GlyphRequest request;
  request.codePoints = characters;
  Gids gids;
  for (const auto& [gid, codePoint] : chooseGlyphs(font, request).glyphs) gids.push_back(gid);
  return gids;
}

std::optional<std::size_t> sizeWith(const fs::FS_FontInfo& font, const Form& form,
                                    const Gids& gids) {
  FormResult result;
  try {
    if (!writeForm(font, form, false, gids, result) || result.bytes.empty()) return std::nullopt;
  } catch (const ToolError&) {
    return std::nullopt;  // glyphs that do not convert
  }
  return sizeOf(result);
}

}  // namespace

std::vector<FormSize> formSizes(const fs::FS_FontInfo& font, const std::vector<int>& sample,
                                const std::vector<int>& all) {
  const Gids some = glyphsFor(font, sample);
  const Gids every = glyphsFor(font, all);
  std::vector<FormSize> sizes;
  for (const Form& form : forms()) {
    if (!hasForm(font, form, false)) continue;
    sizes.push_back({&form, sizeWith(font, form, some), sizeWith(font, form, every)});
  }
  return sizes;
}

}  // namespace qxfont
