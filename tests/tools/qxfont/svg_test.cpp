#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "qxfont/svg/glyph_path.h"
#include "qxfont/svg/svg_document.h"

namespace qxfont {
namespace {

using QXFontService_NS::FS_GlyphContour;
using QXFontService_NS::FS_GlyphDrawInfo;

/// A contour with a line, a quadratic and a cubic piece.
FS_GlyphDrawInfo drawnGlyph() {
  FS_GlyphContour contour;
  contour.segments = {0, 1, 2};
  contour.points = {{1, 2}, {3, 4.5F}, {5, 6}, {7, 8}, {9, 10}, {-11, 12}, {1, 2}};
  FS_GlyphDrawInfo glyph;
  glyph.horiAdvance = 20;
  glyph.contours = {contour};
  const float bounds[] = {-11, 2, 9, 12};
  std::copy(std::begin(bounds), std::end(bounds), std::begin(glyph.bounds));
  return glyph;
}

TEST(SvgPath, HasEachKindOfPieceAndClosesContours) {
  EXPECT_EQ(svgPath(drawnGlyph()), "M1 2L3 4.5Q5 6 7 8C9 10 -11 12 1 2Z");
  FS_GlyphDrawInfo two = drawnGlyph();
  two.contours.push_back(two.contours[0]);
  EXPECT_EQ(svgPath(two), svgPath(drawnGlyph()) + svgPath(drawnGlyph()));
  EXPECT_EQ(svgPath(FS_GlyphDrawInfo()), "");
}

TEST(SvgPath, HasTheFillRuleOfTheGlyph) {
  FS_GlyphDrawInfo glyph;
  EXPECT_STREQ(svgFillRule(glyph), "nonzero");
  glyph.evenOddFill = true;
  EXPECT_STREQ(svgFillRule(glyph), "evenodd");
}

TEST(SvgGlyph, ShowsPathOriginAndAdvance) {
  EXPECT_EQ(svgGlyph(drawnGlyph()),
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"31\" height=\"12\" "
            "viewBox=\"-11 -12 31 12\">\n<path transform=\"scale(1 -1)\" fill-rule=\"nonzero\" "
            "d=\"M1 2L3 4.5Q5 6 7 8C9 10 -11 12 1 2Z\"/>\n</svg>\n");
  const std::string blank = svgGlyph(FS_GlyphDrawInfo());
  EXPECT_NE(blank.find("width=\"1\" height=\"1\""), std::string::npos) << "a box is never empty";
}

TEST(ContoursJson, ListsThePiecesOfEachContour) {
  EXPECT_EQ(contoursJson(drawnGlyph()).dump(),
            "[[[\"M\",1,2],[\"L\",3,4.5],[\"Q\",5,6,7,8],[\"C\",9,10,-11,12,1,2]]]");
  EXPECT_EQ(contoursJson(FS_GlyphDrawInfo()).dump(), "[]");
}

/// Two glyphs of 10 points on a line: the first blank, the second drawn.
Page onePage() {
  Glyph blank;
  blank.gid = 3;
  blank.advance = 0.5;
  Glyph drawn;
  drawn.gid = 7;
  drawn.dx = 0.1;
  drawn.dy = 0.2;
  PlacedLine line;
  line.x = 10;
  line.baseline = 80;
  line.size = 10;
  line.glyphs = {blank, drawn};
  Page page;
  page.lines = {line};
  return page;
}

TEST(SvgPage, PlacesDrawnGlyphsFromTheTopAndLeavesBlankOnesOut) {
  const SvgFont font{"", 1000, {7}};
  UsedGlyphs used;
  EXPECT_EQ(svgPage(onePage(), {100, 100}, {used}, {font}),
            "<use href=\"#f0g7\" transform=\"translate(16 18)scale(0.01 -0.01)\"/>\n");
}

TEST(SvgDocument, SetsItsPagesOneBelowTheOther) {
  SvgDocument document;
  document.title = "a<b";
  document.page = {100, 200};
  document.pages = {"<first/>", "<second/>"};
  const std::string text = svgBytes(document);
  EXPECT_NE(text.find("width=\"100pt\" height=\"412pt\" viewBox=\"0 0 100 412\""),
            std::string::npos);
  EXPECT_NE(text.find("<title>a&lt;b</title>"), std::string::npos);
  EXPECT_LT(text.find("translate(0 0)"), text.find("<first/>"));
  EXPECT_LT(text.find("translate(0 212)"), text.find("<second/>"));
}

}  // namespace
}  // namespace qxfont
