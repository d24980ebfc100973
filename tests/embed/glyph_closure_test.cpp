#include "embed/glyph_closure.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/subset_glyf.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {
namespace {

/// The ids of the closure of `gids` in a font of these glyphs.
Gids closureOf(const std::vector<std::string>& glyphs, const Gids& gids, unsigned glyphCount = 0) {
  OpenedSfnt font(fontOf(glyphs), 1);
  font.source.glyphCount = glyphCount;
  SubsetTables tables;
  EXPECT_TRUE(selectTables(font.source, nullptr, tables));
  SubsetGlyphs subset(font.source);
  EXPECT_TRUE(subset.fill(gids));
  Gids ids;
  for (const KeptGlyph& glyph : subset.glyphs()) ids.push_back(glyph.id);
  return ids;
}

std::vector<std::string> simpleGlyphs(std::size_t count) {
  return std::vector<std::string>(count, glyphOf(20, 's'));
}

TEST(GlyphClosure, NothingAskedForIsNotdefAndItsComponents) {
  EXPECT_EQ(closureOf(simpleGlyphs(4), {}), (Gids{0}));
  EXPECT_EQ(closureOf({compositeOf({2}), glyphOf(20, 'a'), glyphOf(20, 'b')}, {}), (Gids{0, 2}));
}

TEST(GlyphClosure, IsSortedAndWithoutRepeats) {
  EXPECT_EQ(closureOf(simpleGlyphs(9), {7, 3, 7, 0, 3}), (Gids{0, 3, 7}));
}

TEST(GlyphClosure, NoGlyphIsPassedOver) {
  EXPECT_EQ(closureOf(simpleGlyphs(4), {0xFFFF, 2}), (Gids{0, 2}));
}

TEST(GlyphClosure, NoGlyphAsAComponentIsPassedOver) {
  auto glyphs = simpleGlyphs(4);
  glyphs[2] = compositeOf({0xFFFF, 3});
  EXPECT_EQ(closureOf(glyphs, {2}), (Gids{0, 2, 3}));
}

TEST(GlyphClosure, AnIdPastTheLastGlyphIsInItAndAddsNothing) {
  EXPECT_EQ(closureOf(simpleGlyphs(4), {900}), (Gids{0, 900}));
  // What looks like a composite behind the last glyph is padding.
  auto glyphs = simpleGlyphs(3);
  glyphs.push_back(compositeOf({1}));
  EXPECT_EQ(closureOf(glyphs, {3}, 3), (Gids{0, 3}));
  EXPECT_EQ(closureOf(glyphs, {3}, 4), (Gids{0, 1, 3}));
}

TEST(GlyphClosure, ComponentsAreTakenAtEachLevel) {
  auto glyphs = simpleGlyphs(8);
  glyphs[7] = compositeOf({5, 1});
  glyphs[5] = compositeOf({6});
  glyphs[6] = compositeOf({2, 3});
  EXPECT_EQ(closureOf(glyphs, {7}), (Gids{0, 1, 2, 3, 5, 6, 7}));
}

TEST(GlyphClosure, CompositesThatNameEachOtherEnd) {
  auto glyphs = simpleGlyphs(4);
  glyphs[1] = compositeOf({2});
  glyphs[2] = compositeOf({1});
  glyphs[3] = compositeOf({3});
  EXPECT_EQ(closureOf(glyphs, {1, 3}), (Gids{0, 1, 2, 3}));
}

TEST(GlyphClosure, ACompositeAsDeepAsTheFontHasGlyphs) {
  constexpr unsigned kCount = 60'000;
  std::vector<std::string> glyphs{""};
  for (unsigned i = 1; i < kCount; ++i) glyphs.push_back(compositeOf({i % (kCount - 1) + 1}));
  EXPECT_EQ(closureOf(glyphs, {1}).size(), kCount);
}

// numberOfContours is told by the first word; anything below 11 bytes has no component.
TEST(GlyphClosure, AGlyphBelowElevenBytesIsALeafWithoutBeingRead) {
  auto glyphs = simpleGlyphs(4);
  glyphs[2] = std::string(10, '\xFF');
  EXPECT_EQ(closureOf(glyphs, {2}), (Gids{0, 2}));
  glyphs[2] = std::string(10, '\xFF') + std::string("\0\0\0\3", 4);
  EXPECT_EQ(closureOf(glyphs, {2}), (Gids{0, 2, 3}));
}

TEST(GlyphClosure, NoContoursIsASimpleGlyph) {
  auto glyphs = simpleGlyphs(4);
  glyphs[2] = std::string(10, '\0') + std::string("\0\0\0\3", 4);
  EXPECT_EQ(closureOf(glyphs, {2}), (Gids{0, 2}));
}

TEST(GlyphClosure, TheSizeOfAComponentFollowsItsFlags) {
  const struct {
    const char* name;
    unsigned flags;
    std::size_t size;
  } cases[] = {
      {"bytes", 0, 2},
      {"words", 0x01, 4},
      {"bytes and a scale", 0x08, 4},
      {"words and a scale", 0x09, 6},
      {"two scales", 0x40, 6},
      {"words and two scales", 0x41, 8},
      {"a matrix", 0x80, 10},
      {"words and a matrix", 0x81, 12},
      {"a scale goes before two scales and a matrix", 0xC8, 4},
      {"two scales go before a matrix", 0xC0, 6},
      {"flags that say nothing of the size", 0xFF16, 2},
  };
  for (const auto& c : cases) {
    auto glyphs = simpleGlyphs(6);
    glyphs[2] = Composite().part(c.flags | 0x20, 3, c.size).part(0, 5, 2).str();
    EXPECT_EQ(closureOf(glyphs, {2}), (Gids{0, 2, 3, 5})) << c.name;
  }
}

TEST(GlyphClosure, WhatFollowsTheLastComponentIsNotRead) {
  auto glyphs = simpleGlyphs(6);
  glyphs[2] = Composite().part(0x01, 3, 4).part(0x01, 5, 4).str();
  EXPECT_EQ(closureOf(glyphs, {2}), (Gids{0, 2, 3}));
}

TEST(GlyphClosure, AComponentThatIsLongerThanTheGlyphEndsTheWalk) {
  auto glyphs = simpleGlyphs(6);
  const std::string whole = Composite().part(0xA1, 3, 12).part(0, 5, 2).str();
  for (std::size_t size = 10; size < whole.size() - 2; ++size) {
    glyphs[2] = whole.substr(0, size);
    const Gids expected = size < 14 ? Gids{0, 2} : size < 30 ? Gids{0, 2, 3} : Gids{0, 2, 3, 5};
    EXPECT_EQ(closureOf(glyphs, {2}), expected) << size;
  }
}

TEST(GlyphClosure, AFontThatIsCutGivesWhatCanBeRead) {
  auto glyphs = simpleGlyphs(4);
  glyphs[3] = compositeOf({1, 2});
  const std::string whole = fontOf(glyphs).build();
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    OpenedSfnt font(whole, whole.substr(0, size), 1);
    SubsetTables tables;
    ASSERT_TRUE(selectTables(font.source, nullptr, tables));
    SubsetGlyphs subset(font.source);
    ASSERT_TRUE(subset.fill({3}));
    ASSERT_GE(subset.glyphs().size(), 2u);
    for (const KeptGlyph& glyph : subset.glyphs()) EXPECT_LE(glyph.bytes.size(), glyph.length);
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
