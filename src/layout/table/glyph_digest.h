#pragma once

#include <array>
#include <cstdint>

namespace QXFontService_NS::layout {

/// A set of glyph ids that may hold more than was added, in three words whatever its size: a glyph
/// is in it where each word has the bit of its id, as it is or shifted. A coverage rarely has the
/// glyphs that it is asked for, and so answers most questions without a search.
class GlyphDigest {
 public:
  void add(unsigned short glyph) { addRange(glyph, glyph); }
  /// Adds all of [first, last]; nothing where `last` is below `first`.
  void addRange(unsigned short first, unsigned short last) {
    if (last < first) return;
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] |= bits(first, last, kShifts[i]);
  }
  /// False is certain.
  [[nodiscard]] bool mayHold(unsigned short glyph) const {
    const unsigned id = glyph;
    const std::uint64_t held = words_[0] >> (id >> kShifts[0] & kMask) &
                               words_[1] >> (id >> kShifts[1] & kMask) &
                               words_[2] >> (id >> kShifts[2] & kMask);
    return (held & 1) != 0;
  }

 private:
  static constexpr unsigned kMask = 63;
  static constexpr std::array<unsigned, 3> kShifts{0, 4, 9};

  /// The bits from that of `first` to that of `last`, around the end of the word where they wrap.
  static std::uint64_t bits(unsigned first, unsigned last, unsigned shift) {
    constexpr std::uint64_t kAll = ~std::uint64_t{0};
    if ((last >> shift) - (first >> shift) >= kMask) return kAll;
    const unsigned low = first >> shift & kMask;
    const unsigned high = last >> shift & kMask;
    const std::uint64_t fromLow = kAll << low;
    const std::uint64_t toHigh = kAll >> (kMask - high);
    return low <= high ? fromLow & toHigh : fromLow | toHigh;
  }

  std::array<std::uint64_t, 3> words_{};
};

}  // namespace QXFontService_NS::layout
