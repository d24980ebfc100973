#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "embed/cff/cff_subset_source.h"
#include "embed/subset_source.h"

namespace QXFontService_NS::embed::conforming {

/// Writes an OpenType font that strict readers take: the CFF table of `makeConformingCff`, all
/// other tables as they are, and every checksum right. `DSIG`, which signs the source, is left out.
///
/// `out` must be empty. @return false, with nothing written, for a font without `CFF ` and for one
/// that cannot be read whole.
[[nodiscard]] bool writeConformingOpenType(const SubsetSource& source, const CffSubsetSource& cff,
                                           const std::vector<std::uint16_t>& gids,
                                           QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed::conforming
