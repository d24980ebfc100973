#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "embed/cff/cff_table.h"

namespace QXFontService_NS {

using FS_CFFBytes = std::string;                 ///< one INDEX entry
using FS_CFFStrings = std::vector<FS_CFFBytes>;  ///< the entries of an INDEX

/// The head of an INDEX of a CFF table: how many entries it has and where each begins.
struct FS_CFFIndexHeader {
  unsigned int count = 0;
  unsigned int offSize = 0;        ///< bytes of an offset, 1 to 4; 0 where `count` is 0
  std::vector<std::byte> offsets;  ///< (count + 1) offsets as the file has them
  std::int64_t dataPosition = 0;   ///< stream position just behind the offset array

  /// Offset number `i`, counted from 1 at `dataPosition`; 0 past the end.
  [[nodiscard]] std::uint32_t getOffset(unsigned int i) const;
  /// The last offset less 1: the bytes of all entries; -1 for a last offset of 0.
  [[nodiscard]] std::int64_t dataSize() const;
  /// Stream position behind the last entry.
  [[nodiscard]] std::int64_t endPosition() const { return dataPosition + dataSize(); }
  /// Where entry `i` begins and how long it is. False for an entry at or past the count, an offset
  /// of 0 and offsets that fall.
  [[nodiscard]] bool locate(unsigned int i, std::int64_t& position, std::uint32_t& size) const;
};

namespace cff {

/// Reads the head of the INDEX at a stream position. An empty INDEX is its count alone: two bytes,
/// at the very end of the stream too. False for a short read and for an `offSize` outside 1 to 4.
[[nodiscard]] bool readIndexHeader(std::istream& stream, std::int64_t position,
                                   FS_CFFIndexHeader& out);

/// Reads the head of the INDEX at an offset of the table. False also for an offset of 0, which
/// stands for "no such INDEX", and below.
[[nodiscard]] bool readCFFIndexHeader(const CffTable& table, std::int64_t offset,
                                      FS_CFFIndexHeader& out);

/// Reads one entry. False, with `out` unspecified, where it does not stand in the file whole.
[[nodiscard]] bool readCFFIndexEntry(const FS_CFFIndexHeader& header, std::istream& stream,
                                     unsigned int entry, FS_CFFBytes& out);

/// Reads all entries of an INDEX in one go; `out` holds them afterwards and nothing else.
[[nodiscard]] bool readIndexEntries(const FS_CFFIndexHeader& header, std::istream& stream,
                                    FS_CFFStrings& out);

/// Moves `position` from the start of an INDEX to its end.
[[nodiscard]] bool skipIndex(std::istream& stream, std::int64_t& position);

}  // namespace cff
}  // namespace QXFontService_NS
