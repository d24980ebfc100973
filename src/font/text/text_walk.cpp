#include "font/text/text_walk.h"

#include <unicode/utf16.h>

#include <optional>

namespace QXFontService_NS {
namespace {

constexpr int kNoCharacter = 0xFFFF;
constexpr int kEudcEnd = 0x10000;

int nextCodePoint(const char16_t* units, int& at, int length) {
  const char16_t unit = units[at++];
  if (!U16_IS_LEAD(unit) || at == length || !U16_IS_TRAIL(units[at])) return unit;
  return U16_GET_SUPPLEMENTARY(unit, units[at++]);
}

/// Calls `visit(code point, UTF-16 index)` for each code point; a lone surrogate is one.
template <class Visit>
void forEachCodePoint(const icu::UnicodeString& text, Visit visit) {
  const char16_t* units = text.getBuffer();
  const int length = text.length();
  for (int at = 0; at < length;) {
    const int index = at;
    visit(nextCodePoint(units, at, length), index);
  }
}

struct EudcGlyph {
  EudcSource source;
  std::uint16_t glyph;
};

/// The font's own EUDC font comes before the pool's default.
std::optional<EudcGlyph> findEudc(const TextPort& port, int code) {
  if (code >= kEudcEnd || !port.isEudc(code)) return std::nullopt;
  const EudcSource byDefault =
      port.hasVerticalForms() ? EudcSource::verticalDefault : EudcSource::horizontalDefault;
  for (const EudcSource source : {EudcSource::own, byDefault}) {
    const std::uint16_t glyph = port.eudcGlyph(source, code);
    if (glyph != kNoGlyph) return EudcGlyph{source, glyph};
  }
  return std::nullopt;
}

std::uint16_t defaultGlyph(const TextFont& font, bool vertical) {
  return font.defaultChar == 0 ? kNoGlyph : glyphOf(font, font.defaultChar, vertical);
}

void noteMissing(int* firstMissing, int index) {
  if (firstMissing != nullptr && *firstMissing < 0) *firstMissing = index;
}

/// What `getGlyphIDs` writes for code points that the font has no glyph for.
class Substitutes {
 public:
  Substitutes(const TextFont& font, bool vertical, int* firstMissing)
      : font_(font), vertical_(vertical), firstMissing_(firstMissing) {}

  std::uint16_t glyphFor(int code, int index) {
    if (!allFound_) return kNoGlyph;
    if (code != kNoCharacter && findEudc(font_.port, code)) return 0;
    allFound_ = false;
    if (code == kNoCharacter) return kNoGlyph;
    noteMissing(firstMissing_, index);
    return defaultGlyph(font_, vertical_);
  }

 private:
  const TextFont& font_;
  bool vertical_;
  int* firstMissing_;
  bool allFound_ = true;
};

/// The two sums of a text's width: font units, and what is scaled already.
class WidthSums {
 public:
  WidthSums(const TextFont& font, int size, bool vertical, int* firstMissing)
      : font_(font), size_(size), vertical_(vertical), firstMissing_(firstMissing) {}

  void add(int code, int index) {
    const std::uint16_t glyph = code == kNoCharacter ? kNoGlyph : glyphOf(font_, code, vertical_);
    if (glyph != kNoGlyph) {
      units_ += font_.widths.advanceOf(glyph);
    } else {
      addMissing(code, index);
    }
  }

  [[nodiscard]] float total() const {
    if (size_ == 0) return scaledSum_;
    return scaleToSize(units_, size_, font_.bases) + scaledSum_;
  }

 private:
  void addMissing(int code, int index) {
    const auto eudc = code == kNoCharacter ? std::nullopt : findEudc(font_.port, code);
    if (eudc) {
      scaledSum_ += font_.port.eudcWidth(eudc->source, eudc->glyph, size_, vertical_);
      return;
    }
    noteMissing(firstMissing_, index);
    units_ += font_.widths.advanceOf(defaultGlyph(font_, vertical_));
  }

  const TextFont& font_;
  int size_;
  bool vertical_;
  int* firstMissing_;
  std::int64_t units_ = 0;
  float scaledSum_ = 0.0F;
};

}  // namespace

std::uint16_t glyphOf(const TextFont& font, int code, bool vertical) {
  const std::uint16_t glyph = font.maps.lookup(code);
  return vertical && glyph != kNoGlyph ? font.port.verticalGlyph(glyph) : glyph;
}

void getGlyphIDs(const TextFont& font, const icu::UnicodeString& text, std::uint16_t* out,
                 int& count, bool vertical, int* firstMissing) {
  if (firstMissing != nullptr) *firstMissing = -1;
  Substitutes substitutes(font, vertical, firstMissing);
  std::uint16_t* next = out;
  forEachCodePoint(text, [&](int code, int index) {
    std::uint16_t glyph = code == kNoCharacter ? kNoGlyph : glyphOf(font, code, vertical);
    if (glyph == kNoGlyph) glyph = substitutes.glyphFor(code, index);
    *next++ = glyph;
  });
  count = static_cast<int>(next - out);
}

float getTextWidth(const TextFont& font, const icu::UnicodeString& text, int size, bool vertical,
                   int* firstMissing) {
  if (firstMissing != nullptr) *firstMissing = -1;
  WidthSums sums(font, size, vertical, firstMissing);
  forEachCodePoint(text, [&sums](int code, int index) { sums.add(code, index); });
  return sums.total();
}

float getGlyphWidth(const TextFont& font, std::uint16_t glyph, int size, bool vertical) {
  const std::uint16_t shown = glyph == kNoGlyph ? defaultGlyph(font, vertical) : glyph;
  return metrics::scaleToSize(font.widths.advanceOf(shown), size, font.bases);
}

std::uint16_t getEudcGlyphID(const cmap::CharacterMaps& maps, const metrics::HMetrics& widths,
                             int code) {
  const std::uint16_t glyph = maps.lookup(code);
  return widths.advanceOf(glyph) == 0 ? kNoGlyph : glyph;
}

bool hasVerticalGlyph(const TextFont& font, int code) {
  const std::uint16_t vertical = glyphOf(font, code, true);
  return vertical != kNoGlyph && vertical != glyphOf(font, code, false);
}

}  // namespace QXFontService_NS
