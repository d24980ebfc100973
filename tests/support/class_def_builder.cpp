#include "support/class_def_builder.h"

#include "support/offset_table.h"

namespace qxtest {

std::string classDef(unsigned start, const std::vector<unsigned>& classes) {
  OffsetTable table;
  table.u16(1).u16(start).u16(static_cast<unsigned>(classes.size())).u16s(classes);
  return table.str();
}

std::string classDefOfRanges(const std::vector<std::array<unsigned, 3>>& ranges) {
  OffsetTable table;
  table.u16(2).u16(static_cast<unsigned>(ranges.size()));
  for (const auto& range : ranges) table.u16(range[0]).u16(range[1]).u16(range[2]);
  return table.str();
}

std::string gdefTable(const std::string& glyphClasses, const std::string& markAttachClasses) {
  OffsetTable table;
  table.u32(0x00010000).offset(glyphClasses).u16(0).u16(0).offset(markAttachClasses);
  return table.str();
}

}  // namespace qxtest
