#include "font/cmap/character_maps.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <tuple>
#include <utility>
#include <vector>

#include "font/cmap/cmap_reader.h"
#include "support/cmap_builder.h"
#include "support/random_draw.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using qxtest::CmapBuilder;
using qxtest::CmapSegment;

const CmapSegment kLast{0xFFFF, 0xFFFF, 1};

CharacterMaps make(const CmapBuilder& table, bool useZeroGlyph = false) {
  std::istringstream stream(table.build());
  CmapReading reading = readCmap(stream, TableRange{}, false);
  return CharacterMaps(std::move(reading.subtables), useZeroGlyph);
}

CharacterMaps only(unsigned platform, unsigned encoding, const std::string& subtable) {
  return make(CmapBuilder().add(platform, encoding, subtable));
}

// Which subtable answers.

TEST(CharacterMaps, WithoutASubtableNoCodeHasAGlyph) {
  for (const int code : {INT_MIN, -1, 0, 65, 255, 256, 0x10FFFF, INT_MAX}) {
    EXPECT_EQ(CharacterMaps().lookup(code), kNoGlyph) << code;
    EXPECT_EQ(CharacterMaps(CmapSubtables()).lookup(code), kNoGlyph) << code;
  }
  EXPECT_FALSE(CharacterMaps().mapCodes());
  EXPECT_EQ(CharacterMaps().maxCharCount(), 0u);
}

TEST(CharacterMaps, TheFirstOfFormats12And4And2And0AnswersForAll) {
  const std::string format0 = CmapBuilder::format0({{0x41, 1}, {0x42, 1}});
  const std::string format2 = CmapBuilder::format2({{{}, 0x42, 0, {2, 2}}});
  const std::string format4 = CmapBuilder::format4({{0x43, 0x44, 0, {4, 4}}, kLast});
  const std::string format12 = CmapBuilder::format12({{0x44, 0x44, 12}});
  CmapBuilder table;
  table.add(1, 0, format0);
  EXPECT_EQ(make(table).lookup(0x42), 1);
  table.add(1, 0, format2);
  EXPECT_EQ(make(table).lookup(0x41), kNoGlyph);
  EXPECT_EQ(make(table).lookup(0x42), 2);
  table.add(3, 1, format4);
  EXPECT_EQ(make(table).lookup(0x42), kNoGlyph);
  EXPECT_EQ(make(table).lookup(0x43), 4);
  table.add(3, 10, format12);
  EXPECT_EQ(make(table).lookup(0x43), kNoGlyph);
  EXPECT_EQ(make(table).lookup(0x44), 12);
}

TEST(CharacterMaps, Format12AnswersTheWholeRangeBesideFormat4) {
  const CharacterMaps maps =
      make(CmapBuilder()
               .add(3, 1, CmapBuilder::format4({{0x41, 0x5A, 0}, kLast}))
               .add(3, 10, CmapBuilder::format12({{0x41, 0x42, 3}, {0x1F600, 0x1F601, 9}})));
  EXPECT_EQ(maps.lookup(0x42), 4);
  EXPECT_EQ(maps.lookup(0x43), kNoGlyph);
  EXPECT_EQ(maps.lookup(0x1F601), 10);
  EXPECT_EQ(maps.maxCharCount(), 26u);
}

// Zero glyphs.

TEST(CharacterMaps, AZeroGlyphIsNoneInFormats4And12UnlessAskedFor) {
  const auto format4 = CmapBuilder().add(3, 1, CmapBuilder::format4({{65, 66, -65}, kLast}));
  const auto format12 = CmapBuilder().add(3, 10, CmapBuilder::format12({{65, 66, 0}}));
  for (const CmapBuilder& table : {format4, format12}) {
    EXPECT_EQ(make(table).lookup(65), kNoGlyph);
    EXPECT_EQ(make(table).lookup(66), 1);
    EXPECT_EQ(make(table, true).lookup(65), 0);
    EXPECT_EQ(make(table, true).lookup(66), 1);
    EXPECT_EQ(make(table, true).lookup(67), kNoGlyph);
  }
}

TEST(CharacterMaps, AZeroGlyphBehindTheFirstCodesFollowsTheSameRule) {
  const auto table = CmapBuilder().add(3, 1, CmapBuilder::format4({{0x400, 0x401, -0x400}, kLast}));
  EXPECT_EQ(make(table).lookup(0x400), kNoGlyph);
  EXPECT_EQ(make(table, true).lookup(0x400), 0);
  EXPECT_EQ(make(table).lookup(0xFFFF), kNoGlyph);  // U+FFFF with delta 1
  EXPECT_EQ(make(table, true).lookup(0xFFFF), 0);
}

