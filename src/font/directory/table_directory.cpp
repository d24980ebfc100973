#include "font/directory/table_directory.h"

#include <algorithm>
#include <numeric>

namespace QXFontService_NS::sfnt {
namespace {

struct FileRecord {
  static constexpr std::size_t kSize = TableDirectory::kRecordSize;
  static TableRecord decode(ByteView view) { return {view.u32(0), view.u32(8), view.u32(12)}; }
};

std::vector<TableRecord> decodeAll(ByteView view) {
  std::vector<TableRecord> records;
  records.reserve(view.size() / FileRecord::kSize);
  for (std::size_t at = 0; at + FileRecord::kSize <= view.size(); at += FileRecord::kSize)
    records.push_back(FileRecord::decode(view.slice(at, FileRecord::kSize)));
  return records;
}

/// Whether the tags rise from record to record, as the format asks and nearly all fonts do.
bool areInOrder(const std::vector<TableRecord>& records) {
  const auto doesNotRise = [](const TableRecord& a, const TableRecord& b) {
    return a.tag >= b.tag;
  };
  return std::adjacent_find(records.begin(), records.end(), doesNotRise) == records.end();
}

/// Indices of `records` by rising tag, those of equal tags in file order.
std::vector<std::uint16_t> orderByTag(const std::vector<TableRecord>& records) {
  std::vector<std::uint16_t> order(records.size());
  std::iota(order.begin(), order.end(), std::uint16_t{0});
  if (areInOrder(records)) return order;
  std::stable_sort(order.begin(), order.end(), [&](std::uint16_t a, std::uint16_t b) {
    return records[a].tag < records[b].tag;
  });
  return order;
}

std::vector<TableRecord> firstOfEachTag(std::vector<TableRecord> records) {
  if (areInOrder(records)) return records;
  std::vector<std::uint16_t> kept = orderByTag(records);
  const auto sameTag = [&](std::uint16_t a, std::uint16_t b) {
    return records[a].tag == records[b].tag;
  };
  kept.erase(std::unique(kept.begin(), kept.end(), sameTag), kept.end());
  std::sort(kept.begin(), kept.end());
  std::vector<TableRecord> first;
  first.reserve(kept.size());
  for (const std::uint16_t index : kept) first.push_back(records[index]);
  return first;
}

}  // namespace

OffsetTable OffsetTable::decode(ByteView view) {
  return {view.u32(0), view.u16(4)};
}

TableDirectory::TableDirectory(ByteView records)
    : records_(firstOfEachTag(decodeAll(records))), byTag_(orderByTag(records_)) {}

const TableRecord* TableDirectory::find(std::uint32_t tag) const {
  const auto found = std::lower_bound(
      byTag_.begin(), byTag_.end(), tag,
      [&](std::uint16_t index, std::uint32_t wanted) { return records_[index].tag < wanted; });
  if (found == byTag_.end() || records_[*found].tag != tag) return nullptr;
  return &records_[*found];
}

}  // namespace QXFontService_NS::sfnt
