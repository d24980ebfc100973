#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "embed/cff/cff_subset_source.h"
#include "embed/subset_source.h"

namespace QXFontService_NS::embed {

/// Writes an OpenType font with the CFF table of `makeCFFSubsetFont` in place of its own and all
/// other tables as they are.
///
/// `out` must be empty. @return false, with nothing written, where the CFF table cannot be made;
/// see also `writeSfnt`.
[[nodiscard]] bool writeCffSubset(const SubsetSource& source, const CffSubsetSource& cff,
                                  const std::vector<std::uint16_t>& gids,
                                  QXCommonNS::QXMemStream& out);

/// Appends the "CFF " table as the file has it. @return whether all of its bytes came; those that
/// came stay in `out`.
[[nodiscard]] bool copyCffTable(const cff::CffTable& table, QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed
