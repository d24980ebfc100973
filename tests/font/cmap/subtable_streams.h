#pragma once

#include <cstdint>
#include <istream>
#include <sstream>
#include <string>

#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// Reads a subtable that stands `before` bytes into its stream, so that positions are not taken for
/// offsets.
template <class Format>
TableResult readFrom(const std::string& bytes,
                     TableResult (*read)(std::istream&, std::int64_t, Format&), Format& out,
                     std::size_t before = 3) {
  std::istringstream stream(std::string(before, '\x55') + bytes);
  return read(stream, static_cast<std::int64_t>(before), out);
}

inline std::string withWord(std::string bytes, std::size_t at, unsigned value) {
  bytes.at(at) = static_cast<char>(value >> 8 & 0xFF);
  bytes.at(at + 1) = static_cast<char>(value & 0xFF);
  return bytes;
}

}  // namespace QXFontService_NS::cmap
