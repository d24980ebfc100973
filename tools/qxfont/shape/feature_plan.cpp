#include "qxfont/shape/feature_plan.h"

#include <algorithm>
#include <array>

#include "qxfont/shape/joining.h"

namespace qxfont {
namespace {

using Tags = std::vector<LayoutTag>;

// The features that the OpenType registry of layout tags wants on by default.
constexpr std::array kHorizontal = {
    layoutTag("ccmp"), layoutTag("locl"), layoutTag("rlig"), layoutTag("rclt"), layoutTag("calt"),
    layoutTag("clig"), layoutTag("liga"), layoutTag("abvm"), layoutTag("blwm"), layoutTag("curs"),
    layoutTag("dist"), layoutTag("kern"), layoutTag("mark"), layoutTag("mkmk")};
constexpr std::array kVertical = {layoutTag("ccmp"), layoutTag("locl"), layoutTag("rlig"),
                                  layoutTag("vert"), layoutTag("mark"), layoutTag("mkmk")};
// The order in which the forms of letters are chosen.
constexpr std::array kForms = {kIsolatedForm, kFinalForm, kMedialForm, kInitialForm};

/// What comes before the forms of letters, and what goes by itself behind them: contextual
/// features look at ligatures that the script requires, and ligatures of choice come last.
const std::vector<Tags>& cursiveStages() {
  static const std::vector<Tags> stages = {{layoutTag("ccmp"), layoutTag("locl")},
                                           {layoutTag("rlig")},
                                           {layoutTag("rclt"), layoutTag("calt")}};
  return stages;
}

bool has(const Tags& tags, LayoutTag tag) {
  return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

Tags wantedFeatures(const PlanRequest& request) {
  if (request.features) return *request.features;
  Tags tags = request.vertical ? Tags(kVertical.begin(), kVertical.end())
                               : Tags(kHorizontal.begin(), kHorizontal.end());
  tags.insert(tags.end(), kForms.begin(), kForms.end());
  return tags;
}

/// Moves those of `wanted` that are in `stage` out of it.
Tags takeStage(const Tags& stage, Tags& wanted) {
  Tags taken;
  for (const LayoutTag tag : stage)
    if (has(wanted, tag)) taken.push_back(tag);
  wanted.erase(
      std::remove_if(wanted.begin(), wanted.end(), [&](LayoutTag tag) { return has(taken, tag); }),
      wanted.end());
  return taken;
}

}  // namespace

Tags textFeatures() {
  return wantedFeatures({});
}

Tags textFeatures(const std::vector<FeatureSwitch>& switches) {
  Tags tags = textFeatures();
  for (const FeatureSwitch& one : switches) {
    tags.erase(std::remove(tags.begin(), tags.end(), one.tag), tags.end());
    if (one.on) tags.push_back(one.tag);
  }
  return tags;
}

FeaturePlan makeFeaturePlan(const PlanRequest& request) {
  FeaturePlan plan;
  Tags wanted = wantedFeatures(request);
  plan.positions = wanted;
  const Tags forms = takeStage(Tags(kForms.begin(), kForms.end()), wanted);
  if (request.joins) {
    plan.forms = forms;
    for (const Tags& stage : cursiveStages()) plan.stages.push_back(takeStage(stage, wanted));
    plan.formsBehind = 1;
  }
  plan.stages.push_back(wanted);
  return plan;
}

}  // namespace qxfont