TEST(CharacterMaps, AZeroGlyphStaysNoneInFormats0And2) {
  const auto format0 = CmapBuilder().add(1, 0, CmapBuilder::format0({{65, 1}}));
  const auto format2 = CmapBuilder().add(1, 0, CmapBuilder::format2({{{}, 65, 0, {1, 0}}}));
  EXPECT_EQ(make(format0, true).lookup(66), kNoGlyph);
  EXPECT_EQ(make(format2, true).lookup(66), kNoGlyph);
}

// Codes.

TEST(CharacterMaps, NegativeAndOversizedCodesMissInAllFormats) {
  const CharacterMaps all[] = {
      only(1, 0, CmapBuilder::format0({{65, 1}})),
      only(1, 0, CmapBuilder::format2({{{}, 0, 0, std::vector<unsigned>(256, 1)}})),
      only(3, 1, CmapBuilder::format4({{0, 0xFFFF, 1}})),
      only(3, 0, CmapBuilder::format4({{0xF000, 0xFFFF, 1}})),
      only(3, 2, CmapBuilder::format4({{0, 0xFFFF, 1}})),
      only(3, 10, CmapBuilder::format12({{0, 0x10FFFF, 1}})),
  };
  for (const CharacterMaps& maps : all) {
    for (const int code : {-1, -65, INT_MIN, INT_MIN + 65, 0x110000, INT_MAX}) {
      EXPECT_EQ(maps.lookup(code), kNoGlyph) << code;
    }
  }
}

TEST(CharacterMaps, CodesAboveTheBasicPlaneDoNotWrapInFormat4) {
  EXPECT_EQ(only(3, 1, CmapBuilder::format4({{65, 66, 0}, kLast})).lookup(0x10041), kNoGlyph);
}

TEST(CharacterMaps, SymbolFontsMapPlainCodesThroughThePrivateRange) {
  for (const unsigned encoding : {0u, 1u}) {
    const CharacterMaps maps =
        only(3, encoding, CmapBuilder::format4({{0xF020, 0xF0FF, -0xF000}, kLast}));
    EXPECT_EQ(maps.lookup(0x41), 0x41) << encoding;
    EXPECT_EQ(maps.lookup(0xF041), 0x41);
    EXPECT_EQ(maps.lookup(0x141), kNoGlyph);
    EXPECT_EQ(maps.lookup(0x1041), kNoGlyph);
  }
}

TEST(CharacterMaps, SymbolFontsOfFormat12GoByTheFirstGroup) {
  const CharacterMaps maps =
      only(3, 1, CmapBuilder::format12({{0xF041, 0xF042, 5}, {0x1F041, 0x1F041, 9}}));
  EXPECT_EQ(maps.lookup(0x41), 5);
  EXPECT_EQ(maps.lookup(0x10041), 9);  // lifted to U+1F041
  const CharacterMaps full =
      only(3, 10, CmapBuilder::format12({{0xF041, 0xF042, 5}, {0x1F041, 0x1F041, 9}}));
  EXPECT_EQ(full.lookup(0x41), kNoGlyph);  // encoding 10 has no symbol rule
}

TEST(CharacterMaps, UnicodeSubtablesHaveNoSymbolRule) {
  const CharacterMaps maps = only(0, 3, CmapBuilder::format4({{0xF020, 0xF0FF, -0xF000}, kLast}));
  EXPECT_EQ(maps.lookup(0x41), kNoGlyph);
  EXPECT_EQ(maps.lookup(0xF041), 0x41);
}

TEST(CharacterMaps, Formats2And0HaveNoSymbolRule) {
  const CharacterMaps format2 = only(3, 0, CmapBuilder::format2({{{}, 0xF0, 0, {7}}}));
  EXPECT_EQ(format2.lookup(0xF0), 7);
  const CharacterMaps format0 = only(3, 0, CmapBuilder::format0({{0x41, 7}}));
  EXPECT_EQ(format0.lookup(0x41), 7);
}

