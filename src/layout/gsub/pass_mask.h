#pragma once

#include <vector>

#include "layout/gsub/gap_buffer.h"

namespace QXFontService_NS::layout {

/// @throws std::out_of_range
[[noreturn]] void throwOutside();
/// @throws std::out_of_range unless 0 <= `i` < `size`
inline void requireInside(int i, int size) {
  if (i < 0 || i >= size) [[unlikely]]
    throwOutside();
}

/// Which places of an array a pass leaves alone: those whose word is not 0. Mostly there is none
/// such, and then only the length is kept.
class PassMask {
 public:
  /// The mask of `length` places; words beyond it do not count, missing ones are 0.
  PassMask(const std::vector<unsigned int>& words, int length);

  [[nodiscard]] int size() const { return length_; }
  /// The word of a place.
  /// @throws std::out_of_range outside
  [[nodiscard]] unsigned int at(int i) const {
    requireInside(i, length_);
    return allZero_ ? 0 : words_[i];
  }
  /// Copies the word of one place to another.
  /// @throws std::out_of_range where one is outside
  void copy(int from, int to);
  void insertZeros(int at, int count);
  void erase(int first, int last);

 private:
  int length_;
  bool allZero_;
  GapBuffer<unsigned int> words_;
};

}  // namespace QXFontService_NS::layout
