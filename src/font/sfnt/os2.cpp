#include "font/sfnt/os2.h"

#include <cstdlib>

namespace QXFontService_NS::sfnt {
namespace {

constexpr std::uint32_t kRegular = 400;
constexpr std::uint32_t kBold = 700;
constexpr std::uint32_t kMediumWidth = 5;

void decodeStyle(Os2& os2, ByteView table) {
  os2.xAvgCharWidth = table.i16(2);
  os2.usWeightClass = table.u16(4);
  os2.usWidthClass = table.u16(6);
  os2.fsType = table.u16(8);
  os2.sFamilyClass = {table.u8(30), table.u8(31)};
  for (std::size_t i = 0; i < os2.panose.size(); ++i) os2.panose[i] = table.u8(32 + i);
  for (std::size_t i = 0; i < os2.ulUnicodeRange.size(); ++i)
    os2.ulUnicodeRange[i] = table.u32(42 + 4 * i);
  os2.fsSelection = table.u16(62);
}

void decodeHeights(Os2& os2, ByteView table) {
  os2.usFirstCharIndex = table.u16(64);
  os2.usLastCharIndex = table.u16(66);
  os2.sTypoAscender = table.i16(68);
  os2.sTypoDescender = table.i16(70);
  os2.sTypoLineGap = table.i16(72);
  os2.usWinAscent = table.u16(74);
  os2.usWinDescent = table.u16(76);
}

/// The fields that later versions brought.
void decodeAdditions(Os2& os2, ByteView table) {
  if (os2.version >= 1) os2.ulCodePageRange = {table.u32(78), table.u32(82)};
  if (os2.version < 2) return;
  os2.sxHeight = table.i16(86);
  os2.sCapHeight = table.i16(88);
}

/// Fonts of the first years stored 1 to 9.
void mendOldWeight(Os2& os2) {
  if (os2.version < 3 && os2.usWeightClass < 10) os2.usWeightClass *= 100;
}

}  // namespace

Os2 Os2::decode(ByteView table) {
  const ByteView read = table.slice(0, kReadLimit);
  Os2 os2;
  os2.version = read.u16(0);
  decodeStyle(os2, read);
  decodeHeights(os2, read);
  decodeAdditions(os2, read);
  mendOldWeight(os2);
  return os2;
}

Os2 Os2::synthesize(const Head& head, const Hhea& hhea) {
  const unsigned bold = head.macStyle & 1u;
  const unsigned italic = head.macStyle >> 1 & 1u;
  Os2 os2;
  os2.usWeightClass = bold != 0 ? kBold : kRegular;
  os2.usWidthClass = kMediumWidth;
  os2.ulUnicodeRange = {3, 0, 0, 0};
  os2.fsSelection = bold << 5 | italic;
  os2.sTypoAscender = hhea.ascender;
  os2.sTypoDescender = hhea.descender;
  os2.sTypoLineGap = hhea.lineGap;
  return os2;
}

void Os2::fillWindowsHeights(const Hhea& hhea) {
  if (usWinAscent != 0) return;
  usWinAscent = static_cast<std::uint16_t>(hhea.ascender);
  usWinDescent = static_cast<std::uint16_t>(std::abs(int{hhea.descender}));
}

}  // namespace QXFontService_NS::sfnt
