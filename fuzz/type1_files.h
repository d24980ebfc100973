#pragma once

#include <string>

#include "support/afm_builder.h"
#include "support/pfm_builder.h"
#include "support/type1_builder.h"

namespace qxfuzz {

// A sound small Type 1 font, part by part: what is not fed is one of these.

inline qxtest::AfmBuilder soundMetrics() {
  qxtest::AfmBuilder metrics;
  metrics.glyph(32, 250, "space").glyph(65, 500, "A").glyph(-1, 444, "Euro");
  metrics.glyph(-1, 500, "Aacute").kern("A", "Euro", -80);
  return metrics;
}

inline qxtest::Type1Builder soundProgram() {
  qxtest::Type1Builder program;
  program.glyph(".notdef", qxtest::type1Box(250, 10)).glyph("space", qxtest::type1Box(250, 0));
  program.glyph("A", qxtest::type1Box(500, 100)).glyph("acute", qxtest::type1Box(300, 30));
  program.glyph("Aacute", qxtest::type1Accent(500, 65, 194));
  return program.glyph("Euro", qxtest::type1Box(444, 50));
}

/// Feeds a metric file and, where `program` is not empty, a program beside it: the font is opened
/// and asked for all that hosts ask of Type 1 fonts.
/// @param extension of the metric file, `.afm` or `.pfm`; `programExtension` that of the program.
void feedType1(const std::string& metrics, const std::string& extension, const std::string& program,
               const std::string& programExtension);

}  // namespace qxfuzz
