#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "qxfont/html/html_document.h"
#include "qxfont/html/html_page.h"
#include "qxfont/html/html_text.h"

namespace qxfont {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(HtmlText, charactersThatMarkUpAreReferences) {
  EXPECT_EQ(htmlText(u"a < b & c > \"d\" 'e'"), "a &lt; b &amp; c &gt; &quot;d&quot; &#39;e&#39;");
  EXPECT_EQ(htmlText(u"&amp;"), "&amp;amp;");
}

TEST(HtmlText, othersAreUtf8) {
  EXPECT_EQ(htmlText(u"é中\U0001F600"), "é中😀");
  EXPECT_EQ(htmlText(u""), "");
}

TEST(HtmlText, joinersSelectorsAndHyphensStay) {
  const icu::UnicodeString text(u"a\u200D\uFE00\U000E0100\u200Fb\u00AD");
  std::string bytes;
  EXPECT_EQ(htmlText(text), text.toUTF8String(bytes));
}

TEST(HtmlText, aLineStaysOneLine) {
  EXPECT_EQ(htmlText(u"a\tb\nc\rd\u000Be\u000Cf\u0085g\u2028h\u2029i"), "a b c d e f g h i");
}

TEST(HtmlText, whatHtmlDoesNotHoldIsReplaced) {
  const icu::UnicodeString controls(u"\x01\x1F\x7F\x9F\uFDD0\uFFFF\U0010FFFF");
  EXPECT_EQ(htmlText(controls), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(htmlText(icu::UnicodeString(static_cast<char16_t>(0))), "\uFFFD");
  EXPECT_EQ(htmlText(icu::UnicodeString(static_cast<char16_t>(0xD800))), "\uFFFD");
}

/// Two faces: number 5 is used first, 3 second.
std::string lineOf(PlacedLine line) {
  std::vector<UsedGlyphs> fonts(2);
  fonts[0].face = 5;
  fonts[1].face = 3;
  Page page;
  page.lines.push_back(std::move(line));
  return htmlPage(page, {200, 100}, fonts);
}

PlacedLine lineWith(const icu::UnicodeString& text, std::vector<LineRun> runs) {
  PlacedLine line;
  line.x = 20;
  line.baseline = 50;
  line.size = 10;
  line.width = 30.5;
  line.text = text;
  line.runs = std::move(runs);
  return line;
}

constexpr const char* kPlain = "<div class=\"line\" style=\"left:20pt;top:42pt;font-size:10pt\">";
constexpr const char* kMixed =
    "<div class=\"line bidi\" style=\"left:20pt;top:42pt;font-size:10pt\">";

TEST(HtmlPage, aLineStandsAtItsPlaceAboveItsBaseline) {
  EXPECT_EQ(lineOf(lineWith(u"a<b", {{0, 3, 5, false, 0}})),
            std::string(kPlain) + "<span class=\"f0\">a&lt;b</span></div>\n");
}

TEST(HtmlPage, eachRunIsInItsFace) {
  EXPECT_EQ(
      lineOf(lineWith(u"abc", {{0, 1, 3, false, 0}, {1, 3, 5, false, 0}})),
      std::string(kPlain) + "<span class=\"f1\">a</span><span class=\"f0\">bc</span></div>\n");
}

TEST(HtmlPage, aLineFromRightToLeftBeginsAtItsRight) {
  PlacedLine line = lineWith(u"\u05D0", {{0, 1, 5, false, 1}});
  line.rightToLeft = true;
  EXPECT_EQ(lineOf(line),
            "<div class=\"line bidi\" dir=\"rtl\" "
            "style=\"right:149.5pt;top:42pt;font-size:10pt\">"
            "<span class=\"f0\">\u05D0</span></div>\n");
}

TEST(HtmlPage, directionsInsideALineAreToldLevelByLevel) {
  EXPECT_EQ(lineOf(lineWith(u"a\u05D0 1",
                            {{0, 1, 5, false, 0}, {1, 3, 5, false, 1}, {3, 4, 5, false, 2}})),
            std::string(kMixed) +
                "<span class=\"f0\">a</span><bdo dir=\"rtl\"><span class=\"f0\">\u05D0 </span>"
                "<bdo dir=\"ltr\"><span class=\"f0\">1</span></bdo></bdo></div>\n");
}

TEST(HtmlPage, aLevelIsReachedThroughThoseBelow) {
  EXPECT_EQ(lineOf(lineWith(u"12", {{0, 1, 5, false, 2}, {1, 2, 5, false, 0}})),
            std::string(kMixed) +
                "<bdo dir=\"rtl\"><bdo dir=\"ltr\"><span class=\"f0\">1</span></bdo></bdo>"
                "<span class=\"f0\">2</span></div>\n");
}

TEST(HtmlPage, aLevelBelowTheParagraphsOpensNothing) {
  PlacedLine line = lineWith(u"ab", {{0, 1, 5, false, 0}, {1, 2, 5, false, 2}});
  line.rightToLeft = true;
  EXPECT_THAT(lineOf(line), HasSubstr("<span class=\"f0\">a</span><bdo dir=\"ltr\"><span "
                                      "class=\"f0\">b</span></bdo></div>"));
}

TEST(HtmlPage, aCharacterThatNoFontHasIsABoxAsWideAsTheNotdef) {
  PlacedLine line = lineWith(u"a\U00010380\u0378", {{0, 1, 5, false, 0}, {1, 4, 5, true, 0}});
  Glyph notdef;
  notdef.face = 5;
  notdef.advance = 0.6;
  line.glyphs = {notdef, notdef};
  EXPECT_THAT(lineOf(line),
              HasSubstr("<span class=\"missing\" style=\"width:0.6em\">\U00010380</span>"
                        "<span class=\"missing\" style=\"width:0.6em\">\u0378</span>"));
}

TEST(HtmlPage, joinersAmongThemAreNoBoxes) {
  const std::string html = lineOf(lineWith(u"\u200D", {{0, 1, 5, true, 0}}));
  EXPECT_THAT(html, HasSubstr("\u200D"));
  EXPECT_THAT(html, Not(HasSubstr("missing")));
}

TEST(HtmlPage, aPageWithoutLinesIsEmpty) {
  EXPECT_EQ(htmlPage({}, {200, 100}, {}), "");
}

HtmlDocument sample() {
  HtmlDocument document;
  document.title = "a <b> & c";
  document.generator = "test";
  document.width = 100.5;
  document.height = 200;
  document.pages = {"one\n", "two\n"};
  document.webFonts = {"foo", "foob"};
  return document;
}

TEST(HtmlBytes, beginAndEndAsADocument) {
  const std::string html = htmlBytes(sample());
  EXPECT_EQ(html.rfind("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"generator\" content=\"test\">\n"
                       "<title>a &lt;b&gt; &amp; c</title>\n<style>\n",
                       0),
            0U);
  EXPECT_THAT(html, HasSubstr("</style>\n</head>\n<body>\n"
                              "<section class=\"page\">\none\n</section>\n"
                              "<section class=\"page\">\ntwo\n</section>\n"
                              "</body>\n</html>\n"));
}

TEST(HtmlBytes, holdEachFontUnderANameOfItsOwn) {
  const std::string html = htmlBytes(sample());
  EXPECT_THAT(html, HasSubstr("@font-face{font-family:f0;ascent-override:80%;descent-override:20%;"
                              "line-gap-override:0%;"
                              "src:url(data:font/woff;base64,Zm9v) format(\"woff\")}\n"
                              ".f0{font-family:f0}\n"));
  EXPECT_THAT(html, HasSubstr("@font-face{font-family:f1;"));
  EXPECT_THAT(html, HasSubstr("src:url(data:font/woff;base64,Zm9vYg==) format(\"woff\")}\n"
                              ".f1{font-family:f1}\n"));
}

TEST(HtmlBytes, pagesAreAsLargeAsTheSheet) {
  const std::string html = htmlBytes(sample());
  EXPECT_THAT(html, HasSubstr("@page{size:100.5pt 200pt;margin:0}\n"));
  EXPECT_THAT(html, HasSubstr(".page{position:relative;width:100.5pt;height:200pt;"));
}

TEST(HtmlBytes, fetchNothing) {
  EXPECT_THAT(htmlBytes(sample()), Not(HasSubstr("://")));
}

}  // namespace
}  // namespace qxfont
