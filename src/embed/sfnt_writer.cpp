#include "embed/sfnt_writer.h"

#include <algorithm>

#include "common/bytes/byte_writer.h"
#include "embed/piece_checksum.h"
#include "embed/stream_copy.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

/// The record of `tag`, with checksum and length of its new bytes.
void setGlyf(std::span<const ByteView> pieces, SubsetTables& tables) {
  SubsetTable& glyf = tables[kGlyfTag];
  PieceChecksum sum;
  glyf.length = 0;
  for (const ByteView piece : pieces) {
    sum.add(piece);
    glyf.length += static_cast<std::uint32_t>(piece.size());
  }
  glyf.checkSum = sum.value();
}

// The length stays, as readers count entries by it.
void setLoca(ByteView bytes, SubsetTables& tables) {
  PieceChecksum sum;
  sum.add(bytes);
  tables[kLocaTag].checkSum = sum.value();
}

void setCff(QXMemStream& stream, SubsetTables& tables) {
  SubsetTable& cff = tables[kCffTag];
  cff.length = static_cast<std::uint32_t>(stream.length());
  cff.checkSum = stream.getMemStreamBuf()->calcOTFTableChecksum();
}

void setNewRecords(const NewTables& fresh, SubsetTables& tables) {
  if (fresh.glyf) setGlyf(*fresh.glyf, tables);
  if (fresh.loca) setLoca(*fresh.loca, tables);
  if (fresh.cff != nullptr) setCff(*fresh.cff, tables);
}

std::uint64_t roundedUp(std::uint64_t position) {
  return (position + 3) / 4 * 4;
}

void writeHeader(const FS_TableDirectoryImage& image, const SubsetTables& tables,
                 QXMemStream& out) {
  ByteWriter header;
  header.bytes(ByteView(image.offsetTable()));
  std::uint64_t position = header.size() + tables.size() * FS_TableDirectoryImage::kRecordSize;
  for (const auto& [tag, table] : tables) {
    position = roundedUp(position);
    header.u32(tag).u32(table.checkSum).u32(static_cast<std::uint32_t>(position));
    header.u32(table.length);
    position += table.length;
  }
  appendBytes(out, header.view());
}

void writePieces(std::span<const ByteView> pieces, QXMemStream& out) {
  for (const ByteView piece : pieces) appendBytes(out, piece);
}

void writeTable(const SubsetSource& source, const NewTables& fresh, std::uint32_t tag,
                const SubsetTable& table, QXMemStream& out) {
  if (tag == kGlyfTag && fresh.glyf) {
    writePieces(*fresh.glyf, out);
  } else if (tag == kLocaTag && fresh.loca) {
    appendBytes(out, *fresh.loca);
  } else if (tag == kCffTag && fresh.cff != nullptr) {
    copyRange(*fresh.cff, 0, table.length, out);
  } else {
    copyRange(*source.stream, table.offset, table.length, out);
  }
}

}  // namespace

bool tablesFitSource(const SubsetSource& source, const SubsetTables& tables) {
  constexpr std::uint64_t kTimes = 4;
  constexpr std::uint64_t kMore = std::uint64_t{1} << 20;
  const std::uint64_t end = streamLength(*source.stream);
  std::uint64_t sum = 0;
  for (const auto& [tag, table] : tables) {
    const std::uint64_t there = end - std::min<std::uint64_t>(table.offset, end);
    sum += std::min<std::uint64_t>(table.length, there);
  }
  return sum <= kTimes * end + kMore;
}

bool writeSfnt(const SubsetSource& source, const NewTables& fresh, SubsetTables& tables,
               QXMemStream& out) {
  if (!tablesFitSource(source, tables)) return false;
  setNewRecords(fresh, tables);
  writeHeader(*source.image, tables, out);
  for (const auto& [tag, table] : tables) {
    padToLong(out);
    writeTable(source, fresh, tag, table, out);
  }
  return true;
}

}  // namespace QXFontService_NS::embed
