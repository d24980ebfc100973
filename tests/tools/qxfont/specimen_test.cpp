#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>
#include <string>
#include <utility>

#include "qxfont/cli/text.h"
#include "qxfont/specimen/blocks.h"
#include "qxfont/specimen/characters.h"
#include "qxfont/specimen/feature_change.h"
#include "qxfont/specimen/feature_table.h"
#include "qxfont/specimen/sample_text.h"
#include "qxfont/specimen/script_features.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A face that has the characters of a text.
Characters having(const icu::UnicodeString& text) {
  std::set<int> codes;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) codes.insert(text.char32At(i));
  return Characters(std::vector<int>(codes.begin(), codes.end()));
}

std::vector<int> range(int first, int last) {
  std::vector<int> codes(static_cast<std::size_t>(last - first + 1));
  std::iota(codes.begin(), codes.end(), first);
  return codes;
}

TEST(Characters, areThoseOfTheFace) {
  const Characters characters = having(u"ac\U0001F600");
  EXPECT_TRUE(characters.has('a'));
  EXPECT_FALSE(characters.has('b'));
  EXPECT_TRUE(characters.has(0x1F600));
  EXPECT_FALSE(Characters().has('a'));
}

TEST(Characters, ofATextDoNotCountWhereNothingIsSeenOfThem) {
  EXPECT_TRUE(having(u"ab").hasAll(u"a b\u200D\u00A0\n"));
  EXPECT_TRUE(Characters().hasAll(u""));
  EXPECT_FALSE(having(u"ab").hasAll(u"abc"));
}

TEST(Characters, areSeenUnlessTheyAreControlsBlanksOrJoiners) {
  for (const int seen : {0x21, 0x41, 0x301, 0x4E00, 0xE000, 0x1F600}) EXPECT_TRUE(isSeen(seen));
  for (const int unseen : {0x00, 0x0D, 0x20, 0x7F, 0xA0, 0xAD, 0x200D, 0x2028, 0x3000, 0xD800,
                           0xFE0F, 0xFFFE, 0x10FFFF})
    EXPECT_FALSE(isSeen(unseen)) << unseen;
}

bool always(int) {
  return true;
}

TEST(Sentences, showEachScriptOnceAndLatinFirst) {
  icu::UnicodeString all;
  for (const SentenceRow& row : sentences()) all.append(unicode(row.text));
  std::vector<std::string> scripts;
  for (const SampleText& sample : sentencesOf(having(all))) scripts.push_back(sample.script);
  EXPECT_EQ(scripts.front(), "Latin");
  EXPECT_EQ(std::set<std::string>(scripts.begin(), scripts.end()).size(), scripts.size());
  for (const SentenceRow& row : sentences())
    EXPECT_THAT(scripts, testing::Contains(std::string(row.script)));
}

TEST(Sentences, areThoseThatTheFaceHasWholly) {
  for (const SentenceRow& row : sentences()) {
    const std::vector<SampleText> samples = sentencesOf(having(unicode(row.text)));
    ASSERT_FALSE(samples.empty());
    EXPECT_TRUE(having(unicode(row.text)).hasAll(samples.front().text)) << row.text;
    EXPECT_EQ(samples.front().script, row.script);
  }
  EXPECT_THAT(sentencesOf(having(u"Sphinx")), IsEmpty());
}

