#include "embed/table_directory_image.h"

#include <algorithm>

namespace QXFontService_NS {
namespace {

using QXCommonNS::bytes::ByteView;
using Record = FS_TableDirectoryImage::Record;

bool tagIsBelow(const Record& a, const Record& b) {
  return a.tag() < b.tag();
}

bool tagDoesNotRise(const Record& a, const Record& b) {
  return !tagIsBelow(a, b);
}

std::vector<Record> recordsOf(ByteView directory) {
  std::vector<Record> records(directory.size() / FS_TableDirectoryImage::kRecordSize);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto bytes = directory.slice(i * sizeof(Record::bytes), sizeof(Record::bytes)).span();
    std::copy(bytes.begin(), bytes.end(), records[i].bytes.begin());
  }
  return records;
}

void keepFirstOfEachTag(std::vector<Record>& records) {
  // The format asks for rising tags, and nearly all fonts have them.
  const auto wrong = std::adjacent_find(records.begin(), records.end(), tagDoesNotRise);
  if (wrong == records.end()) return;
  std::stable_sort(records.begin(), records.end(), tagIsBelow);
  const auto sameTag = [](const Record& a, const Record& b) { return a.tag() == b.tag(); };
  records.erase(std::unique(records.begin(), records.end(), sameTag), records.end());
}

}  // namespace

FS_TableDirectoryImage::FS_TableDirectoryImage(ByteView offsetTable, ByteView directory)
    : records_(recordsOf(directory)) {
  const auto bytes = offsetTable.slice(0, kOffsetTableSize).span();
  std::copy(bytes.begin(), bytes.end(), offsetTable_.begin());
  keepFirstOfEachTag(records_);
}

const Record* FS_TableDirectoryImage::find(std::uint32_t tag) const {
  const auto found =
      std::lower_bound(records_.begin(), records_.end(), tag,
                       [](const Record& record, std::uint32_t key) { return record.tag() < key; });
  return found == records_.end() || found->tag() != tag ? nullptr : &*found;
}

}  // namespace QXFontService_NS
