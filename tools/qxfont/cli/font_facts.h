#pragma once

#include "qxfontservice/font_info.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "qxfont/cli/output.h"

namespace qxfont {

/// What a face says of itself: names by language, style, embedding, metrics in font units.
Json fontFacts(const QXFontService_NS::FS_FontInfo& font);

/// The metrics record in font units.
QXFontService_NS::FS_NewTextMetricEx metricsInUnits(const QXFontService_NS::FS_FontInfo& font);

/// Degrees, negative for a font that leans to the right.
double italicAngle(const QXFontService_NS::FS_FontInfo& font,
                   const QXFontService_NS::FS_NewTextMetricEx& metrics);

}  // namespace qxfont
