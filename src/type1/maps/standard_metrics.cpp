#include "type1/maps/standard_metrics.h"

#include "font/contract/font_name_rules.h"

namespace QXFontService_NS::type1 {

const StandardMetrics* findStandardMetrics(const UnicodeString& fontName) {
  const UnicodeString key = normalizeFontName(fontName);
  for (const NamedStandardMetrics& row : kStandardMetrics)
    if (normalizeFontName(row.name) == key) return &row.metrics;
  return nullptr;
}

}  // namespace QXFontService_NS::type1
