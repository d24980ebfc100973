#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "qxfontservice/error_codes.h"

namespace QXFontService_NS {

/// The glyph id that stands for "no glyph" throughout.
inline constexpr std::uint16_t kNoGlyph = 0xFFFF;

/// Where a table stands in its file: an entry of the table directory, in bytes.
struct TableRange {
  std::uint32_t offset = 0;
  std::uint32_t length = 0;
};

/// Why a table could not be read: the code of the report and its detail text. The readers of
/// tables know no font, so the owner of the font turns this into the error a host sees.
struct TableFailure {
  static constexpr int kRead = FS_ERROR_FONT_READ;    ///< the file is shorter than its tables say
  static constexpr int kFormat = FS_ERROR_FONT_FILE;  ///< the bytes are there and make no sense

  int code = 0;
  std::string detail;

  friend bool operator==(const TableFailure&, const TableFailure&) = default;
};

/// The outcome of reading a table: nothing where it went well.
using TableResult = std::optional<TableFailure>;

/// The failure of a read that came short.
inline TableFailure readFailure(std::string detail) {
  return {TableFailure::kRead, std::move(detail)};
}

/// The failure of a table whose bytes make no sense.
inline TableFailure formatFailure(std::string detail) {
  return {TableFailure::kFormat, std::move(detail)};
}

}  // namespace QXFontService_NS
