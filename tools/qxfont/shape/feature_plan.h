#pragma once

#include <optional>
#include <vector>

#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// Which features of a font run over a text, and in which order.
struct FeaturePlan {
  /// Substitutions: the lookups of a stage run in the order of the font's list of lookups, and a
  /// stage begins when the one before it is done.
  std::vector<std::vector<LayoutTag>> stages;
  /// Behind this many stages the letters of a cursive script get their forms, each by its own.
  std::size_t formsBehind = 0;
  std::vector<LayoutTag> forms;
  std::vector<LayoutTag> positions;
};

/// What a text asks of a plan.
struct PlanRequest {
  bool vertical = false;
  bool joins = false;  ///< It has letters of a cursive script.
  /// These features and no others; none: those that all text wants, such as standard ligatures
  /// and kerning.
  std::optional<std::vector<LayoutTag>> features;
};

/// A feature that is switched on or off in a text.
struct FeatureSwitch {
  LayoutTag tag = 0;
  bool on = true;
};

/// The features that all horizontal text wants.
std::vector<LayoutTag> textFeatures();

/// The same with some switched on or off.
std::vector<LayoutTag> textFeatures(const std::vector<FeatureSwitch>& switches);

FeaturePlan makeFeaturePlan(const PlanRequest& request);

}  // namespace qxfont
