#include "font/sfnt_collection.h"

#include "font/contract/font_error.h"
#include "font/directory/report_texts.h"
#include "font/member_budget.h"

namespace QXFontService_NS {

SfntCollection::~SfntCollection() = default;

int SfntCollection::getEntryCount() const {
  return static_cast<int>(entries_.size());
}

FS_TrueTypeInfo* SfntCollection::record(int entry) const {
  return isMember(entry) ? entries_[static_cast<std::size_t>(entry)].get() : nullptr;
}

FT_Face SfntCollection::getFreeTypeFace(int entry) {
  if (!isMember(entry)) return nullptr;
  return ftFaces_[static_cast<std::size_t>(entry)].open(getFontFileName2(), getMemStream(), entry);
}

bool SfntCollection::readMembers(QXError* error, std::istream& stream,
                                 std::span<const std::int64_t> offsets, MemberRule rule) {
  std::vector<std::unique_ptr<FS_TrueTypeInfo>> members;
  MemberBudget budget(stream);
  for (const std::int64_t offset : offsets) {
    auto member = readMember(error, stream, offset);
    if (member == nullptr || !budget.spend(*member)) return false;
    if (!members.empty() && !rule(*members.front(), *member)) return false;
    members.push_back(std::move(member));
  }
  entries_ = std::move(members);
  ftFaces_ = std::make_unique<contract::FreeTypeFace[]>(entries_.size());
  return true;
}

/// Not every stream can be sent behind its end: one that cannot is as short as one that can.
std::unique_ptr<FS_TrueTypeInfo> SfntCollection::readMember(QXError* error, std::istream& stream,
                                                            std::int64_t offset) {
  stream.clear();
  stream.seekg(offset);
  if (stream.fail()) {
    report(error, readFailure(sfnt::texts::kOffsetTableRead));
    return nullptr;
  }
  auto member = std::make_unique<FS_TrueTypeInfo>();
  return member->readSfnt(error, &stream, this) ? std::move(member) : nullptr;
}

void SfntCollection::report(QXError* error, const TableFailure& failure) const {
  reportFontError(*this, error, failure.code, UnicodeString::fromUTF8(failure.detail));
}

}  // namespace QXFontService_NS
