// Draws a glyph as an SVG picture.
//
//   outline_to_svg FAMILY CHARACTER

#include <iostream>
#include <sstream>
#include <string>

#include "qxcommon/error.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

// [path]
static std::string pathOf(const FS_GlyphDrawInfo& glyph) {
  constexpr char kLetters[] = {'L', 'Q', 'C'};  // line, quadratic, cubic
  std::ostringstream path;
  for (const FS_GlyphContour& contour : glyph.contours) {
    const FS_GlyphContour::Point* point = contour.points.data();
    path << 'M' << point->x << ' ' << point->y;
    ++point;
    for (const unsigned int kind : contour.segments) {
      path << kLetters[kind];
      for (unsigned int i = 0; i <= kind; ++i, ++point) path << ' ' << point->x << ' ' << point->y;
    }
    path << 'Z';
  }
  return path.str();
}
// [path end]

static bool draw(const FS_FontInfo& font, int character) {
  // [draw]
  FS_GlyphDrawInfo glyph;
  if (!font.getGlyphDrawInfo(font.getGlyphID(character, false), glyph, false)) return false;
  std::cout << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 " << -glyph.yMax << ' '
            << glyph.horiAdvance << ' ' << glyph.yMax - glyph.yMin << "\">\n"
            << "<path transform=\"scale(1 -1)\" fill-rule=\""
            << (glyph.evenOddFill ? "evenodd" : "nonzero") << "\" d=\"" << pathOf(glyph)
            << "\"/>\n</svg>\n";
  // [draw end]
  return true;
}

int main(int count, char** arguments) {
  if (count != 3) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  FS_FontInfo font;
  if (!font.createFont(UnicodeString::fromUTF8(arguments[1]), 400, false)) return 1;
  return draw(font, UnicodeString::fromUTF8(arguments[2]).char32At(0)) ? 0 : 3;
}
