#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "qxfont/cli/status.h"
#include "qxfont/embed/type1_names.h"
#include "qxfont/embed/type1_page.h"
#include "qxfont/pdf/page_content.h"
#include "qxfont/pdf/to_unicode.h"
#include "qxfont/postscript/ps_document.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::string segment(int kind, const std::string& bytes) {
  const auto size = static_cast<char>(bytes.size());
  return std::string{'\x80', static_cast<char>(kind), size, 0, 0, 0} + bytes;
}

Type1Page pageOf(const std::string& clearText, const std::string& privatePart,
                 const std::string& trailer) {
  Type1Page page;
  page.program = segment(1, clearText) + segment(2, privatePart) + segment(1, trailer) + "\x80\x03";
  page.lengths = {static_cast<int>(clearText.size()), static_cast<int>(privatePart.size()),
                  static_cast<int>(trailer.size())};
  return page;
}

TEST(Type1PageTest, standsInPdfWithoutItsSegments) {
  EXPECT_EQ(withoutSegments(pageOf("clear\n", "\xAB\x01", "000\n")),
            "clear\n\xAB\x01"
            "000\n");
}

TEST(Type1PageTest, ofAnotherShapeIsABadFont) {
  Type1Page page = pageOf("clear\n", "12", "0");
  page.program = "%!PS";
  EXPECT_THROW(withoutSegments(page), ToolError);
  page = pageOf("clear\n", "12", "0");
  page.lengths[1] = 3;
  EXPECT_THROW(withoutSegments(page), ToolError);
}

TEST(Type1PageTest, isHexadecimalInPostScript) {
  EXPECT_EQ(asPostScript(pageOf("currentfile eexec\n", "\xAB\x01", "000\ncleartomark")),
            "currentfile eexec\nab01\n000\ncleartomark\n");
}

TEST(Type1PageTest, hasLinesOf64Digits) {
  const std::string text = asPostScript(pageOf("c\n", std::string(33, 'a'), "0\n"));
  std::string digits;
  for (int i = 0; i < 32; ++i) digits += "61";
  EXPECT_EQ(text, "c\n" + digits + "\n61\n0\n");
}

TEST(Type1PageTest, withoutATrailerGetsTheUsualOne) {
  const std::string text = asPostScript(pageOf("c\n", "a", ""));
  std::string zeros;
  for (int i = 0; i < 8; ++i) zeros += std::string(64, '0') + "\n";
  EXPECT_EQ(text, "c\n61\n" + zeros + "cleartomark\n");
}

TEST(Type1PageTest, tellsTheNameThatItDefines) {
  EXPECT_EQ(definedName(pageOf("%!PS\r/FontName /Made-Bold def\r", "a", "")), "Made-Bold");
  EXPECT_EQ(definedName(pageOf("%!PS\n/FontName/Made def\n", "a", "")), "Made");
  EXPECT_EQ(definedName(pageOf("%!PS\n", "a", "")), "");
  EXPECT_EQ(definedName(pageOf("/FontName", "a", "")), "");
  EXPECT_EQ(definedName(pageOf("/FontName /Made", "a", "")), "");
}

Glyph glyphOf(unsigned short gid, const icu::UnicodeString& text) {
  Glyph glyph;
  glyph.gid = gid;
  glyph.width = 0.5;
  glyph.advance = 0.5;
  glyph.text = text;
  return glyph;
}

Page samplePage() {
  Page page;
  page.lines.push_back(
      {10, 700.5, 12, {glyphOf(0x41, u"A"), glyphOf(0x121, u"ā"), glyphOf(0x80, u"Ā")}});
  return page;
}

std::vector<UsedGlyphs> sampleFonts() {
  return splitByCodePage(usedGlyphs({samplePage()}).front());
}

TEST(CodePages, takeAFaceApart) {
  const auto fonts = sampleFonts();
  ASSERT_EQ(fonts.size(), 2U);
  EXPECT_EQ(fonts[0].codePage, 0);
  EXPECT_EQ(fonts[0].gids(), (std::vector<unsigned short>{0x41, 0x80}));
  EXPECT_EQ(fonts[1].codePage, 1);
  EXPECT_THAT(fonts[1].codes, ElementsAre(Pair(0x121, 0x21)));
  EXPECT_EQ(fonts[1].texts.at(0x121), u"ā");
  EXPECT_EQ(fonts[1].widths.at(0x121), 0.5);
}

TEST(CodePages, areFontsOfTheirOwnInPdf) {
  EXPECT_EQ(pageContent(samplePage(), sampleFonts()),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n[<41>] TJ\n/F1 12 Tf\n[<21>] TJ\n"
            "/F0 12 Tf\n[<80>] TJ\nET\n");
}

TEST(CodePages, areFontsOfTheirOwnInPostScript) {
  EXPECT_EQ(psPage(samplePage(), sampleFonts()),
            "/F0 12 selectfont\n10 700.5 moveto\n<41> show\n"
            "/F1 12 selectfont\n16 700.5 moveto\n<21> show\n"
            "/F0 12 selectfont\n22 700.5 moveto\n<80> show\n");
}

TEST(CodePages, haveCodesOfOneByteInToUnicode) {
  const std::string map = toUnicodeMap({{0x41, u"A"}}, 1);
  EXPECT_NE(map.find("1 begincodespacerange\n<00> <FF>\nendcodespacerange\n"), std::string::npos);
  EXPECT_NE(map.find("1 beginbfchar\n<41> <0041>\nendbfchar\n"), std::string::npos);
}

TEST(CodePages, areDefinedInPostScriptWithTheirEncoding) {
  PsDocument document;
  document.width = document.height = 100;
  PsFont font;
  font.name = "Made";
  font.resource = "define Made\n";
  font.encoding = {{0x21, "amacron"}, {0x80, "Amacron"}};
  document.fonts = {font};
  const std::string text = psBytes(document);
  EXPECT_NE(text.find("%%DocumentSuppliedResources: font Made\n"), std::string::npos);
  EXPECT_NE(text.find("%%BeginResource: font Made\n"
                      "define Made\n"
                      "%%EndResource\n"
                      "/Made findfont dup length dict begin\n"
                      "{1 index /FID eq {pop pop} {def} ifelse} forall\n"
                      "/Encoding 256 array 0 1 255 {1 index exch /.notdef put} for\n"
                      "dup 33 /amacron put\n"
                      "dup 128 /Amacron put\n"
                      "def\n"
                      "/F0 currentdict end definefont pop\n"
                      "/Made undefinefont\n"),
            std::string::npos)
      << text;
}

TEST(CodePages, ofOtherFontsHaveNoNames) {
  EXPECT_TRUE(namesOnCodePage(QXFontService_NS::FS_FontInfo(), {{0x41, u"A"}}).empty());
}

}  // namespace
}  // namespace qxfont
