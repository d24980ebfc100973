#include <gtest/gtest.h>

#include <string>

#include "qxfont/cli/status.h"
#include "qxfont/embed/pdf_name.h"
#include "qxfont/pdf/embedded_font.h"
#include "qxfont/pdf/page_content.h"
#include "qxfont/pdf/pdf_document.h"
#include "qxfont/pdf/pdf_number.h"
#include "qxfont/pdf/subset_tag.h"
#include "qxfont/pdf/to_unicode.h"
#include "qxfont/typeset/page_size.h"

namespace qxfont {
namespace {

TEST(PageSizeTest, isFoundByNameInAnyCase) {
  EXPECT_NEAR(pageSizeOf("A4").width, 595.28, 0.01);
  EXPECT_NEAR(pageSizeOf("A4").height, 841.89, 0.01);
  EXPECT_NEAR(pageSizeOf("letter").width, 612, 0.01);
  EXPECT_NEAR(pageSizeOf("LETTER").height, 792, 0.01);
  EXPECT_THROW(pageSizeOf("A99"), ToolError);
  EXPECT_THROW(pageSizeOf(""), ToolError);
}

TEST(PdfNumber, hasThreeDecimalsAtMost) {
  EXPECT_EQ(pdfNumber(0), "0");
  EXPECT_EQ(pdfNumber(-0.0001), "0");
  EXPECT_EQ(pdfNumber(12), "12");
  EXPECT_EQ(pdfNumber(1200), "1200");
  EXPECT_EQ(pdfNumber(0.5), "0.5");
  EXPECT_EQ(pdfNumber(-1.23456), "-1.235");
}

TEST(PdfName, keepsWhatPdfTakes) {
  EXPECT_EQ(pdfName("DejaVuSans-Bold"), "DejaVuSans-Bold");
  EXPECT_EQ(pdfName("A b/c(d)#é\n"), "Abcd");
  EXPECT_EQ(pdfName("名前"), "");
}

TEST(SubsetTag, isSixLettersThatFollowTheGlyphs) {
  const std::string tag = subsetTag("Lato", {0, 3, 500});
  EXPECT_EQ(tag.size(), 6U);
  for (const char c : tag) EXPECT_TRUE(c >= 'A' && c <= 'Z') << tag;
  EXPECT_EQ(tag, subsetTag("Lato", {0, 3, 500}));
  EXPECT_NE(tag, subsetTag("Lato", {0, 3, 501}));
  EXPECT_NE(tag, subsetTag("Lato", {0, 3}));
  EXPECT_NE(tag, subsetTag("Other", {0, 3, 500}));
}

TEST(ToUnicode, writesSurrogatesAsTwoUnits) {
  EXPECT_EQ(utf16Hex(u"A"), "0041");
  EXPECT_EQ(utf16Hex(u"\U0001F600"), "D83DDE00");
  const std::string map = toUnicodeMap({{3, u"A"}, {7, u"\U0001F600"}, {9, u"fi"}});
  EXPECT_NE(map.find("3 beginbfchar\n<0003> <0041>\n<0007> <D83DDE00>\n<0009> <00660069>\n"
                     "endbfchar\n"),
            std::string::npos)
      << map;
}

TEST(ToUnicode, leavesOutGlyphsWithoutCharacters) {
  const std::string map = toUnicodeMap({{0, u""}, {3, u"A"}});
  EXPECT_EQ(map.find("<0000> <>"), std::string::npos);
  EXPECT_NE(map.find("1 beginbfchar"), std::string::npos);
  EXPECT_EQ(toUnicodeMap({}).find("beginbfchar"), std::string::npos);
}

TEST(ToUnicode, hasAHundredMappingsABlock) {
  std::map<unsigned short, icu::UnicodeString> texts;
  for (unsigned short gid = 1; gid <= 201; ++gid) texts[gid] = u"x";
  const std::string map = toUnicodeMap(texts);
  const std::size_t second = map.find("100 beginbfchar", map.find("100 beginbfchar") + 1);
  EXPECT_NE(second, std::string::npos);
  EXPECT_NE(map.find("\n1 beginbfchar\n<00C9>", second), std::string::npos);
}

Glyph glyphOf(std::size_t face, unsigned short gid, const icu::UnicodeString& text,
              double kerning = 0) {
  Glyph glyph;
  glyph.face = face;
  glyph.gid = gid;
  glyph.width = 0.5;
  glyph.advance = 0.5 + kerning;
  glyph.text = text;
  return glyph;
}

Page pageOf(std::vector<Glyph> glyphs) {
  Page page;
  page.lines.push_back({10, 700.5, 12, std::move(glyphs)});
  return page;
}

std::string contentOf(const Page& page) {
  return pageContent(page, usedGlyphs({page}));
}

TEST(PageContent, showsGlyphsByTheirIds) {
  EXPECT_EQ(contentOf(pageOf({glyphOf(4, 3, u"a"), glyphOf(4, 0x1234, u"b")})),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n[<00031234>] TJ\nET\n");
}

TEST(PageContent, showsGlyphsByTheCodesOfTheEmbeddedFont) {
  const Page page = pageOf({glyphOf(4, 3, u"a"), glyphOf(4, 7, u"b"), glyphOf(4, 9, u"c")});
  auto used = usedGlyphs({page});
  used[0].codes = {{3, 0x102}, {7, 1}};
  EXPECT_EQ(pageContent(page, used),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n[<010200010009>] TJ\nET\n");
}

TEST(PageContent, movesByKerningInThousandths) {
  EXPECT_EQ(contentOf(pageOf({glyphOf(0, 3, u"A", -0.025), glyphOf(0, 4, u"V")})),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n[<0003>25<0004>] TJ\nET\n");
}

TEST(PageContent, changesFontsOnALine) {
  EXPECT_EQ(contentOf(pageOf({glyphOf(7, 3, u"a"), glyphOf(2, 3, u"b"), glyphOf(7, 3, u"a")})),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n[<0003>] TJ\n/F1 12 Tf\n[<0003>] TJ\n"
            "/F0 12 Tf\n[<0003>] TJ\nET\n");
}

TEST(PageContent, tellsTheTextOfASharedGlyph) {
  EXPECT_EQ(contentOf(pageOf({glyphOf(0, 3, u"A"), glyphOf(0, 3, u"Α")})),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n[<0003>] TJ\n"
            "/Span <</ActualText <FEFF0391>>> BDC\n[<0003>] TJ\nEMC\nET\n");
}

TEST(PageContent, tellsTheTextOfAMissingGlyph) {
  EXPECT_EQ(contentOf(pageOf({glyphOf(0, 0, u"\U0001F600")})),
            "BT\n1 0 0 1 10 700.5 Tm\n/F0 12 Tf\n"
            "/Span <</ActualText <FEFFD83DDE00>>> BDC\n[<0000>] TJ\nEMC\nET\n");
}

TEST(UsedGlyphsTest, areThoseOfEachFaceWithTheirFirstText) {
  const Page page =
      pageOf({glyphOf(1, 5, u"b"), glyphOf(0, 3, u"a"), glyphOf(1, 5, u"c"), glyphOf(1, 0, u"?")});
  const auto used = usedGlyphs({page});
  ASSERT_EQ(used.size(), 2U);
  EXPECT_EQ(used[0].face, 1U);
  EXPECT_EQ(used[0].gids(), (std::vector<unsigned short>{0, 5}));
  EXPECT_EQ(used[0].texts.at(5), u"b");
  EXPECT_TRUE(used[0].texts.at(0).isEmpty());
  EXPECT_EQ(used[1].gids(), std::vector<unsigned short>{3});
}

PdfDocument sampleDocument() {
  PdfDocument document;
  document.width = 100;
  document.height = 200;
  document.pages = {"BT\nET\n", ""};
  PdfFont font;
  font.baseFont = "ABCDEF+Font";
  font.fontFile = "bytes of a font";
  font.widths = {{0, 500}, {1, 250.5}, {7, 600}};
  document.fonts.push_back(font);
  return document;
}

TEST(PdfBytes, areTheSameForTheSameDocument) {
  const std::string first = pdfBytes(sampleDocument());
  EXPECT_EQ(first.rfind("%PDF-1.5", 0), 0U);
  EXPECT_EQ(first, pdfBytes(sampleDocument()));
}

TEST(PdfBytes, differByTheKindOfTheFont) {
  PdfDocument document = sampleDocument();
  const std::string trueType = pdfBytes(document);
  document.fonts[0].isBareCff = true;
  const std::string cff = pdfBytes(document);
  EXPECT_NE(cff, trueType);
  document.fonts[0].type1 = PdfType1{{5, 6, 4}, {{1, "A"}, {7, "B"}}};
  EXPECT_NE(pdfBytes(document), cff);
  EXPECT_NE(pdfBytes(document), trueType);
}

}  // namespace
}  // namespace qxfont
