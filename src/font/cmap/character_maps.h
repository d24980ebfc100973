#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "font/cmap/cmap_reader.h"
#include "font/cmap/code_conversion.h"

namespace QXFontService_NS::cmap {

/// The character maps of a font: Unicode codes to glyph ids, from memory.
///
/// One subtable answers for all codes, the first held of formats 12, 4, 2 and 0; a miss in it is a
/// miss. Immutable, so any number of threads may ask; a lookup allocates nothing and takes no lock.
class CharacterMaps {
 public:
  /// A font without maps: no code has a glyph.
  CharacterMaps();

  /// `useZeroGlyph`: a code that formats 4 and 12 map to glyph 0 has that glyph, instead of none.
  explicit CharacterMaps(CmapSubtables subtables, bool useZeroGlyph = false);

  /// The glyph id of the Unicode code point `code`, or `kNoGlyph`.
  [[nodiscard]] std::uint16_t lookup(int code) const {
    const auto index = static_cast<unsigned>(code);
    return index < direct_.size() ? direct_[index] : search(code);
  }

  /// The glyph id of `code` followed by the variation selector `selector`, or `kNoGlyph`.
  [[nodiscard]] std::uint16_t variationSequence(int code, int selector) const;

  /// Whether the font lists variation sequences.
  [[nodiscard]] bool hasVariationSelector() const { return subtables_.format14 != nullptr; }

  /// The largest number of characters that one of the subtables read maps; 0 without any.
  [[nodiscard]] std::uint32_t maxCharCount() const { return subtables_.maxCharCount; }

  /// Whether a subtable that maps codes is held.
  [[nodiscard]] bool mapCodes() const { return subtables_.mapCodes(); }

  /// Calls `visit(int code, std::uint16_t glyph)` for each code of Unicode that `lookup` answers,
  /// in ascending order.
  template <class Visit>
  void forEach(Visit visit) const {
    for (std::uint32_t block = 0; block < kUnicodeBlocks; ++block) {
      if (mayMap(block)) visitBlock(static_cast<int>(block) * kBlock, visit);
    }
  }

  /// Calls `visit(code, selector, glyph)` for each listed variation sequence that
  /// `variationSequence` answers, in file order.
  void forEachVariation(
      const std::function<void(int code, int selector, std::uint16_t glyph)>& visit) const;

 private:
  enum class Held : std::uint8_t { none, format0, format2, format4, format12 };
  static constexpr int kBlock = 256;
  static constexpr std::uint32_t kUnicodeBlocks = 0x1100;

  template <class Visit>
  void visitBlock(int first, Visit& visit) const {
    for (int code = first; code < first + kBlock; ++code) {
      if (const std::uint16_t glyph = lookup(code); glyph != kNoGlyph) visit(code, glyph);
    }
  }

  [[nodiscard]] std::uint16_t search(int code) const;
  [[nodiscard]] std::uint16_t judged(std::uint16_t glyph) const {
    return glyph == 0 ? zeroGlyph_ : glyph;
  }
  [[nodiscard]] bool mayMap(std::uint32_t block) const;
  void chooseHeld();
  void fillDirect();

  CmapSubtables subtables_;
  CodeConversion conversion_;
  std::uint16_t zeroGlyph_ = kNoGlyph;  ///< what a glyph id computed as 0 means
  Held held_ = Held::none;
  std::array<std::uint16_t, 256> direct_{};  ///< the answers for the first codes of all
};

}  // namespace QXFontService_NS::cmap
