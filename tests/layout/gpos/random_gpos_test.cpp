#include "layout/gpos/random_gpos.h"

#include <gtest/gtest.h>

#include <array>

#include "layout/gpos/plain_gpos.h"

namespace qxtest::gpos {
namespace {

constexpr unsigned kLookups = 6;

std::string gdef() {
  return gdefTable(testClasses(), classDefOfRanges({{50, 50, 1}, {51, 51, 2}}));
}

std::vector<int> flagsOf(const Glyphs& glyphs) {
  std::vector<int> flags;
  for (const GlyphIDPosition& glyph : glyphs) flags.push_back(glyph.getFlag());
  return flags;
}

/// How often each type of lookup, by its first subtable, applied.
using Applied = std::array<unsigned, 9>;

void comparePasses(unsigned seed, Applied& applied) {
  RandomGpos random(seed);
  const std::vector<PlainLookup> lookups = random.lookups(kLookups);
  const GposFont font(RandomGpos::tableOf(lookups), gdef());
  Glyphs wanted = random.run(14);
  Glyphs made = wanted;
  for (unsigned index = 0; index < kLookups; ++index) {
    const bool rightToLeft = random.oneIn(2);
    const int first = PlainGpos(font, lookups, wanted, rightToLeft).pass(index);
    ASSERT_EQ(passOver(font, static_cast<int>(index), made, rightToLeft), first)
        << "seed " << seed << " lookup " << index;
    ASSERT_EQ(movesOf(made), movesOf(wanted)) << "seed " << seed << " lookup " << index;
    ASSERT_EQ(flagsOf(made), flagsOf(wanted)) << "seed " << seed << " lookup " << index;
    if (first >= 0) ++applied[lookups[index].subTables[0].type];
  }
}

TEST(RandomGpos, PassesDoAsPlainWalksDo) {
  Applied applied{};
  for (unsigned seed = 0; seed < 4000 && !testing::Test::HasFatalFailure(); ++seed)
    comparePasses(seed, applied);
  for (unsigned type = 1; type <= 8; ++type) EXPECT_GT(applied[type], 100u) << type;
}

void compareSteps(unsigned seed, unsigned& applied) {
  RandomGpos random(seed);
  const std::vector<PlainLookup> lookups = random.lookups(kLookups);
  const GposFont font(RandomGpos::tableOf(lookups), gdef());
  Glyphs wanted = random.run(8);
  Glyphs made = wanted;
  for (int start = 0; start < static_cast<int>(made.size()); ++start) {
    const bool rightToLeft = random.oneIn(2);
    for (unsigned index = 0; index < kLookups; ++index) {
      int plainPosition = start;
      int position = start;
      const bool plain = PlainGpos(font, lookups, wanted, rightToLeft).apply(index, plainPosition);
      ASSERT_EQ(applyAt(font, made, position, rightToLeft, index), plain) << seed << " " << index;
      ASSERT_EQ(position, plainPosition) << seed << " " << index;
      ASSERT_EQ(movesOf(made), movesOf(wanted)) << seed << " " << index;
      applied += plain ? 1 : 0;
    }
  }
}

TEST(RandomGpos, StepsDoAsPlainWalksDo) {
  unsigned applied = 0;
  for (unsigned seed = 0; seed < 1500 && !testing::Test::HasFatalFailure(); ++seed)
    compareSteps(seed, applied);
  EXPECT_GT(applied, 1500u);
}

}  // namespace
}  // namespace qxtest::gpos
