#include "font/metrics/mort.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/be_bytes.h"
#include "support/mort_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::metrics {
namespace {

using QXCommonNS::bytes::ByteView;
using qxtest::MortBuilder;

std::vector<MortPair> parse(const std::string& bytes) {
  return parseMort(ByteView(bytes.data(), bytes.size()));
}

std::string text(const std::vector<MortPair>& pairs) {
  std::string out;
  for (const MortPair& pair : pairs) {
    out += std::to_string(pair.glyph) + ">" + std::to_string(pair.vertical) + " ";
  }
  return out;
}

std::string parsed(const MortBuilder& table) {
  return text(parse(table.build()));
}

const std::string kForms = MortBuilder::subtable({{3, 103}, {7, 107}});

TEST(Mort, ReadsTheVerticalPairs) {
  EXPECT_EQ(parsed(MortBuilder().chain({kForms})), "3>103 7>107 ");
  EXPECT_EQ(parsed(MortBuilder().chain({kForms}, 0)), "3>103 7>107 ");
  EXPECT_EQ(parsed(MortBuilder().chain({kForms}, 5)), "3>103 7>107 ");
}

TEST(Mort, AFinalUnitOfFFFFIsKeptIfCounted) {
  EXPECT_EQ(parsed(MortBuilder().chain({MortBuilder::subtable({{3, 9}, {0xFFFF, 0xFFFF}})})),
            "3>9 65535>65535 ");
}

TEST(Mort, OnlyTheFirstSubtableOfAChainIsLookedAt) {
  const std::string other = MortBuilder::subtable({{1, 2}}, 0x0004);
  EXPECT_EQ(parsed(MortBuilder().chain({other, kForms})), "");
  EXPECT_EQ(parsed(MortBuilder().chain({other}).chain({kForms})), "3>103 7>107 ");
}

TEST(Mort, OnlyVerticalNonContextualSubtablesCount) {
  for (const unsigned coverage : {0x0004u, 0x8001u, 0x8000u, 0x8006u, 0x4004u}) {
    EXPECT_EQ(parsed(MortBuilder().chain({MortBuilder::subtable({{1, 2}}, coverage)})), "")
        << coverage;
  }
  EXPECT_EQ(parsed(MortBuilder().chain({MortBuilder::subtable({{1, 2}}, 0xFFFC)})), "1>2 ");
}

TEST(Mort, AnotherLookupFormatEndsTheSearch) {
  const std::string format8 = MortBuilder::subtable({{1, 2}}, 0x8004, 8);
  EXPECT_EQ(parsed(MortBuilder().chain({format8}).chain({kForms})), "");
}

TEST(Mort, TheFirstMatchEndsTheSearch) {
  const std::string none = MortBuilder::subtable({});
  EXPECT_EQ(parsed(MortBuilder().chain({none}).chain({kForms})), "");
}

TEST(Mort, ChainsBeyondTheCountAreNotLookedAt) {
  std::string table = MortBuilder().chain({kForms}).build();
  table.replace(4, 4, std::string(4, '\0'));
  EXPECT_EQ(text(parse(table)), "");
}

TEST(Mort, AChainThatDoesNotMoveOnEndsTheWalk) {
  const std::string other = MortBuilder::subtable({{1, 2}}, 0x0004);
  const std::string table = MortBuilder().chain({other}).chain({kForms}).build();
  for (const std::uint32_t length : {0u, 11u, 0xFFFFFFFFu, 500u}) {
    std::string changed = table;
    changed.replace(12, 4, qxtest::BeBytes().u32(length).str());
    changed.replace(4, 4, qxtest::BeBytes().u32(0xFFFFFFFF).str());
    EXPECT_EQ(text(parse(changed)), "") << length;
  }
}

TEST(Mort, AChainOfAnyLengthHasItsFirstSubtableLookedAt) {
  std::string table = MortBuilder().chain({kForms}).build();
  table.replace(12, 4, std::string(4, '\0'));
  EXPECT_EQ(text(parse(table)), "3>103 7>107 ");
}

TEST(Mort, UnitsAreClippedToTheTable) {
  const std::string table = MortBuilder().chain({kForms}).build();
  EXPECT_EQ(text(parse(table.substr(0, table.size() - 1))), "3>103 ");
  EXPECT_EQ(text(parse(table.substr(0, table.size() - 4))), "3>103 ");
}

MortPairs pairsOf(const std::vector<MortPair>& pairs) {
  return {static_cast<int>(pairs.size()), pairs};
}

TEST(MortPairs, FindsTheVerticalForm) {
  const MortPairs pairs = pairsOf({{3, 103}, {5, 105}, {9, 0xFFFF}});
  EXPECT_EQ(pairs.verticalOf(3), 103);
  EXPECT_EQ(pairs.verticalOf(5), 105);
  EXPECT_EQ(pairs.verticalOf(9), kNoGlyph);
  for (const std::uint16_t glyph : {std::uint16_t{0}, std::uint16_t{4}, std::uint16_t{10}}) {
    EXPECT_EQ(pairs.verticalOf(glyph), kNoGlyph) << glyph;
  }
  EXPECT_EQ(MortPairs().verticalOf(3), kNoGlyph);
}

TEST(MortPairs, AreReadFromTheirPlaceInTheFile) {
  const std::string table = MortBuilder().chain({kForms}).build();
  std::istringstream stream("12345" + table);
  MortPairs pairs;
  EXPECT_EQ(pairs.mortPairCount, -1);
  ASSERT_EQ(readMort(stream, TableRange{5, static_cast<std::uint32_t>(table.size())}, pairs),
            std::nullopt);
  EXPECT_EQ(pairs.mortPairCount, 2);
  EXPECT_FALSE(pairs.empty());
}

TEST(MortPairs, AFontWithoutTheTableHasNone) {
  std::istringstream stream;
  MortPairs pairs;
  EXPECT_EQ(readMort(stream, std::nullopt, pairs), std::nullopt);
  EXPECT_EQ(pairs.mortPairCount, 0);
}

TEST(MortPairs, AnEmptyTableHasNone) {
  std::istringstream stream;
  MortPairs pairs;
  EXPECT_EQ(readMort(stream, TableRange{0, 0}, pairs), std::nullopt);
  EXPECT_EQ(pairs.mortPairCount, 0);
}

TEST(MortPairs, ACutTableIsAReadError) {
  const std::string table = MortBuilder().chain({kForms}).build();
  qxtest::forEachPrefix(table, [&table](const std::string& cut) {
    std::istringstream stream(cut);
    MortPairs pairs;
    EXPECT_EQ(readMort(stream, TableRange{0, static_cast<std::uint32_t>(table.size())}, pairs),
              readFailure("'mort' table read error"))
        << cut.size();
    EXPECT_EQ(pairs.mortPairCount, 0);
  });
  std::istringstream stream(table);
  MortPairs pairs;
  EXPECT_EQ(readMort(stream, TableRange{0, 0xFFFFFFFF}, pairs),
            readFailure("'mort' table read error"));
}

TEST(Mort, ExtremeFieldsAreHarmless) {
  const std::string table =
      MortBuilder().chain({MortBuilder::subtable({{1, 2}}, 4)}).chain({kForms}).build();
  qxtest::forEachDamage(table, [](const std::string& changed) {
    EXPECT_LE(parse(changed).size(), changed.size() / 4);
  });
}

}  // namespace
}  // namespace QXFontService_NS::metrics
