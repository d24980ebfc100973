#include "pool/tables/match_font.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "pool/fake_font.h"

namespace QXFontService_NS {
namespace {

/// A family of fake faces; a face is told by the style that it was made for.
class Family {
 public:
  Family(std::initializer_list<FS_FontKey> keys) {
    for (const FS_FontKey& key : keys) add(key);
  }
  ~Family() {
    for (const auto& [key, font] : fonts_) font->release();
  }
  Family(const Family&) = delete;
  Family& operator=(const Family&) = delete;

  void add(const FS_FontKey& key) {
    auto* font = new qxtest::FakeFont(u"/f/face.ttf", u"Face", key);
    font->refCount.fetch_add(1);
    fonts_[key] = font;
    table_.insert({key, {font, 0}});
  }

  /// The style of the face that answers; weight -1 for none.
  FS_FontKey ask(const FS_FontKey& key, MatchStep* step = nullptr) {
    return styleOf(matchFont(table_, key, step));
  }
  FS_FontFamily& table() { return table_; }

  FS_FontKey styleOf(const FS_FontRef& ref) const {
    if (ref.font == nullptr) return {-1, 0, 0};
    return {ref.font->getFontWeight(0), static_cast<signed char>(ref.font->isItalicFont(0)),
            ref.font->getFontStretch(0)};
  }

