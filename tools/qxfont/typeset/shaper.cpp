#include "qxfont/typeset/shaper.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace qxfont {
namespace {

bool isSelector(int codePoint) {
  return u_hasBinaryProperty(codePoint, UCHAR_VARIATION_SELECTOR) != 0;
}

/// The variation selector that stands behind a character, or 0.
int selectorAt(const icu::UnicodeString& text, int index, int end) {
  if (index >= end) return 0;
  const int codePoint = text.char32At(index);
  return isSelector(codePoint) ? codePoint : 0;
}

double em(const fs::FS_FontInfo& font, float units) {
  return static_cast<double>(units) / std::max(font.getUnitsPerEm(), 1);
}

void kern(const fs::FS_FontInfo& font, Glyph& left, unsigned short right) {
  if (!font.hasPairKerningInfo(false)) return;
  left.advance += em(font, font.getPairKerningValue(left.gid, right, 0, false));
}

}  // namespace

bool isInvisible(int codePoint) {
  return u_hasBinaryProperty(codePoint, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

void PlainShaper::shape(const icu::UnicodeString& text, const Run& run,
                        std::vector<Glyph>& glyphs) const {
  const fs::FS_FontInfo& font = fonts_.font(run.face);
  const std::size_t first = glyphs.size();
  for (int i = run.begin; i < run.end;) {
    const int codePoint = text.char32At(i);
    const int begin = i;
    i = text.moveIndex32(i, 1);
    if (isInvisible(codePoint)) continue;
    const int selector = selectorAt(text, i, run.end);
    Glyph glyph;
    glyph.face = run.face;
    glyph.gid = run.missing ? static_cast<unsigned short>(0)
                            : fonts_.glyphOf(run.face, codePoint, selector);
    glyph.width = em(font, font.getGlyphWidth(glyph.gid, 0, false));
    glyph.advance = glyph.width;
    glyph.begin = begin;
    glyph.text = text.tempSubStringBetween(begin, selector != 0 ? i + U16_LENGTH(selector) : i);
    if (glyphs.size() > first) kern(font, glyphs.back(), glyph.gid);
    glyphs.push_back(glyph);
  }
}

}  // namespace qxfont
