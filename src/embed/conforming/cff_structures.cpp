#include "embed/conforming/cff_structures.h"

#include "embed/cff/table_cursor.h"

namespace QXFontService_NS::embed::conforming {
namespace {

constexpr unsigned kSupplement = 0x80;

/// Reads fields and keeps their bytes.
class CopyingCursor {
 public:
  CopyingCursor(const cff::CffTable& table, std::int64_t offset, std::string& out)
      : cursor_(*table.stream, table.at(offset)), out_(out) {}

  unsigned u8() {
    const unsigned value = cursor_.u8();
    out_ += static_cast<char>(value);
    return value;
  }
  unsigned u16() {
    const unsigned high = u8();
    return high << 8 | u8();
  }
  void copy(unsigned count) {
    for (unsigned i = 0; i < count && !failed(); ++i) u8();
  }
  [[nodiscard]] bool failed() const { return cursor_.failed(); }

 private:
  cff::TableCursor cursor_;
  std::string& out_;
};

void copyRanges(CopyingCursor& cursor, bool wide, unsigned glyphCount) {
  for (unsigned glyph = 1; glyph < glyphCount && !cursor.failed();) {
    cursor.u16();
    glyph += (wide ? cursor.u16() : cursor.u8()) + 1;
  }
}

}  // namespace

bool readCharsetBytes(const cff::CffTable& table, std::int64_t offset, unsigned glyphCount,
                      std::string& out) {
  CopyingCursor cursor(table, offset, out);
  const unsigned format = cursor.u8();
  if (format > 2) return false;
  if (format == 0) {
    cursor.copy(glyphCount == 0 ? 0 : 2 * (glyphCount - 1));
  } else {
    copyRanges(cursor, format == 2, glyphCount);
  }
  return !cursor.failed();
}

bool readEncodingBytes(const cff::CffTable& table, std::int64_t offset, std::string& out) {
  CopyingCursor cursor(table, offset, out);
  const unsigned format = cursor.u8();
  if ((format & ~kSupplement) > 1) return false;
  const unsigned count = cursor.u8();
  cursor.copy((format & ~kSupplement) == 0 ? count : 2 * count);
  if ((format & kSupplement) != 0) cursor.copy(3 * cursor.u8());
  return !cursor.failed();
}

bool readFDSelectBytes(const cff::CffTable& table, std::int64_t offset, unsigned glyphCount,
                       std::string& out) {
  CopyingCursor cursor(table, offset, out);
  const unsigned format = cursor.u8();
  if (format == 0) {
    cursor.copy(glyphCount);
  } else if (format == 3) {
    cursor.copy(3 * cursor.u16() + 2);
  } else {
    return false;
  }
  return !cursor.failed();
}

}  // namespace QXFontService_NS::embed::conforming
