#include "support/table_builders.h"

#include "support/be_bytes.h"

namespace qxtest {

std::string HeadBuilder::build() const {
  BeBytes out;
  out.u32(0x00010000).u32(0x00010000).u32(0).u32(0x5F0F3CF5).u16(3).u16(unitsPerEm);
  out.zeros(16);  // created, modified
  out.i16(xMin).i16(yMin).i16(xMax).i16(yMax).u16(macStyle);
  out.u16(8).i16(2).i16(indexToLocFormat).i16(0);
  return out.str();
}

std::string HheaBuilder::build() const {
  BeBytes out;
  out.u32(0x00010000).i16(ascender).i16(descender).i16(lineGap).u16(advanceMax);
  out.zeros(6);                 // the least bearings, the largest extent
  out.i16(1).i16(0).zeros(12);  // the caret, then reserved words and metricDataFormat
  out.u16(numberOfMetrics);
  return out.str();
}

std::string Os2Builder::build() const {
  BeBytes out;
  out.u16(version).i16(xAvgCharWidth).u16(usWeightClass).u16(usWidthClass).u16(fsType);
  out.zeros(20);  // subscripts, superscripts, strikeout
  out.u8(familyClass).u8(familySubclass);
  for (unsigned value : panose) out.u8(value);
  for (std::uint32_t word : ulUnicodeRange) out.u32(word);
  out.tag("QXTT").u16(fsSelection).u16(usFirstCharIndex).u16(usLastCharIndex);
  out.i16(sTypoAscender).i16(sTypoDescender).i16(sTypoLineGap);
  out.u16(usWinAscent).u16(usWinDescent);
  if (version < 1) return out.str();
  out.u32(ulCodePageRange[0]).u32(ulCodePageRange[1]);
  if (version < 2) return out.str();
  out.i16(sxHeight).i16(sCapHeight).u16(usDefaultChar).u16(usBreakChar).u16(usMaxContext);
  if (version < 5) return out.str();
  return out.u16(0).u16(0xFFFF).str();
}

std::string PostBuilder::build() const {
  BeBytes out;
  out.u32(version).u32(static_cast<std::uint32_t>(italicAngle));
  out.i16(underlinePosition).i16(underlineThickness).u32(isFixedPitch).zeros(16);
  return out.str();
}

std::string MaxpBuilder::build() const {
  BeBytes out;
  out.u32(version).u16(numGlyphs);
  if (version != 0x00010000) return out.str();
  for (unsigned limit : limits) out.u16(limit);
  return out.str();
}

std::string MetricsBuilder::build() const {
  BeBytes out;
  for (const auto& [advance, bearing] : metrics) out.u16(advance).i16(bearing);
  for (int bearing : bearings) out.i16(bearing);
  return out.str();
}

}  // namespace qxtest
