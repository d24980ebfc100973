#include "font/contract/base_font.h"
#include "font/contract/font_services.h"
#include "font/metrics/vertical_forms.h"
#include "font/sfnt/true_type_info.h"
#include "font/text/text_walk.h"
#include "layout/driver/layout_info.h"

// Answers about glyphs, widths and kerning from the big tables.

namespace QXFontService_NS {
namespace {

/// What the walks over a text ask this font and the EUDC fonts for.
class InfoTextPort final : public TextPort {
 public:
  explicit InfoTextPort(const FS_TrueTypeInfo& info) : info_(info) {}

  [[nodiscard]] std::uint16_t verticalGlyph(std::uint16_t glyph) const override {
    return info_.verticalGlyph(glyph);
  }
  [[nodiscard]] bool hasVerticalForms() const override { return info_.loaded().hasVerticalForms; }
  [[nodiscard]] bool isEudc(int code) const override { return fontServices().isEudc(code); }
  [[nodiscard]] std::uint16_t eudcGlyph(EudcSource source, int code) const override {
    const FS_FontRef ref = fontOf(source);
    return ref.font == nullptr ? kNoGlyph : ref.font->getEudcGlyphID(code, ref.entry);
  }
  [[nodiscard]] float eudcWidth(EudcSource source, std::uint16_t glyph, int size,
                                bool vertical) const override {
    const FS_FontRef ref = fontOf(source);
    return ref.font == nullptr ? 0 : ref.font->getGlyphWidth(glyph, size, vertical, ref.entry);
  }

 private:
  [[nodiscard]] FS_FontRef fontOf(EudcSource source) const {
    if (source == EudcSource::own) return info_.eudcLink().get();
    return fontServices().eudcDefault(source == EudcSource::verticalDefault);
  }

  const FS_TrueTypeInfo& info_;
};

/// A font with its port, for the time of one call.
struct InfoText {
  explicit InfoText(const FS_TrueTypeInfo& info)
      : port(info),
        font{info.loaded().maps, info.loaded().hMetrics, port, info.sizeBases(),
             sfnt::Os2::usDefaultChar} {}

  InfoTextPort port;
  TextFont font;
};

}  // namespace

unsigned short FS_TrueTypeInfo::verticalGlyph(unsigned short gid) const {
  const auto ask = [this](std::uint16_t glyph) { return layout::verticalSubstitute(*this, glyph); };
  return metrics::verticalGlyph(gid, ask, loaded().mort);
}

bool FS_TrueTypeInfo::hasVerticalGlyph() const {
  return eudcFlag_ || loaded().hasVerticalForms;
}

unsigned short FS_TrueTypeInfo::getGlyphID(int code, bool vertical) const {
  const std::uint16_t glyph = loaded().maps.lookup(code);
  return vertical ? verticalGlyph(glyph) : glyph;
}

void FS_TrueTypeInfo::getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count,
                                  bool vertical, int* firstMissing) const {
  QXFontService_NS::getGlyphIDs(InfoText(*this).font, text, out, count, vertical, firstMissing);
}

float FS_TrueTypeInfo::getGlyphWidth(unsigned short gid, int size, bool vertical) const {
  // A glyph needs nothing of what a text does, and hosts ask for one after the other.
  if (gid != kNoGlyph)
    return metrics::scaleToSize(loaded().hMetrics.advanceOf(gid), size, sizeBases());
  return QXFontService_NS::getGlyphWidth(InfoText(*this).font, gid, size, vertical);
}

float FS_TrueTypeInfo::getDefaultCharWidth(int size) const {
  return metrics::scaleToSize(loaded().hMetrics.defaultCharWidth(), size, sizeBases());
}

float FS_TrueTypeInfo::getTextWidth(const UnicodeString& text, int size, bool vertical,
                                    int* firstMissing) const {
  return QXFontService_NS::getTextWidth(InfoText(*this).font, text, size, vertical, firstMissing);
}

bool FS_TrueTypeInfo::hasPairKerningInfo(bool vertical) const {
  return loaded().kern.hasPairs(vertical);
}

float FS_TrueTypeInfo::getPairKerningValue(unsigned short left, unsigned short right, int size,
                                           bool vertical) const {
  return metrics::scaleKerning(loaded().kern.valueOf(left, right, vertical), size,
                               records_.head.unitsPerEm);
}

unsigned short FS_TrueTypeInfo::variationSequence(int code, int selector) const {
  return loaded().maps.variationSequence(code, selector);
}

unsigned short FS_TrueTypeInfo::getEudcGlyphID(int code) const {
  return QXFontService_NS::getEudcGlyphID(loaded().maps, loaded().hMetrics, code);
}

}  // namespace QXFontService_NS
