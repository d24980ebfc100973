#include "support/coverage_builder.h"

#include "support/offset_table.h"

namespace qxtest {

std::string coverage(const std::vector<unsigned>& glyphs) {
  return OffsetTable().u16(1).u16(static_cast<unsigned>(glyphs.size())).u16s(glyphs).str();
}

std::string coverageOfRanges(const std::vector<std::array<unsigned, 3>>& ranges) {
  OffsetTable table;
  table.u16(2).u16(static_cast<unsigned>(ranges.size()));
  for (const auto& range : ranges) table.u16(range[0]).u16(range[1]).u16(range[2]);
  return table.str();
}

}  // namespace qxtest
