#include "support/sfnt_builder.h"

#include <algorithm>
#include <stdexcept>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

constexpr std::size_t kOffsetTableSize = 12;
constexpr std::size_t kEntrySize = 16;
constexpr std::size_t kCheckSumAdjustment = 8;
constexpr std::uint32_t kCheckSumTotal = 0xB1B0AFBA;

std::string padded(std::string_view tag) {
  return BeBytes().tag(tag).str();
}

std::size_t roundUp(std::size_t size) {
  return (size + 3) / 4 * 4;
}

/// Checksums are made over a `head` whose adjustment is 0.
std::string withoutAdjustment(const std::string& tag, std::string bytes) {
  if (tag == "head" && bytes.size() >= kCheckSumAdjustment + 4)
    bytes.replace(kCheckSumAdjustment, 4, 4, '\0');
  return bytes;
}

}  // namespace

std::uint32_t tableChecksum(std::string_view bytes) {
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at)
    sum += std::uint32_t{static_cast<unsigned char>(bytes[at])} << (24 - 8 * (at % 4));
  return sum;
}

SfntBuilder& SfntBuilder::version(std::uint32_t version) {
  version_ = version;
  return *this;
}

SfntBuilder& SfntBuilder::table(std::string_view tag, std::string bytes) {
  const auto length = static_cast<std::uint32_t>(bytes.size());
  Table added{padded(tag), std::move(bytes), length};
  for (Table& table : tables_) {
    if (table.tag != added.tag) continue;
    table = std::move(added);
    return *this;
  }
  tables_.push_back(std::move(added));
  return *this;
}

SfntBuilder& SfntBuilder::without(std::string_view tag) {
  std::erase_if(tables_, [name = padded(tag)](const Table& table) { return table.tag == name; });
  return *this;
}

SfntBuilder& SfntBuilder::rawEntry(std::string_view tag, std::uint32_t offset,
                                   std::uint32_t length) {
  rawEntries_.push_back({padded(tag), offset, length});
  return *this;
}

SfntBuilder& SfntBuilder::statedLength(std::string_view tag, std::uint32_t length) {
  for (Table& table : tables_)
    if (table.tag == padded(tag)) table.statedLength = length;
  return *this;
}

SfntBuilder& SfntBuilder::statedCount(unsigned count) {
  statedCount_ = static_cast<int>(count);
  return *this;
}

const SfntBuilder::Table* SfntBuilder::find(std::string_view tag) const {
  const auto found = std::find_if(tables_.begin(), tables_.end(),
                                  [&](const Table& table) { return table.tag == padded(tag); });
  return found == tables_.end() ? nullptr : &*found;
}

std::size_t SfntBuilder::headerSize() const {
  return kOffsetTableSize + kEntrySize * (tables_.size() + rawEntries_.size());
}

std::size_t SfntBuilder::offsetOf(std::string_view tag) const {
  std::size_t offset = headerSize();
  for (const Table& table : tables_) {
    if (table.tag == padded(tag)) return offset;
    offset += roundUp(table.bytes.size());
  }
  throw std::out_of_range("no table " + std::string(tag));
}

const std::string& SfntBuilder::bytesOf(std::string_view tag) const {
  const Table* table = find(tag);
  if (table == nullptr) throw std::out_of_range("no table " + std::string(tag));
  return table->bytes;
}

std::string SfntBuilder::header(std::uint32_t base) const {
  const std::size_t entries = tables_.size() + rawEntries_.size();
  const auto count =
      statedCount_ < 0 ? static_cast<unsigned>(entries) : static_cast<unsigned>(statedCount_);
  unsigned power = 1;
  unsigned selector = 0;
  for (; power * 2 <= count; power *= 2) ++selector;
  BeBytes out;
  out.u32(version_).u16(count).u16(power * 16).u16(selector).u16((count - power) * 16);
  for (const Table& table : tables_)
    out.tag(table.tag)
        .u32(tableChecksum(withoutAdjustment(table.tag, table.bytes)))
        .u32(base + static_cast<std::uint32_t>(offsetOf(table.tag)))
        .u32(table.statedLength);
  for (const Entry& entry : rawEntries_)
    out.tag(entry.tag).u32(0).u32(entry.offset).u32(entry.length);
  return out.str();
}

std::string SfntBuilder::build(std::uint32_t base) const {
  BeBytes out;
  out.bytes(header(base));
  for (const Table& table : tables_) out.bytes(withoutAdjustment(table.tag, table.bytes)).align(4);
  std::string font = out.str();
  const Table* head = find("head");
  if (head != nullptr && head->bytes.size() >= kCheckSumAdjustment + 4)
    font.replace(offsetOf("head") + kCheckSumAdjustment, 4,
                 BeBytes().u32(kCheckSumTotal - tableChecksum(font)).str());
  return font;
}

}  // namespace qxtest
