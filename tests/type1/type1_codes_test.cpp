#include <string>

#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::Type1Builder;

constexpr int kFirstNewCode = 128;

/// Codes that fonts by metric files give out for characters.
class Type1Codes : public qxtest::Type1Test {
 protected:
  static AfmBuilder letters() {
    AfmBuilder file;
    file.glyph(32, 250, "space").glyph(39, 333, "quoteright").glyph(45, 333, "hyphen");
    file.glyph(65, 722, "A").glyph(66, 667, "B").glyph(-1, 500, "Euro");
    return file;
  }
  static AfmBuilder symbols() {
    AfmBuilder file = letters();
    file.encodingScheme = "FontSpecific";
    return file;
  }
  /// The glyph names that a page lists: "code name, ...".
  static std::string page(FS_Type1& font, unsigned char number) {
    const Type1CMapArray* const pairs = font.getType1CMapArray(number, 0);
    if (pairs == nullptr) return "unknown";
    std::string text;
    for (const auto& [code, name] : *pairs)
      text += (text.empty() ? "" : ", ") + std::to_string(code) + " " + name;
    return text;
  }
  static std::string nameAt(FS_Type1& font, unsigned char number, unsigned char code) {
    std::string name;
    return font.getType1GlyphName(number, code, name, 0) ? name : "false";
  }
};

TEST_F(Type1Codes, OrdinaryLettersKeepTheirCodesAndLeavePageZeroUnknown) {
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode('A', 0), 65);
  EXPECT_EQ(font.getType1CharCode(' ', 0), 32);
  EXPECT_EQ(page(font, 0), "unknown");
  EXPECT_EQ(nameAt(font, 0, 65), "A");
}

TEST_F(Type1Codes, AFreshFontNamesTheStandardEncodingOnPageZeroAlone) {
  auto& font = afm(AfmBuilder());
  EXPECT_EQ(nameAt(font, 0, 65), "A");
  EXPECT_EQ(nameAt(font, 0, 0), ".notdef");
  EXPECT_EQ(nameAt(font, 1, 65), "false");
}

TEST_F(Type1Codes, CharactersWithAnotherGlyphTakeItsCode) {
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode(0xA0, 0), 32);
  EXPECT_EQ(font.getType1CharCode(0xAD, 0), 45);
}

TEST_F(Type1Codes, AGlyphAtTheCodeOfAnotherCharacterGetsANewOne) {
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode(0x2019, 0), kFirstNewCode);
  EXPECT_EQ(font.getType1CharCode(0x2019, 0), kFirstNewCode) << "given once";
  EXPECT_EQ(page(font, 0), "128 quoteright");
  EXPECT_EQ(nameAt(font, 0, 128), "quoteright");
}

TEST_F(Type1Codes, AGlyphThatIsNotEncodedGetsANewOne) {
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode(0x20AC, 0), kFirstNewCode);
  EXPECT_EQ(page(font, 0), "128 Euro");
}

TEST_F(Type1Codes, NewCodesStepOverThoseOfTheFont) {
  AfmBuilder file = letters();
  file.glyph(128, 500, "x128").glyph(129, 500, "x129").glyph(-1, 500, "Aacute");
  auto& font = afm(file);
  EXPECT_EQ(font.getType1CharCode(0x20AC, 0), 130);
  EXPECT_EQ(font.getType1CharCode(0xC1, 0), 131);
}

TEST_F(Type1Codes, AGlyphAtItsCharacterThatTheStandardEncodingLacksGetsANewOne) {
  AfmBuilder file;
  file.glyph(0xE9, 444, "eacute");
  EXPECT_EQ(afm(file).getType1CharCode(0xE9, 0), kFirstNewCode);
}

TEST_F(Type1Codes, AGlyphThatTheStandardEncodingHasElsewhereTakesThatCode) {
  AfmBuilder file;
  file.glyph(39, 180, "quotesingle");
  auto& font = afm(file);
  EXPECT_EQ(font.getType1CharCode(39, 0), 169);
  EXPECT_EQ(page(font, 0), "unknown") << "an encoding of no known name";
  file.encodingScheme = "WinAnsiEncoding";
  auto& windows = afm(file);
  EXPECT_EQ(windows.getType1CharCode(39, 0), 169);
  EXPECT_EQ(page(windows, 0), "169 quotesingle");
}

TEST_F(Type1Codes, WithAGlyphListAGlyphAtItsCharacterStays) {
  glyphList("0042;A\n");
  AfmBuilder file;
  file.glyph(39, 180, "quotesingle");
  EXPECT_EQ(afm(file).getType1CharCode(39, 0), 39);
}

