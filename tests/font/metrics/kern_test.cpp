#include "font/metrics/kern.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <utility>

#include "support/be_bytes.h"
#include "support/kern_builder.h"
#include "support/random_draw.h"
#include "support/truncation.h"

namespace QXFontService_NS::metrics {
namespace {

using qxtest::BeBytes;
using qxtest::KernBuilder;
using qxtest::KernPair;
using qxtest::RandomDraw;

constexpr std::uint32_t kStart = 5;

TableResult read(const std::string& bytes, KernPairs& out) {
  std::istringstream stream(std::string(kStart, '\x55') + bytes);
  return readKern(stream, TableRange{kStart, 0}, out);
}

KernPairs good(const KernBuilder& table) {
  KernPairs pairs;
  EXPECT_EQ(read(table.build(), pairs), std::nullopt);
  return pairs;
}

TableResult failureOf(const std::string& bytes) {
  KernPairs pairs;
  const TableResult failure = read(bytes, pairs);
  EXPECT_EQ(pairs.kernPairCount(), 0);
  EXPECT_EQ(pairs.valueOf(1, 2, false), 0);
  return failure;
}

const std::vector<KernPair> kPairs = {{1, 2, -30}, {1, 3, 7}, {4, 1, -32768}, {9, 9, 32767}};

// What is read of the table.

TEST(Kern, ReadsThePairsAndKeepsTheirBytes) {
  const KernBuilder table = KernBuilder().format0(kPairs);
  const KernPairs pairs = good(table);
  EXPECT_EQ(pairs.kernPairCount(), 4);
  EXPECT_EQ(pairs.kernCoverage(), 1);
  const auto kept = pairs.kernPairs();
  EXPECT_EQ(
      std::string(static_cast<const char*>(static_cast<const void*>(kept.data())), kept.size()),
      table.build().substr(18));
}

TEST(Kern, OtherFormatsAreNotSteppedOver) {
  // The body of the first subtable is taken for the header of the second: here one that says
  // format 0 with a pair of its own.
  const std::string body =
      BeBytes().u16(0).u16(20).u16(1).u16(1).zeros(6).u16(5).u16(6).i16(-9).str();
  const KernPairs pairs = good(KernBuilder().raw(0x0200, body).format0(kPairs));
  EXPECT_EQ(pairs.kernPairCount(), 1);
  EXPECT_EQ(pairs.valueOf(5, 6, false), -9);
  EXPECT_EQ(pairs.valueOf(1, 2, false), 0);
}

TEST(Kern, AFormat2BeforeAFormat0EndsWithoutPairs) {
  // Real class tables: rowWidth, offsets ... are no header of a format 0 subtable.
  const std::string classes = BeBytes().u16(4).u16(14).u16(0x0E16).str();
  const KernPairs pairs = good(KernBuilder().raw(0x0200, classes).format0(kPairs));
  EXPECT_EQ(pairs.kernPairCount(), 0);
  EXPECT_EQ(pairs.kernCoverage(), 0x0E16);
}

TEST(Kern, AFormat2AloneMayEndInAReadError) {
  const std::string table = BeBytes().u16(0).u16(2).u16(0).u16(8).u16(0x0200).u16(4).str();
  EXPECT_EQ(failureOf(table), readFailure("'kern' subtable 1 read error"));
}

TEST(Kern, TheFirstSubtableOfFormat0IsTheOnlyOne) {
  const KernPairs pairs = good(KernBuilder().format0(kPairs).format0({{50, 60, 70}}, 0));
  EXPECT_EQ(pairs.kernPairCount(), 4);
  EXPECT_EQ(pairs.kernCoverage(), 1);
  EXPECT_EQ(pairs.valueOf(50, 60, false), 0);
}

TEST(Kern, NoPairsEndTheReading) {
  const KernPairs pairs = good(KernBuilder().format0({}).format0(kPairs));
  EXPECT_EQ(pairs.kernPairCount(), 0);
  EXPECT_FALSE(pairs.hasPairs(false));
}

TEST(Kern, TheTopBitOfTheFormatIsNotLookedAt) {
  EXPECT_EQ(good(KernBuilder().format0(kPairs, 0x8001)).kernPairCount(), 4);
  EXPECT_EQ(failureOf(KernBuilder().format0(kPairs, 0x0101).build()), std::nullopt);
}

TEST(Kern, AnAppleTableHasNoPairs) {
  const std::string table = BeBytes().u32(0x00010000).u32(1).zeros(40).str();
  EXPECT_EQ(failureOf(table), std::nullopt);
}

TEST(Kern, AFontWithoutTheTableHasNoPairs) {
  std::istringstream stream;
  KernPairs pairs;
  EXPECT_EQ(pairs.kernPairCount(), -1);
  EXPECT_EQ(readKern(stream, std::nullopt, pairs), std::nullopt);
  EXPECT_EQ(pairs.kernPairCount(), 0);
  EXPECT_FALSE(pairs.hasPairs(false));
  EXPECT_FALSE(pairs.hasPairs(true));
}

std::string withLength(std::string table, unsigned length) {
  return table.replace(6, 2, BeBytes().u16(length).str());
}

TEST(Kern, TheLengthMustHoldThePairs) {
  const std::string table = KernBuilder().format0(kPairs).build();
  const TableResult error = formatFailure("'kern' subtable 0 invalid pairs size");
  EXPECT_EQ(failureOf(withLength(table, 14 + 4 * 6 - 1)), error);
  EXPECT_EQ(failureOf(withLength(table, 0)), error);
  KernPairs pairs;
  EXPECT_EQ(read(withLength(table, 14 + 4 * 6), pairs), std::nullopt);
  EXPECT_EQ(read(withLength(table, 0xFFFF), pairs), std::nullopt);
}

TEST(Kern, AFailedSubtableLeavesItsCoverage) {
  KernPairs pairs;
  EXPECT_TRUE(read(withLength(KernBuilder().format0(kPairs, 3).build(), 0), pairs).has_value());
  EXPECT_EQ(pairs.kernCoverage(), 3);
  EXPECT_EQ(pairs.kernPairCount(), 0);
}

std::vector<KernPair> manyPairs(unsigned count) {
  std::vector<KernPair> pairs;
  for (unsigned i = 0; i < count; ++i) {
    pairs.push_back({i / 100, i % 100 * 3, static_cast<int>(i % 50) + 1});
  }
  return pairs;
}

TEST(Kern, TheLengthIsNotHeldAgainstMorePairsThanItCanTell) {
  // 10,922 pairs are 65,532 bytes, 10,923 are 65,538.
  const std::string most = KernBuilder().format0(manyPairs(10922)).build();
  EXPECT_EQ(failureOf(most), formatFailure("'kern' subtable 0 invalid pairs size"));
  KernPairs pairs;
  EXPECT_EQ(read(withLength(KernBuilder().format0(manyPairs(10923)).build(), 0), pairs),
            std::nullopt);
  EXPECT_EQ(pairs.kernPairCount(), 10923);
  EXPECT_EQ(good(KernBuilder().format0(manyPairs(0xFFFF))).kernPairCount(), 0xFFFF);
}

TEST(Kern, ACutTableNamesThePartAndTheSubtable) {
  const std::string table = KernBuilder().raw(0x0200, "").format0({{1, 2, 3}, {1, 3, 4}}).build();
  qxtest::forEachPrefix(table, [](const std::string& cut) {
    const std::string part = cut.size() < 4    ? "'kern' table read error"
                             : cut.size() < 10 ? "'kern' subtable 0 read error"
                             : cut.size() < 16 ? "'kern' subtable 1 read error"
                             : cut.size() < 24 ? "'kern' subtable 1 format0 read error"
                                               : "'kern' subtable 1 pairs read error";
    EXPECT_EQ(failureOf(cut), readFailure(part)) << cut.size();
  });
}

TEST(Kern, ManyEmptySubtablesEndWithTheFile) {
  BeBytes table;
  table.u16(0).u16(0xFFFF);
  for (int i = 0; i < 100; ++i) table.u16(0).u16(6).u16(0x0100);
  EXPECT_EQ(failureOf(table.str()), readFailure("'kern' subtable 100 read error"));
}

// What is answered.

TEST(KernPairs, TheTwoLowestCoverageBitsTellTheDirection) {
  const struct {
    unsigned coverage;
    bool horizontal, vertical;
  } rows[] = {{0, false, true}, {1, true, false}, {2, false, false},     {3, false, false},
              {4, false, true}, {5, true, false}, {0x8001, true, false}, {0x8000, false, true}};
  for (const auto& row : rows) {
    const KernPairs pairs = good(KernBuilder().format0(kPairs, row.coverage));
    EXPECT_EQ(pairs.hasPairs(false), row.horizontal) << row.coverage;
    EXPECT_EQ(pairs.hasPairs(true), row.vertical) << row.coverage;
    EXPECT_EQ(pairs.valueOf(1, 2, false), row.horizontal ? -30 : 0);
    EXPECT_EQ(pairs.valueOf(1, 2, true), row.vertical ? -30 : 0);
  }
}

TEST(KernPairs, ValuesAreSigned) {
  const KernPairs pairs = good(KernBuilder().format0(kPairs));
  for (const KernPair& pair : kPairs) {
    EXPECT_EQ(pairs.valueOf(static_cast<std::uint16_t>(pair.left),
                            static_cast<std::uint16_t>(pair.right), false),
              pair.value);
  }
}

TEST(KernPairs, UnlistedPairsHaveNone) {
  const KernPairs pairs = good(KernBuilder().format0(kPairs));
  const std::pair<int, int> unlisted[] = {{0, 0}, {1, 1},  {1, 4},   {2, 1},
                                          {9, 8}, {10, 1}, {500, 1}, {0xFFFF, 0xFFFF}};
  for (const auto& [left, right] : unlisted) {
    EXPECT_EQ(
        pairs.valueOf(static_cast<std::uint16_t>(left), static_cast<std::uint16_t>(right), false),
        0)
        << left << ' ' << right;
  }
}

TEST(KernPairs, TheWalkGivesThemInFileOrder) {
  std::vector<std::tuple<int, int, int>> walked;
  good(KernBuilder().format0({{4, 1, -5}, {1, 2, 6}})).forEach([&](int left, int right, int value) {
    walked.emplace_back(left, right, value);
  });
  EXPECT_EQ(walked, (std::vector<std::tuple<int, int, int>>{{4, 1, -5}, {1, 2, 6}}));
}

void expectBothSearchesAgree(const KernPairs& pairs, unsigned lefts, unsigned rights) {
  for (unsigned l = 0; l < lefts; ++l) {
    for (unsigned r = 0; r < rights; ++r) {
      const auto left = static_cast<std::uint16_t>(l);
      const auto right = static_cast<std::uint16_t>(r);
      ASSERT_EQ(pairs.valueOf(left, right, false), pairs.valueByHalving(left, right))
          << l << ' ' << r;
    }
  }
}

/// Pairs that ascend, of glyphs below the given numbers.
std::map<std::pair<unsigned, unsigned>, int> randomPairs(RandomDraw& random, unsigned count,
                                                         unsigned lefts, unsigned rights) {
  std::map<std::pair<unsigned, unsigned>, int> pairs;
  for (unsigned i = 0; i < count; ++i) {
    pairs[{random.below(lefts), random.below(rights)}] = static_cast<int>(random.below(999)) + 1;
  }
  return pairs;
}

std::vector<KernPair> listOf(const std::map<std::pair<unsigned, unsigned>, int>& pairs) {
  std::vector<KernPair> list;
  for (const auto& [glyphs, value] : pairs) list.push_back({glyphs.first, glyphs.second, value});
  return list;
}

TEST(KernPairs, BothSearchesFindEachPairOfASoundTable) {
  RandomDraw random(5);
  for (const unsigned count : {1u, 2u, 3u, 50u, 3000u}) {
    const auto sound = randomPairs(random, count, 120, 90);
    const KernPairs pairs = good(KernBuilder().format0(listOf(sound)));
    for (const auto& [glyphs, value] : sound) {
      EXPECT_EQ(pairs.valueOf(static_cast<std::uint16_t>(glyphs.first),
                              static_cast<std::uint16_t>(glyphs.second), false),
                value);
    }
    expectBothSearchesAgree(pairs, 125, 95);
  }
}

TEST(KernPairs, FewPairsOfFarGlyphsAreFoundInSharedRuns) {
  const KernPairs pairs =
      good(KernBuilder().format0({{0, 0, 1}, {0x7FFF, 3, 2}, {0x8000, 3, 3}, {0xFFFF, 0xFFFF, 4}}));
  EXPECT_EQ(pairs.valueOf(0, 0, false), 1);
  EXPECT_EQ(pairs.valueOf(0x7FFF, 3, false), 2);
  EXPECT_EQ(pairs.valueOf(0x8000, 3, false), 3);
  EXPECT_EQ(pairs.valueOf(0xFFFF, 0xFFFF, false), 4);
  EXPECT_EQ(pairs.valueOf(0x8001, 3, false), 0);
}

TEST(KernPairs, PairsThatDoNotAscendAnswerAsTheirSearchSays) {
  RandomDraw random(55);
  for (int round = 0; round < 30; ++round) {
    auto list = listOf(randomPairs(random, 2 + random.below(60), 30, 30));
    for (unsigned swaps = 1 + random.below(3); swaps > 0; --swaps) {
      std::swap(list[random.below(static_cast<unsigned>(list.size()))],
                list[random.below(static_cast<unsigned>(list.size()))]);
    }
    expectBothSearchesAgree(good(KernBuilder().format0(list)), 32, 32);
  }
}

TEST(KernPairs, AnUnsortedPairMayBeMissed) {
  const KernPairs pairs = good(KernBuilder().format0({{9, 9, 1}, {5, 5, 2}, {1, 1, 3}}));
  EXPECT_EQ(pairs.valueOf(5, 5, false), 2);
  EXPECT_EQ(pairs.valueOf(9, 9, false), 0);
}

TEST(KernPairs, OfEqualPairsHalvingMeetsTheMiddleOne) {
  const KernPairs pairs = good(KernBuilder().format0({{5, 5, 1}, {5, 5, 2}, {5, 5, 3}}));
  EXPECT_EQ(pairs.valueOf(5, 5, false), 2);
}

TEST(Kern, ExtremeFieldsAreHarmless) {
  const std::string table = KernBuilder().raw(0x0200, "").format0(kPairs).build();
  qxtest::forEachDamage(table, [](const std::string& changed) {
    KernPairs pairs;
    if (read(changed, pairs)) {
      EXPECT_EQ(pairs.kernPairCount(), 0);
    } else if (pairs.hasPairs(false)) {
      EXPECT_EQ(pairs.valueOf(1, 2, false), pairs.valueByHalving(1, 2));
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::metrics
