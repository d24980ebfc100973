#pragma once

#include <string_view>
#include <vector>

#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// A feature that people know by name (OpenType registry of layout tags).
struct KnownFeature {
  LayoutTag tag;
  const char* name;
  const char* text;  ///< UTF-8: words in which it is likely to show; empty for none of its own
};

/// The features that are shown, in the order of the sheet.
const std::vector<KnownFeature>& knownFeatures();

}  // namespace qxfont
