#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS {

/// The table directory of a font as its file has it, kept for the writers of subsets, which copy
/// it and change what they must.
///
/// Filled once when the font is read. The writers change the offset table and fill `loca`, so one
/// thread at a time may write fonts from one font object.
class FS_TableDirectoryImage {
 public:
  static constexpr std::size_t kOffsetTableSize = 12;
  static constexpr std::size_t kRecordSize = 16;

  /// sfntVersion, numTables, searchRange, entrySelector, rangeShift, big-endian.
  using OffsetTable = std::array<std::byte, kOffsetTableSize>;

  /// A table record in file form: tag, checkSum, offset, length, big-endian.
  struct Record {
    std::array<std::byte, kRecordSize> bytes{};

    [[nodiscard]] QXCommonNS::bytes::ByteView view() const {
      return QXCommonNS::bytes::ByteView(bytes);
    }
    [[nodiscard]] std::uint32_t tag() const { return view().u32(0); }
    [[nodiscard]] std::uint32_t checkSum() const { return view().u32(4); }
    [[nodiscard]] std::uint32_t offset() const { return view().u32(8); }
    [[nodiscard]] std::uint32_t length() const { return view().u32(12); }
  };

  FS_TableDirectoryImage() = default;
  /// @param offsetTable the 12 bytes of the font's offset table.
  /// @param directory its whole 16-byte records, their offsets counting from the start of the
  ///   file. A tag met twice keeps its first record.
  FS_TableDirectoryImage(QXCommonNS::bytes::ByteView offsetTable,
                         QXCommonNS::bytes::ByteView directory);

  /// The record of `tag`, or null.
  [[nodiscard]] const Record* find(std::uint32_t tag) const;
  /// The records by rising tag, whatever the order of the file.
  [[nodiscard]] const std::vector<Record>& records() const { return records_; }

  [[nodiscard]] const OffsetTable& offsetTable() const { return offsetTable_; }
  [[nodiscard]] OffsetTable& offsetTable() { return offsetTable_; }

  /// The bytes of the font's `loca`; empty until a writer has read them.
  [[nodiscard]] const std::vector<std::byte>& loca() const { return loca_; }
  void setLoca(std::vector<std::byte> loca) { loca_ = std::move(loca); }

 private:
  OffsetTable offsetTable_{};
  std::vector<Record> records_;
  std::vector<std::byte> loca_;
};

}  // namespace QXFontService_NS
