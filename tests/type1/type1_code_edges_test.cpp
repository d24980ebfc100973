#include <string>

#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::PfmBuilder;
using qxtest::Type1Builder;

constexpr int kFirstNewCode = 128;
const std::string kBox = qxtest::type1Box(500, 100);

/// Codes at the edges of what decides over them.
class Type1CodeEdges : public qxtest::Type1Test {
 protected:
  static std::string page(FS_Type1& font, unsigned char number) {
    const Type1CMapArray* const pairs = font.getType1CMapArray(number, 0);
    if (pairs == nullptr) return "unknown";
    std::string text;
    for (const auto& [code, name] : *pairs)
      text += (text.empty() ? "" : ", ") + std::to_string(code) + " " + name;
    return text;
  }
  static AfmBuilder symbols() {
    AfmBuilder file;
    file.encodingScheme = "FontSpecific";
    return file;
  }
  /// A program with these codes; each has a glyph of its own.
  void putProgram(const std::vector<std::pair<int, std::string>>& codes) {
    Type1Builder font;
    font.glyph(".notdef", kBox);
    for (const auto& [code, name] : codes) font.glyph(name, kBox);
    world.file("/f/a.pfb", font.encoding(codes).pfb());
  }
};

TEST_F(Type1CodeEdges, OnlyF000ToFFFFOfASymbolicFontIsFolded) {
  auto& font = afm(symbols().glyph(65, 500, "A").glyph(255, 500, "last").glyph(32, 500, "first"));
  const std::pair<int, int> rows[] = {{0xF041, 65}, {0xF0FF, 255}, {0xF020, 32}, {0xF000, 0},
                                      {0xEFFF, 0},  {0xE041, 0},   {0xF141, 0},  {0xFF41, 0},
                                      {0xFFFF, 0},  {0x1F041, 0},  {0x10041, 0}};
  for (const auto& [character, code] : rows)
    EXPECT_EQ(font.getType1CharCode(character, 0), code) << character;
}

TEST_F(Type1CodeEdges, AStandardCodeIsEnteredUnlessTheEncodingHasNoKnownName) {
  const std::pair<const char*, const char*> rows[] = {{"AdobeStandardEncoding", "unknown"},
                                                      {"WinAnsiEncoding", "169 quotesingle"},
                                                      {"MacRomanEncoding", "169 quotesingle"},
                                                      {"MacExpertEncoding", "169 quotesingle"}};
  for (const auto& [scheme, entered] : rows) {
    AfmBuilder file;
    file.encodingScheme = scheme;
    auto& font = afm(file.glyph(39, 180, "quotesingle"));
    EXPECT_EQ(font.getType1CharCode(39, 0), 169) << scheme;
    EXPECT_EQ(page(font, 0), entered) << scheme;
  }
}

TEST_F(Type1CodeEdges, ACodeFrom256IsNoCodeOfAPage) {
  auto& font = afm(AfmBuilder().glyph(0x152, 500, "OE"));
  EXPECT_EQ(font.getType1CharCode(0x152, 0), 234) << "that of the standard encoding";
  glyphList("0042;B\n");
  EXPECT_EQ(afm(AfmBuilder().glyph(0x152, 500, "OE")).getType1CharCode(0x152, 0), 234)
      << "a list makes no difference here";
  EXPECT_EQ(afm(AfmBuilder().glyph(0x102, 500, "Abreve")).getType1CharCode(0x102, 0), kFirstNewCode)
      << "the standard encoding has none either";
}

TEST_F(Type1CodeEdges, ASymbolicFontKeepsCharactersTo255) {
  auto& font = afm(symbols().glyph(0xFF, 500, "ydieresis").glyph(0x100, 500, "Amacron"));
  EXPECT_EQ(font.getType1CharCode(0xFF, 0), 0xFF);
  EXPECT_EQ(font.getType1CharCode(0x100, 0), kFirstNewCode);
  EXPECT_EQ(page(font, 0), "255 ydieresis, 128 Amacron");
}

TEST_F(Type1CodeEdges, WhatTheListNamesInVainTheProgramMayHave) {
  putProgram({{65, "one"}});
  glyphList("0041;Missing\n");
  EXPECT_EQ(afm(AfmBuilder().glyph(65, 500, "A")).getType1CharCode(65, 0), 65);
}

TEST_F(Type1CodeEdges, CodesOfAProgramFrom254OnMoveToNewPages) {
  putProgram({{253, "a"}, {254, "b"}, {255, "c"}});
  auto& font = afm(AfmBuilder());
  EXPECT_EQ(font.getType1CharCode(253, 0), 253);
  EXPECT_EQ(font.getType1CharCode(254, 0), 0x101);
  EXPECT_EQ(font.getType1CharCode(255, 0), 0x102) << "the number runs on";
  EXPECT_EQ(font.getType1CharCode(254, 0), 0x101) << "given once";
  EXPECT_EQ(page(font, 1), "1 b, 2 c");
}

TEST_F(Type1CodeEdges, WithDirectCodesAProgramStillKnowsNoCodesOutside32To255) {
  putProgram({{31, "a"}, {32, "b"}, {255, "c"}});
  options("a.afm").skipGlyphnameMapping = true;
  auto& font = afm(AfmBuilder());
  EXPECT_EQ(font.getType1CharCode(31, 0), 0);
  EXPECT_EQ(font.getType1CharCode(32, 0), 32);
  EXPECT_EQ(font.getType1CharCode(255, 0), 255) << "no new page here";
  EXPECT_EQ(page(font, 0), "32 b, 255 c");
}

TEST_F(Type1CodeEdges, WithDirectCodesAProgramOfTextHasNone) {
  world.file("/f/a.pfa", Type1Builder().encoding({{65, "A"}}).glyph("A", kBox).pfa());
  options("a.afm").skipGlyphnameMapping = true;
  EXPECT_EQ(afm(AfmBuilder().glyph(65, 500, "A")).getType1CharCode(65, 0), 0);
}

TEST_F(Type1CodeEdges, NewCodesOfAPfmStepOverThoseOfItsProgram) {
  putProgram({{128, "a"}, {129, "b"}, {65, "Euro"}});
  auto& font = pfm(PfmBuilder());
  EXPECT_EQ(font.getType1CharCode(0x20AC, 0), 130);
  EXPECT_EQ(page(font, 0), "130 Euro");
}

TEST_F(Type1CodeEdges, AGlyphListServesAPfmToo) {
  putProgram({{65, "one"}});
  glyphList("4E00;one\n4E01;Missing\n");
  auto& font = pfm(PfmBuilder());
  EXPECT_EQ(font.getType1CharCode(0x4E00, 0), 65);
  EXPECT_EQ(font.getType1CharCode(0x4E01, 0), 0);
}

TEST_F(Type1CodeEdges, APfmWithoutAProgramKnowsTheCodesOfItsRange) {
  PfmBuilder file;
  file.charSet = 2;
  auto& font = pfm(file);
  const std::pair<int, int> rows[] = {{31, 0}, {32, 32}, {34, 34}, {35, 0}, {0xF020, 32}};
  for (const auto& [character, code] : rows)
    EXPECT_EQ(font.getType1CharCode(character, 0), code) << character;
  EXPECT_EQ(page(font, 0), "unknown");
}

}  // namespace
}  // namespace QXFontService_NS
