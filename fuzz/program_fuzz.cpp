#include "target.h"
#include "type1_files.h"

namespace qxfuzz {
namespace {

qxtest::Type1Builder symbols() {
  return soundProgram().encoding({{65, "A"}, {128, "Euro"}, {200, "Aacute"}});
}

std::vector<std::string> seeds() {
  return {soundProgram().pfb(), symbols().pfb(), soundProgram().pfa(),
          symbols().lineEnd("\r\n").pfa()};
}

/// As a program of segments and as one of text, behind metrics of each kind.
void run(std::string_view input) {
  static const std::string metrics = soundMetrics().build();
  static const std::string windowsMetrics = qxtest::PfmBuilder().build();
  const std::string program(input);
  for (const char* extension : {".pfb", ".pfa"}) {
    feedType1(metrics, ".afm", program, extension);
    feedType1(windowsMetrics, ".pfm", program, extension);
  }
}

}  // namespace

extern const Target kProgram;
const Target kProgram{"program", "Type 1 font programs, in segments and as text", &seeds, &run};

}  // namespace qxfuzz
