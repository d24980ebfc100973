#pragma once

#include <unicode/unistr.h>

#include <vector>

namespace qxfont {

/// A line of a paragraph, as UTF-16 indexes.
struct LineRange {
  int begin = 0;
  int end = 0;  ///< without the spaces at its end
};

/// Breaks a text into lines, each as full as it can be (UAX #14, by ICU). A word that is wider than
/// a line is broken between two characters as people see them (UAX #29).
/// @param advances the advance of the glyphs that begin at each UTF-16 index.
/// @param width of a line, in the same unit.
std::vector<LineRange> breakLines(const icu::UnicodeString& text,
                                  const std::vector<double>& advances, double width);

}  // namespace qxfont
