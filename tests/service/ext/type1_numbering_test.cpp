#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/ext/numbering.h"
#include "qxfontservice/ext/open_file.h"

#include "pool/registry/registry_fixture.h"
#include "support/afm_builder.h"
#include "support/pfm_builder.h"
#include "support/sample_font.h"
#include "support/type1_builder.h"
#include "type1/maps/glyph_names.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::AfmBuilder;
using qxtest::Type1Builder;
using testing::ElementsAre;
using testing::IsEmpty;

/// What hosts learn of Type 1 fonts character by character.
class Type1Numbering : public qxtest::RegistryTest {
 protected:
  Type1Numbering() { openFolder(); }
  ~Type1Numbering() override {
    if (font.isCreatedFont()) font.deleteFont();
  }

  void open(const AfmBuilder& metrics) { open("/x/a.afm", metrics.build()); }
  void open(const std::string& path, const std::string& metrics) {
    world.file(path, metrics);
    const auto name = icu::UnicodeString::fromUTF8(path);
    ASSERT_TRUE(openFontFile(QXUri(name, QXCommonNS::URISTR_USER), 0, font));
  }
  /// "character>page.code glyph name width" for each row.
  std::vector<std::string> rows(const std::vector<int>& characters) {
    std::vector<std::string> texts;
    for (const CharacterNumber& row : numberCharacters(font, characters)) {
      texts.push_back(std::to_string(row.character) + ">" + std::to_string(row.code >> 8) + "." +
                      std::to_string(row.code & 0xFF) + " " + std::to_string(row.glyph) + " " +
                      row.name + " " + std::to_string(static_cast<int>(row.width)));
    }
    return texts;
  }
  static AfmBuilder letters() {
    AfmBuilder file;
    return file.glyph(32, 250, "space").glyph(65, 500, "A").glyph(-1, 444, "Euro");
  }
  static Type1Builder outlines() {
    Type1Builder program;
    program.glyph(".notdef", qxtest::type1Box(250, 10)).glyph("space", qxtest::type1Box(250, 0));
    program.glyph("A", qxtest::type1Box(500, 100));
    return program.glyph("Euro", qxtest::type1Box(444, 50));
  }
  void putProgram(const Type1Builder& program) { world.file("/x/a.pfb", program.pfb()); }

  FS_FontInfo font;
};

TEST_F(Type1Numbering, RowsFollowTheCharactersAsked) {
  putProgram(outlines());
  open(letters());
  EXPECT_THAT(rows({0x20AC, 'A', 0xA0, 'A'}),
              ElementsAre("8364>0.128 3 Euro 444", "65>0.65 2 A 500", "160>0.32 1 space 250",
                          "65>0.65 2 A 500"));
}

TEST_F(Type1Numbering, ACharacterKeepsItsCode) {
  putProgram(outlines());
  open(letters());
  EXPECT_THAT(rows({0x20AC}), ElementsAre("8364>0.128 3 Euro 444"));
  EXPECT_EQ(font.getType1CharCode(0x20AC), 128);
  EXPECT_THAT(rows({0x20AC}), ElementsAre("8364>0.128 3 Euro 444"));
}

TEST_F(Type1Numbering, WhatTheFontCannotShowHasNothing) {
  putProgram(outlines());
  open(letters());
  EXPECT_THAT(rows({0x3042, -1, 'B'}),
              ElementsAre("12354>0.0 65535  0", "-1>0.0 65535  0", "66>0.0 65535  0"));
}

TEST_F(Type1Numbering, MetricsAloneGiveCodesAndNamesWithoutGlyphs) {
  open(letters());
  EXPECT_THAT(rows({'A', 0x20AC}), ElementsAre("65>0.65 65535 A 500", "8364>0.128 65535 Euro 444"));
}

