#include "font/names/name_set.h"

namespace QXFontService_NS {
namespace {

bool isSlot(int slot) {
  return slot >= 0 && slot < kNameSlotCount;
}

std::size_t indexOf(int slot) {
  return static_cast<std::size_t>(slot);
}

}  // namespace

std::size_t FS_NameSet::begin(int slot) const {
  return slot == 0 ? 0 : ends_[indexOf(slot - 1)];
}

std::u16string_view FS_NameSet::view(int slot) const {
  if (!isSlot(slot)) return {};
  return std::u16string_view(text_).substr(begin(slot), ends_[indexOf(slot)] - begin(slot));
}

UnicodeString FS_NameSet::get(int slot) const {
  const std::u16string_view name = view(slot);
  return UnicodeString(name.data(), static_cast<int32_t>(name.size()));
}

void FS_NameSet::set(int slot, std::u16string_view name) {
  if (!isSlot(slot)) return;
  const std::size_t before = view(slot).size();
  text_.replace(begin(slot), before, name);
  for (std::size_t i = indexOf(slot); i < ends_.size(); ++i)
    ends_[i] = static_cast<std::uint32_t>(ends_[i] - before + name.size());
}

}  // namespace QXFontService_NS
