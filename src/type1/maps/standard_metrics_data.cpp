#include "type1/maps/standard_metrics.h"

namespace QXFontService_NS::type1 {

constexpr std::array<NamedStandardMetrics, 14> kStandardMetrics = {{
    {u"Courier", {805, 250, 805, -250, -23, 623, 0}},
    {u"Courier-Bold", {801, 250, 801, -250, -113, 749, 0}},
    {u"Courier-BoldOblique", {801, 250, 801, -250, -113, 749, -12}},
    {u"Courier-Oblique", {805, 250, 805, -250, -23, 623, -12}},
    {u"Helvetica", {905, 212, 1037, -325, -665, 2028, 0}},
    {u"Helvetica-Bold", {905, 212, 1048, -376, -628, 2034, 0}},
    {u"Helvetica-BoldOblique", {905, 212, 1031, -376, -560, 1157, -12}},
    {u"Helvetica-Oblique", {905, 212, 1025, -325, -517, 1082, -12}},
    {u"Times-Roman", {891, 216, 1007, -307, -568, 2028, 0}},
    {u"Times-Bold", {891, 216, 1026, -307, -558, 2034, 0}},
    {u"Times-Italic", {891, 216, 1023, -307, -498, 1120, -15.5F}},
    {u"Times-BoldItalic", {891, 216, 1032, -307, -546, 1206, -15}},
    {u"Symbol", {1010, 293, 1010, -293, -180, 1090, 0}},
    {u"ZapfDingbats", {857, 143, 820, -143, -1, 981, 0}},
}};

}  // namespace QXFontService_NS::type1
