// Writes the part of a font file that a text needs, in the forms that its kind has.
//
//   embed_forms FONT TEXT FOLDER

#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/ext/numbering.h"
#include "qxfontservice/ext/open_file.h"
#include "qxfontservice/ext/subset_font.h"
#include "qxfontservice/ext/type1_segments.h"
#include "qxfontservice/ext/web_font.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;
using QXCommonNS::QXMemStream;

constexpr std::size_t kBlock = 8192;

// [save]
static bool save(QXMemStream& stream, const std::string& file) {
  stream.clear();
  stream.seekg(0);  // it may have been read before
  std::ofstream out(file, std::ios::binary);
  out << stream.rdbuf();
  std::cout << file << ": " << stream.length() << " bytes\n";
  return out.good();
}
// [save end]

// [rights]
// Whether the licence bits let a part of the font go into a document.
static bool mayEmbedSubset(const FS_FontInfo& font) {
  constexpr unsigned kNoSubsetting = 0x0100;
  constexpr unsigned kBitmapsOnly = 0x0200;
  if (font.getEmbedStatus() == FS_EMBED_RESTRICTED) return false;
  return (font.getFontEmbeddingLicence() & (kNoSubsetting | kBitmapsOnly)) == 0;
}
// [rights end]

static bool writeSfntForms(const FS_FontInfo& font, const std::vector<unsigned short>& glyphs,
                           const std::string& folder) {
  // [conforming]
  QXMemStream subset(nullptr, kBlock, false, true);
  if (!ext::makeConformingSubsetFont(font, glyphs, subset)) return false;
  QXMemStream web(nullptr, kBlock, false, true);
  if (!ext::makeConformingWebFont(font, glyphs, web)) return false;
  // [conforming end]
  return save(subset, folder + "/subset.ttf") && save(web, folder + "/subset.woff");
}

static bool writeForPdf(const FS_FontInfo& font, const std::vector<unsigned short>& glyphs,
                        const std::string& folder) {
  // [pdf]
  const bool bareCff = ext::hasCffOutlines(font);  // FontFile3, else FontFile2
  QXMemStream fontFile(nullptr, kBlock, false, true);
  if (!font.getEmbedFont(glyphs, fontFile)) return false;
  for (const ext::GlyphNumber& row :
       ext::numberGlyphs(font, ext::NumberedForm::embedFont, glyphs)) {
    std::cout << "glyph " << row.glyph << " is " << row.id << ", width " << row.width << '\n';
  }
  // [pdf end]
  return save(fontFile, folder + (bareCff ? "/pdf.cff" : "/pdf.ttf"));
}

static bool writeType1(const FS_FontInfo& font, const std::vector<int>& characters,
                       const std::string& folder) {
  // [type1]
  std::string codes;
  unsigned char page = 0;
  for (const ext::CharacterNumber& row : ext::numberCharacters(font, characters)) {
    if (row.code == 0) continue;                       // the font cannot show it
    page = static_cast<unsigned char>(row.code >> 8);  // of a short text all have one
    codes += static_cast<char>(row.code & 0xFF);
    std::cout << "code " << (row.code & 0xFF) << " is " << row.name << '\n';
  }
  int clearText = 0;
  int privatePart = 0;
  int trailer = 0;
  QXMemStream segments(nullptr, kBlock, false, true);
  if (!font.getType1EmbedFont(page, codes.data(), static_cast<int>(codes.size()), segments,
                              clearText, privatePart, trailer)) {
    return false;
  }
  QXMemStream fontFile(nullptr, kBlock, false, true);  // FontFile, with Length1 to Length3
  if (!ext::removeType1Segments(segments, fontFile, clearText, privatePart, trailer)) return false;
  // [type1 end]
  return save(segments, folder + "/subset.pfb") && save(fontFile, folder + "/pdf.t1");
}

static bool writeForms(const FS_FontInfo& font, const UnicodeString& text,
                       const std::string& folder) {
  std::vector<int> characters;
  std::vector<unsigned short> glyphs;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    characters.push_back(text.char32At(i));
    const unsigned short glyph = font.getGlyphID(characters.back(), false);
    if (glyph != FS_NO_GLYPH) glyphs.push_back(glyph);
  }
  if (font.isType1Font()) return writeType1(font, characters, folder);
  return writeSfntForms(font, glyphs, folder) && writeForPdf(font, glyphs, folder);
}

int main(int count, char** arguments) {
  if (count != 4) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  FS_FontInfo font;
  const QXCommonNS::QXUri file(UnicodeString::fromUTF8(arguments[1]), QXCommonNS::URISTR_USER);
  if (!ext::openFontFile(file, 0, font)) return 3;
  int status = 4;
  if (mayEmbedSubset(font))
    status = writeForms(font, UnicodeString::fromUTF8(arguments[2]), arguments[3]) ? 0 : 3;
  font.deleteFont();
  return status;
}
