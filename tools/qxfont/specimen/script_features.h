#pragma once

#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// Scripts of a font whose lookups have the same features.
struct ScriptFeatures {
  std::vector<LayoutTag> scripts;
  std::vector<LayoutTag> gsub;  ///< each once, in the order of the lookups
  std::vector<LayoutTag> gpos;
};

/// The features of each script of which the layout tables of a font know, those of any script
/// first; empty for a font without such tables.
std::vector<ScriptFeatures> scriptFeatures(const QXFontService_NS::FS_FontInfo& font);

/// Whether a feature is among those of any script.
bool hasFeature(const std::vector<ScriptFeatures>& all, LayoutTag tag);

/// "ccmp liga kern".
std::string tagsText(const std::vector<LayoutTag>& tags);

}  // namespace qxfont
