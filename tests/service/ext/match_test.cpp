#include "qxfontservice/ext/match.h"

#include <gtest/gtest.h>

#include <string>

#include "pool/registry/registry_fixture.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::namedFont;

class ExplainMatch : public qxtest::RegistryTest {
 protected:
  MatchReport explain(const UnicodeString& family, int weight = 400, bool italic = false,
                      int stretch = 5) {
    MatchReport report;
    found = explainMatch(family, weight, italic, stretch, nullptr, report);
    return report;
  }
  static std::string path(const MatchFace& face) {
    std::string text;
    return face.file.getLocalPath(false).toUTF8String(text);
  }
  bool found = false;
};

TEST_F(ExplainMatch, TellsPoolTableAndFace) {
  world.file("/f/a.ttf", namedFont(u"Some Fam", {700, true, 3}));
  openFolder();
  const MatchReport report = explain(u"some-fam", 700, true, 3);
  ASSERT_TRUE(found);
  EXPECT_EQ(report.pool, MatchPool::main);
  EXPECT_EQ(report.table, MatchTable::family);
  EXPECT_EQ(report.step, MatchStep::exact);
  EXPECT_EQ(report.key, icu::UnicodeString("SOMEFAM"));
  EXPECT_EQ(path(report.face), "/f/a.ttf");
  EXPECT_EQ(report.face.weight, 700);
  EXPECT_TRUE(report.face.italic);
  EXPECT_EQ(report.face.stretch, 3);
  EXPECT_EQ(report.face.fileType, FS_FILETYPE_TRUETYPE);
  EXPECT_EQ(report.face.family, icu::UnicodeString("Some Fam"));
  EXPECT_EQ(report.face.postScriptName, icu::UnicodeString("Some Fam-Regular"));
  EXPECT_TRUE(report.filled.empty());
  EXPECT_TRUE(report.losers.empty());
}

TEST_F(ExplainMatch, TellsAFileName) {
  world.file("/f/Arial.ttf", namedFont(u"Fam"));
  openFolder();
  const MatchReport report = explain(u"ARIAL");
  EXPECT_EQ(report.table, MatchTable::file);
  EXPECT_EQ(report.key, icu::UnicodeString("arial"));
}

TEST_F(ExplainMatch, TellsTheStepsOfTheFallback) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"Fam", {700, false, 5}));
  openFolder();
  EXPECT_EQ(explain(u"Fam", 400, false, 3).step, MatchStep::stretch);
  EXPECT_EQ(explain(u"Fam", 700, true).step, MatchStep::upright);
  EXPECT_EQ(explain(u"Fam", 650).step, MatchStep::rounded);
  EXPECT_EQ(explain(u"Fam", 300).step, MatchStep::filled);
}

TEST_F(ExplainMatch, AFilledSlotStaysFilledAndIsToldAsSuch) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"Fam", {700, false, 5}));
  openFolder();
  EXPECT_TRUE(explain(u"Fam", 700).filled.empty());
  const MatchReport first = explain(u"Fam", 600);
  EXPECT_EQ(first.step, MatchStep::filled);
  EXPECT_EQ(path(first.face), "/f/b.ttf");
  EXPECT_EQ(first.filled.size(), 16u);
  EXPECT_EQ(first.filled.front().weight, 100);
  EXPECT_FALSE(first.filled.front().italic);
  EXPECT_TRUE(first.filled.back().italic);
  EXPECT_EQ(explain(u"Fam", 600).step, MatchStep::filled) << "met again as an entry of its own";
  EXPECT_EQ(explain(u"Fam", 700).step, MatchStep::exact);
}

TEST_F(ExplainMatch, TellsTheFacesThatLostTheKey) {
  world.file("/f/1.ttf", namedFont(u"Fam")).file("/f/2.ttf", namedFont(u"Fam"));
  world.file("/f/3.ttf", namedFont(u"Fam", {700, false, 5}));
  openFolder();
  const MatchReport report = explain(u"Fam");
  ASSERT_EQ(report.losers.size(), 1u);
  EXPECT_EQ(path(report.losers[0]), "/f/2.ttf");
  EXPECT_TRUE(explain(u"Fam", 700).losers.empty());
}

TEST_F(ExplainMatch, TellsAnAlias) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  openFolder(
      "<font-alias file=\"a.ttf\"><alias family-name=\"Nick\" weight=\"700\"/></font-alias>");
  const MatchReport exact = explain(u"Nick", 700);
  EXPECT_EQ(exact.pool, MatchPool::alias);
  EXPECT_EQ(exact.step, MatchStep::exact);
  EXPECT_EQ(explain(u"Nick", 300).step, MatchStep::filled);
  EXPECT_EQ(explain(u"Nick", 300).filled.size(), 17u);
}

TEST_F(ExplainMatch, AnswersAsTheLookupDoes) {
  world.file("/f/a.ttf", namedFont(u"Fam", {250, false, 5}));
  world.file("/f/b.ttf", namedFont(u"Fam", {600, true, 7}));
  openFolder();
  for (int weight = 50; weight <= 950; weight += 50) {
    for (bool italic : {false, true}) {
      EXPECT_EQ(path(explain(u"Fam", weight, italic).face), fileOf(u"Fam", weight, italic));
    }
  }
}

TEST_F(ExplainMatch, AnUnknownNameGivesAnEmptyReport) {
  openFolder();
  const MatchReport report = explain(u"None");
  EXPECT_FALSE(found);
  EXPECT_EQ(report.pool, MatchPool::none);
  EXPECT_EQ(report.step, MatchStep::none);
}

}  // namespace
}  // namespace QXFontService_NS::ext
