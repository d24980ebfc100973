#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"
#include "layout/gpos/position_run.h"

namespace QXFontService_NS::layout {

class GraphReader;

/// How far a glyph moves (OpenType ValueRecord), in font units, upward in y. A field that the
/// format lacks is 0.
struct GPOS_ValueRecord {
  short xPlacement = 0;
  short yPlacement = 0;
  short xAdvance = 0;
  short yAdvance = 0;
};

/// Which fields the value records of a subtable have (OpenType ValueFormat). Offsets of device
/// tables count in the size and are not followed: no size is known at this level.
class ValueFormat {
 public:
  constexpr ValueFormat() = default;
  constexpr explicit ValueFormat(unsigned bits) : bits_(bits) {}

  [[nodiscard]] constexpr bool isZero() const { return bits_ == 0; }
  [[nodiscard]] constexpr bool has(unsigned bit) const { return (bits_ & bit) != 0; }
  /// Whether a record of this format moves anything. One of device tables alone does not apply.
  [[nodiscard]] constexpr bool moves() const { return has(kXPlacement | kYPlacement | kAdvances); }
  /// Bytes of a record.
  [[nodiscard]] std::size_t size() const;

  static constexpr unsigned kXPlacement = 0x01;
  static constexpr unsigned kYPlacement = 0x02;
  static constexpr unsigned kXAdvance = 0x04;
  static constexpr unsigned kYAdvance = 0x08;

 private:
  static constexpr unsigned kAdvances = kXAdvance | kYAdvance;
  unsigned bits_ = 0;
};

/// Decodes the record at `at`. Bytes outside read as 0.
GPOS_ValueRecord readValueRecord(const QXCommonNS::bytes::ByteView& bytes, std::uint64_t at,
                                 ValueFormat format);
/// Moves the `i`th glyph by the fields that the format has; needs one that `moves()`. `moveY` of
/// the glyph grows downward, so both values in y are negated.
void applyValue(PositionRun& glyphs, int i, ValueFormat format, const GPOS_ValueRecord& value);

/// Records of a subtable in file form: a font has hundreds of thousands.
class KeptBytes {
 public:
  /// Copies at most `count` records of `size` bytes (not 0), as many as are there. Gives how many.
  std::size_t append(GraphReader& reader, std::uint64_t at, std::size_t count, std::size_t size);

  [[nodiscard]] QXCommonNS::bytes::ByteView view() const { return {bytes_.data(), bytes_.size()}; }
  [[nodiscard]] std::size_t size() const { return bytes_.size(); }

 private:
  std::vector<std::byte> bytes_;
};

}  // namespace QXFontService_NS::layout
