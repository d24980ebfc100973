#include "embed/cff/subrs.h"

#include "common/bytes/stream_read.h"
#include "embed/cff/dict_entries.h"

namespace QXFontService_NS::cff {

using embed::itemOf;
using embed::Keyword;
using QXCommonNS::QXValue;
using QXCommonNS::bytes::ByteView;

namespace {

constexpr std::int64_t kHeaderSize = 4;  // taken as fixed, whatever `hdrSize` says: required

}  // namespace

bool readGlobalSubrs(const CffTable& table, FS_CFFStrings& out) {
  out.clear();
  if (!table.exists()) return false;
  std::int64_t position = table.at(kHeaderSize);
  for (int i = 0; i < 3; ++i)
    if (!skipIndex(*table.stream, position)) return false;
  FS_CFFIndexHeader header;
  return readIndexHeader(*table.stream, position, header) &&
         readIndexEntries(header, *table.stream, out);
}

bool readPrivateDict(const CffTable& table, std::int64_t offset, std::int64_t size, QXValue& out) {
  if (!table.exists() || offset < 0 || size <= 0) return false;
  const auto wanted = static_cast<std::uint64_t>(size);
  const auto dict = QXCommonNS::bytes::readBlock(*table.stream, table.at(offset), wanted);
  if (dict.size() != wanted) return false;
  out = parseDict(ByteView(dict), kPrivateDictEntries);
  return true;
}

bool readLocalSubrs(const CffTable& table, const QXValue& dict, QXValue& privateMap,
                    LocalSubrs& subrs) {
  privateMap = emptyMap();
  subrs.reset();
  const QXValue& place = itemOf(dict, Keyword::kPrivate);
  if (place.isNull()) return true;
  const std::int64_t offset = FS_Operand(place, 2).getIntegerValue();
  if (!readPrivateDict(table, offset, FS_Operand(place, 1).getIntegerValue(), privateMap))
    return false;
  const int subrsOffset = itemOf(privateMap, Keyword::kSubrs).getIntegerValue();
  if (subrsOffset == 0) return true;
  FS_CFFIndexHeader header;
  FS_CFFStrings entries;
  if (!readCFFIndexHeader(table, offset + subrsOffset, header)) return false;
  if (!readIndexEntries(header, *table.stream, entries)) return false;
  subrs = std::make_shared<const FS_CFFStrings>(std::move(entries));
  return true;
}

const FS_CFFStrings& stringsOf(const LocalSubrs& subrs) {
  static const FS_CFFStrings none;
  return subrs != nullptr ? *subrs : none;
}

}  // namespace QXFontService_NS::cff
