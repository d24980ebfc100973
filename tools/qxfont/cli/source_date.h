#pragma once

#include <string>

namespace qxfont {

/// The date that SOURCE_DATE_EPOCH asks documents to bear, as PDF writes dates; empty when the
/// variable is not set, and then documents bear none: the same call gives the same bytes.
/// @throws ToolError `wrongCall` for a value that is no time.
std::string sourceDate();

}  // namespace qxfont
