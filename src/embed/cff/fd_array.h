#pragma once

#include <cstdint>
#include <vector>

#include "embed/cff/subrs.h"

namespace QXFontService_NS::cff {

/// The Font DICTs of a CID-keyed font: three lists in step, one entry a Font DICT.
struct FontDicts {
  std::vector<QXCommonNS::QXValue> dicts;     ///< `FontName` and `Private` of each
  std::vector<QXCommonNS::QXValue> privates;  ///< its Private DICT; empty without one
  std::vector<LocalSubrs> subrs;              ///< its local subroutines
};

/// Reads the FDArray at a table offset, and the Private DICT and local subroutines of each Font
/// DICT. Font DICTs that name the same bytes share what was read. False for an offset of 0 or
/// less, for anything that cannot be read, and where the Font DICTs together name more bytes than
/// any font has.
[[nodiscard]] bool readFDArray(const CffTable& table, std::int64_t fdArray, FontDicts& out);

}  // namespace QXFontService_NS::cff
