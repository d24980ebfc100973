#include "font/cmap/code_page.h"

namespace QXFontService_NS::cmap {

// In (3, 3) fonts the middle dot and the em dash stand where the full-width forms of GB 2312 are.
const std::array<CodePageRow, kCodePages> kCodePageRows = {{
    {1, 1, "cp932", {}},
    {1, 2, "cp950", {}},
    {1, 3, "cp949", {}},
    {1, 25, "cp936", {}},
    {3, 2, "ShiftJIS", {}},
    {3, 3, "GB2312", {{{u'\u00B7', 0xA1A4}, {u'\u2014', 0xA1AA}}}},
    {3, 4, "Big5", {}},
    {3, 5, "cp949", {}},
}};

}  // namespace QXFontService_NS::cmap
