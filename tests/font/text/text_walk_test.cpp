#include "font/text/text_walk.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "font/cmap/cmap_reader.h"
#include "support/cmap_builder.h"

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;
using qxtest::CmapBuilder;

/// A font whose answers are set by the tests; it keeps a log of the EUDC fonts that were asked.
class FakePort final : public TextPort {
 public:
  std::uint16_t verticalGlyph(std::uint16_t glyph) const override {
    const auto form = verticalForms.find(glyph);
    return form == verticalForms.end() ? glyph : form->second;
  }
  bool hasVerticalForms() const override { return !verticalForms.empty(); }
  bool isEudc(int code) const override { return code >= 0xE000 && code < 0xE100; }
  std::uint16_t eudcGlyph(EudcSource source, int code) const override {
    asked.push_back(source);
    const auto found = eudc.find({source, code});
    return found == eudc.end() ? kNoGlyph : found->second;
  }
  float eudcWidth(EudcSource source, std::uint16_t glyph, int size, bool vertical) const override {
    return (source == EudcSource::own ? 1000.0F : 2000.0F) + static_cast<float>(glyph) +
           static_cast<float>(size) / 16.0F + (vertical ? 0.5F : 0.0F);
  }

  std::map<std::uint16_t, std::uint16_t> verticalForms;
  std::map<std::pair<EudcSource, int>, std::uint16_t> eudc;
  mutable std::vector<EudcSource> asked;
};

cmap::CharacterMaps lettersToGlyphs() {
  // a to z are glyphs 1 to 26, U+1F600 is 30, U+FFFF is 31.
  const std::string subtable = CmapBuilder::format12(
      {{'a', 'z', 1}, {0xD800, 0xD800, 29}, {0xFFFF, 0xFFFF, 31}, {0x1F600, 0x1F600, 30}});
  std::istringstream stream(CmapBuilder().add(3, 10, subtable).build());
  return cmap::CharacterMaps(cmap::readCmap(stream, TableRange{}, false).subtables);
}

class TextWalk : public testing::Test {
 protected:
  std::vector<int> glyphs(const UnicodeString& text, bool vertical = false) {
    std::vector<std::uint16_t> out(static_cast<std::size_t>(text.countChar32()) + 1, 0xDEAD);
    int count = -1;
    getGlyphIDs(font(), text, out.data(), count, vertical, &firstMissing_);
    EXPECT_EQ(count, text.countChar32());
    EXPECT_EQ(out.back(), 0xDEAD);
    return std::vector<int>(out.begin(), out.end() - 1);
  }
  float width(const UnicodeString& text, int size, bool vertical = false) {
    return getTextWidth(font(), text, size, vertical, &firstMissing_);
  }
  TextFont font() const { return {maps_, widths_, port_, {2000, 1000}, defaultChar_}; }

  const cmap::CharacterMaps maps_ = lettersToGlyphs();
  /// Glyph n is 100 + n wide; those behind the third share 103.
  const metrics::HMetrics widths_{{{100, 0}, {101, 0}, {102, 0}, {103, 0}}};
  FakePort port_;
  int defaultChar_ = 0;
  int firstMissing_ = 99;
};

constexpr int kNone = 0xFFFF;
using Glyphs = std::vector<int>;

// Glyph ids.

TEST_F(TextWalk, GivesAGlyphForEachCodePoint) {
  EXPECT_EQ(glyphs(u"abz"), (Glyphs{1, 2, 26}));
  EXPECT_EQ(firstMissing_, -1);
  EXPECT_EQ(glyphs(u"a\U0001F600b"), (Glyphs{1, 30, 2}));
  EXPECT_EQ(glyphs(u""), Glyphs{});
}

TEST_F(TextWalk, LoneSurrogatesAreCodePoints) {
  const char16_t units[] = {u'a', 0xD800, u'b', 0xDC00, 0xD800};
  EXPECT_EQ(glyphs(UnicodeString(units, 5)), (Glyphs{1, 29, 2, kNone, 29}));
  EXPECT_EQ(firstMissing_, 3);
}

TEST_F(TextWalk, AMissingLetterIsToldByItsUnitIndex) {
  EXPECT_EQ(glyphs(u"Ab"), (Glyphs{kNone, 2}));
  EXPECT_EQ(firstMissing_, 0);
  EXPECT_EQ(glyphs(u"\U0001F600AB"), (Glyphs{30, kNone, kNone}));
  EXPECT_EQ(firstMissing_, 2);
}

TEST_F(TextWalk, TheIndexOfTheMissingMayBeUnwanted) {
  std::uint16_t out[2] = {};
  int count = 0;
  getGlyphIDs(font(), u"Ab", out, count, false, nullptr);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(out[1], 2);
}

TEST_F(TextWalk, TheNoncharacterHasNoGlyphAndIsNotTold) {
  EXPECT_EQ(glyphs(u"\uFFFFA"), (Glyphs{kNone, kNone}));
  EXPECT_EQ(firstMissing_, -1);  // kept: nor is the letter behind it
  EXPECT_EQ(glyphs(u"A\uFFFF"), (Glyphs{kNone, kNone}));
  EXPECT_EQ(firstMissing_, 0);
}

