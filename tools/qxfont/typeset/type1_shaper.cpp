#include "qxfont/typeset/type1_shaper.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "qxfontservice/glyph_draw_info.h"

namespace qxfont {
namespace {

/// What `getPairKerningValue` takes for a character; 0 for nothing. Metrics in PFM files are asked
/// with codes of a Windows code page, all of which agree in ASCII alone.
unsigned short kernedCode(const fs::FS_FontInfo& font, int codePoint) {
  const bool byCode = font.getFontFileType2() == fs::FS_FILETYPE_TYPE1_PFM;
  const int last = byCode ? 0x7E : 0xFFFF;
  return codePoint <= last ? static_cast<unsigned short>(codePoint)
                           : static_cast<unsigned short>(0);
}

double em(const fs::FS_FontInfo& font, float units) {
  return static_cast<double>(units) / std::max(font.getUnitsPerEm(), 1);
}

/// The metrics do not tell how wide `.notdef` is, the outline does.
float widthOfMissing(const fs::FS_FontInfo& font) {
  fs::FS_GlyphDrawInfo drawn;
  return font.getGlyphDrawInfo(0, drawn, false) ? static_cast<float>(drawn.horiAdvance) : 0.0F;
}

double widthOf(const fs::FS_FontInfo& font, int codePoint, unsigned short code) {
  if (code == 0) return em(font, widthOfMissing(font));
  return em(font, font.getTextWidth(codePoint, -font.getUnitsPerEm(), false, nullptr));
}

double kerningOf(const fs::FS_FontInfo& font, int left, int right) {
  const unsigned short first = kernedCode(font, left);
  const unsigned short second = kernedCode(font, right);
  if (first == 0 || second == 0) return 0;
  return em(font, font.getPairKerningValue(first, second, 0, false));
}

}  // namespace

void shapeType1(const fs::FS_FontInfo& font, const icu::UnicodeString& text, const Run& run,
                bool wantsKerning, std::vector<Glyph>& glyphs) {
  const bool kerns = wantsKerning && font.hasPairKerningInfo(false) && !run.rightToLeft;
  int last = -1;  // the character before
  for (int i = run.begin; i < run.end; i = text.moveIndex32(i, 1)) {
    const int written = text.char32At(i);
    const int codePoint = run.rightToLeft ? u_charMirror(written) : written;
    Glyph glyph;
    glyph.gid = run.missing ? static_cast<unsigned short>(0) : font.getType1CharCode(codePoint);
    if (glyph.gid == 0 && isInvisible(codePoint)) continue;
    glyph.face = run.face;
    glyph.width = glyph.advance = widthOf(font, codePoint, glyph.gid);
    glyph.begin = i;
    glyph.text = icu::UnicodeString(written);
    if (kerns && last >= 0) glyphs.back().advance += kerningOf(font, last, codePoint);
    glyphs.push_back(glyph);
    last = codePoint;
  }
}

}  // namespace qxfont