TEST(CharacterMaps, LegacyCodesAreLookedUpInFormat4And12And2) {
  const std::string format4 = CmapBuilder::format4({{0x82A0, 0x82A0, 0, {7}}, kLast});
  const std::string format12 = CmapBuilder::format12({{0x82A0, 0x82A0, 7}});
  const std::string format2 = CmapBuilder::format2({{{}, 0x41, 0, {3}}, {{0x82}, 0xA0, 0, {7}}});
  for (const std::string& subtable : {format4, format12, format2}) {
    EXPECT_EQ(only(3, 2, subtable).lookup(0x3042), 7);
    EXPECT_EQ(only(1, 1, subtable).lookup(0x3042), 7);
    EXPECT_EQ(only(3, 2, subtable).lookup(0x82A0), kNoGlyph);
  }
  EXPECT_EQ(only(3, 2, format2).lookup(0x41), 3);
}

TEST(CharacterMaps, Format0IsSearchedByTheCodeAsItIs) {
  // Half-width katakana are single bytes of the encoding, yet no bytes of Unicode.
  const CharacterMaps maps = only(3, 2, CmapBuilder::format0({{0xB1, 7}}));
  EXPECT_EQ(maps.lookup(0xB1), 7);
  EXPECT_EQ(maps.lookup(0xFF71), kNoGlyph);
}

TEST(CharacterMaps, TheFixedCodesOfThreeThreeAreLookedUp) {
  const std::string subtable =
      CmapBuilder::format2({{{}, 0x41, 0, {1}}, {{0xA1}, 0xA4, 0, {4, 0, 0, 0, 0, 0, 10}}});
  EXPECT_EQ(only(3, 3, subtable).lookup(0xB7), 4);
  EXPECT_EQ(only(3, 3, subtable).lookup(0x2014), 10);
}

// The walk over all codes.

using Pairs = std::vector<std::pair<int, std::uint16_t>>;

Pairs walked(const CharacterMaps& maps) {
  Pairs pairs;
  maps.forEach([&pairs](int code, std::uint16_t glyph) { pairs.emplace_back(code, glyph); });
  return pairs;
}

Pairs askedOneByOne(const CharacterMaps& maps) {
  Pairs pairs;
  for (int code = 0; code < 0x110000; ++code) {
    const std::uint16_t glyph = maps.lookup(code);
    if (glyph != kNoGlyph) pairs.emplace_back(code, glyph);
  }
  return pairs;
}

struct WalkCase {
  const char* name;
  unsigned platform;
  unsigned encoding;
  std::string subtable;
  std::size_t count;
};

class CharacterMapWalk : public testing::TestWithParam<WalkCase> {};

TEST_P(CharacterMapWalk, GivesEachCodeThatLookupAnswersInOrder) {
  const CharacterMaps maps = only(GetParam().platform, GetParam().encoding, GetParam().subtable);
  const Pairs pairs = walked(maps);
  EXPECT_EQ(pairs, askedOneByOne(maps));
  EXPECT_EQ(pairs.size(), GetParam().count);
}

const WalkCase kWalkCases[] = {
    {"Format0", 1, 0, CmapBuilder::format0({{0, 1}, {65, 2}, {255, 3}}), 3},
    {"Format2", 1, 0, CmapBuilder::format2({{{}, 65, 0, {1, 0, 2}}, {{0x81}, 0, 0, {5}}}), 3},
    {"Format2OfALegacyEncoding", 3, 2,
     CmapBuilder::format2({{{}, 65, 0, {1, 0, 2}}, {{0x82}, 0xA0, 0, {5}}}), 3},
    {"Format4", 3, 1, CmapBuilder::format4({{65, 66, 0}, {0x2FF, 0x4FF, 0}, kLast}), 2 + 0x201},
    {"Format4Damaged", 3, 1,
     CmapBuilder::format4({{0x2FF, 0x4FF, 0}, {65, 66, 0}, {0x500, 0x501, 0}, kLast}), 0x201 + 2},
    {"Format4Symbol", 3, 0, CmapBuilder::format4({{0xF020, 0xF17F, 1}, kLast}), 2 * 0x160},
    {"Format4OfALegacyEncoding", 3, 4, CmapBuilder::format4({{0xA440, 0xA441, 1}, kLast}), 2},
    {"Format12", 3, 10,
     CmapBuilder::format12({{65, 66, 0}, {0xFFFF, 0x10001, 9}, {0x10FFFF, 0x110001, 9}}),
     1 + 3 + 1},
    {"Format12Damaged", 3, 10, CmapBuilder::format12({{0x1F600, 0x1F600, 3}, {65, 66, 5}}), 1},
    {"Format12Symbol", 3, 1, CmapBuilder::format12({{0xF020, 0xF02F, 1}, {0x1F041, 0x1F041, 9}}),
     2 * 16 + 2},
    {"Format12WithoutGroups", 3, 10, CmapBuilder::format12({}), 0},
};

