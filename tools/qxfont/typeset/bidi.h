#pragma once

#include <unicode/ubidi.h>
#include <unicode/unistr.h>

#include <vector>

namespace qxfont {

/// The directions of a paragraph (UAX #9, by ICU). Its own is that of its first letter.
class Bidi {
 public:
  explicit Bidi(const icu::UnicodeString& text);

  [[nodiscard]] bool isRightToLeft() const { return base_ % 2 != 0; }
  /// The embedding level at a UTF-16 index; odd ones run from right to left.
  [[nodiscard]] UBiDiLevel levelAt(int index) const {
    return levels_[static_cast<std::size_t>(index)];
  }

 private:
  UBiDiLevel base_ = 0;
  std::vector<UBiDiLevel> levels_;
};

/// The order in which things of such levels stand from left to right on a line (rule L2).
std::vector<int> visualOrder(const std::vector<UBiDiLevel>& levels);

}  // namespace qxfont
