#pragma once

#include <cstdint>
#include <istream>

namespace QXFontService_NS::cff {

/// Where the "CFF " table of a font stands. The table itself is never held in memory: the readers
/// fetch what they are asked for.
struct CffTable {
  std::istream* stream = nullptr;  ///< borrowed, seekable; null where the font has no such table
  std::int64_t offset = 0;         ///< of the table, in bytes from the start of the stream
  std::uint32_t length = 0;        ///< in bytes, as the table directory says

  [[nodiscard]] bool exists() const { return stream != nullptr; }
  /// The stream position of a table offset.
  [[nodiscard]] std::int64_t at(std::int64_t tableOffset) const { return offset + tableOffset; }
};

}  // namespace QXFontService_NS::cff
