// Shows the glyphs of a text, with their widths and the kerning between them.
//
//   text_to_glyphs FAMILY TEXT [vertical]

#include <unicode/uchar.h>

#include <cstddef>
#include <iostream>
#include <vector>

#include "qxcommon/error.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

static std::vector<unsigned short> glyphsOf(const FS_FontInfo& font, const UnicodeString& text,
                                            bool vertical) {
  // [glyphs]
  std::vector<unsigned short> glyphs(static_cast<std::size_t>(text.length()));
  int count = text.length();
  int firstMissing = -1;
  if (!font.getGlyphIDs(text, glyphs.data(), count, vertical, &firstMissing)) return {};
  glyphs.resize(static_cast<std::size_t>(count));  // fewer than UTF-16 units where pairs are
  if (firstMissing >= 0) std::cout << "no glyph for the character at " << firstMissing << '\n';
  for (unsigned short& glyph : glyphs)
    if (glyph == FS_NO_GLYPH) glyph = 0;  // .notdef: a box in most fonts
  // [glyphs end]
  return glyphs;
}

static void tellWidths(const FS_FontInfo& font, const std::vector<unsigned short>& glyphs) {
  // [widths]
  constexpr int kEmOf1000 = -1000;  // negative: the em; positive: the cell; 0: font units
  const bool kerned = font.hasPairKerningInfo(false);
  float x = 0;
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    std::cout << "glyph " << glyphs[i] << " at " << x << '\n';
    x += font.getGlyphWidth(glyphs[i], kEmOf1000, false);
    if (kerned && i + 1 < glyphs.size())
      x += font.getPairKerningValue(glyphs[i], glyphs[i + 1], kEmOf1000, false);
  }
  // [widths end]
  std::cout << "in all " << x << '\n';
}

// [selector]
// The glyph of a character with the variation selector behind it, else without.
static unsigned short glyphOf(const FS_FontInfo& font, int codePoint, int selector) {
  const unsigned short varied = font.variationSequence(codePoint, selector);
  return varied != FS_NO_GLYPH ? varied : font.getGlyphID(codePoint, false);
}
// [selector end]

int main(int count, char** arguments) {
  if (count < 3) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  FS_FontInfo font;
  if (!font.createFont(UnicodeString::fromUTF8(arguments[1]), 400, false)) return 1;
  const UnicodeString text = UnicodeString::fromUTF8(arguments[2]);
  const std::vector<unsigned short> glyphs = glyphsOf(font, text, count > 3);
  tellWidths(font, glyphs);
  const int second = text.char32At(text.moveIndex32(0, 1));
  if (u_hasBinaryProperty(second, UCHAR_VARIATION_SELECTOR) != 0)
    std::cout << "with its selector " << glyphOf(font, text.char32At(0), second) << '\n';
  return glyphs.empty() ? 1 : 0;
}