TEST(Sentences, ofAFaceWithCapitalsAloneAreInCapitals) {
  const auto samples = sentencesOf(having(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
  ASSERT_THAT(samples, SizeIs(1));
  EXPECT_EQ(samples[0].text, icu::UnicodeString(u"SPHINX OF BLACK QUARTZ JUDGE MY VOW"));
}

TEST(FirstCharacters, areThoseOfWhichSomethingIsSeen) {
  EXPECT_EQ(firstOf(Characters(range(0x1E, 0x22)), always), icu::UnicodeString(u"!\""));
  EXPECT_EQ(firstOf(Characters(range(0x1E, 0x22)), [](int code) { return code == '"'; }),
            icu::UnicodeString(u"\""));
  EXPECT_TRUE(firstOf(Characters(), always).isEmpty());
  EXPECT_TRUE(firstOf(Characters({0x00, 0x0D, 0x20}), always).isEmpty());
}

TEST(FirstCharacters, areAsManyAsMakeALine) {
  EXPECT_EQ(firstOf(Characters(range(0xE000, 0xE017)), always).countChar32(), 24);
  EXPECT_EQ(firstOf(Characters(range(0xE000, 0xE018)), always).countChar32(), 24);
}

TEST(FirstCharacters, areNotSoughtForEver) {
  int asked = 0;
  const auto never = [&](int) { return ++asked < 0; };
  EXPECT_TRUE(firstOf(Characters(range(0x4E00, 0x9FFF)), never).isEmpty());
  EXPECT_EQ(asked, 1000);
}

TEST(Blocks, areCountedByRisingCode) {
  const auto blocks = blocksOf(having(u"abÀĀ\U0001F600"));
  ASSERT_THAT(blocks, SizeIs(4));
  EXPECT_EQ(blocks[0].name, "Basic Latin");
  EXPECT_THAT(blocks[0].codes, ElementsAre('a', 'b'));
  EXPECT_EQ(blocks[1].name, "Latin 1 Supplement");
  EXPECT_EQ(blocks[2].name, "Latin Extended A");
  EXPECT_EQ(blocks[3].name, "Emoticons");
  EXPECT_THAT(blocksOf(Characters()), IsEmpty());
}

TEST(Blocks, thatAreShownAreTheFirstAndThatOfTheSample) {
  const auto blocks = blocksOf(having(u"aÀĀƀ字"));
  EXPECT_THAT(blocksToShow(blocks, u"字", 3), ElementsAre(0, 1, 4));
  EXPECT_THAT(blocksToShow(blocks, u"a", 3), ElementsAre(0, 1, 2));
  EXPECT_THAT(blocksToShow(blocks, u"", 5), ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(blocksToShow(blocks, u"", 6), ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(blocksToShow(blocks, u"字", 0), IsEmpty());
  EXPECT_THAT(blocksToShow({}, u"a", 3), IsEmpty());
}

TEST(CharacterChart, hasARowForSixteenNeighbours) {
  const CharacterChart chart = chartOf({0x41, 0x4F, 0x50, 0x80F}, 9);
  ASSERT_THAT(chart.rows, SizeIs(3));
  EXPECT_EQ(chart.rows[0].first, 0x40);
  EXPECT_EQ(chart.rows[0].codes[1], 0x41);
  EXPECT_EQ(chart.rows[0].codes[15], 0x4F);
  EXPECT_EQ(std::count(chart.rows[0].codes.begin(), chart.rows[0].codes.end(), -1), 14);
  EXPECT_EQ(chart.rows[1].codes[0], 0x50);
  EXPECT_EQ(chart.rows[2].first, 0x800);
  EXPECT_EQ(chart.more, 0U);
}

TEST(CharacterChart, tellsHowManyMoreThereAre) {
  const std::vector<int> codes = range(0x4E00, 0x4E00 + 9);
  EXPECT_EQ(chartOf(codes, 0).more, 10U);
  EXPECT_THAT(chartOf(codes, 0).rows, IsEmpty());
  EXPECT_EQ(chartOf(codes, 1).more, 9U);
  EXPECT_EQ(chartOf(codes, 9).more, 1U);
  EXPECT_EQ(chartOf(codes, 10).more, 0U);
  EXPECT_EQ(chartOf(codes, 11).more, 0U);
}

TEST(CharacterChart, passesOverWhatIsNotSeen) {
  const CharacterChart chart = chartOf(range(0x1E, 0x21), 1);
  ASSERT_THAT(chart.rows, SizeIs(1));
  EXPECT_EQ(chart.rows[0].codes[1], 0x21);
  EXPECT_EQ(chart.more, 0U);
  EXPECT_THAT(chartOf({}, 5).rows, IsEmpty());
}

TEST(KnownFeatures, areEachThereOnce) {
  std::set<LayoutTag> tags;
  for (const KnownFeature& feature : knownFeatures()) {
    EXPECT_TRUE(tags.insert(feature.tag).second) << tagText(feature.tag);
    EXPECT_STRNE(feature.name, "");
    EXPECT_TRUE(isUtf8(feature.text));
  }
  for (const char* tag : {"liga", "smcp", "onum", "tnum", "frac", "salt", "kern"})
    EXPECT_EQ(tags.count(layoutTag(tag)), 1U) << tag;
}

TEST(FeatureWords, areThoseThatChange) {
  const auto hasF = [](const icu::UnicodeString& word) { return word.indexOf(u'f') >= 0; };
  EXPECT_EQ(wordsThat(u"office lamp  fjord", hasF), icu::UnicodeString(u"office fjord"));
  EXPECT_EQ(wordsThat(u"lamp", hasF), icu::UnicodeString(u"lamp")) << "what changes is between";
  EXPECT_EQ(wordsThat(u"", hasF), icu::UnicodeString());
}

TEST(FeatureWords, areNoMoreThanFitBesideEachOther) {
  const auto all = [](const icu::UnicodeString&) { return true; };
  EXPECT_LE(wordsThat(u"aaaa bbbb cccc dddd eeee ffff gggg", all).countChar32(), 22);
}

TEST(ScriptFeatures, areFoundInEitherTable) {
  const std::vector<ScriptFeatures> all = {{{layoutTag("latn")}, {layoutTag("liga")}, {}},
                                           {{layoutTag("grek")}, {}, {layoutTag("kern")}}};
  EXPECT_TRUE(hasFeature(all, layoutTag("liga")));
  EXPECT_TRUE(hasFeature(all, layoutTag("kern")));
  EXPECT_FALSE(hasFeature(all, layoutTag("smcp")));
  EXPECT_FALSE(hasFeature({}, layoutTag("kern")));
}

TEST(ScriptFeatures, areWrittenWithBlanksBetween) {
  EXPECT_EQ(tagsText({}), "");
  EXPECT_EQ(tagsText({layoutTag("liga")}), "liga");
  EXPECT_EQ(tagsText({layoutTag("liga"), layoutTag("kern")}), "liga kern");
}

TEST(Grouped, numbersAreReadInThousands) {
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(123456), "123,456");
  EXPECT_EQ(grouped(1234567), "1,234,567");
}

TEST(Sections, areInTheOrderOfTheSheet) {
  EXPECT_THAT(sections(), SizeIs(8));
  EXPECT_EQ(sections().front(), headingSection);
  EXPECT_EQ(sections().back(), formsSection);
}

}  // namespace
}  // namespace qxfont
