#include "layout/driver/process_gpos.h"

#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

constexpr unsigned kArab = 0x61726162, kHebr = 0x68656272, kLatn = 0x6C61746E;

unsigned tagOf(const std::string& text) {
  unsigned tag = 0;
  for (const char each : text) tag = tag << 8 | static_cast<unsigned char>(each);
  return tag;
}

/// Scripts 'arab', 'hebr' and 'latn' whose default language system has these features, all tagged
/// 'test'. Lookup 0 applies to no glyph 1; 1 moves it by 10, 2 by 100.
GposFont fontOf(const std::vector<std::vector<unsigned>>& features) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {shift({9}, 1)});
  table.lookup(1, 0, {shift({1}, 10)});
  table.lookup(1, 0, {shift({1}, 100)});
  std::vector<unsigned> all;
  for (const auto& lookups : features) all.push_back(table.feature("test", lookups));
  for (const char* script : {"arab", "hebr", "latn", "test"}) table.script(script, all);
  return GposFont(table.str());
}

struct Ran {
  bool applied;
  int shift;
  bool operator==(const Ran&) const = default;
};
void PrintTo(const Ran& ran, std::ostream* out) {
  *out << ran.applied << " moved by " << ran.shift;
}

Ran run(const GposFont& font, unsigned script, unsigned tag = kTestTag) {
  Glyphs glyphs{placed(1)};
  const bool applied = stepAt(font, glyphs, 0, false, script, tag);
  return {applied, glyphs[0].getMoveX1()};
}

TEST(ProcessGPOS, ArabRunsOnlyTheLastLookupThatApplies) {
  EXPECT_EQ(run(fontOf({{0, 1, 2}}), kArab), (Ran{true, 100}));
  EXPECT_EQ(run(fontOf({{2, 1, 0}}), kArab), (Ran{true, 10}));
}

TEST(ProcessGPOS, HebrRunsOnlyTheFirstLookupThatApplies) {
  EXPECT_EQ(run(fontOf({{0, 1, 2}}), kHebr), (Ran{true, 10}));
  EXPECT_EQ(run(fontOf({{2, 1, 0}}), kHebr), (Ran{true, 100}));
}

TEST(ProcessGPOS, OtherScriptsRunAllLookups) {
  EXPECT_EQ(run(fontOf({{0, 1, 2}}), kLatn), (Ran{true, 110}));
  EXPECT_EQ(run(fontOf({{1, 0}}), kLatn), (Ran{true, 10}));
}

TEST(ProcessGPOS, OrderHangsOnTheScriptAndNotOnTheDirection) {
  for (const auto& [script, shift] :
       {std::pair(kArab, 100), std::pair(kHebr, 10), std::pair(kLatn, 110)}) {
    for (const bool rightToLeft : {false, true}) {
      Glyphs glyphs{placed(1)};
      EXPECT_TRUE(stepAt(fontOf({{1, 2}}), glyphs, 0, rightToLeft, script));
      EXPECT_EQ(glyphs[0].getMoveX1(), shift);
    }
  }
}

TEST(ProcessGPOS, LookupsRunAsTheyStandInTheFeature) {
  // Setting, not adding, shows the order: the last to run stays.
  LayoutTableBuilder table;
  const auto attach = [](int x) {
    return markPos(coverage({50}), coverage({1}), 1, {{0, anchorTable(0, 0)}},
                   {{anchorTable(x, 0)}});
  };
  table.lookup(4, 0, {attach(10)});
  table.lookup(4, 0, {attach(100)});
  table.script("latn", {{table.feature("test", {1, 0})}});
  Glyphs glyphs{placed(1), placed(50, kAbsolute)};
  EXPECT_TRUE(stepAt(GposFont(table.str()), glyphs, 1, true, kLatn));
  EXPECT_EQ(glyphs[1].getMoveX1(), 10);
}

TEST(ProcessGPOS, LaterFeaturesOfTheTagRunOnlyWhereNoneBeforeApplied) {
  for (const unsigned script : {kArab, kHebr, kLatn}) {
    EXPECT_EQ(run(fontOf({{1}, {2}}), script), (Ran{true, 10}));
    EXPECT_EQ(run(fontOf({{0}, {2}, {1}}), script), (Ran{true, 100}));
    EXPECT_EQ(run(fontOf({{0}, {0}}), script), (Ran{false, 0}));
  }
}

