#pragma once

#include <unicode/unistr.h>

namespace QXFontService_NS {

/// The system's font folder with its closing separator, empty where there is none.
///
/// On platforms that name candidates it is the first of them that exists. Elsewhere "arial.ttf"
/// is probed for below the known folders, in a fixed order, and without a hit the known font
/// folder stands, so that a system without that file still has one.
icu::UnicodeString systemFontFolder();

}  // namespace QXFontService_NS
