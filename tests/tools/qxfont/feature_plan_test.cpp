#include "qxfont/shape/feature_plan.h"

#include <gtest/gtest.h>

#include <string>

namespace qxfont {
namespace {

std::string names(const std::vector<LayoutTag>& tags) {
  std::string all;
  for (const LayoutTag tag : tags) all += (all.empty() ? "" : " ") + tagText(tag);
  return all;
}

TEST(FeaturePlan, plainTextHasOneStage) {
  const FeaturePlan plan = makeFeaturePlan({});
  ASSERT_EQ(plan.stages.size(), 1u);
  EXPECT_EQ(names(plan.stages[0]),
            "ccmp locl rlig rclt calt clig liga abvm blwm curs dist kern mark mkmk");
  EXPECT_TRUE(plan.forms.empty());
}

TEST(FeaturePlan, cursiveTextHasItsFormsBehindTheFirstStage) {
  PlanRequest request;
  request.joins = true;
  const FeaturePlan plan = makeFeaturePlan(request);
  ASSERT_EQ(plan.stages.size(), 4u);
  EXPECT_EQ(names(plan.stages[0]), "ccmp locl");
  EXPECT_EQ(plan.formsBehind, 1u);
  EXPECT_EQ(names(plan.forms), "isol fina medi init");
  EXPECT_EQ(names(plan.stages[1]), "rlig");
  EXPECT_EQ(names(plan.stages[2]), "rclt calt");
  EXPECT_EQ(names(plan.stages[3]), "clig liga abvm blwm curs dist kern mark mkmk");
}

TEST(FeaturePlan, verticalTextIsNotKerned) {
  PlanRequest request;
  request.vertical = true;
  EXPECT_EQ(names(makeFeaturePlan(request).stages[0]), "ccmp locl rlig vert mark mkmk");
}

TEST(FeaturePlan, namedFeaturesAreThoseAlone) {
  PlanRequest request;
  request.features = {layoutTag("kern"), layoutTag("init"), layoutTag("rlig")};
  EXPECT_EQ(names(makeFeaturePlan(request).stages[0]), "kern rlig");
  request.joins = true;
  const FeaturePlan plan = makeFeaturePlan(request);
  EXPECT_EQ(names(plan.forms), "init");
  EXPECT_EQ(names(plan.stages[1]), "rlig");
  EXPECT_EQ(names(plan.stages[3]), "kern");
  EXPECT_EQ(names(plan.positions), "kern init rlig");
}

TEST(FeaturePlan, featuresOfAllTextCanBeSwitched) {
  const std::string usual = names(textFeatures());
  EXPECT_EQ(names(textFeatures({})), usual);
  EXPECT_EQ(names(textFeatures({{layoutTag("smcp"), true}})), usual + " smcp");
  EXPECT_EQ(names(textFeatures({{layoutTag("smcp"), false}})), usual);
  const std::string unkerned = names(textFeatures({{layoutTag("kern"), false}}));
  EXPECT_EQ(unkerned.find("kern"), std::string::npos);
  EXPECT_EQ(names(textFeatures({{layoutTag("kern"), true}})), unkerned + " kern") << "each once";
}

}  // namespace
}  // namespace qxfont
