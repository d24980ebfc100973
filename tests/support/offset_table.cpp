#include "support/offset_table.h"

namespace qxtest {

OffsetTable& OffsetTable::u16s(const std::vector<unsigned>& values) {
  for (const unsigned value : values) bytes_.u16(value);
  return *this;
}

OffsetTable& OffsetTable::link(const std::string& table, bool wide) {
  const std::string label = "link " + std::to_string(bytes_.size());
  bytes_.label(label).zeros(wide ? 4 : 2);
  if (!table.empty()) links_.push_back({label, table, wide});
  return *this;
}

OffsetTable& OffsetTable::offset(const std::string& table) {
  return link(table, false);
}
OffsetTable& OffsetTable::offset32(const std::string& table) {
  return link(table, true);
}

OffsetTable& OffsetTable::offsets(const std::vector<std::string>& tables) {
  for (const std::string& table : tables) offset(table);
  return *this;
}

OffsetTable& OffsetTable::countedOffsets(const std::vector<std::string>& tables) {
  return u16(static_cast<unsigned>(tables.size())).offsets(tables);
}

std::string OffsetTable::str() const {
  BeBytes whole = bytes_;
  for (const Link& link : links_) {
    const auto at = static_cast<std::uint32_t>(whole.size());
    if (link.wide) {
      whole.patchU32(link.label, at);
    } else {
      whole.patchU16(link.label, at);
    }
    whole.text(link.table);
  }
  return whole.str();
}

}  // namespace qxtest
