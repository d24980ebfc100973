#pragma once

#include <cstdint>
#include <istream>

#include "qxcommon/mem_stream.h"

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::embed {

/// The length of a seekable stream in bytes; 0 where it cannot tell.
[[nodiscard]] std::uint64_t streamLength(std::istream& stream);

/// Appends to `out` the `count` bytes of `from` at `offset`, as many as are there, and gives how
/// many came. Nothing is allocated on the word of `count`.
std::uint64_t copyRange(std::istream& from, std::uint64_t offset, std::uint64_t count,
                        QXCommonNS::QXMemStream& out);

/// Appends bytes to `out`.
void appendBytes(QXCommonNS::QXMemStream& out, QXCommonNS::bytes::ByteView bytes);

/// Appends zero bytes until the length of `out` is a multiple of 4.
void padToLong(QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed
