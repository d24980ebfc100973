#include "embed/cff/charset.h"

#include <algorithm>

#include "embed/cff/table_cursor.h"

namespace QXFontService_NS::cff {
namespace {

unsigned short narrow(unsigned value) {
  return static_cast<unsigned short>(value);
}

void readSids(TableCursor& cursor, unsigned glyphCount, Charset& out) {
  while (out.sids.size() + 1 < glyphCount && !cursor.failed()) out.sids.push_back(cursor.u16());
}

// Ranges of a damaged font may run past 65535; only what is stored is cut to 16 bits.
void readRanges(TableCursor& cursor, bool wide, unsigned glyphCount, Charset& out) {
  for (unsigned glyph = 1; glyph < glyphCount && !cursor.failed();) {
    const unsigned first = cursor.u16();
    const unsigned left = wide ? cursor.u16() : cursor.u8();
    out.sidRanges.push_back({narrow(first), narrow(first + left), narrow(glyph)});
    out.gidRanges.push_back({narrow(glyph), narrow(glyph + left), narrow(first)});
    glyph += left + 1;
  }
}

void sortByFirst(std::vector<FS_CFFRange>& ranges) {
  std::stable_sort(ranges.begin(), ranges.end(),
                   [](const FS_CFFRange& a, const FS_CFFRange& b) { return a.first < b.first; });
}

}  // namespace

bool readCharset(std::istream& stream, std::int64_t position, unsigned glyphCount, Charset& out) {
  TableCursor cursor(stream, position);
  const unsigned format = cursor.u8();
  if (format > 2) return false;
  if (format == 0) {
    readSids(cursor, glyphCount, out);
  } else {
    readRanges(cursor, format == 2, glyphCount, out);
  }
  sortByFirst(out.sidRanges);
  sortByFirst(out.gidRanges);
  return !cursor.failed();
}

}  // namespace QXFontService_NS::cff
