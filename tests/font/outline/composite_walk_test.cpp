#include "font/outline/composite_walk.h"

#include <gtest/gtest.h>

#include "font/outline/outline_source.h"
#include "support/glyf_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::outline {
namespace {

using qxtest::GlyfBuilder;

/// `loca` at 0, `glyf` behind it.
struct Font {
  explicit Font(const GlyfBuilder& glyphs)
      : bytes(glyphs.loca(true) + glyphs.glyf()), tables(tablesOf(glyphs)) {}

  static GlyphTables tablesOf(const GlyfBuilder& glyphs) {
    const auto locaSize = static_cast<std::uint32_t>(glyphs.loca(true).size());
    const auto glyfSize = static_cast<std::uint32_t>(glyphs.glyf().size());
    return {{0, locaSize, glyfSize}, {0, 0, locaSize}, true};
  }

  std::string bytes;
  GlyphTables tables;
};

bool isBounded(const GlyfBuilder& glyphs, std::uint16_t glyph) {
  const Font font(glyphs);
  qxtest::OpenedBytes source(font.bytes);
  return CompositeWalk(font.tables).isBounded(glyph, source.opener());
}

/// Glyph 0 a square; each further one made of the one before.
GlyfBuilder chain(unsigned composites) {
  GlyfBuilder glyphs;
  glyphs.square(500);
  for (unsigned i = 0; i < composites; ++i) glyphs.composite({{i, 1, 1}});
  return glyphs;
}

TEST(CompositeWalk, TakesSixtyFourLevelsAndNoMore) {
  const GlyfBuilder glyphs = chain(66);
  EXPECT_TRUE(isBounded(glyphs, 0));
  EXPECT_TRUE(isBounded(glyphs, 1));
  EXPECT_TRUE(isBounded(glyphs, 63));
  EXPECT_TRUE(isBounded(glyphs, 64));
  EXPECT_FALSE(isBounded(glyphs, 65));
  EXPECT_FALSE(isBounded(glyphs, 66));
}

TEST(CompositeWalk, AnswersTheSameInAnyOrderAndAgain) {
  const Font font(chain(70));
  qxtest::OpenedBytes source(font.bytes);
  const OpenFont open = source.opener();
  CompositeWalk rising(font.tables);
  for (std::uint16_t i = 0; i <= 70; ++i) EXPECT_EQ(rising.isBounded(i, open), i <= 64) << i;
  for (std::uint16_t i = 0; i <= 70; ++i) EXPECT_EQ(rising.isBounded(i, open), i <= 64) << i;
  CompositeWalk falling(font.tables);
  for (int i = 70; i >= 0; --i)
    EXPECT_EQ(falling.isBounded(static_cast<std::uint16_t>(i), open), i <= 64) << i;
}

TEST(CompositeWalk, FindsTheLongestWayToAGlyphThatIsMetTwice) {
  GlyfBuilder glyphs = chain(64);  // 64 is the highest
  glyphs.composite({{63, 0, 0}, {64, 0, 0}});
  EXPECT_FALSE(isBounded(glyphs, 65));
  GlyfBuilder longWayFirst = chain(64);
  longWayFirst.composite({{64, 0, 0}, {1, 0, 0}});
  EXPECT_FALSE(isBounded(longWayFirst, 65));
  GlyfBuilder low = chain(63);
  low.composite({{1, 0, 0}, {63, 0, 0}});
  EXPECT_TRUE(isBounded(low, 64));
}

/// Glyph 0 made of `parts` squares, and as many again of the same.
GlyfBuilder broad(unsigned parts) {
  std::vector<GlyfBuilder::Component> components;
  for (unsigned i = 1; i <= parts; ++i) components.push_back({i, 0, 0});
  for (unsigned i = 1; i <= parts; ++i) components.push_back({i, 5, 5});
  GlyfBuilder glyphs;
  glyphs.composite(components);
  for (unsigned i = 0; i < parts; ++i) glyphs.square(10);
  return glyphs;
}

TEST(CompositeWalk, TakesAThousandAndTwentyFourGlyphsEachCountedOnce) {
  EXPECT_TRUE(isBounded(broad(1022), 0));
  EXPECT_TRUE(isBounded(broad(1023), 0));
  EXPECT_FALSE(isBounded(broad(1024), 0));
}

TEST(CompositeWalk, CountsKnownSimpleGlyphsToo) {
  const Font font(broad(1024));
  qxtest::OpenedBytes source(font.bytes);
  CompositeWalk walk(font.tables);
  for (std::uint16_t i = 1; i <= 1024; ++i) EXPECT_TRUE(walk.isBounded(i, source.opener()));
  EXPECT_FALSE(walk.isBounded(0, source.opener()));
}

TEST(CompositeWalk, LeavesCyclesToFreeType) {
  GlyfBuilder glyphs;
  glyphs.composite({{0, 0, 0}}).composite({{2, 0, 0}}).composite({{1, 0, 0}, {3, 0, 0}}).square(5);
  for (std::uint16_t i = 0; i < 4; ++i) EXPECT_TRUE(isBounded(glyphs, i)) << i;
}

/// Glyph 0 blank; each further one made of the one before, twice.
GlyfBuilder doubling(unsigned composites) {
  GlyfBuilder glyphs;
  glyphs.empty();
  for (unsigned i = 0; i < composites; ++i) glyphs.composite({{i, 0, 0}, {i, 1, 1}});
  return glyphs;
}

// FreeType goes each way to a glyph, and nothing stops it where the last one is blank.
TEST(CompositeWalk, TakesAsManyWaysAsFillAnOutline) {
  EXPECT_TRUE(isBounded(doubling(13), 13));   // 2 ^ 14 - 1 loads
  EXPECT_FALSE(isBounded(doubling(14), 14));  // 2 ^ 15 - 1
  const auto row = [](std::size_t parts) {
    return GlyfBuilder().empty().composite(
        std::vector<GlyfBuilder::Component>(parts, GlyfBuilder::Component{0, 0, 0}));
  };
  EXPECT_TRUE(isBounded(row(16'000), 1));
  EXPECT_FALSE(isBounded(row(16'384), 1));
}

TEST(CompositeWalk, ManyWaysToTheSameGlyphsCostNoMoreThanTheGlyphs) {
  GlyfBuilder glyphs;
  glyphs.square(5);
  for (unsigned i = 0; i < 60; ++i) glyphs.composite({{i, 0, 0}, {i, 1, 1}, {i, 2, 2}});
  EXPECT_FALSE(isBounded(glyphs, 60));  // 3 ^ 60 ways
  EXPECT_TRUE(isBounded(glyphs, 8));
}

TEST(CompositeWalk, CountsWaysInTurnsOfDifferentGlyphs) {
  GlyfBuilder glyphs;
  glyphs.empty().empty();
  std::vector<GlyfBuilder::Component> turns;
  for (unsigned i = 0; i < 10'000; ++i) turns.insert(turns.end(), {{0, 0, 0}, {1, 0, 0}});
  EXPECT_FALSE(isBounded(glyphs.composite(turns), 2));
  turns.resize(10'000, {0, 0, 0});
  EXPECT_TRUE(isBounded(glyphs.composite(turns), 3));
}

TEST(CompositeWalk, WhatCannotBeReadHasNoComponents) {
  const GlyfBuilder glyphs = chain(66);
  const Font font(glyphs);
  CompositeWalk none(font.tables);
  EXPECT_TRUE(none.isBounded(66, [] { return embed::FontStream(); }));
  EXPECT_TRUE(isBounded(glyphs, 67)) << "no such glyph";
  EXPECT_TRUE(isBounded(glyphs, 0xFFFF));
  EXPECT_TRUE(isBounded(GlyfBuilder().composite({{900, 0, 0}}), 0)) << "nor such a component";
}

TEST(CompositeWalk, ReadsShortOffsets) {
  const GlyfBuilder glyphs = chain(66);
  const std::string loca = glyphs.loca(false);
  qxtest::OpenedBytes source(loca + glyphs.glyf());
  const auto locaSize = static_cast<std::uint32_t>(loca.size());
  const auto glyfSize = static_cast<std::uint32_t>(glyphs.glyf().size());
  CompositeWalk walk({{0, locaSize, glyfSize}, {0, 0, locaSize}, false});
  EXPECT_TRUE(walk.isBounded(64, source.opener()));
  EXPECT_FALSE(walk.isBounded(65, source.opener()));
}

// FreeType reads such a glyph up to the end of `glyf`, so a deep one may hide there.
TEST(CompositeWalk, AGlyphWhoseOffsetsFallGoesOnToTheEndOfTheTable) {
  const Font font(chain(66));
  qxtest::OpenedBytes source(qxtest::detail::withField(font.bytes, 67 * 4, 4, 0));
  EXPECT_FALSE(CompositeWalk(font.tables).isBounded(66, source.opener()));
}

TEST(CompositeWalk, ReadsComponentsBeyondOneWindow) {
  std::vector<GlyfBuilder::Component> many(12'000, {1, 0, 0});
  many.push_back({67, 0, 0});
  GlyfBuilder glyphs;
  glyphs.composite(many).square(5);
  for (unsigned i = 1; i <= 66; ++i) glyphs.composite({{i, 0, 0}});
  EXPECT_FALSE(isBounded(glyphs, 0));
}

TEST(CompositeWalk, ReadsEachWindowOnceForGlyphsInOrder) {
  const Font font(broad(800));
  qxtest::OpenedBytes source(font.bytes);
  CompositeWalk walk(font.tables);
  for (std::uint16_t i = 0; i < 801; ++i) EXPECT_TRUE(walk.isBounded(i, source.opener()));
  EXPECT_EQ(source.opened, 2);  // `loca`, and the window
}

TEST(CompositeWalk, AnyDamageIsAnswered) {
  GlyfBuilder glyphs = chain(3);
  glyphs.composite({{1, 0, 0}, {2, 0, 0}, {3, 0, 0, 0x0008, {0x4000}}});
  const Font font(glyphs);
  qxtest::forEachDamage(font.bytes, [&](const std::string& damaged) {
    qxtest::OpenedBytes source(damaged);
    CompositeWalk walk(font.tables);
    for (std::uint16_t glyph = 0; glyph < 6; ++glyph) (void)walk.isBounded(glyph, source.opener());
  });
}

}  // namespace
}  // namespace QXFontService_NS::outline
