#include "embed/cff/fd_select.h"

#include <array>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"
#include "embed/cff/table_cursor.h"

namespace QXFontService_NS::cff {
namespace {

bool readRanges(TableCursor& cursor, std::vector<FS_FDRange>& out) {
  const unsigned count = cursor.u16();
  if (count == 0) return false;
  unsigned first = cursor.u16();
  for (unsigned i = 0; i < count && !cursor.failed(); ++i) {
    const unsigned char fd = cursor.u8();
    const unsigned next = cursor.u16();
    out.push_back({static_cast<unsigned short>(first), static_cast<unsigned short>(next - 1), fd});
    first = next;
  }
  return !cursor.failed();
}

bool readGlyphCount(const CffTable& table, std::int64_t charStrings, unsigned& count) {
  std::array<std::byte, 2> bytes{};
  if (charStrings <= 0) return false;
  if (!QXCommonNS::bytes::readExact(*table.stream, table.at(charStrings), bytes)) return false;
  count = QXCommonNS::bytes::ByteView(bytes).u16(0);
  return true;
}

// Ends one glyph early: kept, see the header.
bool readOneFdAGlyph(TableCursor& cursor, unsigned glyphCount, std::vector<FS_FDRange>& out) {
  for (unsigned glyph = 0; glyph + 1 < glyphCount && !cursor.failed(); ++glyph) {
    const auto gid = static_cast<unsigned short>(glyph);
    out.push_back({gid, gid, cursor.u8()});
  }
  return !cursor.failed();
}

}  // namespace

bool readFDSelect(const CffTable& table, std::int64_t fdSelect, std::int64_t charStrings,
                  std::vector<FS_FDRange>& out) {
  out.clear();
  if (!table.exists() || fdSelect <= 0) return false;
  TableCursor cursor(*table.stream, table.at(fdSelect));
  const unsigned format = cursor.u8();
  if (cursor.failed()) return false;
  if (format == 3) return readRanges(cursor, out);
  unsigned glyphCount = 0;
  return format == 0 && readGlyphCount(table, charStrings, glyphCount) &&
         readOneFdAGlyph(cursor, glyphCount, out);
}

unsigned char getFDIndex(const std::vector<FS_FDRange>& ranges, unsigned short gid,
                         unsigned char missing) {
  const FS_FDRange* range = findRange(ranges, gid);
  return range != nullptr ? range->fd : missing;
}

}  // namespace QXFontService_NS::cff
