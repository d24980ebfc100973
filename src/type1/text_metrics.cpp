#include "type1/text_metrics.h"

#include <cstdint>
#include <cstdlib>

#include "qxfontservice/new_text_metric_ex.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr unsigned kVariablePitch = 1;

}  // namespace

void TextMetrics::takeStandard(const StandardMetrics& standard) {
  box = {standard.xMin, standard.yMin, standard.xMax, standard.yMax};
  ascent = standard.ascent;
  descent = standard.descent;
  italicAngle = standard.italicAngle;
}

void TextMetrics::fill(FS_NewTextMetricEx& out, int size) const {
  const float base = size < 0 ? em : box[3] - box[1];
  const auto scaled = [&](float value) {
    return base == 0 ? 0 : value / base * static_cast<float>(std::abs(std::int64_t{size}));
  };
  out = FS_NewTextMetricEx();
  out.setAscent(scaled(ascent));
  out.setDescent(scaled(descent));
  out.setCapHeight(scaled(capHeight));
  out.setInternalLeadingA(scaled(internalLeading / 2));
  out.setInternalLeadingD(scaled(internalLeading / 2));
  out.setExternalLeading(scaled(externalLeading));
  out.setAveCharWidth(scaled(avgWidth));
  out.setMaxCharWidth(scaled(maxWidth));
  out.setItalicAngle(italicAngle);
  out.setBBox(scaled(box[0]), scaled(box[1]), scaled(box[2]), scaled(box[3]));
  out.setPitchAndFamily((isFixedPitch ? 0 : kVariablePitch) | family);
  out.setSymbol(isSymbolic);
}

UnicodeString styleName(const UnicodeString& fullName, const UnicodeString& family,
                        const UnicodeString& weight) {
  if (fullName == family) return weight;
  if (!fullName.startsWith(family)) return {};
  UnicodeString style = fullName.tempSubString(family.length());
  return style.trim();
}

}  // namespace QXFontService_NS::type1
