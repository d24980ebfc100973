#pragma once

#include <vector>

#include "qxfontservice/font_info.h"

#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// The features of a script and language: the tag of each lookup, in the order of the lookups.
struct FeatureList {
  std::vector<LayoutTag> gsub;
  std::vector<LayoutTag> gpos;
  bool isLayout = false;  ///< The kind of font can have layout tables.
  /// The tables have no such language, and the default one of the script was taken.
  bool gsubByDefault = false;
  bool gposByDefault = false;
};

/// Asks a font; a script that its tables do not have gives empty lists.
/// @param language 0 for the default one.
FeatureList featureList(const QXFontService_NS::FS_FontInfo& font, LayoutTag script,
                        LayoutTag language);

}  // namespace qxfont