TEST_F(Type1Numbering, ASymbolFontNamesWhatTheWriterTakes) {
  // Code 66 is "beta" in the program; "B" is no glyph of it.
  Type1Builder program = outlines();
  putProgram(program.glyph("beta", qxtest::type1Box(549, 30)).encoding({{65, "A"}, {66, "beta"}}));
  AfmBuilder metrics = letters();
  metrics.encodingScheme = "FontSpecific";
  open(metrics.glyph(66, 549, "beta"));
  // U+03B2 is encoded, but not at its character: it gets a code of its own.
  EXPECT_THAT(rows({'B', 0x3B2}), ElementsAre("66>0.66 4 beta 549", "946>0.128 4 beta 549"));
}

TEST_F(Type1Numbering, MoreCharactersThanAPageTakeAnother) {
  Type1Builder program = outlines();
  AfmBuilder metrics = letters();
  std::vector<int> characters;
  for (int code = 0x100; code < 0x400; ++code) {
    const std::string name(type1::glyphNameOf(code));
    if (name.empty()) continue;
    characters.push_back(code);
    program.glyph(name, qxtest::type1Box(code, 40));
    metrics.glyph(-1, code, name);
  }
  putProgram(program);
  open(metrics);
  ASSERT_GT(characters.size(), 127U);
  const auto numbers = numberCharacters(font, characters);
  EXPECT_EQ(numbers[0].code, 128);
  EXPECT_EQ(numbers[125].code, 253);
  EXPECT_EQ(numbers[126].code, 0x100 + 33);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_EQ(numbers[i].name, type1::glyphNameOf(characters[i]));
    EXPECT_EQ(numbers[i].width, static_cast<float>(characters[i]));
    EXPECT_EQ(numbers[i].glyph, i + 4);
  }
}

TEST_F(Type1Numbering, OtherFontsAndEmptyHandlesHaveNone) {
  EXPECT_THAT(rows({'A'}), IsEmpty());
  open("/x/b.ttf", qxtest::sampleFont().build());
  EXPECT_THAT(rows({'A'}), IsEmpty());
  EXPECT_THAT(characterWidths(font), IsEmpty());
}

/// "character:width" for each row.
std::vector<std::string> widthsOf(const FS_FontInfo& font) {
  std::vector<std::string> texts;
  for (const CharacterWidth& row : characterWidths(font))
    texts.push_back(std::to_string(row.code) + ":" + std::to_string(static_cast<int>(row.width)));
  return texts;
}

std::vector<std::string> pairsOf(const FS_FontInfo& font, bool vertical = false) {
  std::vector<std::string> texts;
  for (const KernPair& row : kernPairs(font, vertical))
    texts.push_back(std::to_string(row.left) + "," + std::to_string(row.right) + ":" +
                    std::to_string(row.value));
  return texts;
}

TEST_F(Type1Numbering, WidthsAreThoseOfCharactersWithOrWithoutProgram) {
  open(letters());
  EXPECT_THAT(widthsOf(font), ElementsAre("32:250", "65:500", "160:250", "8364:444"));
  font.deleteFont();
  putProgram(outlines());
  open(letters());
  EXPECT_THAT(widthsOf(font), ElementsAre("32:250", "65:500", "160:250", "8364:444"));
}

TEST_F(Type1Numbering, PairsOfAnAfmAreThoseOfCharacters) {
  open(letters().kern("A", "Euro", -80).kern("Euro", "A", 15).kern("A", "A", 0));
  EXPECT_THAT(pairsOf(font), ElementsAre("65,8364:-80", "8364,65:15"));
  EXPECT_THAT(pairsOf(font, true), IsEmpty());
}

TEST_F(Type1Numbering, PairsBeyondAllUnitsAreTheLargest) {
  open(letters().kern("A", "A", 100000).kern("A", "Euro", -100000));
  EXPECT_THAT(pairsOf(font), ElementsAre("65,65:32767", "65,8364:-32767"));
}

TEST_F(Type1Numbering, PairsOfAPfmAreThoseOfCodes) {
  qxtest::PfmBuilder metrics;
  metrics.kernPairs = {{{33, 34}, -70}, {{255, 33}, 12}};
  open("/x/c.pfm", metrics.build());
  EXPECT_THAT(pairsOf(font), ElementsAre("33,34:-70", "255,33:12"));
}

}  // namespace
}  // namespace QXFontService_NS::ext
