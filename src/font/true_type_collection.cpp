#include "font/true_type_collection.h"

#include <array>
#include <cstdio>

#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "font/directory/report_texts.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::uint32_t kCollectionTag = sfnt::tagOf("ttcf");
constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kOffsetSize = 4;

constexpr char kHeaderRead[] = "TTC header read error";
constexpr char kUnknownTag[] = "Unknown TTC tag %08X";
constexpr char kFontCount[] = "numTables = %d";

std::string unknownTag(std::uint32_t tag) {
  char text[sizeof(kUnknownTag) + 8];
  std::snprintf(text, sizeof(text), kUnknownTag, tag);
  return text;
}

/// The version in the header is not looked at: later ones add a signature behind the offsets.
TableResult readHeader(std::istream& stream, std::uint32_t& numFonts) {
  std::array<std::byte, kHeaderSize> bytes{};
  if (!QXCommonNS::bytes::readExact(stream, 0, bytes)) return readFailure(kHeaderRead);
  const ByteView header(bytes);
  if (header.u32(0) != kCollectionTag) return formatFailure(unknownTag(header.u32(0)));
  numFonts = header.u32(8);
  if (numFonts == 0 || numFonts > QXCommonNS::limits::kMostFontMembers)
    return formatFailure(sfnt::texts::numbered(kFontCount, numFonts));
  return std::nullopt;
}

/// Where the members begin. They need not stand in that order, and one may be named twice.
TableResult readOffsets(std::istream& stream, std::vector<std::int64_t>& offsets) {
  std::uint32_t numFonts = 0;
  if (TableResult failure = readHeader(stream, numFonts)) return failure;
  const std::size_t size = kOffsetSize * numFonts;
  const std::vector<std::byte> bytes = QXCommonNS::bytes::readBlock(stream, kHeaderSize, size);
  if (bytes.size() < size) return readFailure(sfnt::texts::kOffsetTableRead);
  const ByteView view(bytes);
  for (std::size_t at = 0; at < size; at += kOffsetSize) offsets.push_back(view.u32(at));
  return std::nullopt;
}

bool haveSameOutlines(const FS_TrueTypeInfo& first, const FS_TrueTypeInfo& member) {
  return first.hasCFF() == member.hasCFF();
}

}  // namespace

FS_TrueTypeCollection::FS_TrueTypeCollection(const QXUri& uri, FS_FontFolder* folder)
    : SfntCollection(uri, folder) {}

FS_TrueTypeCollection::~FS_TrueTypeCollection() = default;

unsigned int FS_TrueTypeCollection::getClassID() const {
  return kClassID;
}

bool FS_TrueTypeCollection::isKindOf(unsigned int id) const {
  return id == kClassID || SfntCollection::isKindOf(id);
}

UnicodeString FS_TrueTypeCollection::getClassName() const {
  return u"FS_TrueTypeCollection";
}

FS_FontFileType FS_TrueTypeCollection::getFontFileType(int) const {
  return FS_FILETYPE_TTC;
}

bool FS_TrueTypeCollection::readFont(QXError* error, std::istream* stream) {
  std::vector<std::int64_t> offsets;
  if (const TableResult failure = readOffsets(*stream, offsets)) {
    report(error, *failure);
    return false;
  }
  return readMembers(error, *stream, offsets, haveSameOutlines);
}

}  // namespace QXFontService_NS
