#include "qxfont/specimen/section.h"

#include <algorithm>
#include <cmath>

#include "qxfont/cli/font_facts.h"

namespace qxfont {

const std::vector<Section>& sections() {
  static const std::vector<Section> all = {headingSection,    matchSection,   weightsSection,
                                           waterfallSection,  scriptsSection, featuresSection,
                                           charactersSection, formsSection};
  return all;
}

icu::UnicodeString familyName(const fs::FS_FontInfo& font) {
  const icu::UnicodeString own = font.getFamilyName(fs::QXLang::LANGID_DEFAULT);
  return own.isEmpty() ? font.getFamilyNameEx() : own;
}

std::string grouped(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3; at -= 3) text.insert(at - 3, ",");
  return text;
}

LineBox lineBoxOf(const fs::FS_FontInfo& font) {
  const fs::FS_NewTextMetricEx metrics = metricsInUnits(font);
  const double em = std::max(font.getUnitsPerEm(), 1);
  LineBox box;
  box.ascent = std::clamp(static_cast<double>(metrics.getAscent()) / em, 0.75, 1.3);
  box.descent = std::clamp(std::fabs(static_cast<double>(metrics.getDescent())) / em, 0.22, 0.7);
  return box;
}

}  // namespace qxfont
