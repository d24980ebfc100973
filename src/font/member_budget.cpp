#include "font/member_budget.h"

#include <algorithm>

#include "common/limits.h"
#include "font/sfnt/true_type_info.h"

namespace QXFontService_NS {
namespace {

std::uint64_t lengthOf(std::istream& stream) {
  stream.clear();
  stream.seekg(0, std::ios::end);
  const std::int64_t end = stream.tellg();
  return end < 0 ? 0 : static_cast<std::uint64_t>(end);
}

std::uint64_t bytesOf(const FontNames& names) {
  std::uint64_t bytes = 0;
  for (const auto& [language, set] : names.sets()) {
    bytes += sizeof(set);
    for (int slot = 0; slot < kNameSlotCount; ++slot)
      bytes += set.view(slot).size() * sizeof(char16_t);
  }
  return bytes;
}

std::uint64_t bytesOf(const FS_TrueTypeInfo& member) {
  const sfnt::SfntRecords& records = member.records();
  return sizeof(member) + bytesOf(records.names) +
         records.directory.size() * sizeof(sfnt::TableRecord) +
         records.image.records().size() * FS_TableDirectoryImage::kRecordSize;
}

/// Records without a name are walked as well, though nothing of them is kept.
std::uint64_t nameBytesRead(const FS_TrueTypeInfo& member, std::uint64_t fileBytes) {
  const auto* table = member.getTable(sfnt::tagOf("name"));
  return table != nullptr ? std::min<std::uint64_t>(table->length, fileBytes) : 0;
}

}  // namespace

MemberBudget::MemberBudget(std::istream& file)
    : fileBytes_(lengthOf(file)),
      left_(QXCommonNS::limits::kFileRecordBytes +
            QXCommonNS::limits::kFileRecordBytesPerByte * fileBytes_) {}

bool MemberBudget::spend(const FS_TrueTypeInfo& member) {
  const std::uint64_t spent = bytesOf(member) + nameBytesRead(member, fileBytes_);
  if (spent > left_) return false;
  left_ -= spent;
  return true;
}

}  // namespace QXFontService_NS
