#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

#include "font/directory/table_failure.h"

namespace QXFontService_NS::metrics {

/// A long horizontal metric, in font units.
struct HMetric {
  std::uint16_t advanceWidth = 0;
  std::uint16_t lsb = 0;
};

/// The horizontal metrics of a font (OpenType `hmtx`), the long ones only.
class HMetrics {
 public:
  HMetrics() = default;
  explicit HMetrics(std::vector<HMetric> pairs);

  /// The advance width of `glyph` in font units. Glyphs behind the last metric share it; 0 for
  /// `kNoGlyph` and where there are no metrics.
  [[nodiscard]] std::uint16_t advanceOf(std::uint16_t glyph) const {
    if (pairs_.empty() || glyph == kNoGlyph) return 0;
    return pairs_[glyph < pairs_.size() ? glyph : pairs_.size() - 1].advanceWidth;
  }

  /// The advance width that occurs most often; of equally common ones that which reached the count
  /// first, in glyph order. 0 where there are no metrics.
  [[nodiscard]] std::uint16_t defaultCharWidth() const { return defaultCharWidth_; }

  [[nodiscard]] const std::vector<HMetric>& pairs() const { return pairs_; }
  [[nodiscard]] bool empty() const { return pairs_.empty(); }

 private:
  std::vector<HMetric> pairs_;
  std::uint16_t defaultCharWidth_ = 0;
};

/// Reads `numberOfHMetrics` metrics into `out`; with 0 the table is not looked for. `table`: its
/// entry in the directory, if any. A failure leaves `out` as it was.
[[nodiscard]] TableResult readHmtx(std::istream& stream, const std::optional<TableRange>& table,
                                   std::uint32_t numberOfHMetrics, HMetrics& out);

}  // namespace QXFontService_NS::metrics
