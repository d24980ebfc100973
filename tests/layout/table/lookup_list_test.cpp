#include "layout/table/lookup_list.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"
#include "support/be_bytes.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"
#include "support/offset_table.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::coverage;
using qxtest::extensionSubTable;
using qxtest::LayoutTableBuilder;
using qxtest::singleSubst;

const std::string kSingle = singleSubst(coverage({5}), 1);
const std::string kLigature = qxtest::ligatureSubst(coverage({5}), {{{9, {6}}}});

/// The only lookup of a `GSUB` table.
TTI_Lookup readLookup(unsigned type, const std::vector<std::string>& subTables, unsigned flag = 0) {
  LayoutTableBuilder table;
  table.lookup(type, flag, subTables);
  return qxtest::TestFont(table.str()).gsub->lookupList.lookups.at(0);
}

TEST(LookupList, KeepsTypeFlagAndSubTables) {
  const TTI_Lookup lookup = readLookup(1, {kSingle, kSingle}, 0x8109);
  EXPECT_EQ(lookup.type, 1u);
  EXPECT_EQ(lookup.flag, 0x8109u);
  ASSERT_EQ(lookup.subTables.size(), 2u);
  EXPECT_EQ(lookup.subTables[1]->lookupType(), 1);
  EXPECT_EQ(lookup.subTables[1]->substGlyph(5), 6);
}

TEST(LookupList, FindsByIndexOrNot) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {});
  const qxtest::TestFont font(table.str());
  EXPECT_EQ(font.gsub->lookupList.find(0), &font.gsub->lookupList.lookups[0]);
  EXPECT_EQ(font.gsub->lookupList.find(1), nullptr);
  EXPECT_EQ(font.gsub->lookupList.find(0xFFFFFFFF), nullptr);
}

TEST(LookupList, SubTableOfUnknownTypeOrFormatIsNull) {
  for (const unsigned type : {0U, 9U, 0xFFFFU}) {
    const TTI_Lookup lookup = readLookup(type, {kSingle});
    EXPECT_EQ(lookup.type, type);
    EXPECT_EQ(lookup.subTables.at(0), nullptr);
  }
  std::string unknown = kSingle;
  unknown[1] = 3;
  const TTI_Lookup lookup = readLookup(1, {unknown, kSingle});
  EXPECT_EQ(lookup.subTables.at(0), nullptr);
  EXPECT_NE(lookup.subTables.at(1), nullptr);
}

TEST(LookupList, ExtensionGivesTheLookupItsType) {
  const TTI_Lookup lookup = readLookup(7, {extensionSubTable(4, kLigature)});
  EXPECT_EQ(lookup.type, 4u);
  EXPECT_EQ(lookup.subTables.at(0)->lookupType(), 4);
}

TEST(LookupList, ExtensionFormatIsNotLookedAt) {
  EXPECT_EQ(readLookup(7, {extensionSubTable(4, kLigature, 77)}).type, 4u);
}

TEST(LookupList, LastExtensionNamesTheType) {
  const TTI_Lookup lookup =
      readLookup(7, {extensionSubTable(4, kLigature), extensionSubTable(1, kSingle)});
  EXPECT_EQ(lookup.type, 1u);
  EXPECT_EQ(lookup.subTables.at(0)->lookupType(), 4);
  EXPECT_EQ(lookup.subTables.at(1)->lookupType(), 1);
}

TEST(LookupList, ExtensionOfNoTypeIsNullAndMakesTheLookupInert) {
  for (const unsigned type : {0U, 9U}) {
    const TTI_Lookup lookup =
        readLookup(7, {extensionSubTable(1, kSingle), extensionSubTable(type, kSingle)});
    EXPECT_EQ(lookup.type, type);
    EXPECT_EQ(lookup.subTables.at(1), nullptr);
  }
}

TEST(LookupList, ExtensionWithoutSubTablesStaysOne) {
  EXPECT_EQ(readLookup(7, {}).type, 7u);
}

