#pragma once

#include <cstdint>
#include <memory>

#include "qxcommon/value.h"

#include "embed/cff/cff_table.h"
#include "embed/cff/index.h"

namespace QXFontService_NS::cff {

/// The local subroutines of a font or of a Font DICT. Font DICTs may share them; null is none.
using LocalSubrs = std::shared_ptr<const FS_CFFStrings>;

/// Reads the Global Subr INDEX, which stands behind the Name, Top DICT and String INDEX. An empty
/// one is an empty list and a success.
[[nodiscard]] bool readGlobalSubrs(const CffTable& table, FS_CFFStrings& out);

/// Reads the Private DICT of `size` bytes at a table offset into a dictionary value, with its
/// arrays as the deltas of the file. False, with `out` unspecified, for a size of 0 or less, a
/// negative offset, and a short read.
[[nodiscard]] bool readPrivateDict(const CffTable& table, std::int64_t offset, std::int64_t size,
                                   QXCommonNS::QXValue& out);

/// Reads the Private DICT that a Top DICT or Font DICT value names, and its local subroutines.
/// Without `Private`, `privateMap` is empty and the result a success; without `Subrs` (or with 0),
/// `subrs` is null and the result a success.
[[nodiscard]] bool readLocalSubrs(const CffTable& table, const QXCommonNS::QXValue& dict,
                                  QXCommonNS::QXValue& privateMap, LocalSubrs& subrs);

/// The subroutines, none where there are none.
[[nodiscard]] const FS_CFFStrings& stringsOf(const LocalSubrs& subrs);

}  // namespace QXFontService_NS::cff
