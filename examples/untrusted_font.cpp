// Opens a font that comes from anywhere, and tells what it is or why it is refused.
//
//   untrusted_font FILE

#include <iostream>
#include <new>
#include <string>

#include "qxcommon/error.h"
#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/ext/open_file.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

static std::string utf8(const UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

static bool look(const QXCommonNS::QXUri& file) {
  // [open]
  FS_FontInfo font;
  if (!ext::openFontFile(file, 0, font)) {
    std::cerr << font.getError().getErrorCode() << ": " << utf8(font.getError().getErrorMessage())
              << '\n';
    return false;
  }
  std::cout << utf8(font.getFullFontName(QXLang::LANGID_DEFAULT)) << ": " << ext::faceCount(font)
            << " faces, " << ext::glyphCount(font) << " glyphs\n";
  font.deleteFont();
  // [open end]
  return true;
}

int main(int count, char** arguments) {
  if (count != 2) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  // [memory]
  try {
    const UnicodeString path = UnicodeString::fromUTF8(arguments[1]);
    return look(QXCommonNS::QXUri(path, QXCommonNS::URISTR_USER)) ? 0 : 3;
  } catch (const std::bad_alloc&) {
    std::cerr << "not enough memory for this font\n";
    return 3;
  }
  // [memory end]
}
