#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string_view>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "common/bytes/byte_writer.h"
#include "embed/cff/index.h"

namespace QXFontService_NS::embed {

/// The header of every CFF table that is written: version 1.0, 4 bytes long, offSize 3.
inline constexpr std::string_view kCffHeader{"\x01\x00\x04\x03", 4};

/// Bytes of an offset in a rewritten Top DICT INDEX, by its last offset. Steps up at 65,535 and
/// 0xFFFFFF already, one before it must: kept, since written fonts are compared byte by byte.
[[nodiscard]] unsigned topDictOffSize(std::uint64_t lastOffset);
/// Bytes of an offset in a rewritten CharStrings INDEX, by the length of its data.
[[nodiscard]] unsigned charStringsOffSize(std::uint64_t dataLength);

/// Writes an unsigned big-endian number of `size` bytes, 1 to 4.
void writeOffset(QXCommonNS::bytes::ByteWriter& out, std::uint32_t value, unsigned size);

/// Copies at most `count` bytes from `position`, in pieces, and gives how many came. A position
/// outside the stream, or a count of 0 or less, copies nothing.
std::int64_t copyBytes(std::istream& stream, std::int64_t position, std::int64_t count,
                       QXCommonNS::bytes::ByteWriter& out);
/// Whether all of `count` bytes could be copied; false for a negative count.
[[nodiscard]] bool copyExactly(std::istream& stream, std::int64_t position, std::int64_t count,
                               QXCommonNS::bytes::ByteWriter& out);

/// Copies the INDEX at `position` whole and moves `position` behind it. False for a short copy.
[[nodiscard]] bool copyCFFIndex(std::istream& stream, std::int64_t& position,
                                QXCommonNS::bytes::ByteWriter& out);

/// Writes what was put together at the put position of `out`.
void writeTo(QXCommonNS::QXMemStream& out, const QXCommonNS::bytes::ByteWriter& bytes);

/// Collects the entries of a new CharStrings INDEX from those of a source.
class CharStringsBuilder {
 public:
  /// `budget`: the bytes that all `add` together may copy; the source table's length, which the
  /// distinct entries of a sound INDEX never pass.
  CharStringsBuilder(std::istream& stream, const FS_CFFIndexHeader& source, std::uint64_t budget)
      : stream_(stream), source_(source), budget_(budget) {}

  /// Appends the charstring of a source glyph. False where it cannot be read, or the budget is
  /// spent.
  [[nodiscard]] bool add(unsigned glyph);
  /// Appends bytes that do not count against the budget, `copies` times. False where the data would
  /// pass 1 GiB.
  [[nodiscard]] bool addFiller(const FS_CFFBytes& charString, unsigned copies);
  /// Appends entry `number` of this builder again.
  void repeat(std::size_t number);

  [[nodiscard]] std::size_t count() const { return ends_.size(); }
  /// Writes the INDEX: count, the offSize of `charStringsOffSize`, offsets, data.
  void write(QXCommonNS::bytes::ByteWriter& out) const;

 private:
  bool append(std::int64_t position, std::uint32_t size);

  std::istream& stream_;
  const FS_CFFIndexHeader& source_;
  std::uint64_t budget_;
  std::vector<std::byte> data_;
  std::vector<std::uint32_t> ends_;  // of each entry, in `data_`
};

}  // namespace QXFontService_NS::embed
