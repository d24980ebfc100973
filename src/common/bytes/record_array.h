#pragma once

#include <optional>

#include "common/bytes/byte_view.h"

namespace QXCommonNS::bytes {

/// An array of fixed-size records in file form, decoded on access.
///
/// `Record` gives `static constexpr std::size_t kSize` and `static Record decode(ByteView)`. The
/// count is clipped to the records that fit, so an index below `size()` is always inside.
/// Example: `RecordArray<Range> ranges(table, 4, table.u16(2));`
template <class Record>
class RecordArray {
 public:
  RecordArray() = default;
  RecordArray(ByteView table, std::uint64_t offset, std::uint64_t count)
      : bytes_(table.slice(offset, count > kMost ? kMost * Record::kSize : count * Record::kSize)) {
  }

  [[nodiscard]] std::size_t size() const { return bytes_.size() / Record::kSize; }
  [[nodiscard]] bool empty() const { return size() == 0; }
  [[nodiscard]] Record operator[](std::size_t index) const {
    return Record::decode(bytes_.slice(index * Record::kSize, Record::kSize));
  }

  /// Finds a record by halving. `order(record)` is negative where the record lies below what is
  /// sought, positive where above, 0 for a hit; records must be sorted by it.
  template <class Order>
  [[nodiscard]] std::optional<std::size_t> find(Order order) const {
    std::size_t low = 0;
    std::size_t high = size();
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      const int way = order((*this)[middle]);
      if (way == 0) return middle;
      if (way < 0) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return std::nullopt;
  }

 private:
  static constexpr std::uint64_t kMost = UINT64_C(1) << 32;
  ByteView bytes_;
};

}  // namespace QXCommonNS::bytes