TEST_F(Type1Codes, CharactersOfTheGlyphListTakeTheCodeOfItsGlyph) {
  glyphList("0041;B\n4E00;A\n");
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode('A', 0), 66);
  EXPECT_EQ(font.getType1CharCode(0x4E00, 0), 65);
  EXPECT_EQ(page(font, 0), "unknown");
}

TEST_F(Type1Codes, InAFontOfItsOwnEncodingTheyAreEntered) {
  glyphList("4E00;A\n");
  auto& font = afm(symbols());
  EXPECT_EQ(font.getType1CharCode(0x4E00, 0), 65);
  EXPECT_EQ(page(font, 0), "65 A");
}

TEST_F(Type1Codes, CodesOfTheGlyphListAreCutToEightBits) {
  glyphList("4E00;wide\n");
  AfmBuilder file;
  file.glyph(0x141, 500, "wide");
  EXPECT_EQ(afm(file).getType1CharCode(0x4E00, 0), 0x41);
}

TEST_F(Type1Codes, AListedGlyphThatIsNotEncodedGetsANewCode) {
  glyphList("4E00;Euro\n");
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode(0x4E00, 0), kFirstNewCode);
  EXPECT_EQ(page(font, 0), "128 Euro");
}

TEST_F(Type1Codes, AListedGlyphThatTheMetricsLackIsNotLookedUpByItsCharacter) {
  glyphList("0041;Missing\n0042;\n");
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode('A', 0), 0);
  EXPECT_EQ(font.getType1CharCode('B', 0), 0) << "an empty name is a name";
}

TEST_F(Type1Codes, NoCodeIsSpentOnACharacterThatTheFontCannotShow) {
  auto& font = afm(letters());
  for (const int character : {0x4E00, 0xE9, 0, -1, 0x110000, 0x1F600})
    EXPECT_EQ(font.getType1CharCode(character, 0), 0) << character;
  EXPECT_EQ(font.getType1CharCode(0x20AC, 0), kFirstNewCode);
}

TEST_F(Type1Codes, FromNumber253TheNextIsOnPageOneAfterThirtyThreeFreeCodes) {
  AfmBuilder file;
  for (int i = 0; i < 130; ++i) file.glyph(-1, 500, "g" + std::to_string(i));
  std::string list;
  for (int i = 0; i < 130; ++i) {
    char line[32];
    std::snprintf(line, sizeof line, "%04X;g%d\n", 0x4E00 + i, i);
    list += line;
  }
  glyphList(list);
  auto& font = afm(file);
  for (int i = 0; i < 126; ++i) ASSERT_EQ(font.getType1CharCode(0x4E00 + i, 0), kFirstNewCode + i);
  EXPECT_EQ(font.getType1CharCode(0x4E00 + 126, 0), 0x121);
  EXPECT_EQ(font.getType1CharCode(0x4E00 + 127, 0), 0x122);
  EXPECT_EQ(page(font, 1), "33 g126, 34 g127");
}

TEST_F(Type1Codes, ASymbolicFontFoldsPrivateUseAndEntersItsCodes) {
  auto& font = afm(symbols());
  EXPECT_EQ(font.getType1CharCode(0xF041, 0), 65);
  EXPECT_EQ(page(font, 0), "65 A");
  EXPECT_EQ(font.getType1CharCode('A', 0), 65) << "remembered under the folded character";
  EXPECT_EQ(page(font, 0), "65 A");
}

TEST_F(Type1Codes, OtherFontsDoNotFold) {
  EXPECT_EQ(afm(letters()).getType1CharCode(0xF041, 0), 0);
}

TEST_F(Type1Codes, ASymbolicFontHasNoOtherGlyphForACharacter) {
  EXPECT_EQ(afm(symbols()).getType1CharCode(0xA0, 0), 0);
}

TEST_F(Type1Codes, ASymbolicFontGivesCharactersFrom256NewCodes) {
  AfmBuilder file;
  file.encodingScheme = "FontSpecific";
  file.glyph(0x3B1, 500, "alpha");
  EXPECT_EQ(afm(file).getType1CharCode(0x3B1, 0), kFirstNewCode);
}

TEST_F(Type1Codes, ASymbolicFontAnswersItsOwnCodesAndKeepsNothing) {
  AfmBuilder file = symbols();
  file.glyph(200, 500, "a1").glyph(31, 500, "a2");
  auto& font = afm(file);
  EXPECT_EQ(font.getType1CharCode(200, 0), 200);
  EXPECT_EQ(font.getType1CharCode(0xF0C8, 0), 200);
  EXPECT_EQ(page(font, 0), "unknown");
  EXPECT_EQ(font.getType1CharCode(31, 0), 0);
  EXPECT_EQ(font.getType1CharCode(201, 0), 0);
}

