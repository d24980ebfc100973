#include "font/open_type.h"
#include "font/sfnt_fixture.h"
#include "support/cmap_builder.h"
#include "support/sample_open_type.h"

namespace QXFontService_NS {
namespace {

using qxtest::CffBuilder;
using qxtest::sampleCff;
using qxtest::sampleCidCff;
using qxtest::sampleOpenType;

class OpenTypeCodes : public qxtest::SfntFixture {
 protected:
  QXPtr<FS_OpenType> loadCff(const CffBuilder& cff) {
    auto font = load<FS_OpenType>(sampleOpenType(cff));
    EXPECT_TRUE(good) << message();
    return font;
  }
  static std::string nameOf(FS_OpenType& font, unsigned short code) {
    std::string name;
    const auto page = static_cast<unsigned char>(code >> 8);
    return font.getType1GlyphName(page, static_cast<unsigned char>(code & 0xFF), name, 0) ? name
                                                                                          : "false";
  }
};

TEST_F(OpenTypeCodes, GlyphsGetCodesInTheOrderInWhichTheyAreAskedFor) {
  const auto font = loadCff(sampleCff());
  EXPECT_EQ(font->getType1GlyphIDCode(3, 0), 0x80);
  EXPECT_EQ(font->getType1GlyphIDCode(2, 0), 0x81);
  EXPECT_EQ(font->getType1GlyphIDCode(3, 0), 0x80);
  EXPECT_EQ(*font->getType1CMapArray(0, 0), (Type1CMapArray{{0x80, "B"}, {0x81, "A"}}));
}

TEST_F(OpenTypeCodes, ACodeHasTheNameThatTheCharsetGivesItsGlyph) {
  CffBuilder cff = sampleCff();
  cff.charset = CffBuilder::charsetFormat0({391, 34, 900});
  const auto font = loadCff(cff);
  EXPECT_EQ(nameOf(*font, font->getType1GlyphIDCode(0, 0)), ".notdef");
  EXPECT_EQ(nameOf(*font, font->getType1GlyphIDCode(1, 0)), "own");
  EXPECT_EQ(nameOf(*font, font->getType1GlyphIDCode(2, 0)), "A");
  EXPECT_EQ(nameOf(*font, font->getType1GlyphIDCode(3, 0)), "");  // past the last string
  EXPECT_EQ(nameOf(*font, font->getType1GlyphIDCode(4, 0)), ".notdef");
}

TEST_F(OpenTypeCodes, ACidKeyedFontHasNoNames) {
  const auto font = loadCff(sampleCidCff());
  EXPECT_EQ(font->getType1GlyphIDCode(2, 0), 0x80);
  EXPECT_EQ(nameOf(*font, 0x80), "");
}

TEST_F(OpenTypeCodes, NoGlyphHasNoCodeAndSpendsNone) {
  const auto font = loadCff(sampleCff());
  EXPECT_EQ(font->getType1GlyphIDCode(0xFFFF, 0), 0);
  EXPECT_EQ(font->getType1CharCode(0x4E00, 0), 0);
  EXPECT_EQ(font->getType1CMapArray(0, 0), nullptr);
  EXPECT_EQ(font->getType1GlyphIDCode(2, 0), 0x80);
}

TEST_F(OpenTypeCodes, ACharacterHasTheCodeOfItsGlyph) {
  const auto font = loadCff(sampleCff());
  EXPECT_EQ(font->getType1GlyphIDCode(3, 0), 0x80);
  EXPECT_EQ(font->getType1CharCode('A', 0), 0x81);
  EXPECT_EQ(font->getType1CharCode('B', 0), 0x80);
  EXPECT_EQ(font->getType1CharCode('A', 0), 0x81);
  EXPECT_EQ(font->getType1GlyphIDCode(2, 0), 0x81);
}

TEST_F(OpenTypeCodes, AFontWithCodesOfItsOwnKeepsPageZero) {
  CffBuilder cff = sampleCff();
  cff.encoding = std::string("\x00\x02\x41\x42", 4);
  const auto font = loadCff(cff);
  ASSERT_EQ(font->getEncodingScheme(0), FS_ENCODING_FONTSPECIFIC);
  EXPECT_EQ(font->getType1CharCode('A', 0), 0x0101);
  EXPECT_EQ(font->getType1CharCode('B', 0), 0x0102);
  EXPECT_EQ(font->getType1CMapArray(0, 0), nullptr);
}

TEST_F(OpenTypeCodes, PairsAreThoseOfTheArray) {
  const auto font = loadCff(sampleCff());
  font->getType1CharCode('B', 0);
  unsigned char code = 0;
  std::string name;
  ASSERT_TRUE(font->getType1CMapPair(0, 0, code, name, 0));
  EXPECT_EQ(code, 0x80);
  EXPECT_EQ(name, "B");
  EXPECT_FALSE(font->getType1CMapPair(0, 1, code, name, 0));
  EXPECT_FALSE(font->getType1CMapPair(1, 0, code, name, 0));
}

TEST_F(OpenTypeCodes, NoCodeIsGivenOutBeforeTheTablesAreLoaded) {
  const auto font = read<FS_OpenType>(sampleOpenType(sampleCff()));
  EXPECT_EQ(font->getType1GlyphIDCode(2, 0), 0);
  EXPECT_EQ(font->getType1CharCode('A', 0), 0);
  ASSERT_TRUE(font->loadFontTables(&error, 0, nullptr)) << message();
  EXPECT_EQ(font->getType1CharCode('A', 0), 0x80);
}

}  // namespace
}  // namespace QXFontService_NS
