#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace QXFontService_NS::cmap {

/// Which ranges of codes to search for a code: those that touch the few codes around it.
///
/// Ranges stay where they are and are numbered; callers give their bounds. The index takes ranges
/// that ascend and do not overlap, where any right search gives one answer. Of others it stays
/// empty, and the caller keeps to the search that defines what such ranges mean.
class RangeIndex {
 public:
  /// Codes from here on are left to the caller: no text holds them.
  static constexpr std::uint32_t kUnicodeEnd = 0x110000;

  /// Makes the index of `count` ranges, `startAt(i)` to `endAt(i)`, both included.
  template <class StartAt, class EndAt>
  void make(std::uint32_t count, StartAt startAt, EndAt endAt) {
    first_.clear();
    if (count > kMostRanges || !ascend(count, startAt, endAt)) return;
    count_ = count;
    const std::uint32_t last = std::min<std::uint32_t>(endAt(count - 1), kUnicodeEnd - 1);
    first_.reserve(last / kStep + 2);
    std::uint32_t range = 0;
    for (std::uint32_t step = 0; step <= last / kStep + 1; ++step) {
      while (range < count && endAt(range) < step * kStep) ++range;
      first_.push_back(static_cast<std::uint16_t>(range));
    }
  }

  [[nodiscard]] bool empty() const { return first_.empty(); }

  /// Whether `code` can be looked up here.
  [[nodiscard]] bool covers(std::uint32_t code) const { return hasStep(code / kStep); }

  /// The only range that may hold `code`, which `covers` must have approved.
  template <class StartAt>
  [[nodiscard]] std::uint32_t candidate(std::uint32_t code, StartAt startAt) const {
    const std::uint32_t step = code / kStep;
    std::uint32_t range = first_[step];
    // The first range of the next step may begin in this one.
    std::uint32_t left = std::min<std::uint32_t>(first_[step + 1], count_ - 1) - range + 1;
    while (left > 1) {
      const std::uint32_t half = left / 2;
      range = startAt(range + half) <= code ? range + half : range;
      left -= half;
    }
    return range;
  }

  /// Whether a range touches the 256 codes from `block` * 256 on.
  template <class StartAt>
  [[nodiscard]] bool touches(std::uint32_t block, StartAt startAt) const {
    const std::uint32_t step = block * kBlock / kStep;
    return hasStep(step) && startAt(first_[step]) < (block + 1) * kBlock;
  }

 private:
  static constexpr std::uint32_t kBlock = 256;
  /// Small enough to leave a few ranges of a CJK font, large enough for an index of some KB.
  static constexpr std::uint32_t kStep = 64;
  /// More do not fit the index; no font has as many glyphs.
  static constexpr std::uint32_t kMostRanges = 0xFFFF;

  [[nodiscard]] bool hasStep(std::uint32_t step) const { return step + 1 < first_.size(); }

  template <class StartAt, class EndAt>
  static bool ascend(std::uint32_t count, StartAt startAt, EndAt endAt) {
    for (std::uint32_t i = 0; i < count; ++i) {
      if (endAt(i) < startAt(i)) return false;
      if (i > 0 && startAt(i) <= endAt(i - 1)) return false;
    }
    return count > 0;
  }

  std::uint32_t count_ = 0;
  std::vector<std::uint16_t> first_;  ///< by step: the first range that ends in it or later
};

}  // namespace QXFontService_NS::cmap
