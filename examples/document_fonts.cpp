// Measures a text in a font that a document brings along.
//
//   document_fonts FONT FAMILY TEXT     FONT is a file or a data: URI

#include <iostream>
#include <string>

#include "qxcommon/error.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

static std::string utf8(const UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

// [append]
static bool append(FS_ExtraFontManager& document, const UnicodeString& uri,
                   const UnicodeString& family) {
  constexpr int kWeight = 400;  // as the document declares; 0 leaves it to the font
  constexpr int kStyle = -1;    // 1 italic, 0 upright, -1 as the font says
  QXCommonNS::QXError error;
  const int number =
      document.appendExtraFont(uri, FS_FILETYPE_UNKNOWN, family, kWeight, kStyle, &error);
  if (number < 0) {
    std::cerr << utf8(error.getErrorMessage()) << '\n';
    return false;
  }
  if (error.getErrorCode() == FS_ERROR_FONTFACE_UNEMBEDDABLE)
    std::cerr << "may be shown, not embedded\n";
  return true;
}
// [append end]

static bool measure(const FS_ExtraFontManager& document, const UnicodeString& family,
                    const UnicodeString& text) {
  // [find]
  FS_FontInfo font;
  if (!font.createFont(family, 400, false, document.getExtraFonts())) return false;
  const bool own = font.isExtraFont(nullptr, nullptr);
  std::cout << (own ? "the document's " : "the service's ") << utf8(font.getFamilyNameEx()) << '\n';
  // [find end]
  std::cout << font.getTextWidth(text, -1000, false, nullptr) << " of an em of 1000\n";
  return true;
}

int main(int count, char** arguments) {
  if (count != 4) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  FS_ExtraFontManager document;  // outlives the handles made from it
  const UnicodeString family = UnicodeString::fromUTF8(arguments[2]);
  if (!append(document, UnicodeString::fromUTF8(arguments[1]), family)) return 4;
  return measure(document, family, UnicodeString::fromUTF8(arguments[3])) ? 0 : 1;
}
