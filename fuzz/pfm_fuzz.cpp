#include "target.h"
#include "type1_files.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  qxtest::PfmBuilder kerned;
  kerned.kernPairs = {{{32, 33}, -70}, {{33, 34}, 12}};
  qxtest::PfmBuilder standard;
  standard.font = "Helvetica";
  standard.charSet = 238;
  return {qxtest::PfmBuilder().build(), kerned.build(), standard.build()};
}

void run(std::string_view input) {
  static const std::string program = soundProgram().pfb();
  feedType1(std::string(input), ".pfm", {}, {});
  feedType1(std::string(input), ".pfm", program, ".pfb");
}

}  // namespace

extern const Target kPfm;
const Target kPfm{"pfm", "Printer Font Metrics, with a font program and without", &seeds, &run};

}  // namespace qxfuzz
