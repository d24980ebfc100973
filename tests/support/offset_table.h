#pragma once

#include <string>
#include <vector>

#include "support/be_bytes.h"

namespace qxtest {

/// A table of OpenType layout in the making: numbers, and 16-bit offsets to tables behind them.
/// `OffsetTable().u16(1).offset(coverage).u16(5).str()`
class OffsetTable {
 public:
  OffsetTable& u16(unsigned value) {
    bytes_.u16(value);
    return *this;
  }
  OffsetTable& u32(std::uint32_t value) {
    bytes_.u32(value);
    return *this;
  }
  OffsetTable& tag(std::string_view tag) {
    bytes_.tag(tag);
    return *this;
  }
  OffsetTable& u16s(const std::vector<unsigned>& values);
  /// An offset to a table; 0 where the table is empty.
  OffsetTable& offset(const std::string& table);
  /// A 32-bit offset.
  OffsetTable& offset32(const std::string& table);
  /// An offset to each of them.
  OffsetTable& offsets(const std::vector<std::string>& tables);
  /// Their number and an offset to each.
  OffsetTable& countedOffsets(const std::vector<std::string>& tables);

  /// The whole: what was written, then the tables in the order of their offsets.
  [[nodiscard]] std::string str() const;

 private:
  struct Link {
    std::string label;
    std::string table;
    bool wide;
  };
  OffsetTable& link(const std::string& table, bool wide);

  BeBytes bytes_;
  std::vector<Link> links_;
};

}  // namespace qxtest