std::string chainOfExtensions(int length) {
  std::string subTable = extensionSubTable(1, kSingle);
  for (int i = 1; i < length; ++i) subTable = extensionSubTable(7, subTable);
  return subTable;
}

TEST(LookupList, ChainsOfExtensionsAreFollowed) {
  for (const int length : {2, 17}) {
    const TTI_Lookup lookup = readLookup(7, {chainOfExtensions(length)});
    EXPECT_EQ(lookup.type, 1u) << length;
    EXPECT_NE(lookup.subTables.at(0), nullptr) << length;
  }
  EXPECT_EQ(readLookup(7, {chainOfExtensions(18)}).subTables.at(0), nullptr);
}

TEST(LookupList, ChainsThatDoNotLeadOnEnd) {
  for (const std::uint32_t offset : {0U, 7U, 0xFFFFFFF8U, 0x7FFFFFFFU}) {
    qxtest::BeBytes ring;
    ring.u16(1).u16(7).u32(offset).zeros(8);
    const TTI_Lookup lookup = readLookup(7, {ring.str()});
    EXPECT_EQ(lookup.type, 7u);
    EXPECT_EQ(lookup.subTables.at(0), nullptr);
  }
}

TEST(LookupList, SubTablesAtOnePlaceAreShared) {
  const std::string extension = extensionSubTable(1, kSingle);
  qxtest::BeBytes bytes;
  bytes.u32(0x00010000).u16(0).u16(0).u16(10);
  bytes.u16(2).u16(6).u16(6).u16(1).u16(0).u16(2).u16(10).u16(10).text(kSingle);
  const qxtest::TestFont font(bytes.str());
  const auto& lookups = font.gsub->lookupList.lookups;
  ASSERT_EQ(lookups.size(), 2u);
  ASSERT_EQ(lookups[0].subTables.size(), 2u);
  ASSERT_NE(lookups[0].subTables[0], nullptr);
  EXPECT_EQ(lookups[0].subTables[0], lookups[0].subTables[1]);
  EXPECT_EQ(lookups[0].subTables[0], lookups[1].subTables[0]);
}

TEST(LookupList, SubTableOffsetZeroIsFollowed) {
  // The lookup itself (type 1, flag 6, ...) reads as a single substitution, format 1.
  qxtest::BeBytes bytes;
  bytes.u32(0x00010000).u16(0).u16(0).u16(10).u16(1).u16(4);
  bytes.u16(1).u16(8).u16(1).u16(0).text(coverage({5}));
  const qxtest::TestFont font(bytes.str());
  const TTI_Lookup& lookup = font.gsub->lookupList.lookups.at(0);
  ASSERT_NE(lookup.subTables.at(0), nullptr);
  EXPECT_EQ(lookup.subTables[0]->substGlyph(5), 6);
}

TEST(LookupList, StartsHoldTheGlyphsOfAllSubTables) {
  const TTI_Lookup lookup =
      readLookup(1, {kSingle, singleSubst(coverage({700}), 1), singleSubst("", 1)});
  EXPECT_TRUE(lookup.starts.contains(5));
  EXPECT_TRUE(lookup.starts.contains(700));
  EXPECT_FALSE(lookup.starts.contains(6));
}

TEST(LookupList, GposExtensionKeepsItsTypeAndNeedsItsFormat) {
  LayoutTableBuilder table;
  table.lookup(9, 0, {extensionSubTable(1, kSingle, 2), extensionSubTable(99, kSingle)});
  qxtest::TestFont font;
  const std::string bytes = table.str();
  readGPOS(font, qxtest::viewOf(bytes));
  const TTI_Lookup& lookup = font.gpos->lookupList.lookups.at(0);
  EXPECT_EQ(lookup.type, 9u);
  EXPECT_EQ(lookup.subTables.at(0), nullptr);
  EXPECT_EQ(lookup.subTables.at(1), nullptr);
}

}  // namespace
}  // namespace QXFontService_NS::layout
