// A program that somebody else could have written: it sees what is installed and nothing else.
//
//   host FONT TEXT SUBSET
//
// Tells how it was compiled, the family of a font file and the glyph ids of a text, and writes the
// part of the font that the text needs. The variable HOST_FONTS may name a configuration.

#include <fstream>
#include <iostream>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxcommon/uri.h"
#include "qxcommon/value.h"
#include "qxfontservice/ext/opening.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;
using QXCommonNS::QXError;
using QXCommonNS::QXMemStream;
using QXCommonNS::QXUri;
using QXCommonNS::QXValue;

namespace {

std::string utf8(const UnicodeString& text) {
  std::string out;
  return text.toUTF8String(out);
}

// A class of the library with a host's own behind it.
class Counter final : public ext::OpeningObserver {
 public:
  void read(const ext::OpeningProgress& progress) override { files = progress.files; }
  std::size_t files = 0;
};

std::vector<unsigned short> glyphsOf(const FS_FontInfo& font, const UnicodeString& text) {
  std::vector<unsigned short> glyphs(static_cast<std::size_t>(text.length()));
  int count = 0;
  if (!font.getGlyphIDs(text, glyphs.data(), count, false, nullptr)) return {};
  glyphs.resize(static_cast<std::size_t>(count));
  return glyphs;
}

bool writeSubset(const FS_FontInfo& font, const std::vector<unsigned short>& glyphs,
                 const char* file) {
  QXMemStream subset(nullptr, 8192, false, true);
  if (!font.makeSubsetFont(glyphs, subset)) return false;
  std::ofstream out(file, std::ios::binary);
  out << subset.rdbuf();
  return out.good();
}

bool serve(const char* file, const UnicodeString& text, const char* subset) {
  FS_FontInfo font;
  if (!font.createFont(QXUri(UnicodeString::fromUTF8(file), QXCommonNS::URISTR_USER))) {
    std::cerr << "host: " << utf8(font.getError().getErrorMessage()) << '\n';
    return false;
  }
  const std::vector<unsigned short> glyphs = glyphsOf(font, text);
  std::cout << "family " << utf8(font.getFamilyName(QXLang::LANGID_DEFAULT)) << "\nglyphs";
  for (const unsigned short glyph : glyphs) std::cout << ' ' << utf8(QXValue(glyph).toString());
  std::cout << '\n';
  const bool written = writeSubset(font, glyphs, subset);
  font.deleteFont();
  return written;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  std::cout << "c++ " << __cplusplus << '\n';
  Counter counter;
  ext::setOpeningObserver(&counter);
  try {
    FontServiceOpen("HOST_FONTS", nullptr);
  } catch (const QXError& error) {
    std::cerr << "host: " << utf8(error.getErrorMessage()) << '\n';
    return 5;
  }
  ext::setOpeningObserver(nullptr);
  std::cout << "files " << counter.files << '\n';
  return serve(arguments[1], UnicodeString::fromUTF8(arguments[2]), arguments[3]) ? 0 : 1;
}
