#include "common/text/name_table.h"

#include "common/limits.h"

namespace QXCommonNS::text {
namespace {

// The fixed numbers lie below.
constexpr int kFirstFreeName = 4096;

}  // namespace

NameTable::NameTable(std::size_t capacity) : capacity_(capacity) {
  fix(u"true", QXNAME_TRUE);
  fix(u"yes", QXNAME_YES);
}

void NameTable::fix(const char16_t* text, QXNameEnum name) {
  fixed_[name] = &names_.emplace(text, name).first->first;
}

QXNameEnum NameTable::intern(const UnicodeString& text) {
  if (text.isEmpty()) return QXNAME_EMPTY;
  const std::lock_guard guard(mutex_);
  const auto found = names_.find(text);
  return found != names_.end() ? found->second : add(text);
}

QXNameEnum NameTable::add(const UnicodeString& text) {
  if (free_.size() >= capacity_) return QXNAME_EMPTY;
  const auto name = static_cast<QXNameEnum>(kFirstFreeName + static_cast<int>(free_.size()));
  // In this order, memory that runs out between the steps only costs a number.
  free_.push_back(nullptr);
  free_.back() = &names_.emplace(text, name).first->first;
  return name;
}

const UnicodeString& NameTable::textOf(QXNameEnum name) {
  const std::lock_guard guard(mutex_);
  if (name < kFirstFreeName) {
    const auto found = fixed_.find(name);
    return found != fixed_.end() ? *found->second : empty_;
  }
  const auto index = static_cast<std::size_t>(name - kFirstFreeName);
  if (index >= free_.size() || free_[index] == nullptr) return empty_;
  return *free_[index];
}

NameTable& nameTable() {
  static NameTable& table = *new NameTable(limits::kMostInternedNames);
  return table;
}

}  // namespace QXCommonNS::text
