#pragma once

#include <istream>
#include <memory>

#include "font/directory/table_failure.h"
#include "font/unpacked_sfnt.h"

namespace QXFontService_NS {

/// Unpacks a WOFF 1.0 file (W3C, WOFF File Format 1.0) into the sfnt font inside it.
///
/// Tables stand in the order of the WOFF directory, each at a multiple of 4 bytes, whatever the
/// padding of the input. Checksums are carried over and none is verified; metadata and private
/// data are never read.
/// @param sfnt receives the font; after a failure null or what was unpacked so far.
/// @return a failure without a detail for a short read; else what is wrong. A font that promises,
///   unpacks to, or is unpacked from more than `kMostWoffFontBytes`, or a table of more than
///   `kMostWoffTableBytes`, is one that cannot be uncompressed.
[[nodiscard]] TableResult unpackWoff(std::istream& stream, std::shared_ptr<UnpackedSfnt>& sfnt);

}  // namespace QXFontService_NS
