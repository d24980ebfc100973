#include "font/sfnt/true_type_info.h"

#include "font/contract/base_font.h"
#include "font/contract/font_error.h"
#include "font/sfnt/sfnt_reader.h"

namespace QXFontService_NS {

FS_TrueTypeInfo::FS_TrueTypeInfo() = default;
FS_TrueTypeInfo::~FS_TrueTypeInfo() = default;

bool FS_TrueTypeInfo::readSfnt(QXError* error, std::istream* stream, FS_BaseFont* owner) {
  owner_ = owner;
  const TableResult failure = sfnt::readSfntRecords(*stream, owner->getFontFileType(0), records_);
  if (failure && failure->code != sfnt::kSilent) report(error, *failure);
  return !failure;
}

void FS_TrueTypeInfo::report(QXError* error, const TableFailure& failure) const {
  reportFontError(*owner_, error, failure.code, UnicodeString::fromUTF8(failure.detail));
}

bool FS_TrueTypeInfo::hasGlyf() const {
  return getTable(sfnt::tagOf("loca")) != nullptr && getTable(sfnt::tagOf("glyf")) != nullptr;
}

const FS_TrueTypeInfo::TableRecord* FS_TrueTypeInfo::getTable(unsigned int tag) const {
  return records_.directory.find(tag);
}

const sfnt::LoadedTables& FS_TrueTypeInfo::loaded() const {
  static const sfnt::LoadedTables kEmpty;
  const sfnt::LoadedTables* tables = published_.load(std::memory_order_acquire);
  return tables != nullptr ? *tables : kEmpty;
}

bool FS_TrueTypeInfo::getCIDSystemInfo(FS_CIDSystemInfo& out) const {
  const FS_CFFInfo* cff = cffFont();
  if (cff == nullptr || !cff->isCID) return false;
  if (cff->registrySID == 0 || cff->orderingSID == 0) return false;
  std::string registry;
  std::string ordering;
  if (!cff->getSIDString(cff->registrySID, registry)) return false;
  if (!cff->getSIDString(cff->orderingSID, ordering)) return false;
  out.Registry = UnicodeString::fromUTF8(registry);
  out.Ordering = UnicodeString::fromUTF8(ordering);
  out.Supplement = static_cast<int>(cff->supplement);
  return true;
}

UnicodeString FS_TrueTypeInfo::getName(int language, int slot) const {
  return records_.names.get(language, slot);
}

}  // namespace QXFontService_NS
