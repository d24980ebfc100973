#include <gtest/gtest.h>

#include <string>

#include "qxfont/cli/status.h"
#include "qxfont/postscript/ps_document.h"

namespace qxfont {
namespace {

Glyph glyphOf(std::size_t face, unsigned short gid, double advance = 0.5) {
  Glyph glyph;
  glyph.face = face;
  glyph.gid = gid;
  glyph.width = 0.5;
  glyph.advance = advance;
  return glyph;
}

/// The page of one line; glyph n of each face has CID n + 1, and glyph 9 is blank.
std::string lineOf(std::vector<Glyph> glyphs) {
  std::vector<UsedGlyphs> fonts(2);
  for (std::size_t face = 0; face < 2; ++face) {
    fonts[face].face = face;
    for (unsigned short gid = 0; gid < 9; ++gid)
      fonts[face].codes[gid] = static_cast<unsigned short>(gid + 1);
  }
  Page page;
  page.lines.push_back({10, 700.5, 12, std::move(glyphs)});
  return psPage(page, fonts);
}

TEST(PsPage, showsNeighboursTogetherByTheirCids) {
  EXPECT_EQ(lineOf({glyphOf(0, 3), glyphOf(0, 8)}),
            "/F0 12 selectfont\n10 700.5 moveto\n<00040009> show\n");
}

TEST(PsPage, movesWhereAGlyphIsSetWiderThanItsWidth) {
  EXPECT_EQ(lineOf({glyphOf(0, 3, 0.25), glyphOf(0, 4)}),
            "/F0 12 selectfont\n10 700.5 moveto\n<0004> show\n13 700.5 moveto\n<0005> show\n");
}

TEST(PsPage, movesForGlyphsOffTheirPlace) {
  Glyph mark = glyphOf(0, 4, 0);
  mark.dx = -0.5;
  mark.dy = 0.25;
  EXPECT_EQ(lineOf({glyphOf(0, 3), mark, glyphOf(0, 3)}),
            "/F0 12 selectfont\n10 700.5 moveto\n<0004> show\n10 703.5 moveto\n<0005> show\n"
            "16 700.5 moveto\n<0004> show\n");
}

TEST(PsPage, changesFontsOnALine) {
  EXPECT_EQ(lineOf({glyphOf(0, 3), glyphOf(1, 3)}),
            "/F0 12 selectfont\n10 700.5 moveto\n<0004> show\n"
            "/F1 12 selectfont\n16 700.5 moveto\n<0004> show\n");
}

TEST(PsPage, blankGlyphsOnlyTakeTheirPlace) {
  EXPECT_EQ(lineOf({glyphOf(0, 3), glyphOf(0, 9), glyphOf(0, 3)}),
            "/F0 12 selectfont\n10 700.5 moveto\n<0004> show\n22 700.5 moveto\n<0004> show\n");
}

TEST(PsBytes, areAStructuredDocument) {
  PsDocument document;
  document.width = 100.5;
  document.height = 200;
  document.creator = "test";
  document.fonts = {{"A", "define A\n", 1, {}}, {"B", "define B\n", 15.625, {}}};
  document.pages = {"one\n", "two\n"};
  EXPECT_EQ(psBytes(document),
            "%!PS-Adobe-3.0\n"
            "%%Creator: test\n"
            "%%LanguageLevel: 3\n"
            "%%BoundingBox: 0 0 101 200\n"
            "%%Pages: 2\n"
            "%%DocumentSuppliedResources: CIDFont A\n"
            "%%+ CIDFont B\n"
            "%%EndComments\n"
            "%%BeginProlog\n"
            "%%EndProlog\n"
            "%%BeginSetup\n"
            "%%BeginResource: CIDFont A\n"
            "define A\n"
            "%%EndResource\n"
            "/F0 /Identity-H [/A] composefont pop\n"
            "%%BeginResource: CIDFont B\n"
            "define B\n"
            "%%EndResource\n"
            "/F1 /Identity-H [/B] composefont 15.625 scalefont /F1 exch definefont pop\n"
            "<< /PageSize [100.5 200] >> setpagedevice\n"
            "%%EndSetup\n"
            "%%Page: 1 1\n"
            "one\n"
            "showpage\n"
            "%%Page: 2 2\n"
            "two\n"
            "showpage\n"
            "%%Trailer\n"
            "%%EOF\n");
}

}  // namespace
}  // namespace qxfont
