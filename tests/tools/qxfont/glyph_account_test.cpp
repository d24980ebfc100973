#include "qxfont/shape/glyph_account.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace qxfont {
namespace {

/// A run of glyphs 1, 2, 3 ... for characters 0, 1, 2 ...
GlyphRun run(int size) {
  GlyphRun made;
  for (int i = 0; i < size; ++i) {
    RunGlyph glyph;
    glyph.pair = {static_cast<unsigned short>(i + 1), fs::GCD_BASE};
    glyph.cluster = i;
    made.push_back(glyph);
  }
  return made;
}

PassedGlyph passed(int gid, int standsFor, int passedAt = 0) {
  return {{static_cast<unsigned short>(gid), fs::GCD_BASE}, standsFor, passedAt};
}

/// "glyph@cluster", and "/component" where there is one.
std::string text(const GlyphRun& run) {
  std::string all;
  for (const RunGlyph& glyph : run) {
    all += fmt::format("{}{}@{}", all.empty() ? "" : " ", glyph.pair.glyphID, glyph.cluster);
    if (glyph.component != 0) all += fmt::format("/{}", glyph.component);
  }
  return all;
}

TEST(GlyphAccount, passes) {
  const struct {
    const char* what;
    int size;
    std::vector<PassedGlyph> result;
    const char* run;
  } cases[] = {
      {"nothing", 0, {}, ""},
      {"one for one", 2, {passed(1, 1), passed(9, 1)}, "1@0 9@1"},
      {"a ligature", 3, {passed(9, 2), passed(3, 1)}, "9@0 3@2"},
      {"an expansion", 2, {passed(7, 1), passed(8, 0), passed(2, 1)}, "7@0 8@0 2@1"},
      {"a ligature over a mark of its first part",
       4,
       {passed(9, 2), passed(2, 1, 1), passed(4, 1)},
       "9@0 2@0/1 4@3"},
      {"over marks of two parts",
       5,
       {passed(9, 3), passed(2, 1, 1), passed(4, 1, 3)},
       "9@0 2@0/1 4@0/2"},
      {"the same behind another ligature",
       6,
       {passed(8, 2), passed(9, 2), passed(4, 1, 2), passed(6, 1)},
       "8@0 9@2 4@2/1 6@5"},
      {"more than there was", 1, {passed(1, 1), passed(5, 4)}, "1@0 5@0"},
  };
  for (const auto& one : cases)
    EXPECT_EQ(text(accountForPass(run(one.size), one.result)), one.run) << one.what;
}

TEST(GlyphAccount, steps) {
  GlyphRun glyphs = run(4);
  fs::GlyphIDArray made;
  made.push_back(20, fs::GCD_BASE);
  made.push_back(21, fs::GCD_BASE);
  accountForStep(glyphs, 1, 3, made, 2);
  EXPECT_EQ(text(glyphs), "1@0 20@1 21@1 4@3");
}

TEST(GlyphAccount, whatAStepPassedOverHasNoForm) {
  GlyphRun glyphs = run(2);
  glyphs[0].form = layoutTag("init");
  fs::GlyphIDArray made;
  made.push_back(20, fs::GCD_BASE);
  made.push_back(2, fs::GCD_MARK);
  accountForStep(glyphs, 0, 2, made, 1);
  EXPECT_EQ(glyphs[0].form, layoutTag("init"));
  EXPECT_EQ(glyphs[1].form, 0u);
}

TEST(GlyphAccount, glyphsOfARunAreAllToBeWorkedOn) {
  const fs::GlyphIDArray2 glyphs = glyphsOf(run(3));
  ASSERT_EQ(glyphs.size(), 3);
  EXPECT_EQ(glyphs[2].glyphID, 3);
  EXPECT_EQ(glyphs.ligaInfo(2), 0);
}

}  // namespace
}  // namespace qxfont
