#include "font/sfnt/os2.h"

#include <gtest/gtest.h>

#include "support/table_builders.h"

namespace QXFontService_NS::sfnt {
namespace {

using qxtest::Os2Builder;

Os2 decode(const std::string& bytes) {
  return Os2::decode(ByteView(bytes.data(), bytes.size()));
}

TEST(Os2, DecodesItsFields) {
  Os2Builder builder;
  builder.version = 4;
  builder.xAvgCharWidth = -3;
  builder.usWeightClass = 650;
  builder.usWidthClass = 3;
  builder.fsType = 0x0104;
  builder.familyClass = 8;
  builder.familySubclass = 2;
  builder.panose = {2, 11, 6, 3, 3, 8, 4, 2, 2, 4};
  builder.ulUnicodeRange = {0x80000001, 2, 3, 4};
  builder.fsSelection = 0x21;
  builder.usWinDescent = 0xFFFF;
  builder.ulCodePageRange = {0x80000000, 7};
  builder.usDefaultChar = 0x3F;
  const Os2 os2 = decode(builder.build());
  EXPECT_EQ(os2.version, 4);
  EXPECT_EQ(os2.xAvgCharWidth, -3);
  EXPECT_EQ(os2.usWeightClass, 650u);
  EXPECT_EQ(os2.usWidthClass, 3u);
  EXPECT_EQ(os2.fsType, 0x0104);
  EXPECT_EQ(os2.sFamilyClass[0], 8);
  EXPECT_EQ(os2.sFamilyClass[1], 2);
  EXPECT_EQ(os2.panose[1], 11);
  EXPECT_EQ(os2.panose[9], 4);
  EXPECT_EQ(os2.ulUnicodeRange, (std::array<std::uint32_t, 4>{0x80000001, 2, 3, 4}));
  EXPECT_EQ(os2.fsSelection, 0x21u);
  EXPECT_EQ(os2.usFirstCharIndex, 0x20);
  EXPECT_EQ(os2.usLastCharIndex, 0x7E);
  EXPECT_EQ(os2.sTypoAscender, 750);
  EXPECT_EQ(os2.sTypoDescender, -250);
  EXPECT_EQ(os2.sTypoLineGap, 100);
  EXPECT_EQ(os2.usWinAscent, 900);
  EXPECT_EQ(os2.usWinDescent, 0xFFFF);
  EXPECT_EQ(os2.ulCodePageRange, (std::array<std::uint32_t, 2>{0x80000000, 7}));
  EXPECT_EQ(os2.sxHeight, 480);
  EXPECT_EQ(os2.sCapHeight, 700);
}

TEST(Os2, TheDefaultCharacterIsNeverTaken) {
  EXPECT_EQ(decode(Os2Builder{.usDefaultChar = 0x3F}.build()).usDefaultChar, 0);
}

TEST(Os2, TheVersionDecidesWhichFieldsAreTaken) {
  Os2Builder builder;
  builder.ulCodePageRange = {5, 6};
  for (unsigned version = 0; version <= 5; ++version) {
    builder.version = 4;
    std::string bytes = builder.build();
    bytes[1] = static_cast<char>(version);
    const Os2 os2 = decode(bytes);
    EXPECT_EQ(os2.ulCodePageRange[0], version < 1 ? 1u : 5u) << version;
    EXPECT_EQ(os2.ulCodePageRange[1], version < 1 ? 0u : 6u) << version;
    EXPECT_EQ(os2.sxHeight, version < 2 ? 0 : 480) << version;
    EXPECT_EQ(os2.sCapHeight, version < 2 ? 0 : 700) << version;
  }
}

TEST(Os2, BytesBehindAShortTableReadAsZero) {
  const std::string shortest = Os2Builder{.version = 0}.build().substr(0, 68);
  const Os2 zero = decode(shortest);
  EXPECT_EQ(zero.usLastCharIndex, 0x7E);
  EXPECT_EQ(zero.sTypoAscender, 0);
  EXPECT_EQ(zero.usWinAscent, 0);
  EXPECT_EQ(zero.ulCodePageRange, (std::array<std::uint32_t, 2>{1, 0}));
  const Os2 one = decode(Os2Builder{.version = 1}.build().substr(0, 78));
  EXPECT_EQ(one.ulCodePageRange, (std::array<std::uint32_t, 2>{0, 0}));
}

TEST(Os2, ReadsNothingBehindItsLimit) {
  EXPECT_EQ(Os2::kReadLimit, 100u);
  EXPECT_EQ(decode(Os2Builder{.version = 5}.build() + std::string(200, 'x')).sCapHeight, 700);
}

TEST(Os2, OldWeightsBelowTenAreHundreds) {
  struct Row {
    unsigned version, stored, weight;
  };
  const Row rows[] = {{0, 4, 400}, {1, 5, 500}, {2, 9, 900}, {2, 10, 10},  {3, 5, 5},
                      {4, 9, 9},   {1, 0, 0},   {1, 1, 100}, {1, 700, 700}};
  for (const Row& row : rows) {
    const Os2Builder builder{.version = row.version, .usWeightClass = row.stored};
    EXPECT_EQ(decode(builder.build()).usWeightClass, row.weight)
        << row.version << " " << row.stored;
  }
}

TEST(Os2, SynthesizedFromHeadAndHhea) {
  Hhea hhea;
  hhea.ascender = 800;
  hhea.descender = -200;
  hhea.lineGap = 50;
  const Os2 os2 = Os2::synthesize(Head(), hhea);
  EXPECT_EQ(os2.version, 0);
  EXPECT_EQ(os2.xAvgCharWidth, 0);
  EXPECT_EQ(os2.usWidthClass, 5u);
  EXPECT_EQ(os2.fsType, 0);
  EXPECT_EQ(os2.sFamilyClass, (std::array<std::uint8_t, 2>{0, 0}));
  EXPECT_EQ(os2.panose, (std::array<std::uint8_t, 10>{}));
  EXPECT_EQ(os2.ulUnicodeRange, (std::array<std::uint32_t, 4>{3, 0, 0, 0}));
  EXPECT_EQ(os2.usFirstCharIndex, 0);
  EXPECT_EQ(os2.usLastCharIndex, 0);
  EXPECT_EQ(os2.sTypoAscender, 800);
  EXPECT_EQ(os2.sTypoDescender, -200);
  EXPECT_EQ(os2.sTypoLineGap, 50);
  EXPECT_EQ(os2.usWinAscent, 0);
  EXPECT_EQ(os2.usWinDescent, 0);
  EXPECT_EQ(os2.ulCodePageRange, (std::array<std::uint32_t, 2>{1, 0}));
  EXPECT_EQ(os2.sxHeight, 0);
  EXPECT_EQ(os2.sCapHeight, 0);
}

TEST(Os2, SynthesizedStyleComesFromMacStyle) {
  struct Row {
    std::uint16_t macStyle;
    std::uint32_t weight, selection;
  };
  for (const Row& row :
       {Row{0, 400, 0}, Row{1, 700, 0x20}, Row{2, 400, 1}, Row{3, 700, 0x21}, Row{0x7C, 400, 0}}) {
    Head head;
    head.macStyle = row.macStyle;
    const Os2 os2 = Os2::synthesize(head, Hhea());
    EXPECT_EQ(os2.usWeightClass, row.weight) << row.macStyle;
    EXPECT_EQ(os2.fsSelection, row.selection) << row.macStyle;
  }
}

TEST(Os2, WindowsHeightsAreFilledWhereTheAscentIsZero) {
  Hhea hhea;
  hhea.ascender = 800;
  hhea.descender = -200;
  struct Row {
    std::uint16_t ascent, descent, filledAscent, filledDescent;
  };
  for (const Row& row :
       {Row{0, 0, 800, 200}, Row{0, 55, 800, 200}, Row{700, 0, 700, 0}, Row{700, 55, 700, 55}}) {
    Os2 os2;
    os2.usWinAscent = row.ascent;
    os2.usWinDescent = row.descent;
    os2.fillWindowsHeights(hhea);
    EXPECT_EQ(os2.usWinAscent, row.filledAscent);
    EXPECT_EQ(os2.usWinDescent, row.filledDescent);
  }
}

TEST(Os2, FilledHeightsStandTheLowestDescender) {
  Hhea hhea;
  hhea.ascender = -1;
  hhea.descender = -32768;
  Os2 os2;
  os2.fillWindowsHeights(hhea);
  EXPECT_EQ(os2.usWinAscent, 0xFFFF);
  EXPECT_EQ(os2.usWinDescent, 32768);
}

}  // namespace
}  // namespace QXFontService_NS::sfnt
