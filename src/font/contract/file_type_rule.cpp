#include "font/contract/file_type_rule.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <istream>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"
#include "common/text/root_case.h"

namespace QXFontService_NS {
namespace {

constexpr FontFileExtension kExtensions[] = {
    {u".afm", FS_FILETYPE_TYPE1_AFM}, {u".pfm", FS_FILETYPE_TYPE1_PFM},
    {u".ttf", FS_FILETYPE_TRUETYPE},  {u".ttc", FS_FILETYPE_TTC},
    {u".otf", FS_FILETYPE_OPENTYPE},  {u".dfont", FS_FILETYPE_DFONT},
    {u".woff", FS_FILETYPE_WOFF},
};

constexpr std::uint32_t kOpenTypeTag = 0x4F54544F;  // "OTTO"

// Looks at the next four bytes and puts the position back, also where fewer are left.
bool startsWithOtto(std::istream& stream) {
  stream.clear();
  const std::istream::pos_type position = stream.tellg();
  std::array<std::byte, 4> head{};
  const bool whole = QXCommonNS::bytes::readExact(
      stream, static_cast<std::int64_t>(std::streamoff(position)), head);
  stream.clear();
  stream.seekg(position);
  return whole && QXCommonNS::bytes::ByteView(head).u32(0) == kOpenTypeTag;
}

FS_FontFileType unknownTypeFor(FS_FontFileType hint) {
  if (hint == FS_FILETYPE_HINT_PFM) return FS_FILETYPE_TYPE1_PFM;
  if (hint == FS_FILETYPE_HINT_TRUETYPE) return FS_FILETYPE_TRUETYPE;
  return FS_FILETYPE_UNKNOWN;
}

}  // namespace

std::span<const FontFileExtension> fontFileExtensions() {
  return kExtensions;
}

FS_FontFileType fontFileTypeOfExtension(const UnicodeString& extension) {
  const UnicodeString lower = QXCommonNS::lowerCase(extension);
  const std::u16string_view key(lower.getBuffer(), static_cast<std::size_t>(lower.length()));
  for (const FontFileExtension& row : kExtensions)
    if (row.extension == key) return row.type;
  return FS_FILETYPE_UNKNOWN;
}

FS_FontFileType fontFileTypeOf(const UnicodeString& extension, FS_FontFileType hint,
                               std::istream* stream) {
  if (hint == FS_FILETYPE_HINT_BYTES || hint == FS_FILETYPE_HINT_BYTES2) {
    const bool openType = stream != nullptr && startsWithOtto(*stream);
    return openType ? FS_FILETYPE_OPENTYPE : FS_FILETYPE_TRUETYPE;
  }
  FS_FontFileType type = fontFileTypeOfExtension(extension);
  if (type == FS_FILETYPE_UNKNOWN) type = unknownTypeFor(hint);
  return stream != nullptr ? refineFontFileType(type, *stream) : type;
}

FS_FontFileType refineFontFileType(FS_FontFileType type, std::istream& stream) {
  switch (type) {
    case FS_FILETYPE_TRUETYPE:
      return startsWithOtto(stream) ? FS_FILETYPE_OPENTYPE : type;
    case FS_FILETYPE_OPENTYPE:
    case FS_FILETYPE_OPENTYPE_CID:
      return startsWithOtto(stream) ? type : FS_FILETYPE_TRUETYPE;
    default:
      return type;
  }
}

}  // namespace QXFontService_NS
