// Writes a page with one line of text and the part of the font that it needs, without a PDF library
// (ISO 32000-1). The font is TrueType: a CIDFontType2 whose CIDs are the glyph ids of the subset.
//
//   one_page_pdf FAMILY TEXT FILE

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;
using QXCommonNS::QXMemStream;

// [line]
// A line of text: its glyphs in order, and for each glyph the first character that it shows.
struct Line {
  std::vector<unsigned short> glyphs;
  std::map<unsigned short, UnicodeString> characters;
};

static Line lineOf(const FS_FontInfo& font, const UnicodeString& text) {
  Line line;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const int character = text.char32At(i);
    unsigned short glyph = font.getGlyphID(character, false);
    if (glyph == FS_NO_GLYPH) glyph = 0;
    line.glyphs.push_back(glyph);
    line.characters.emplace(glyph, UnicodeString(character));
  }
  return line;
}
// [line end]

static std::string hex(unsigned value) {
  char digits[5];
  std::snprintf(digits, sizeof digits, "%04X", value & 0xFFFFU);
  return digits;
}

static std::string number(double value) {
  return std::to_string(std::lround(value));
}

// [subset]
static bool subsetOf(const FS_FontInfo& font, const Line& line, std::string& bytes) {
  QXMemStream subset(nullptr, 8192, false, true);
  if (!font.getEmbedFont(line.glyphs, subset)) return false;
  bytes.assign(std::istreambuf_iterator<char>(subset), std::istreambuf_iterator<char>());
  return true;
}
// [subset end]

// [pdf]
// The objects of a file, numbered from 1 as they are added, and the table that finds them.
class Pdf {
 public:
  int add(const std::string& object) {
    offsets_.push_back(bytes_.size());
    const int id = static_cast<int>(offsets_.size());
    bytes_ += std::to_string(id) + " 0 obj\n" + object + "\nendobj\n";
    return id;
  }
  int addStream(const std::string& data, const std::string& entries = "") {
    return add("<< /Length " + std::to_string(data.size()) + entries + " >>\nstream\n" + data +
               "\nendstream");
  }
  std::string close(int catalog) const {
    const std::string size = std::to_string(offsets_.size() + 1);
    std::string file = bytes_ + "xref\n0 " + size + "\n0000000000 65535 f \n";
    for (const std::size_t offset : offsets_) {
      char row[32];
      std::snprintf(row, sizeof row, "%010zu 00000 n \n", offset);
      file += row;
    }
    return file + "trailer\n<< /Size " + size + " /Root " + reference(catalog) +
           " >>\nstartxref\n" + std::to_string(bytes_.size()) + "\n%%EOF\n";
  }
  static std::string reference(int id) { return std::to_string(id) + " 0 R"; }

 private:
  std::string bytes_ = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
  std::vector<std::size_t> offsets_;
};
// [pdf end]

// [to unicode]
// The map from codes to characters, so that readers can copy and search the text.
static std::string toUnicode(const Line& line) {
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
  for (const auto& [glyph, text] : line.characters) {
    map += "1 beginbfchar\n<" + hex(glyph) + "> <";
    for (int i = 0; i < text.length(); ++i) map += hex(text.charAt(i));  // UTF-16
    map += ">\nendbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}
// [to unicode end]

// [descriptor]
static std::string descriptor(const FS_FontInfo& font, const std::string& name, int fontFile) {
  constexpr int kSymbolic = 4;  // its codes are no standard encoding
  const int em = font.getUnitsPerEm();
  FS_NewTextMetricEx metrics;
  font.getOutlineTextMetrics(metrics, -em);  // a negative size is the em: lengths in font units
  const auto scaled = [em](float units) {
    return number(1000.0 * static_cast<double>(units) / em);
  };
  return "<< /Type /FontDescriptor /FontName /" + name + " /Flags " + std::to_string(kSymbolic) +
         " /FontBBox [" + scaled(metrics.getBBoxLeft()) + ' ' + scaled(metrics.getBBoxBottom()) +
         ' ' + scaled(metrics.getBBoxRight()) + ' ' + scaled(metrics.getBBoxTop()) +
         "] /ItalicAngle 0 /Ascent " + scaled(metrics.getAscent()) + " /Descent " +
         scaled(-std::fabs(metrics.getDescent())) + " /CapHeight " +
         scaled(metrics.getCapHeight()) + " /StemV 80 /FontFile2 " + Pdf::reference(fontFile) +
         " >>";
}
// [descriptor end]

// [font]
static std::string widths(const FS_FontInfo& font, const Line& line) {
  std::string list;
  for (const auto& [glyph, text] : line.characters) {
    const float width = font.getGlyphWidth(glyph, -1000, false);  // thousandths of an em
    list += std::to_string(glyph) + " [" + number(static_cast<double>(width)) + "] ";
  }
  return list;
}

static int addFont(Pdf& pdf, const FS_FontInfo& font, const Line& line, const std::string& subset) {
  std::string name = "ABCDEF+";  // six letters mark a subset
  font.getPostScriptName(QXLang::LANGID_DEFAULT).toUTF8String(name);
  const int file = pdf.addStream(subset, " /Length1 " + std::to_string(subset.size()));
  const int facts = pdf.add(descriptor(font, name, file));
  const int cidFont =
      pdf.add("<< /Type /Font /Subtype /CIDFontType2 /BaseFont /" + name +
              " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>"
              " /CIDToGIDMap /Identity /W [" +
              widths(font, line) + "] /FontDescriptor " + Pdf::reference(facts) + " >>");
  const int map = pdf.addStream(toUnicode(line));
  return pdf.add("<< /Type /Font /Subtype /Type0 /BaseFont /" + name +
                 " /Encoding /Identity-H /DescendantFonts [" + Pdf::reference(cidFont) +
                 "] /ToUnicode " + Pdf::reference(map) + " >>");
}
// [font end]

// [page]
static std::string documentOf(const FS_FontInfo& font, const Line& line,
                              const std::string& subset) {
  Pdf pdf;
  const int fontId = addFont(pdf, font, line, subset);
  std::string content = "BT /F1 24 Tf 72 700 Td <";
  for (const unsigned short glyph : line.glyphs) content += hex(glyph);
  const int contentId = pdf.addStream(content + "> Tj ET");
  const int pagesId = contentId + 2;  // the page names its parent, which comes behind it
  const int page =
      pdf.add("<< /Type /Page /Parent " + Pdf::reference(pagesId) +
              " /MediaBox [0 0 595 842] /Resources << /Font << /F1 " + Pdf::reference(fontId) +
              " >> >> /Contents " + Pdf::reference(contentId) + " >>");
  pdf.add("<< /Type /Pages /Count 1 /Kids [" + Pdf::reference(page) + "] >>");
  return pdf.close(pdf.add("<< /Type /Catalog /Pages " + Pdf::reference(pagesId) + " >>"));
}
// [page end]

int main(int count, char** arguments) {
  if (count != 4) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  FS_FontInfo font;
  if (!font.createFont(UnicodeString::fromUTF8(arguments[1]), 400, false)) return 1;
  if (font.getEmbedStatus() == FS_EMBED_RESTRICTED) return 4;
  if (!font.isTrueTypeFont() || ext::hasCffOutlines(font)) return 3;  // those want another form
  const Line line = lineOf(font, UnicodeString::fromUTF8(arguments[2]));
  std::string subset;
  if (!subsetOf(font, line, subset)) return 3;
  std::ofstream out(arguments[3], std::ios::binary);
  out << documentOf(font, line, subset);
  return out.flush() ? 0 : 6;
}
