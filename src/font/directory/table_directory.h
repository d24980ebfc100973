#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// A four-letter tag as the big-endian number that it is in files: `tagOf("glyf")`.
constexpr std::uint32_t tagOf(const char (&text)[5]) {
  std::uint32_t tag = 0;
  for (int i = 0; i < 4; ++i) tag = tag << 8 | static_cast<unsigned char>(text[i]);
  return tag;
}

/// Where a table stands: OpenType's table record without the checksum, which is never verified.
struct TableRecord {
  std::uint32_t tag = 0;
  std::uint32_t offset = 0;  // from the start of the file
  std::uint32_t length = 0;  // bytes, as stated: the file may be shorter
};

/// The first 12 bytes of an sfnt font. Its search fields are not looked at.
struct OffsetTable {
  static constexpr std::size_t kSize = 12;
  std::uint32_t sfntVersion = 0;
  std::uint16_t numTables = 0;

  static OffsetTable decode(ByteView view);
};

/// The tables of one font: lookup by tag, iteration in file order. A tag met twice keeps its first
/// record.
class TableDirectory {
 public:
  static constexpr std::size_t kRecordSize = 16;

  TableDirectory() = default;
  /// Decodes the whole 16-byte records in `records`.
  explicit TableDirectory(ByteView records);

  /// The record of `tag`, or null; valid as long as the directory.
  [[nodiscard]] const TableRecord* find(std::uint32_t tag) const;
  [[nodiscard]] bool has(std::uint32_t tag) const { return find(tag) != nullptr; }

  [[nodiscard]] std::size_t size() const { return records_.size(); }
  [[nodiscard]] auto begin() const { return records_.begin(); }
  [[nodiscard]] auto end() const { return records_.end(); }

 private:
  std::vector<TableRecord> records_;  // file order
  std::vector<std::uint16_t> byTag_;  // indices into records_, by rising tag
};

}  // namespace QXFontService_NS::sfnt
