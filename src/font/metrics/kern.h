#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

#include "common/bytes/byte_view.h"
#include "font/directory/table_failure.h"

namespace QXFontService_NS::metrics {

/// The kerning pairs of a font (OpenType `kern`): those of the first subtable of format 0, in file
/// form. Immutable after the load.
class KernPairs {
 public:
  /// Whether there are pairs for horizontal (`vertical` false) or vertical text.
  [[nodiscard]] bool hasPairs(bool vertical) const;

  /// The kerning between `left` and `right` in font units; 0 for a pair that is not listed, and
  /// for all pairs where `hasPairs(vertical)` is false.
  [[nodiscard]] std::int16_t valueOf(std::uint16_t left, std::uint16_t right, bool vertical) const;

  /// The number of pairs; -1 as long as the table was not read.
  [[nodiscard]] int kernPairCount() const { return kernPairCount_; }
  /// The coverage word of the last subtable header read.
  [[nodiscard]] std::uint16_t kernCoverage() const { return kernCoverage_; }
  /// 6 bytes each: left, right, value.
  [[nodiscard]] QXCommonNS::bytes::ByteView kernPairs() const {
    return QXCommonNS::bytes::ByteView(kernPairs_);
  }

  /// Calls `visit(left, right, value)` for each listed pair, in file order.
  template <class Visit>
  void forEach(Visit visit) const {
    const auto pairs = kernPairs();
    for (std::uint64_t at = 0; at < pairs.size(); at += kPairSize) {
      visit(pairs.u16(at), pairs.u16(at + 2), pairs.i16(at + 4));
    }
  }

  /// The value by the search that defines the answer, whatever the order of the pairs; 0 for a
  /// pair that is not listed.
  [[nodiscard]] std::int16_t valueByHalving(std::uint16_t left, std::uint16_t right) const;

 private:
  friend class KernReader;
  static constexpr std::size_t kPairSize = 6;

  [[nodiscard]] std::uint32_t key(std::uint64_t pair) const {
    return kernPairs().u32(pair * kPairSize);
  }
  [[nodiscard]] std::int16_t value(std::uint64_t pair) const {
    return kernPairs().i16(pair * kPairSize + 4);
  }
  [[nodiscard]] std::int16_t valueByIndex(std::uint32_t sought) const;
  [[nodiscard]] bool ascend() const;
  void makeIndex();

  std::uint16_t kernCoverage_ = 0;
  int kernPairCount_ = -1;
  std::vector<std::byte> kernPairs_;
  /// First pair of each run of left glyphs; empty where the pairs do not ascend.
  std::vector<std::uint16_t> firstPair_;
  unsigned runShift_ = 0;
};

/// Reads the `kern` table into `out`, which must be new. `table`: its entry in the directory; a
/// font without one has no pairs, and that is no failure. A failure leaves `out` without pairs.
[[nodiscard]] TableResult readKern(std::istream& stream, const std::optional<TableRange>& table,
                                   KernPairs& out);

}  // namespace QXFontService_NS::metrics
