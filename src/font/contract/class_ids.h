#pragma once

namespace QXFontService_NS {

/// Run-time class ids of the font classes, as `getClassID` tells and `isKindOf` takes them.
enum : unsigned int {
  ID_FS_BaseFont = 0x523A46D6,
  ID_FS_TrueType = 0xD8D7409B,
  ID_FS_OpenType = 0x0E4266F1,
  ID_FS_TrueTypeCollection = 0x0C261001,
  ID_FS_DFont = 0x972A6D12,
  ID_FS_ExtraFont = 0x2E8D3159,
  ID_FS_WOFF = 0x5726A54C,
  ID_FS_Type1 = 0xA76A5E02,
  ID_FS_Type1AFM = 0xE0D8C304,
  ID_FS_Type1PFM = 0xEE4D2140,
  ID_FS_Type1Printer = 0xCE603D8D,
  ID_FS_Type1PFA = 0xB5FC60DE,
  ID_FS_Type1PFB = 0x5D163695
};

}  // namespace QXFontService_NS