TEST_F(TextWalk, VerticalTextTakesVerticalForms) {
  port_.verticalForms = {{1, 41}, {2, 0}};
  EXPECT_EQ(glyphs(u"abcA", true), (Glyphs{41, 0, 3, kNone}));
  EXPECT_EQ(glyphs(u"abcA", false), (Glyphs{1, 2, 3, kNone}));
}

TEST_F(TextWalk, AnEudcCharacterThatAnEudcFontHasIsGlyphZero) {
  port_.eudc = {{{EudcSource::own, 0xE001}, 7}};
  EXPECT_EQ(glyphs(u"\uE001a"), (Glyphs{0, 1}));
  EXPECT_EQ(firstMissing_, -1);
  EXPECT_EQ(port_.asked, (std::vector{EudcSource::own}));
}

TEST_F(TextWalk, TheDefaultEudcFontFollowsTheFontsOwn) {
  port_.eudc = {{{EudcSource::horizontalDefault, 0xE001}, 7}};
  EXPECT_EQ(glyphs(u"\uE001"), Glyphs{0});
  EXPECT_EQ(port_.asked, (std::vector{EudcSource::own, EudcSource::horizontalDefault}));
}

TEST_F(TextWalk, FontsWithVerticalFormsAskTheOtherDefault) {
  port_.verticalForms = {{1, 41}};
  port_.eudc = {{{EudcSource::horizontalDefault, 0xE001}, 7}};
  EXPECT_EQ(glyphs(u"\uE001"), Glyphs{kNone});
  port_.eudc = {{{EudcSource::verticalDefault, 0xE001}, 7}};
  EXPECT_EQ(glyphs(u"\uE001"), Glyphs{0});
  EXPECT_EQ(port_.asked.back(), EudcSource::verticalDefault);
}

TEST_F(TextWalk, OnceACharacterWasMissingEudcFontsAreNotAsked) {
  port_.eudc = {{{EudcSource::own, 0xE001}, 7}};
  EXPECT_EQ(glyphs(u"\uE001A\uE001"), (Glyphs{0, kNone, kNone}));
  EXPECT_EQ(port_.asked.size(), 1u);
  EXPECT_EQ(glyphs(u"\uFFFF\uE001"), (Glyphs{kNone, kNone}));
  EXPECT_EQ(port_.asked.size(), 1u);
}

TEST_F(TextWalk, AnEudcCharacterThatNoFontHasIsMissing) {
  EXPECT_EQ(glyphs(u"a\uE001"), (Glyphs{1, kNone}));
  EXPECT_EQ(firstMissing_, 1);
}

TEST_F(TextWalk, OnlyMissingCharactersOfTheBitSetAreAskedFor) {
  glyphs(u"a\uE100");
  glyphs(u"\U0010E001");
  EXPECT_TRUE(port_.asked.empty());
}

TEST_F(TextWalk, ADefaultCharacterStandsForTheFirstMissingOnly) {
  defaultChar_ = 'b';
  EXPECT_EQ(glyphs(u"ABa"), (Glyphs{2, kNone, 1}));
  EXPECT_EQ(firstMissing_, 0);
  port_.verticalForms = {{2, 42}};
  EXPECT_EQ(glyphs(u"A", true), Glyphs{42});
  defaultChar_ = 'X';
  EXPECT_EQ(glyphs(u"A"), Glyphs{kNone});
}

// Text widths.

TEST_F(TextWalk, WidthsAreSummedAndScaledOnce) {
  EXPECT_EQ(width(u"ab", -1000), 203.0F);
  EXPECT_EQ(firstMissing_, -1);
  EXPECT_EQ(width(u"ab", 1000), 203.0F / 2000.0F * 1000.0F);
  EXPECT_EQ(width(u"abz", -500), 306.0F / 1000.0F * 500.0F);
  EXPECT_EQ(width(u"", -1000), 0.0F);
}

TEST_F(TextWalk, SizeZeroLeavesOnlyWhatEudcFontsAdd) {
  EXPECT_EQ(width(u"ab", 0), 0.0F);
  port_.eudc = {{{EudcSource::own, 0xE001}, 7}};
  EXPECT_EQ(width(u"a\uE001", 0), 1007.0F);
}

TEST_F(TextWalk, EudcWidthsAreAddedAsTheyAre) {
  port_.eudc = {{{EudcSource::own, 0xE001}, 7}, {{EudcSource::horizontalDefault, 0xE002}, 8}};
  EXPECT_EQ(width(u"a\uE001\uE002", -1000), 101.0F + (1007.0F - 62.5F) + (2008.0F - 62.5F));
  EXPECT_EQ(firstMissing_, -1);
  EXPECT_EQ(width(u"\uE001", 160, true), 1007.0F + 10.0F + 0.5F);
}

