#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qxfont/html/css_grey.h"
#include "qxfont/html/html_page.h"
#include "qxfont/pdf/page_content.h"
#include "qxfont/postscript/ps_document.h"
#include "qxfont/svg/svg_document.h"

// Rules and grey text in each kind of document.

namespace qxfont {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

Page ruled() {
  Page page;
  page.rules = {{10, 20, 30, 0.5, 0}, {1, 2, 3, 4, 0.8}};
  return page;
}

Page greyLine() {
  Glyph glyph;
  glyph.gid = 3;
  glyph.width = glyph.advance = 0.5;
  glyph.text = u"a";
  PlacedLine line;
  line.x = 10;
  line.baseline = 50;
  line.size = 12;
  line.glyphs = {glyph};
  line.text = u"a";
  line.runs = {{0, 1, 0, false, 0}};
  line.grey = 0.5;
  Page page;
  page.lines = {line};
  return page;
}

std::vector<UsedGlyphs> fonts() {
  UsedGlyphs used;
  used.texts[3] = u"a";
  used.codes[3] = 3;
  return {used};
}

TEST(CssGrey, runsFromBlackToWhite) {
  EXPECT_EQ(cssGrey(0), "#000000");
  EXPECT_EQ(cssGrey(0.5), "#808080");
  EXPECT_EQ(cssGrey(1), "#ffffff");
  EXPECT_EQ(cssGrey(-1), "#000000");
  EXPECT_EQ(cssGrey(2), "#ffffff");
}

TEST(Rules, standBehindTheLinesOfAPdfPage) {
  EXPECT_EQ(pageContent(ruled(), {}), "0 g\n10 20 30 0.5 re f\n0.8 g\n1 2 3 4 re f\n0 g\n");
}

TEST(Rules, standBehindTheLinesOfAPostScriptPage) {
  EXPECT_EQ(psPage(ruled(), {}),
            "0 setgray\n10 20 30 0.5 rectfill\n0.8 setgray\n1 2 3 4 rectfill\n0 setgray\n");
}

TEST(Rules, areMeasuredFromTheTopInHtml) {
  EXPECT_THAT(htmlPage(ruled(), {200, 100}, {}),
              StartsWith("<div class=\"rule\" style=\"left:10pt;top:79.5pt;width:30pt;"
                         "height:0.5pt;background:#000000\"></div>\n"));
}

TEST(Rules, areMeasuredFromTheTopInSvg) {
  EXPECT_THAT(svgPage(ruled(), {200, 100}, {}, {}),
              StartsWith("<rect x=\"10\" y=\"79.5\" width=\"30\" height=\"0.5\" "
                         "fill=\"#000000\"/>\n"));
}

TEST(GreyText, isBlackAgainBehindItsLine) {
  const std::string pdf = pageContent(greyLine(), fonts());
  EXPECT_THAT(pdf, StartsWith("0.5 g\nBT\n"));
  EXPECT_THAT(pdf, testing::EndsWith("ET\n0 g\n"));
  const std::string ps = psPage(greyLine(), fonts());
  EXPECT_THAT(ps, StartsWith("0.5 setgray\n"));
  EXPECT_THAT(ps, testing::EndsWith("show\n0 setgray\n"));
}

TEST(GreyText, isColouredInHtmlAndSvg) {
  EXPECT_THAT(htmlPage(greyLine(), {200, 100}, fonts()),
              HasSubstr("font-size:12pt;color:#808080\">"));
  SvgFont font;
  font.drawn = {3};
  EXPECT_THAT(svgPage(greyLine(), {200, 100}, fonts(), {font}),
              HasSubstr("<g fill=\"#808080\">\n<use "));
}

TEST(SwitchedFeatures, areToldToReadersOfHtml) {
  Page page = greyLine();
  page.lines[0].grey = 0;
  page.lines[0].switches = {{layoutTag("smcp"), true}, {layoutTag("liga"), false}};
  EXPECT_THAT(htmlPage(page, {200, 100}, fonts()),
              HasSubstr("font-size:12pt;font-feature-settings:'smcp' on,'liga' off\">"));
}

}  // namespace
}  // namespace qxfont
