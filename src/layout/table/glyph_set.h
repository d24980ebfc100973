#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace QXFontService_NS::layout {

/// A set of glyph ids, one bit a glyph. A lookup holds the glyphs at which it can do something at
/// all, which answers most of a pass without a search in any coverage.
class GlyphSet {
 public:
  void add(unsigned short glyph) {
    const std::size_t word = glyph / kBits;
    if (words_.size() <= word) words_.resize(word + 1);
    words_[word] |= std::uint64_t{1} << glyph % kBits;
  }
  /// Adds all of [first, last]; nothing where `last` is below `first`.
  void addRange(unsigned short first, unsigned short last);
  /// Makes the set hold every glyph.
  void addAll() {
    all_ = true;
    words_ = {};
  }

  [[nodiscard]] bool contains(unsigned short glyph) const {
    const std::size_t word = glyph / kBits;
    if (word < words_.size() && (words_[word] >> glyph % kBits & 1) != 0) return true;
    return all_;
  }
  /// Bytes held.
  [[nodiscard]] std::size_t memory() const { return words_.size() * sizeof(std::uint64_t); }

 private:
  static constexpr unsigned kBits = 64;
  std::vector<std::uint64_t> words_;
  bool all_ = false;
};

}  // namespace QXFontService_NS::layout