INSTANTIATE_TEST_SUITE_P(Subtables, CharacterMapWalk, testing::ValuesIn(kWalkCases),
                         [](const auto& test) { return test.param.name; });

TEST(CharacterMaps, TheWalkWithoutASubtableIsEmpty) {
  EXPECT_TRUE(walked(CharacterMaps()).empty());
}

// Variation sequences.

CharacterMaps withSequences() {
  return make(CmapBuilder()
                  .add(0, 5,
                       CmapBuilder::format14({{0xFE00, {{0x30, 2}}, {{0x41, 0}, {0x42, 77}}},
                                              {0xE0100, {}, {{0x4E00, 0xFFFF}, {0x4E01, 5}}}}))
                  .add(3, 1, CmapBuilder::format4({{0x30, 0x31, 0}, {0x42, 0x42, 0}, kLast})));
}

TEST(CharacterMaps, DefaultSequencesHaveTheOrdinaryGlyph) {
  const CharacterMaps maps = withSequences();
  EXPECT_TRUE(maps.hasVariationSelector());
  EXPECT_EQ(maps.variationSequence(0x31, 0xFE00), 0x31);
  EXPECT_EQ(maps.variationSequence(0x32, 0xFE00), kNoGlyph);  // listed, but without a glyph
}

TEST(CharacterMaps, DefaultSequencesFollowConversionAndZeroRule) {
  const CmapBuilder symbols =
      CmapBuilder()
          .add(0, 5, CmapBuilder::format14({{0xFE00, {{0x41, 1}}, {}}}))
          .add(3, 0, CmapBuilder::format4({{0xF041, 0xF042, -0xF041}, kLast}));
  EXPECT_EQ(make(symbols).variationSequence(0x42, 0xFE00), 1);
  EXPECT_EQ(make(symbols).variationSequence(0x41, 0xFE00), kNoGlyph);
  EXPECT_EQ(make(symbols, true).variationSequence(0x41, 0xFE00), 0);
}

TEST(CharacterMaps, OtherSequencesHaveTheirGlyphAsStored) {
  const CharacterMaps maps = withSequences();
  EXPECT_EQ(maps.variationSequence(0x41, 0xFE00), 0);
  EXPECT_EQ(maps.variationSequence(0x42, 0xFE00), 77);
  EXPECT_EQ(maps.variationSequence(0x42, 0xFE01), kNoGlyph);
  EXPECT_EQ(maps.variationSequence(0x43, 0xFE00), kNoGlyph);
}

TEST(CharacterMaps, WithoutFormat14ThereAreNoSequences) {
  const CharacterMaps maps = only(3, 1, CmapBuilder::format4({{65, 66, 0}, kLast}));
  EXPECT_FALSE(maps.hasVariationSelector());
  EXPECT_EQ(maps.variationSequence(65, 0xFE00), kNoGlyph);
}

TEST(CharacterMaps, TheWalkOverSequencesGivesThoseThatAreAnswered) {
  std::vector<std::tuple<int, int, int>> sequences;
  withSequences().forEachVariation([&](int code, int selector, std::uint16_t glyph) {
    sequences.emplace_back(code, selector, glyph);
  });
  const std::vector<std::tuple<int, int, int>> expected = {{0x30, 0xFE00, 0x30},
                                                           {0x31, 0xFE00, 0x31},
                                                           {0x41, 0xFE00, 0},
                                                           {0x42, 0xFE00, 77},
                                                           {0x4E01, 0xE0100, 5}};
  EXPECT_EQ(sequences, expected);
  CharacterMaps().forEachVariation([](int, int, std::uint16_t) { FAIL(); });
}

// Damage.

TEST(CharacterMaps, DamagedTablesAnswerAndEnd) {
  const std::string bytes =
      CmapBuilder()
          .add(3, 0,
               CmapBuilder::format4({{0xF041, 0xF042, 0}, {0xF100, 0xF101, 0, {1, 2}}, kLast}))
          .add(0, 5, CmapBuilder::format14({{0xFE00, {{0x30, 2}}, {{0x41, 0}}}}))
          .build();
  qxtest::forEachDamage(bytes, [](const std::string& changed) {
    std::istringstream stream(changed);
    const CharacterMaps maps(readCmap(stream, TableRange{}, false).subtables);
    for (const int code : {-1, 0, 0x41, 0xF041, 0xF101, 0xFFFF, 0x10FFFF}) {
      EXPECT_NE(maps.lookup(code), 0) << code;
      (void)maps.variationSequence(code, 0xFE00);
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::cmap
