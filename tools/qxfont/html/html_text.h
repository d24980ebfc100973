#pragma once

#include <unicode/unistr.h>

#include <string>

namespace qxfont {

/// Text as HTML holds it between tags and in quoted attributes: UTF-8, with references for the
/// characters that mark up. A line stays one line: what would end it becomes a space, and controls,
/// which HTML does not hold, become U+FFFD.
std::string htmlText(const icu::UnicodeString& text);

}  // namespace qxfont
