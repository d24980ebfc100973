#include <gtest/gtest.h>

#include "layout/glyph_runs.h"
#include "layout/gsub/multiple_subst.h"
#include "layout/table/sub_table.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {
namespace {

namespace layout = QXFontService_NS::layout;
using QXFontService_NS::FS_LayoutTables;

layout::SubTablePtr read(unsigned type, const std::string& subTable) {
  LayoutTableBuilder table;
  table.lookup(type, 0, {subTable});
  return TestFont(table.str()).gsub->lookupList.lookups.at(0).subTables.at(0);
}

/// What `ligatureGlyph` or `reverseGlyph` did.
struct Found {
  int glyph = 0xFFFF;
  int position = 0;
  Ids skipped{-1};
  bool operator==(const Found&) const = default;
};

void PrintTo(const Found& found, std::ostream* out) {
  *out << found.glyph << " at " << found.position << " skipped ";
  print(found.skipped, *out);
}

Found ligatureAt(const std::string& subTable, const Ids& ids, int position, unsigned flag = 0) {
  LayoutTableBuilder table;
  table.lookup(4, flag, {subTable});
  const TestFont font(table.str(), gdefTable(testClasses()));
  const auto glyphs = glyphRun(font, ids);
  auto meter = layout::WorkMeter::forStep(glyphs.size());
  Found found;
  found.position = position;
  const auto& read = font.gsub->lookupList.lookups.at(0).subTables.at(0);
  found.glyph = read->ligatureGlyph(font, {glyphs, meter}, found.position, flag, found.skipped);
  return found;
}

int reverseAt(const std::string& subTable, const Ids& ids, int position, unsigned flag = 0) {
  LayoutTableBuilder table;
  table.lookup(8, flag, {subTable});
  const TestFont font(table.str(), gdefTable(testClasses()));
  const auto glyphs = glyphRun(font, ids);
  auto meter = layout::WorkMeter::forStep(glyphs.size());
  return font.gsub->lookupList.lookups.at(0).subTables.at(0)->reverseGlyph(font, {glyphs, meter},
                                                                           position, flag);
}

TEST(SingleSubst, AddsItsDelta) {
  const auto up = read(1, singleSubst(coverage({5, 0xFFFE}), 3));
  EXPECT_EQ(up->substGlyph(5), 8);
  EXPECT_EQ(up->substGlyph(0xFFFE), 1);  // modulo 65,536
  EXPECT_EQ(up->substGlyph(6), 0xFFFF);
  EXPECT_EQ(read(1, singleSubst(coverage({5}), -6))->substGlyph(5), 0xFFFF);
  EXPECT_EQ(up->lookupType(), 1);
}

TEST(SingleSubst, TakesTheSubstituteOfItsCoverageIndex) {
  const auto subst = read(1, singleSubst(coverage({5, 7, 9}), std::vector<unsigned>{15, 17}));
  EXPECT_EQ(subst->substGlyph(5), 15);
  EXPECT_EQ(subst->substGlyph(7), 17);
  EXPECT_EQ(subst->substGlyph(9), 0xFFFF);  // no third substitute
  EXPECT_EQ(subst->substGlyph(6), 0xFFFF);
  EXPECT_EQ(subst->lookupType(), 1);
}

TEST(SubTable, WithoutCoverageCoversNothing) {
  EXPECT_EQ(read(1, singleSubst("", 3))->substGlyph(0), 0xFFFF);
  EXPECT_EQ(ligatureAt(ligatureSubst("", {{{9, {}}}}), {1}, 0).glyph, 0xFFFF);
}

TEST(SubTable, AnswersNothingToTheOperationsOfOtherTypes) {
  const std::string subTable = singleSubst(coverage({1}), 3);
  EXPECT_EQ(read(1, subTable)->alternateGlyph(1, 1), 0xFFFF);
  LayoutTableBuilder table;
  table.lookup(1, 0, {subTable});
  const TestFont font(table.str());
  const auto glyphs = glyphRun(font, {1, 1});
  auto meter = layout::WorkMeter::forStep(2);
  std::vector<int> skipped;
  int position = 0;
  std::span<const layout::TTI_SubstLookupRecord> records;
  const auto single = font.gsub->lookupList.lookups[0].subTables[0];
  EXPECT_EQ(single->ligatureGlyph(font, {glyphs, meter}, position, 0, skipped), 0xFFFF);
  EXPECT_EQ(single->matchContext(font, records, {glyphs, meter}, 0, 0, skipped), 0);
  EXPECT_EQ(single->reverseGlyph(font, {glyphs, meter}, 0, 0), 0xFFFF);
  EXPECT_EQ(read(2, multipleSubst(coverage({1}), {{2}}))->substGlyph(1), 0xFFFF);
}

TEST(MultipleSubst, GivesTheSequenceOfItsCoverageIndex) {
  const auto read2 = read(2, multipleSubst(coverage({5, 6, 7}), {{8, 9}, {}}));
  const auto& subst = dynamic_cast<const FS_LayoutTables::GSUB_MultipleSubstFormat1&>(*read2);
  std::span<const unsigned short> sequence;
  ASSERT_TRUE(subst.sequenceOf(5, sequence));
  EXPECT_EQ(Ids(sequence.begin(), sequence.end()), (Ids{8, 9}));
  ASSERT_TRUE(subst.sequenceOf(6, sequence));
  EXPECT_TRUE(sequence.empty());
  EXPECT_FALSE(subst.sequenceOf(7, sequence));  // no third sequence
  EXPECT_FALSE(subst.sequenceOf(4, sequence));
  EXPECT_EQ(subst.lookupType(), 2);
}

TEST(AlternateSubst, CountsFromOne) {
  const auto subst = read(3, alternateSubst(coverage({5, 6}), {{8, 9}}));
  EXPECT_EQ(subst->alternateGlyph(5, 1), 8);
  EXPECT_EQ(subst->alternateGlyph(5, 2), 9);
  for (const int number : {0, -1, 3, 1'000'000})
    EXPECT_EQ(subst->alternateGlyph(5, number), 0xFFFF) << number;
  EXPECT_EQ(subst->alternateGlyph(6, 1), 0xFFFF);  // no second set
  EXPECT_EQ(subst->alternateGlyph(7, 1), 0xFFFF);
  EXPECT_EQ(subst->lookupType(), 3);
}

TEST(LigatureSubst, TakesTheFirstThatMatchesNotTheLongest) {
  const std::string ligatures =
      ligatureSubst(coverage({1}), {{{70, {2}}, {71, {2, 3}}, {72, {3}}}});
  EXPECT_EQ(ligatureAt(ligatures, {1, 2, 3}, 0), (Found{70, 2, {}}));
  EXPECT_EQ(ligatureAt(ligatures, {9, 1, 3}, 1), (Found{72, 3, {}}));
  EXPECT_EQ(ligatureAt(ligatures, {1, 4}, 0).glyph, 0xFFFF);
  EXPECT_EQ(ligatureAt(ligatures, {2, 2}, 0), (Found{0xFFFF, 0, {-1}}));
}

TEST(LigatureSubst, PassesOverSkippedGlyphs) {
  const std::string fi = ligatureSubst(coverage({1}), {{{70, {2}}}});
  EXPECT_EQ(ligatureAt(fi, {1, 50, 2}, 0, 8), (Found{70, 3, {1}}));
  EXPECT_EQ(ligatureAt(fi, {1, 50, 2}, 0, 0), (Found{0xFFFF, 0, {}}));
  EXPECT_EQ(ligatureAt(fi, {1, 50, 51, 2, 52}, 0, 8), (Found{70, 4, {1, 2}}));
}

TEST(LigatureSubst, FirstGlyphIsNotTestedAgainstTheFlag) {
  EXPECT_EQ(ligatureAt(ligatureSubst(coverage({50}), {{{70, {2}}}}), {50, 2}, 0, 8),
            (Found{70, 2, {}}));
}

TEST(LigatureSubst, TooLongForTheRestIsPassedOverWithoutATry) {
  const std::string ligatures = ligatureSubst(coverage({1}), {{{70, {2, 3, 4}}, {71, {2}}}});
  EXPECT_EQ(ligatureAt(ligatures, {1, 2, 3}, 0), (Found{71, 2, {}}));
  EXPECT_EQ(ligatureAt(ligatures, {1}, 0), (Found{0xFFFF, 0, {-1}}));
}

TEST(LigatureSubst, FailedAttemptLeavesWhatItPassedOver) {
  const std::string ligatures = ligatureSubst(coverage({1}), {{{70, {2, 3}}}});
  EXPECT_EQ(ligatureAt(ligatures, {1, 50, 2, 51, 4}, 0, 8), (Found{0xFFFF, 0, {1, 3}}));
  EXPECT_EQ(ligatureAt(ligatures, {1, 50, 51}, 0, 8), (Found{0xFFFF, 0, {1, 2}}));
}

TEST(LigatureSubst, OfOneComponentOrNoneMatchesAlone) {
  EXPECT_EQ(ligatureAt(ligatureSubst(coverage({1}), {{{70, {}}}}), {1}, 0), (Found{70, 1, {}}));
  std::string none = ligatureSubst(coverage({1}), {{{70, {}}}});
  none.back() = 0;  // CompCount 0
  EXPECT_EQ(ligatureAt(none, {1}, 0), (Found{70, 0, {}}));
}

TEST(LigatureSubst, CoverageBeyondItsSetsIsNoHit) {
  const std::string ligatures = ligatureSubst(coverage({1, 2}), {{{70, {}}}});
  EXPECT_EQ(ligatureAt(ligatures, {2}, 0).glyph, 0xFFFF);
}

const std::string kReverse =
    reverseChainSubst(coverage({1, 2}), {coverage({5}), coverage({4})}, {coverage({6})}, {11});

TEST(ReverseChainSubst, LooksAround) {
  EXPECT_EQ(reverseAt(kReverse, {4, 5, 1, 6}, 2), 11);
  EXPECT_EQ(reverseAt(kReverse, {5, 4, 1, 6}, 2), 0xFFFF);
  EXPECT_EQ(reverseAt(kReverse, {4, 5, 1, 7}, 2), 0xFFFF);
  EXPECT_EQ(reverseAt(kReverse, {4, 5, 2, 6}, 2), 0xFFFF);  // no second substitute
  EXPECT_EQ(reverseAt(kReverse, {4, 5, 3, 6}, 2), 0xFFFF);
}

TEST(ReverseChainSubst, CountsRawPlacesBeforeItLooks) {
  EXPECT_EQ(reverseAt(kReverse, {5, 1, 6}, 1), 0xFFFF);
  EXPECT_EQ(reverseAt(kReverse, {4, 5, 1}, 2), 0xFFFF);
}

TEST(ReverseChainSubst, PassesOverSkippedGlyphs) {
  EXPECT_EQ(reverseAt(kReverse, {4, 50, 5, 51, 1, 52, 6}, 4, 8), 11);
  EXPECT_EQ(reverseAt(kReverse, {4, 50, 5, 51, 1, 52}, 4, 8), 0xFFFF);
  EXPECT_EQ(reverseAt(kReverse, {50, 51, 5, 1, 6}, 3, 8), 0xFFFF);
}

TEST(ContextSubst, HasItsLookupType) {
  EXPECT_EQ(read(5, context1(coverage({1}), {}))->lookupType(), 5);
  EXPECT_EQ(read(5, context2(coverage({1}), "", {}))->lookupType(), 5);
  EXPECT_EQ(read(5, context3({}, {}))->lookupType(), 5);
  EXPECT_EQ(read(6, chainContext1(coverage({1}), {}))->lookupType(), 6);
  EXPECT_EQ(read(6, chainContext2(coverage({1}), "", "", "", {}))->lookupType(), 6);
  EXPECT_EQ(read(6, chainContext3({}, {}, {}, {}))->lookupType(), 6);
  EXPECT_EQ(read(8, kReverse)->lookupType(), 8);
}

TEST(SubTable, OfUnknownFormatIsNull) {
  const struct {
    unsigned type;
    std::string bytes;
    char format;
  } cases[] = {{1, singleSubst("", 0), 3},
               {2, multipleSubst("", {}), 2},
               {3, alternateSubst("", {}), 2},
               {4, ligatureSubst("", {}), 2},
               {5, context3({}, {}), 4},
               {6, chainContext3({}, {}, {}, {}), 4},
               {8, reverseChainSubst("", {}, {}, {}), 2}};
  for (const auto& c : cases) {
    for (const char format : {'\0', c.format}) {
      std::string bytes = c.bytes;
      bytes[1] = format;
      EXPECT_EQ(read(c.type, bytes), nullptr) << c.type;
    }
    EXPECT_NE(read(c.type, c.bytes), nullptr) << c.type;
  }
}

}  // namespace
}  // namespace qxtest
