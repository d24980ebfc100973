#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

#include "common/bytes/byte_view.h"
#include "font/directory/table_failure.h"

namespace QXFontService_NS::metrics {

/// A glyph and the one that stands for it in vertical text.
struct MortPair {
  std::uint16_t glyph = 0;
  std::uint16_t vertical = 0;
};

/// The vertical forms of a `mort` table (Apple TrueType): all that is read of it.
struct MortPairs {
  int mortPairCount = -1;  ///< -1 as long as the table was not read
  std::vector<MortPair> mortPairs;

  [[nodiscard]] bool empty() const { return mortPairs.empty(); }

  /// The vertical form of `glyph`, or `kNoGlyph`.
  [[nodiscard]] std::uint16_t verticalOf(std::uint16_t glyph) const;
};

/// The vertical forms in the bytes of a `mort` table; none where it has no such subtable.
[[nodiscard]] std::vector<MortPair> parseMort(QXCommonNS::bytes::ByteView table);

/// Reads the `mort` table into `out`. `table`: its entry in the directory; a font without one has
/// no pairs, and that is no failure. A failure leaves `out` read and without pairs.
[[nodiscard]] TableResult readMort(std::istream& stream, const std::optional<TableRange>& table,
                                   MortPairs& out);

}  // namespace QXFontService_NS::metrics