TEST_F(Type1Codes, DirectCodesWithoutAProgramAreTheCharactersUnkept) {
  options("a.afm").skipGlyphnameMapping = true;
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode(31, 0), 0);
  EXPECT_EQ(font.getType1CharCode(32, 0), 32);
  EXPECT_EQ(font.getType1CharCode(255, 0), 255);
  EXPECT_EQ(font.getType1CharCode(256, 0), 0);
  EXPECT_EQ(page(font, 0), "unknown");
}

/// The same with a program whose encoding is its own.
class Type1ProgramCodes : public Type1Codes {
 protected:
  Type1ProgramCodes() {
    const std::string box = qxtest::type1Box(500, 100);
    Type1Builder font;
    font.glyph(".notdef", box).glyph("one", box).glyph("last", box).glyph("more", box);
    font.encoding({{65, "one"}, {253, "more"}, {255, "last"}});
    world.file("/f/a.pfb", font.pfb());
  }
};

TEST_F(Type1ProgramCodes, DirectCodesAreThoseOfTheProgram) {
  options("a.afm").skipGlyphnameMapping = true;
  auto& font = afm(letters());
  EXPECT_EQ(font.getType1CharCode(65, 0), 65);
  EXPECT_EQ(font.getType1CharCode(66, 0), 0);
  EXPECT_EQ(page(font, 0), "65 one");
  EXPECT_EQ(font.getType1CharCode(65, 0), 65);
  EXPECT_EQ(page(font, 0), "65 one") << "entered once";
}

TEST_F(Type1ProgramCodes, WhatTheMetricsLackTheProgramMayHave) {
  auto& font = afm(AfmBuilder());
  EXPECT_TRUE(font.isSymbolicFont(0)) << "by the program";
  EXPECT_EQ(font.getType1CharCode(65, 0), 65);
  EXPECT_EQ(font.getType1CharCode(253, 0), 253);
  EXPECT_EQ(page(font, 0), "unknown");
}

TEST_F(Type1ProgramCodes, OfAFontOfItsOwnEncodingTheyAreEntered) {
  AfmBuilder file;
  file.encodingScheme = "FontSpecific";
  auto& font = afm(file);
  EXPECT_EQ(font.getType1CharCode(65, 0), 65);
  EXPECT_EQ(page(font, 0), "65 one");
}

TEST_F(Type1ProgramCodes, ACodeFrom254IsMovedToPageOneOntoCodesLeftFree) {
  auto& font = afm(AfmBuilder());
  EXPECT_EQ(font.getType1CharCode(255, 0), 0x101);
  EXPECT_EQ(page(font, 1), "1 last");
}

TEST_F(Type1Codes, PfmWithoutAProgramKnowsNoNames) {
  qxtest::PfmBuilder file;
  file.charSet = 2;
  auto& font = pfm(file);
  EXPECT_TRUE(font.isSymbolicFont(0));
  EXPECT_EQ(font.getType1CharCode(33, 0), 33) << "a code of the metrics";
  EXPECT_EQ(font.getType1CharCode(35, 0), 0);
  file.charSet = 0;
  EXPECT_EQ(pfm(file).getType1CharCode(33, 0), 0) << "not symbolic";
}

TEST_F(Type1Codes, PfmWithAProgramTakesItsGlyphs) {
  const std::string box = qxtest::type1Box(500, 100);
  world.file("/f/a.pfb", Type1Builder().glyph(".notdef", box).glyph("A", box).pfb());
  auto& font = pfm(qxtest::PfmBuilder());
  EXPECT_EQ(font.getType1CharCode('A', 0), 65);
  EXPECT_EQ(font.getType1CharCode('B', 0), 0);
}

TEST_F(Type1Codes, PairsOfAPageAreReadOneByOne) {
  auto& font = afm(letters());
  font.getType1CharCode(0x20AC, 0);
  unsigned char code = 7;
  std::string name = "before";
  EXPECT_FALSE(font.getType1CMapPair(0, 1, code, name, 0));
  EXPECT_FALSE(font.getType1CMapPair(0, -1, code, name, 0));
  EXPECT_FALSE(font.getType1CMapPair(9, 0, code, name, 0));
  EXPECT_EQ(name, "before");
  EXPECT_TRUE(font.getType1CMapPair(0, 0, code, name, 0));
  EXPECT_EQ(code, 128);
  EXPECT_EQ(name, "Euro");
  EXPECT_EQ(font.getType1GlyphIDCode(1, 0), 0);
}

}  // namespace
}  // namespace QXFontService_NS
