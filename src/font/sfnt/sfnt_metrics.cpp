#include <algorithm>
#include <cstdlib>

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "font/contract/base_font.h"
#include "font/contract/font_services.h"
#include "font/sfnt/true_type_info.h"

// The records that hosts take over for whole faces: logical font and text metrics.

namespace QXFontService_NS {
namespace {

using sfnt::SfntRecords;

constexpr unsigned kVariablePitch = 0x01, kSerifLike = 0x10, kScriptLike = 0x40;

/// Fills a metrics record. `scale` turns font units into the units of the call: 0 where what the
/// size is measured by is 0.
class MetricsFiller {
 public:
  MetricsFiller(const SfntRecords& records, float scale, FS_NewTextMetricEx& out)
      : records_(records), os2_(records.os2), scale_(scale), out_(out) {}

  void fill() {
    fillHeights();
    fontServices().windowsMetrics() ? fillWindowsLeading() : fillTypographic();
    fillWidths();
    fillBox();
    fillBits();
  }

  void setStyle(unsigned pitchAndFamily, bool symbol) {
    out_.setPitchAndFamily(pitchAndFamily);
    out_.setSymbol(symbol);
  }

 private:
  [[nodiscard]] float scaled(int units) const { return static_cast<float>(units) * scale_; }

  void fillHeights() {
    out_.setAscent(scaled(os2_.usWinAscent));
    out_.setDescent(scaled(os2_.usWinDescent));
    out_.setCapHeight(scaled(os2_.sCapHeight));
  }

  /// Half of what the cell is higher than the em on either side; no typographic metrics at all.
  void fillWindowsLeading() {
    const float em = scaled(records_.head.unitsPerEm);
    const float leading = (out_.getAscent() + out_.getDescent() - em) * 0.5F;
    out_.setInternalLeadingA(leading);
    out_.setInternalLeadingD(leading);
  }

  void fillTypographic() {
    fillTypographicLeading();
    out_.setTypoAscender(scaled(os2_.sTypoAscender));
    out_.setTypoDescender(scaled(-std::abs(int{os2_.sTypoDescender})));
    out_.setTypoLineGap(scaled(os2_.sTypoLineGap));
    out_.setVertTypoAscender(scaled(records_.vhea.vertAscender));
    out_.setVertTypoDescender(scaled(-std::abs(int{records_.vhea.vertDescender})));
    out_.setVertTypoLineGap(scaled(records_.vhea.vertLineGap));
  }

  /// Shares out what the em has beyond the typographic heights, `d`, in font units: half of it
  /// belongs below, as far as the cell leaves room there.
  void fillTypographicLeading() {
    const int td = -std::abs(int{os2_.sTypoDescender});
    const int ta = os2_.sTypoAscender;
    const auto d = static_cast<float>(records_.head.unitsPerEm - ta + td);
    const auto below = static_cast<float>(os2_.usWinDescent + td);
    const auto above = static_cast<float>(os2_.usWinAscent - ta);
    float h = d * 0.5F;
    if (!fontServices().reservedMetricsSwitch()) h = std::min(below, h);
    out_.setInternalLeadingD((below - h) * scale_);
    out_.setInternalLeadingA((above - d + h) * scale_);
  }

  void fillWidths() {
    out_.setExternalLeading(scaled(records_.hhea.lineGap));
    out_.setAveCharWidth(scaled(os2_.xAvgCharWidth));
    out_.setMaxCharWidth(scaled(records_.head.xMax - records_.head.xMin));
    out_.setItalicAngle(records_.post.italicAngle);
  }

  void fillBox() {
    const sfnt::Head& head = records_.head;
    out_.setBBox(scaled(head.xMin), scaled(head.yMin), scaled(head.xMax), scaled(head.yMax));
  }

  void fillBits() {
    const auto& subset = os2_.ulUnicodeRange;
    out_.setUnicodeSubsetBits(subset[0], subset[1], subset[2], subset[3]);
    out_.setCodePageBits(os2_.ulCodePageRange[0], os2_.ulCodePageRange[1]);
  }

  const SfntRecords& records_;
  const sfnt::Os2& os2_;
  float scale_;
  FS_NewTextMetricEx& out_;
};

float scaleOf(int size, const metrics::SizeBases& bases) {
  const int base = size >= 0 ? bases.cellHeight : bases.unitsPerEm;
  if (base == 0) return 0;
  return static_cast<float>(std::abs(std::int64_t{size})) / static_cast<float>(base);
}

}  // namespace

metrics::SizeBases FS_TrueTypeInfo::sizeBases() const {
  return {records_.os2.usWinAscent + records_.os2.usWinDescent, records_.head.unitsPerEm};
}

float FS_TrueTypeInfo::getXHeight() const {
  return metrics::letterHeightInEm(records_.os2.sxHeight, records_.head.unitsPerEm);
}

float FS_TrueTypeInfo::getCapHeight() const {
  return metrics::letterHeightInEm(records_.os2.sCapHeight, records_.head.unitsPerEm);
}

float FS_TrueTypeInfo::getTypoAscender() const {
  return metrics::inEm(records_.os2.sTypoAscender, records_.head.unitsPerEm);
}

float FS_TrueTypeInfo::getTypoDescender() const {
  return metrics::inEm(records_.os2.sTypoDescender, records_.head.unitsPerEm);
}

/// Vertical metrics are of no use to a font that turned out to have no vertical glyphs.
bool FS_TrueTypeInfo::hasVerticalMetrics() const {
  return records_.numOfLongVerMetrics != 0 && (!tablesLoaded() || loaded().hasVerticalForms);
}

void FS_TrueTypeInfo::getLogFont(FS_EnumLogFontEx& out) const {
  out.setWeight(getFontWeight());
  out.setItalic(isItalicFont());
  UnicodeString face = getName(0, NameSlot::family);
  if (face.isEmpty()) face = getName(0, NameSlot::postScriptName);
  if (fontServices().usePreferredFamily()) {
    const UnicodeString preferred = getName(0, NameSlot::preferredFamily);
    if (!preferred.isEmpty()) face = preferred;
  }
  out.setFaceName(face);
  out.setFullName(getName(0, NameSlot::fullName));
}

void FS_TrueTypeInfo::getNewTextMetricEx(FS_NewTextMetricEx& out) const {
  getOutlineTextMetrics(out, -int{records_.head.unitsPerEm});
}

void FS_TrueTypeInfo::getOutlineTextMetrics(FS_NewTextMetricEx& out, int size) const {
  out = FS_NewTextMetricEx();
  MetricsFiller filler(records_, scaleOf(size, sizeBases()), out);
  filler.fill();
  unsigned pitchAndFamily = isFixedWidthFont() ? 0 : kVariablePitch;
  if (isSerifLikeFont()) pitchAndFamily |= kSerifLike;
  if (isScriptLikeFont()) pitchAndFamily |= kScriptLike;
  filler.setStyle(pitchAndFamily, isSymbolicFont());
  out.setFileOptions(owner_->fontEntry());
}

}  // namespace QXFontService_NS
