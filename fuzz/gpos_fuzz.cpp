#include "font_world.h"
#include "support/class_def_builder.h"
#include "support/sample_font.h"
#include "support/sample_layout.h"
#include "support/table_builders.h"
#include "target.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  return {qxtest::samplePositions()};
}

void run(std::string_view input) {
  qxtest::SfntBuilder font = qxtest::sampleFont();
  font.table("maxp", qxtest::MaxpBuilder{.numGlyphs = 100}.build());
  font.table("GDEF", qxtest::gdefTable(qxtest::classDefOfRanges(
                         {{1, 49, 1}, {50, 59, 3}, {60, 69, 4}, {70, 79, 2}})));
  font.table("GPOS", std::string(input));
  withFont(font.build(), ".ttf", &askLayout);
}

}  // namespace

extern const Target kGpos;
const Target kGpos{"gpos", "glyph positions, through both drivers", &seeds, &run};

}  // namespace qxfuzz
