#include "layout/table/layout_table.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"
#include "support/be_bytes.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::BeBytes;
using qxtest::viewOf;

/// A table of one script, one feature and one single substitution.
std::string smallTable() {
  qxtest::LayoutTableBuilder table;
  table.onlyLookup("test", 1, 0, {qxtest::singleSubst(qxtest::coverage({1}), 1)});
  return table.str();
}

struct Counts {
  std::size_t features, lookups, scripts;
  bool operator==(const Counts&) const = default;
};
Counts countsOf(const TTI_LayoutTable& table) {
  return {table.featureList.features.size(), table.lookupList.lookups.size(), table.scripts.size()};
}

TEST(LayoutTable, HeaderNamesItsListsWhateverTheVersion) {
  BeBytes bytes;
  bytes.u32(0x12345678).u16(10).u16(20).u16(30);
  const LayoutTableHeader header = readLayoutTableHeader(viewOf(bytes.str()));
  EXPECT_EQ(header.scriptList, 10u);
  EXPECT_EQ(header.featureList, 20u);
  EXPECT_EQ(header.lookupList, 30u);
}

TEST(LayoutTable, HoldsItsThreeLists) {
  qxtest::TestFont font;
  EXPECT_EQ(readGSUB(font, viewOf(smallTable())), LayoutTableFailure::none);
  EXPECT_EQ(countsOf(*font.gsub), (Counts{1, 1, 1}));
  EXPECT_EQ(countsOf(*font.gpos), (Counts{0, 0, 0}));
  EXPECT_EQ(readGPOS(font, viewOf(smallTable())), LayoutTableFailure::none);
  EXPECT_EQ(countsOf(*font.gpos), (Counts{1, 1, 1}));
}

TEST(LayoutTable, ListOfOffsetZeroIsLeftOutAndIsNoFailure) {
  for (const auto& [at, counts] : {std::pair(4, Counts{1, 1, 0}), std::pair(6, Counts{0, 1, 1}),
                                   std::pair(8, Counts{1, 0, 1})}) {
    std::string bytes = smallTable();
    bytes.replace(static_cast<std::size_t>(at), 2, std::string(2, '\0'));
    qxtest::TestFont font;
    EXPECT_EQ(readGSUB(font, viewOf(bytes)), LayoutTableFailure::none) << at;
    EXPECT_EQ(countsOf(*font.gsub), counts) << at;
  }
}

TEST(LayoutTable, ListThatDoesNotLieInTheTableLeavesOutThoseReadAfterIt) {
  using enum LayoutTableFailure;
  struct Row {
    std::size_t at;
    LayoutTableFailure failure;
    Counts counts;
  };
  for (const Row& row : {Row{6, featureList, {0, 0, 0}}, Row{8, lookupList, {1, 0, 0}},
                         Row{4, scriptList, {1, 1, 0}}}) {
    std::string bytes = smallTable();
    bytes.replace(row.at, 2, "\xFF\xF0");
    qxtest::TestFont font;
    EXPECT_EQ(readGSUB(font, viewOf(bytes)), row.failure);
    EXPECT_EQ(countsOf(*font.gsub), row.counts);
  }
}

TEST(LayoutTable, ListsMustLieInTheTableWithAllTheirRecords) {
  struct Row {
    std::size_t field;
    std::size_t recordSize;
    LayoutTableFailure failure;
  };
  for (const Row& row :
       {Row{4, 6, LayoutTableFailure::scriptList}, Row{6, 6, LayoutTableFailure::featureList},
        Row{8, 2, LayoutTableFailure::lookupList}}) {
    std::string bytes(10, '\0');
    bytes[row.field + 1] = 10;
    bytes += std::string("\0\2", 2) + std::string(2 * row.recordSize, '\0');
    qxtest::TestFont font;
    EXPECT_EQ(readGPOS(font, viewOf(bytes)), LayoutTableFailure::none) << row.field;
    bytes.pop_back();
    EXPECT_EQ(readGPOS(font, viewOf(bytes)), row.failure) << row.field;
    EXPECT_EQ(readGPOS(font, viewOf(bytes.substr(0, 11))), row.failure) << row.field;
  }
}

TEST(LayoutTable, AnotherReadReplacesWhatWasThere) {
  qxtest::TestFont font(smallTable());
  EXPECT_EQ(readGSUB(font, viewOf(std::string(10, '\0'))), LayoutTableFailure::none);
  EXPECT_EQ(countsOf(*font.gsub), (Counts{0, 0, 0}));
}

TEST(LayoutTable, EmptyTableHasNoLists) {
  qxtest::TestFont font;
  EXPECT_EQ(readGSUB(font, viewOf(std::string())), LayoutTableFailure::none);
  EXPECT_EQ(countsOf(*font.gsub), (Counts{0, 0, 0}));
}

}  // namespace
}  // namespace QXFontService_NS::layout