TEST(ProcessGPOS, FirstFeatureWithoutLookupsHidesTheOthers) {
  EXPECT_EQ(run(fontOf({{}, {1}}), kLatn), (Ran{false, 0}));
  EXPECT_EQ(run(fontOf({{0}, {}, {1}}), kLatn), (Ran{true, 10}));
}

TEST(ProcessGPOS, UnknownTagScriptOrInfoIsFalse) {
  const GposFont font = fontOf({{1}});
  EXPECT_EQ(run(font, kLatn, tagOf("kern")), (Ran{false, 0}));
  EXPECT_EQ(run(font, tagOf("grek")), (Ran{false, 0}));
  Glyphs glyphs{placed(1)};
  EXPECT_FALSE(QXFontService_NS::layout::processGPOS(nullptr, kTestTag, glyphs, 0, false));
}

TEST(ProcessGPOS, LookupThatIsNotThereIsPassedBy) {
  EXPECT_EQ(run(fontOf({{99, 1, 0xFFFF}}), kLatn), (Ran{true, 10}));
  EXPECT_EQ(run(fontOf({{99, 1, 0xFFFF}}), kArab), (Ran{true, 10}));
}

TEST(ProcessGPOS, PositionOutsideIsFalse) {
  const GposFont font = fontOf({{1}});
  Glyphs glyphs{placed(1)};
  for (const int position : {-1, 1, 1000, -2147483647})
    EXPECT_FALSE(stepAt(font, glyphs, position)) << position;
  Glyphs none;
  EXPECT_FALSE(stepAt(font, none, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), 0);
}

TEST(ProcessGPOS, PairMovesThePositionForLaterLookupsAndFeatures) {
  LayoutTableBuilder table;
  table.lookup(2, 0, {pairPos1(coverage({1}), 1, 1, {{{2, {5}, {6}}}})});
  table.lookup(1, 0, {shift({2}, 20)});
  // A pair by class without values moves on, and does not apply: the next feature runs there.
  table.lookup(
      2, 0, {pairPos2(coverage({1}), 0, 0x10, classDef(1, {0}), classDef(2, {0}), {{{{}, {9}}}})});
  table.script("latn", {{table.feature("test", {0, 1})}});
  table.script("test", {{table.feature("test", {2}), table.feature("test", {1})}});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1, kAbsolute), placed(2)};
  EXPECT_TRUE(stepAt(font, glyphs, 0, false, kLatn));
  EXPECT_EQ(glyphs[1].getMoveX1(), 26);
  glyphs = {placed(1, kAbsolute), placed(2)};
  EXPECT_TRUE(stepAt(font, glyphs, 0));
  EXPECT_EQ(glyphs[1].getMoveX1(), 20);
  glyphs = {placed(1), placed(2)};
  EXPECT_FALSE(stepAt(font, glyphs, 0));
}

TEST(ProcessGPOS, DirectionIsTheArgumentWhateverTheLookupSays) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 4, 0x0001,
                   {markPos(coverage({50}), coverage({1}), 1, {{0, anchorTable(0, 0)}},
                            {{anchorTable(100, 0)}})});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1), placed(50)};
  EXPECT_TRUE(stepAt(font, glyphs, 1, false));
  EXPECT_EQ(glyphs[1].getMoveX1(), 100 - 500);
}

TEST(ProcessGPOS, PositionFromOutsideIsDroppedOnlyByAMove) {
  const GposFont font = fontOf({{0, 1, 2}});
  Glyphs glyphs{placed(1, kOutside), placed(3, kOutside)};
  for (GlyphIDPosition& glyph : glyphs) glyph.setMoveX1(7);
  EXPECT_TRUE(stepAt(font, glyphs, 0));
  EXPECT_FALSE(stepAt(font, glyphs, 1));
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{110, 390, 0}));
  EXPECT_EQ(glyphs[0].getFlag(), 0);
  EXPECT_EQ(movesOf(glyphs[1]), (Moves{7, 500, 0}));
  EXPECT_EQ(glyphs[1].getFlag(), kOutside);
}

TEST(ProcessGPOS, ExtensionsRunAsWhatTheyNameAndNeedTheirFormat) {
  for (const auto& [format, applied] : {std::pair(1U, true), std::pair(2U, false)}) {
    LayoutTableBuilder table;
    table.onlyLookup("test", 9, 0, {extensionSubTable(1, shift({1}, 10), format)});
    Glyphs glyphs{placed(1)};
    EXPECT_EQ(stepAt(GposFont(table.str()), glyphs, 0), applied);
  }
}

}  // namespace
}  // namespace qxtest::gpos
