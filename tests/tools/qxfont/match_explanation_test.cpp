#include "qxfont/match/match_explanation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qxfont {
namespace {

using fs::ext::MatchFace;
using fs::ext::MatchReport;
using testing::HasSubstr;
using testing::SizeIs;

MatchFace face(const char16_t* name, int weight, bool italic) {
  MatchFace out;
  out.file = QXCommonNS::QXUri(u"/fonts/a.ttc", QXCommonNS::URISTR_USER);
  out.family = u"Family";
  out.postScriptName = name;
  out.weight = weight;
  out.italic = italic;
  out.stretch = 5;
  return out;
}

MatchReport report() {
  MatchReport out;
  out.pool = fs::ext::MatchPool::main;
  out.table = fs::ext::MatchTable::family;
  out.step = fs::ext::MatchStep::exact;
  out.key = u"family";
  out.face = face(u"Family-Bold", 700, false);
  return out;
}

TEST(MatchExplanation, saysWhereTheFaceWasFoundAndHow) {
  const auto lines = explanationOf(report());
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].label, "found");
  EXPECT_EQ(lines[0].text, "in the main pool, family table, as 'family'");
  EXPECT_EQ(lines[1].label, "step");
  EXPECT_EQ(lines[1].text, "exact: weight, slant and width as asked");
}

TEST(MatchExplanation, ofAPathSaysThatNoNameWasLookedUp) {
  const auto lines = explanationOf(MatchReport());
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_EQ(lines[0].text, "by its path, no name was looked up");
}

TEST(MatchExplanation, listsFilledSlotsUnderOneLabel) {
  MatchReport filled = report();
  filled.filled = {{100, false, face(u"Family-Thin", 200, false)},
                   {700, true, face(u"Family-Bold", 700, false)}};
  const auto lines = explanationOf(filled);
  ASSERT_THAT(lines, SizeIs(5));
  EXPECT_EQ(lines[2].label, "filled");
  EXPECT_EQ(lines[2].text, "2 styles that no face has, taken by the nearest:");
  EXPECT_EQ(lines[3].label, "");
  EXPECT_EQ(lines[3].text, "100 -> Family-Thin");
  EXPECT_EQ(lines[4].text, "700 italic -> Family-Bold");
}

TEST(MatchExplanation, namesThoseWhoLostTheKey) {
  MatchReport contested = report();
  contested.losers = {face(u"Other-Bold", 700, true)};
  const auto lines = explanationOf(contested);
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_EQ(lines[2].label, "behind");
  EXPECT_THAT(lines[2].text, HasSubstr("Other-Bold (weight 700, italic, width 5) in "));
}

TEST(MatchExplanation, namesAFaceByItsFamilyWhereThatIsAll) {
  MatchFace unnamed = face(u"", 400, false);
  EXPECT_EQ(matchedFace(unnamed), "Family (weight 400, width 5)");
}

TEST(MatchExplanation, tellsTheMemberOfACollection) {
  MatchFace member = face(u"A", 400, false);
  const std::string first = matchedFile(member);
  EXPECT_THAT(first, HasSubstr("a.ttc"));
  member.entry = 2;
  EXPECT_EQ(matchedFile(member), first + ", face 2");
}

TEST(MatchExplanation, hasAWordForEachNumber) {
  EXPECT_STREQ(matchPoolName(fs::ext::MatchPool::alias), "alias");
  EXPECT_STREQ(matchTableName(fs::ext::MatchTable::file), "file");
  EXPECT_STREQ(matchStepName(fs::ext::MatchStep::filled), "filled");
}

}  // namespace
}  // namespace qxfont
