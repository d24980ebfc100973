#include "target.h"
#include "type1_files.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  const std::string flex = "\x8B\x8B\x0D\x8C\x0C\x10\x8D\x0C\x11\x0C\x21\x0C\x0C\x0E";
  return {qxtest::type1Box(500, 100), qxtest::type1Accent(500, 65, 194),
          qxtest::type1Accent(500, 194, 65), flex};
}

/// The input is the charstring of a letter, and of one that its accent could be made of.
void run(std::string_view input) {
  static const std::string metrics = soundMetrics().build();
  qxtest::Type1Builder program;
  program.glyph(".notdef", qxtest::type1Box(250, 10)).glyph("A", std::string(input));
  program.glyph("acute", std::string(input)).glyph("Aacute", qxtest::type1Accent(500, 65, 194));
  feedType1(metrics, ".afm", program.pfb(), ".pfb");
}

}  // namespace

extern const Target kType1Charstrings;
const Target kType1Charstrings{"type1_charstrings",
                               "Type 1 charstrings, through the reader and the writer of subsets",
                               &seeds, &run};

}  // namespace qxfuzz
