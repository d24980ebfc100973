#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"
#include "font/sfnt/head.h"
#include "font/sfnt/hhea.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// The fields of OpenType `OS/2` that are used, in font units.
struct Os2 {
  /// What is read of the table, whatever its stated length.
  static constexpr std::size_t kReadLimit = 100;

  std::uint16_t version = 0;
  std::int16_t xAvgCharWidth = 0;
  std::uint32_t usWeightClass = 0;
  std::uint32_t usWidthClass = 0;
  std::uint16_t fsType = 0;
  std::array<std::uint8_t, 2> sFamilyClass{};  // class, subclass
  std::array<std::uint8_t, 10> panose{};
  std::array<std::uint32_t, 4> ulUnicodeRange{};
  std::uint32_t fsSelection = 0;
  std::uint16_t usFirstCharIndex = 0, usLastCharIndex = 0;
  std::int16_t sTypoAscender = 0, sTypoDescender = 0, sTypoLineGap = 0;
  std::uint16_t usWinAscent = 0, usWinDescent = 0;
  std::array<std::uint32_t, 2> ulCodePageRange{1, 0};
  std::int16_t sxHeight = 0, sCapHeight = 0;
  /// Always 0, whatever the table says: no text is set in a default character. Kept: widths and
  /// glyph ids of missing characters rest on it.
  static constexpr std::uint16_t usDefaultChar = 0;

  /// Decodes a table; bytes outside the view read as 0, and the version decides which of the later
  /// fields are taken. Weights 1 to 9 of tables below version 3 become 100 to 900.
  static Os2 decode(ByteView table);

  /// What stands for the table in a font that has none.
  static Os2 synthesize(const Head& head, const Hhea& hhea);

  /// Where `usWinAscent` is 0, takes both Windows heights from `hhea`. A zero `usWinDescent` beside
  /// a non-zero ascent stays: a font may have nothing below the baseline.
  void fillWindowsHeights(const Hhea& hhea);
};

}  // namespace QXFontService_NS::sfnt
