#include "embed/table_selection.h"

#include <algorithm>
#include <bit>

#include "common/bytes/byte_writer.h"
#include "common/bytes/stream_read.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteWriter;
using Record = FS_TableDirectoryImage::Record;

constexpr std::size_t kNumTablesAt = 4;

void cacheLoca(const SubsetSource& source) {
  const Record* record = source.image->find(kLocaTag);
  if (record == nullptr || !source.image->loca().empty()) return;
  source.image->setLoca(
      QXCommonNS::bytes::readBlock(*source.stream, record->offset(), record->length()));
}

void insert(const Record* record, SubsetTables& tables) {
  if (record == nullptr) return;
  const SubsetTable table{record->checkSum(), record->offset(), record->length()};
  tables.emplace(record->tag(), table);
}

void insertAll(const FS_TableDirectoryImage& image, SubsetTables& tables) {
  for (const Record& record : image.records()) insert(&record, tables);
}

void insertListed(const FS_TableDirectoryImage& image, const std::uint32_t* tags,
                  SubsetTables& tables) {
  for (; *tags != 0; ++tags) insert(image.find(*tags), tables);
  for (const std::uint32_t tag : {kLocaTag, kGlyfTag, kCffTag}) insert(image.find(tag), tables);
}

void store(FS_TableDirectoryImage& image, std::size_t at, const ByteWriter& fields) {
  const auto bytes = fields.view().span();
  std::copy(bytes.begin(), bytes.end(), image.offsetTable().data() + at);
}

// The version stays: a subset is of the kind of its source.
void setSearchFields(FS_TableDirectoryImage& image, std::size_t count) {
  const auto n = static_cast<std::uint16_t>(count);
  const auto power = std::bit_floor(std::max<std::uint16_t>(n, 1));
  ByteWriter fields;
  fields.u16(n);
  fields.u16(static_cast<std::uint16_t>(power * 16));
  fields.u16(static_cast<std::uint16_t>(std::countr_zero(power)));
  fields.u16(static_cast<std::uint16_t>((n - power) * 16));
  store(image, kNumTablesAt, fields);
}

}  // namespace

bool hasGlyphOutlines(const SubsetSource& source) {
  return source.image->find(kLocaTag) != nullptr && source.image->find(kGlyfTag) != nullptr;
}

bool hasCffOutlines(const SubsetSource& source) {
  return source.image->find(kCffTag) != nullptr;
}

bool selectTables(const SubsetSource& source, const std::uint32_t* tags, SubsetTables& tables) {
  if (!hasGlyphOutlines(source) && !hasCffOutlines(source)) return false;
  cacheLoca(source);
  tables.clear();
  if (tags == nullptr) {
    insertAll(*source.image, tables);
  } else {
    insertListed(*source.image, tags, tables);
  }
  setSearchFields(*source.image, tables.size());
  return true;
}

void setTableCount(FS_TableDirectoryImage& image, std::size_t count) {
  ByteWriter field;
  field.u16(static_cast<std::uint16_t>(count));
  store(image, kNumTablesAt, field);
}

}  // namespace QXFontService_NS::embed
