#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// A table read in one block, with the rest of the stream behind it.
///
/// Damaged and odd fonts keep data of a table outside its stated length. Such data counts as long
/// as the file holds it, and is read on its own; sound tables cost one read.
class TableWindow {
 public:
  /// Reads at most `length` bytes from `offset` of the file; `stream` is borrowed.
  TableWindow(std::istream& stream, std::uint32_t offset, std::uint64_t length);

  /// `count` bytes from `position` of the table, or nothing where the file is shorter. The view
  /// holds until the next call.
  [[nodiscard]] std::optional<ByteView> read(std::uint64_t position, std::uint32_t count);

 private:
  std::istream& stream_;
  std::uint32_t offset_;
  std::vector<std::byte> block_;
  std::vector<std::byte> outside_;
};

}  // namespace QXFontService_NS::sfnt
