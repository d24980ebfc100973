#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace QXFontService_NS::type1 {

struct GlyphNameRow {
  int unicode;
  std::string_view name;
};

/// Glyph names and their characters, in the order in which they are looked up: of two rows with one
/// name, or one character, the first counts.
///
/// First the Adobe Glyph List for New Fonts 1.1 in its own order, then what version 1.2 of the
/// older Adobe Glyph List has beyond it.
inline constexpr std::size_t kGlyphNamesForNewFonts = 856;
inline constexpr std::size_t kGlyphNameRowCount = kGlyphNamesForNewFonts + 203;
extern const std::array<GlyphNameRow, kGlyphNameRowCount> kGlyphNameRows;

/// A character whose glyph goes by the name of another one.
struct UnicodeAlternativeRow {
  int from;
  int to;
};
extern const std::array<UnicodeAlternativeRow, 12> kUnicodeAlternatives;

}  // namespace QXFontService_NS::type1