TEST_F(TextWalk, EudcFontsAreAskedForEachCharacterEvenBehindAMissingOne) {
  port_.eudc = {{{EudcSource::own, 0xE001}, 7}};
  EXPECT_EQ(width(u"A\uE001", 0), 1007.0F);
  EXPECT_EQ(firstMissing_, 0);
}

TEST_F(TextWalk, MissingCharactersAddNothingAndTheFirstIsTold) {
  EXPECT_EQ(width(u"\U0001F600A\uE005a", -1000), 103.0F + 101.0F);
  EXPECT_EQ(firstMissing_, 2);
  EXPECT_EQ(width(u"a\uE005A", -1000), 101.0F);
  EXPECT_EQ(firstMissing_, 1);
}

TEST_F(TextWalk, TheNoncharacterIsMissingLikeAnyOther) {
  EXPECT_EQ(width(u"a\uFFFF", -1000), 101.0F);
  EXPECT_EQ(firstMissing_, 1);
}

TEST_F(TextWalk, TheIndexOfTheMissingMayBeUnwantedInWidthsToo) {
  EXPECT_EQ(getTextWidth(font(), u"Aa", -1000, false, nullptr), 101.0F);
}

TEST_F(TextWalk, VerticalTextAddsTheAdvancesOfItsForms) {
  port_.verticalForms = {{1, 0}};
  EXPECT_EQ(width(u"a", -1000, true), 100.0F);
}

TEST_F(TextWalk, ADefaultCharacterAddsItsWidthForEachMissing) {
  defaultChar_ = 'b';
  EXPECT_EQ(width(u"AB", -1000), 204.0F);
  EXPECT_EQ(firstMissing_, 0);
}

TEST_F(TextWalk, TheSmallestSizeIsNegatedWithoutOverflow) {
  EXPECT_EQ(width(u"a", INT_MIN), 101.0F / 1000.0F * 2147483648.0F);
}

TEST_F(TextWalk, ABaseOfZeroLeavesTheEudcSum) {
  port_.eudc = {{{EudcSource::own, 0xE001}, 7}};
  const TextFont baseless{maps_, widths_, port_, {0, 0}};
  EXPECT_EQ(getTextWidth(baseless, u"a\uE001", -16, false, nullptr), 1007.0F - 1.0F);
  EXPECT_EQ(getTextWidth(baseless, u"a\uE001", 16, false, nullptr), 1007.0F + 1.0F);
}

TEST_F(TextWalk, LongTextsAreSummedExactly) {
  const UnicodeString text(200000, u'a', 200000);
  EXPECT_EQ(width(text, -1000), 20200000.0F);
}

// Glyph widths.

TEST_F(TextWalk, AGlyphWidthFollowsTheSize) {
  EXPECT_EQ(getGlyphWidth(font(), 1, 0, false), 101.0F);
  EXPECT_EQ(getGlyphWidth(font(), 1, -500, true), 101.0F / 1000.0F * 500.0F);
  EXPECT_EQ(getGlyphWidth(font(), 1, 500, false), 101.0F / 2000.0F * 500.0F);
  EXPECT_EQ(getGlyphWidth(font(), 60000, 0, false), 103.0F);
}

TEST_F(TextWalk, NoGlyphIsAsWideAsTheDefaultCharacter) {
  EXPECT_EQ(getGlyphWidth(font(), kNoGlyph, 0, false), 0.0F);
  defaultChar_ = 'b';
  EXPECT_EQ(getGlyphWidth(font(), kNoGlyph, 0, false), 102.0F);
  port_.verticalForms = {{2, 1}};
  EXPECT_EQ(getGlyphWidth(font(), kNoGlyph, 0, true), 101.0F);
}

// Single characters.

TEST_F(TextWalk, AnEmptyCellOfAnEudcFontIsMissing) {
  const metrics::HMetrics widths({{500, 0}, {0, 0}, {600, 0}});
  EXPECT_EQ(getEudcGlyphID(maps_, widths, 'a'), kNoGlyph);
  EXPECT_EQ(getEudcGlyphID(maps_, widths, 'b'), 2);
  EXPECT_EQ(getEudcGlyphID(maps_, widths, 'c'), 3);  // as wide as the last metric
  EXPECT_EQ(getEudcGlyphID(maps_, widths, 'A'), kNoGlyph);
  EXPECT_EQ(getEudcGlyphID(maps_, metrics::HMetrics(), 'a'), kNoGlyph);
}

TEST_F(TextWalk, AVerticalGlyphDiffersFromTheHorizontalOne) {
  port_.verticalForms = {{1, 41}, {2, 2}};
  EXPECT_TRUE(hasVerticalGlyph(font(), 'a'));
  EXPECT_FALSE(hasVerticalGlyph(font(), 'b'));
  EXPECT_FALSE(hasVerticalGlyph(font(), 'c'));
  EXPECT_FALSE(hasVerticalGlyph(font(), 'A'));
}

}  // namespace
}  // namespace QXFontService_NS
