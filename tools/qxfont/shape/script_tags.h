#pragma once

#include <unicode/uscript.h>

#include <vector>

#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// What fonts that name no script file their lookups under.
inline constexpr LayoutTag kDefaultScript = layoutTag("DFLT");

/// The tags under which fonts keep the layout of a script, the best first (OpenType registry of
/// script tags): its newer tag where it has two, its tag, then those that serve any script.
std::vector<LayoutTag> scriptTags(UScriptCode script);

}  // namespace qxfont
