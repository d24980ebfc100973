#include "qxfont/typeset/font_set.h"

#include <fmt/format.h>

#include <utility>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/form.h"

namespace qxfont {
namespace {

bool isSameFace(const fs::FS_FontInfo& a, const fs::FS_FontInfo& b) {
  return a.getEntry() == b.getEntry() &&
         a.getFontFileName().getLocalPath(true) == b.getFontFileName().getLocalPath(true);
}

void requireEmbeddable(const fs::FS_FontInfo& font) {
  if (formOf("type1").serves(font)) return;
  const bool hasForm = formOf("sfnt").serves(font) || formOf("cff").serves(font);
  if (hasForm && font.canEmbedFont()) return;
  throw ToolError(Status::wrongCall, fmt::format("{} has no outlines: no text can be set in it",
                                                 utf8(font.getFontFileName().getLocalPath(true))));
}

}  // namespace

std::size_t FontSet::faceOf(const FontStyle& style) {
  FontOptions options;
  options.font = style.font;
  options.weight = style.weight;
  options.italic = style.italic;
  return faceOf(options);
}

std::size_t FontSet::faceOf(const FontOptions& options) {
  OpenFont opened = openFont(service_, options);
  requireEmbeddable(*opened);
  for (std::size_t i = 0; i < faces_.size(); ++i) {
    if (isSameFace(*faces_[i], *opened)) return i;
  }
  faces_.push_back(std::move(opened));
  return faces_.size() - 1;
}

unsigned short FontSet::glyphOf(std::size_t face, int codePoint, int selector) const {
  const fs::FS_FontInfo& font = *faces_[face];
  if (selector != 0) {
    const unsigned short glyph = font.variationSequence(codePoint, selector);
    if (glyph != fs::FS_NO_GLYPH && glyph != 0) return glyph;
  }
  if (font.isType1Font()) return font.getType1CharCode(codePoint);
  const unsigned short glyph = font.getGlyphID(codePoint, false);
  return glyph == fs::FS_NO_GLYPH ? static_cast<unsigned short>(0) : glyph;
}

std::size_t FontSet::faceFor(int codePoint, std::size_t first) const {
  if (glyphOf(first, codePoint, 0) != 0) return first;
  for (const std::size_t face : lenders_) {
    if (glyphOf(face, codePoint, 0) != 0) return face;
  }
  return kNoFace;
}

}  // namespace qxfont
