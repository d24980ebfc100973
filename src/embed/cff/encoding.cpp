#include "embed/cff/encoding.h"

#include "embed/cff/table_cursor.h"

namespace QXFontService_NS::cff {
namespace {

void readCodes(TableCursor& cursor, unsigned count, std::vector<unsigned char>& codes) {
  for (unsigned i = 0; i < count && !cursor.failed(); ++i) codes.push_back(cursor.u8());
}

void readCodeRanges(TableCursor& cursor, unsigned count, std::vector<unsigned char>& codes) {
  for (unsigned i = 0; i < count && !cursor.failed(); ++i) {
    const unsigned first = cursor.u8();
    const unsigned left = cursor.u8();
    for (unsigned k = 0; k <= left; ++k) codes.push_back(static_cast<unsigned char>(first + k));
  }
}

}  // namespace

bool readEncoding(std::istream& stream, std::int64_t position, std::vector<unsigned char>& codes) {
  TableCursor cursor(stream, position);
  const unsigned format = cursor.u8();
  const unsigned count = cursor.u8();
  if (format == 0) {
    readCodes(cursor, count, codes);
  } else {
    readCodeRanges(cursor, count, codes);
  }
  return !cursor.failed();
}

}  // namespace QXFontService_NS::cff
