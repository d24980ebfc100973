#pragma once

#include <unicode/unistr.h>

#include <cstdint>

#include "font/cmap/character_maps.h"
#include "font/metrics/hmtx.h"
#include "font/metrics/size_scale.h"

namespace QXFontService_NS {

/// The fonts that are asked for an end-user-defined character.
enum class EudcSource {
  own,                ///< the font's own EUDC font
  horizontalDefault,  ///< the first default of the pool
  verticalDefault,    ///< the second one, for fonts with vertical forms
};

/// What the walks over a text ask a font for only now and then.
class TextPort {
 public:
  /// The glyph that stands for `glyph` in vertical text; `glyph` itself where nothing else does.
  [[nodiscard]] virtual std::uint16_t verticalGlyph(std::uint16_t glyph) const = 0;
  /// Whether the font has a `GSUB` feature list or `mort` pairs.
  [[nodiscard]] virtual bool hasVerticalForms() const = 0;
  /// Whether `code` (below 0x10000) is end-user-defined.
  [[nodiscard]] virtual bool isEudc(int code) const = 0;
  /// What `getEudcGlyphID` of that font answers; `kNoGlyph` where there is no such font.
  [[nodiscard]] virtual std::uint16_t eudcGlyph(EudcSource source, int code) const = 0;
  /// What `getGlyphWidth` of that font answers for a glyph that `eudcGlyph` gave.
  [[nodiscard]] virtual float eudcWidth(EudcSource source, std::uint16_t glyph, int size,
                                        bool vertical) const = 0;

 protected:
  ~TextPort() = default;
};

/// A font as the walks over a text see it. Borrows all it points to.
struct TextFont {
  const cmap::CharacterMaps& maps;
  const metrics::HMetrics& widths;
  const TextPort& port;
  metrics::SizeBases bases;
  int defaultChar = 0;  ///< a code to look up for what is missing; 0: none
};

/// The glyph of `code`, with its vertical form if asked, or `kNoGlyph`.
[[nodiscard]] std::uint16_t glyphOf(const TextFont& font, int code, bool vertical);

/// Writes one glyph id for each code point of `text` to `out` and their number to `count`.
///
/// `firstMissing`, if given, receives the UTF-16 index of the first code point without a glyph, or
/// -1. An end-user-defined code point that an EUDC font has is found and written as glyph 0.
/// Kept: U+FFFF ends the search for substitutes and is not told by `firstMissing`; once a code
/// point was missing, later missing ones are `kNoGlyph` without being looked for elsewhere.
void getGlyphIDs(const TextFont& font, const icu::UnicodeString& text, std::uint16_t* out,
                 int& count, bool vertical, int* firstMissing);

/// The width of `text` at `size`. `firstMissing` as in `getGlyphIDs`, but told of any first missing
/// code point. At size 0 only what EUDC fonts add counts.
[[nodiscard]] float getTextWidth(const TextFont& font, const icu::UnicodeString& text, int size,
                                 bool vertical, int* firstMissing);

/// The advance width of `glyph` at `size`. `vertical` matters only for the default character.
[[nodiscard]] float getGlyphWidth(const TextFont& font, std::uint16_t glyph, int size,
                                  bool vertical);

/// The glyph of `code` as an EUDC font gives it: one of advance width 0 is none, so that an empty
/// cell does not hide the next font.
[[nodiscard]] std::uint16_t getEudcGlyphID(const cmap::CharacterMaps& maps,
                                           const metrics::HMetrics& widths, int code);

/// Whether `code` has a vertical form that differs from its horizontal glyph.
[[nodiscard]] bool hasVerticalGlyph(const TextFont& font, int code);

}  // namespace QXFontService_NS
