#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <vector>

#include "common/bytes/byte_view.h"
#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// A table of variation sequences (OpenType `cmap` format 14), kept in file form.
struct CmapFormat14 {
  /// What the table says of one sequence.
  struct Answer {
    enum class Kind { none, ordinaryGlyph, ownGlyph };
    Kind kind = Kind::none;
    std::uint16_t glyph = kNoGlyph;  ///< with `ownGlyph`: as stored, 0 included
  };

  std::uint16_t platformID = 0;
  std::uint16_t encodingID = 0;
  std::uint32_t length = 0;
  std::uint32_t numVarSelectorRecords = 0;
  std::vector<std::byte> bytes;  ///< the subtable from its byte 10 on: the records come first

  /// What stands for `code` followed by the variation selector `selector`.
  [[nodiscard]] Answer find(int code, int selector) const;

  /// Calls `visit(code, selector)` for each sequence that the table lists, in file order. The walk
  /// ends early where overlapping tables would list more than the bytes can hold.
  void forEach(const std::function<void(int code, int selector)>& visit) const;

 private:
  /// A table that a record points to; empty where the offset is 0 or outside.
  [[nodiscard]] QXCommonNS::bytes::ByteView tableAt(std::uint32_t offset) const;
};

/// Reads the subtable that begins at `offset` of `stream` into `out`, its platform and encoding
/// excepted. A failure leaves `out` unfit for use.
[[nodiscard]] TableResult readFormat14(std::istream& stream, std::int64_t offset,
                                       CmapFormat14& out);

}  // namespace QXFontService_NS::cmap