 private:
  std::map<FS_FontKey, FS_BaseFont*> fonts_;
  FS_FontFamily table_;
};

FS_FontKey upright(int weight, int stretch = 5) {
  return {weight, 0, stretch};
}
FS_FontKey italic(int weight, int stretch = 5) {
  return {weight, 1, stretch};
}

bool operator==(const FS_FontRef& a, const FS_FontRef& b) {
  return a.font == b.font;
}

TEST(MatchFont, AnEmptyFamilyAnswersNothing) {
  Family family({});
  MatchStep step = MatchStep::exact;
  EXPECT_EQ(family.ask(upright(400), &step).weight, -1);
  EXPECT_EQ(step, MatchStep::none);
}

TEST(MatchFont, StepsAreTriedInOrder) {
  struct Case {
    const char* name;
    FS_FontKey asked;
    FS_FontKey answer;
    MatchStep step;
  };
  const std::vector<Case> cases = {
      {"exact", upright(400, 3), upright(400, 3), MatchStep::exact},
      {"normal stretch for one that is missing", upright(400, 7), upright(400), MatchStep::stretch},
      {"zero weight and stretch are 400 and 5", upright(0, 0), upright(400), MatchStep::exact},
      {"upright in the stretch asked", italic(400, 3), upright(400, 3), MatchStep::upright},
      {"upright in normal stretch", italic(400, 8), upright(400), MatchStep::upright},
      {"upright of the weight before an italic of another", italic(700), upright(700),
       MatchStep::upright},
      {"the weight rounded up", upright(650), upright(700), MatchStep::rounded},
      {"rounding drops the stretch", upright(650, 3), upright(700), MatchStep::rounded},
      {"a gap is filled", upright(300), upright(400), MatchStep::filled},
  };
  for (const Case& c : cases) {
    Family family({upright(400), upright(400, 3), upright(700), italic(500)});
    MatchStep step = MatchStep::none;
    EXPECT_EQ(family.ask(c.asked, &step), c.answer) << c.name;
    EXPECT_EQ(step, c.step) << c.name;
  }
}

TEST(MatchFont, OneFaceAnswersEveryWeightAndSlant) {
  for (int weight : {1, 100, 250, 400, 500, 600, 900, 950, INT_MAX, -50, INT_MIN}) {
    for (bool slant : {false, true}) {
      Family family({upright(400)});
      EXPECT_EQ(family.ask(makeFontKey(weight, slant, 5)), upright(400)) << weight;
    }
  }
}

TEST(MatchFont, FiveHundredTakesTheLighterAndSixHundredTheHeavier) {
  Family family({upright(400), upright(700)});
  EXPECT_EQ(family.ask(upright(500)), upright(400));
  EXPECT_EQ(family.ask(upright(600)), upright(700));
  EXPECT_EQ(family.ask(upright(100)), upright(400));
  EXPECT_EQ(family.ask(upright(900)), upright(700));
}

TEST(MatchFont, RoundsUpBeforeAnyFilling) {
  Family family({upright(500)});
  MatchStep step = MatchStep::none;
  EXPECT_EQ(family.ask(upright(450), &step), upright(500));
  EXPECT_EQ(step, MatchStep::rounded);
  EXPECT_EQ(family.table().size(), 1u);
}

TEST(MatchFont, WeightsAreClampedOnlyWhenRounded) {
  Family family({upright(950), upright(900)});
  EXPECT_EQ(family.ask(upright(950)), upright(950)) << "an exact key above 900 is found";
  EXPECT_EQ(family.ask(upright(1000)), upright(900));
}

TEST(MatchFont, RoundingIsUpwardsAndClampedToTheHundreds) {
  struct Case {
    int asked;
    int answer;
  };
  for (const Case& c : {Case{1, 100}, Case{99, 100}, Case{-1, 100}, Case{-950, 100},
                        Case{INT_MIN, 100}, Case{401, 500}, Case{499, 500}, Case{801, 900},
                        Case{901, 900}, Case{950, 900}, Case{INT_MAX, 900}}) {
    Family family({upright(100), upright(500), upright(900)});
    MatchStep step = MatchStep::none;
    EXPECT_EQ(family.ask(upright(c.asked), &step), upright(c.answer)) << c.asked;
    EXPECT_EQ(step, MatchStep::rounded) << c.asked;
  }
}

TEST(MatchFont, OnlyZeroIsReplacedInARequest) {
  Family family({upright(1), upright(400), upright(400, 1), upright(-1)});
  EXPECT_EQ(family.ask(upright(1)), upright(1));
  EXPECT_EQ(family.ask(upright(-1)), upright(-1));
  EXPECT_EQ(family.ask(upright(0, 1)), upright(400, 1));
  EXPECT_EQ(family.ask(upright(0, 0)), upright(400));
}

TEST(MatchFont, AHitBeforeTheFillingLeavesTheFamilyAsItIs) {
  Family family({upright(400), upright(400, 3), upright(700), italic(500)});
  for (const FS_FontKey& asked : {upright(400, 3), upright(400, 7), italic(400, 3), italic(400, 8),
                                  italic(700), upright(650, 3), italic(450)}) {
    (void)family.ask(asked);
    EXPECT_EQ(family.table().size(), 4u) << asked.weight << " " << asked.stretch;
  }
}

TEST(MatchFont, ASlotBelowThatIsTakenStays) {
  Family family({upright(400), upright(450)});
  EXPECT_EQ(family.ask(upright(300)), upright(400));
  EXPECT_EQ(family.ask(upright(500)), upright(450));
}

TEST(MatchFont, FacesOutsideTheHundredsTakeTheSlotsAtTheEnds) {
  Family thin({upright(50), upright(600)});
  EXPECT_EQ(thin.ask(upright(100)), upright(50));
  Family heavy({upright(400), upright(1000)});
  EXPECT_EQ(heavy.ask(upright(900)), upright(1000));
}

TEST(MatchFont, AnOddWeightTakesTheSlotAboveAndAnEmptyOneBelow) {
  Family alone({upright(450)});
  EXPECT_EQ(alone.ask(upright(500)), upright(450));
  EXPECT_EQ(alone.ask(upright(400)), upright(450));

  Family both({upright(450), upright(500)});
  EXPECT_EQ(both.ask(upright(300)), upright(450));
  EXPECT_EQ(both.ask(upright(400)), upright(450)) << "the slot below was empty at that moment";
  EXPECT_EQ(both.ask(upright(500)), upright(500)) << "the slot above is overwritten";
}

TEST(MatchFont, FillingIgnoresStretchAndTheLaterFaceWins) {
  Family family({upright(400), upright(400, 7)});
  EXPECT_EQ(family.ask(upright(300)), upright(400, 7));
  EXPECT_EQ(family.ask(upright(400)), upright(400)) << "an entry that stands is not replaced";
}

TEST(MatchFont, AFamilyOfCondensedFacesIsFilledToo) {
  Family family({upright(400, 3), italic(700, 3)});
  EXPECT_EQ(family.ask(upright(400)), upright(400, 3));
  EXPECT_EQ(family.ask(italic(400)), italic(700, 3));
}

TEST(MatchFont, TheOtherSlantStandsInWhereOneIsMissing) {
  Family italics({italic(300), italic(700)});
  EXPECT_EQ(italics.ask(upright(400)), italic(300));
  EXPECT_EQ(italics.ask(upright(800)), italic(700));

  Family uprights({upright(300), upright(700)});
  EXPECT_EQ(uprights.ask(italic(500)), upright(300));
}

TEST(MatchFont, AnswersDependOnWhatWasFilledBefore) {
  Family fresh({upright(400), italic(700)});
  EXPECT_EQ(fresh.ask(italic(400)), upright(400));

  Family filled({upright(400), italic(700)});
  (void)filled.ask(italic(300));
  EXPECT_EQ(filled.ask(italic(400)), italic(700)) << "kept: hosts see the same face again";
}

TEST(FillFamily, MakesEighteenEntriesInNormalStretch) {
  Family family({upright(400, 3)});
  fillFamily(family.table());
  EXPECT_EQ(family.table().size(), 19u);
  for (int weight = 100; weight <= 900; weight += 100) {
    EXPECT_EQ(family.table().count(upright(weight)), 1u) << weight;
    EXPECT_EQ(family.table().count(italic(weight)), 1u) << weight;
  }
}

TEST(FillFamily, TakesTheNearestByTheRuleOfEachHalf) {
  struct Case {
    const char* name;
    std::vector<int> faces;
    std::vector<int> answers;  // for 100 to 900
  };
  const std::vector<Case> cases = {
      {"one light face", {300}, {300, 300, 300, 300, 300, 300, 300, 300, 300}},
      {"one bold face", {800}, {800, 800, 800, 800, 800, 800, 800, 800, 800}},
      {"light and bold", {200, 700}, {200, 200, 200, 200, 200, 700, 700, 700, 700}},
      {"gaps in both halves", {100, 400, 600, 900}, {100, 100, 100, 400, 400, 600, 900, 900, 900}},
      {"only the light half", {300, 500}, {300, 300, 300, 300, 500, 500, 500, 500, 500}},
      {"only the bold half", {600, 900}, {600, 600, 600, 600, 600, 600, 900, 900, 900}},
  };
  for (const Case& c : cases) {
    Family family({});
    for (int weight : c.faces) family.add(upright(weight));
    fillFamily(family.table());
    for (std::size_t i = 0; i < c.answers.size(); ++i) {
      const int weight = static_cast<int>(i + 1) * 100;
      EXPECT_EQ(family.styleOf(family.table().at(upright(weight))).weight, c.answers[i])
          << c.name << " at " << weight;
      EXPECT_TRUE(family.table().at(upright(weight)) == family.table().at(italic(weight)));
    }
  }
}

TEST(FillFamily, FillsEachSlantFromItsOwnFaces) {
  Family family({upright(200), italic(300, 3), italic(800)});
  fillFamily(family.table());
  EXPECT_EQ(family.table().size(), 19u);
  for (int weight = 100; weight <= 900; weight += 100) {
    EXPECT_EQ(family.styleOf(family.table().at(upright(weight))), upright(200)) << weight;
    EXPECT_EQ(family.styleOf(family.table().at(italic(weight))),
              weight <= 500 ? italic(300, 3) : italic(800))
        << weight;
  }
}

TEST(FillFamily, OfAnEmptyFamilyAddsNothing) {
  Family family({});
  fillFamily(family.table());
  EXPECT_TRUE(family.table().empty());
}

}  // namespace
}  // namespace QXFontService_NS
