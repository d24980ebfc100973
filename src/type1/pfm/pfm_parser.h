#pragma once

#include <istream>
#include <optional>

#include "type1/pfm/pfm_metrics.h"

namespace QXFontService_NS::type1 {

/// Reads a Printer Font Metrics file.
/// @param stream read by absolute position.
/// @param correctsRange whether a range of characters that makes no sense is put right; nobody is
///   told of it.
/// @return nothing on success, else what could not be read, for the report; empty for the header.
std::optional<const char*> readPfm(std::istream& stream, bool correctsRange, PfmMetrics& metrics);

}  // namespace QXFontService_NS::type1
