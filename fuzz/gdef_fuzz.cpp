#include "font_world.h"
#include "support/class_def_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"
#include "table_input.h"
#include "target.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  return {qxtest::gdefTable(qxtest::classDefOfRanges({{1, 49, 1}, {50, 59, 3}, {70, 79, 2}})),
          qxtest::gdefTable(qxtest::classDef(1, {1, 2, 3}), qxtest::classDef(50, {1, 2}))};
}

/// A table whose lookups look at the classes.
const std::string& substitutions() {
  static const std::string bytes = [] {
    qxtest::LayoutTableBuilder table;
    for (const unsigned flag : {0x0002U, 0x0004U, 0x0008U, 0x0100U, 0x0200U})
      table.onlyLookup(
          "test", 4, flag,
          {qxtest::ligatureSubst(qxtest::coverage({1}), {{qxtest::Ligature{9, {2}}}})});
    return table.str();
  }();
  return bytes;
}

void run(std::string_view input) {
  qxtest::SfntBuilder font = qxtest::sampleFont();
  font.table("GDEF", std::string(input)).table("GSUB", substitutions());
  withFont(font.build(), ".ttf", &askLayout);
}

}  // namespace

extern const Target kGdef;
const Target kGdef{"gdef", "glyph classes, through lookups that look at them", &seeds, &run};

}  // namespace qxfuzz
