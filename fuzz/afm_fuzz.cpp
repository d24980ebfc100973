#include "target.h"
#include "type1_files.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  qxtest::AfmBuilder symbols = soundMetrics();
  symbols.encodingScheme = "FontSpecific";
  symbols.headers = {"ItalicAngle -12.5", "IsFixedPitch true", "CapHeight 700", "XHeight 450",
                     "Ascender 750",      "Descender -250",    "Comment x",     "MetricsSet 0"};
  symbols.metrics.emplace_back("CH <42> ; WX 300 ; WY 0 ; N B ; B 0 0 1 1 ; L f i ;");
  return {soundMetrics().build(), symbols.build()};
}

/// By itself, and as the metrics of a program.
void run(std::string_view input) {
  static const std::string program = soundProgram().pfb();
  feedType1(std::string(input), ".afm", {}, {});
  feedType1(std::string(input), ".afm", program, ".pfb");
}

}  // namespace

extern const Target kAfm;
const Target kAfm{"afm", "Adobe Font Metrics, with a font program and without", &seeds, &run};

}  // namespace qxfuzz
