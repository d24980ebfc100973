#include "font/names/font_names.h"

namespace QXFontService_NS {
namespace {

constexpr std::size_t kUsualLength = 512;  // of all names in one language
constexpr int kPostScriptSlot = static_cast<int>(NameSlot::postScriptName);

}  // namespace

FS_NameSet& FontNames::of(int language) {
  const auto place = sets_.try_emplace(language).first;
  // One language is what nearly all fonts have; those that claim thousands grow from nothing.
  if (sets_.size() == 1 && place->second.isEmpty()) place->second.reserve(kUsualLength);
  return place->second;
}

const FS_NameSet* FontNames::find(int language) const {
  const auto found = sets_.find(language);
  return found == sets_.end() ? nullptr : &found->second;
}

void FontNames::chooseDefault(int language) {
  if (sets_.empty()) return;
  const FS_NameSet* english = find(kEnglish);
  const FS_NameSet* chosen = find(language);
  if (chosen == nullptr) chosen = english;
  if (chosen == nullptr) chosen = &sets_.begin()->second;
  defaultNames_ = *chosen;
  if (english != nullptr && english != chosen && english->has(kPostScriptSlot))
    defaultNames_.set(kPostScriptSlot, english->view(kPostScriptSlot));
}

UnicodeString FontNames::get(int language, int slot) const {
  if (language == 0) return getOfAny(slot);
  const FS_NameSet* set = find(language);
  return set == nullptr ? UnicodeString() : set->get(slot);
}

UnicodeString FontNames::getOfAny(int slot) const {
  if (defaultNames_.has(slot)) return defaultNames_.get(slot);
  const FS_NameSet* english = find(kEnglish);
  if (english != nullptr && english->has(slot)) return english->get(slot);
  for (const auto& [language, set] : sets_)
    if (set.has(slot)) return set.get(slot);
  return UnicodeString();
}

void FontNames::setPostScriptName(const UnicodeString& name) {
  defaultNames_.set(kPostScriptSlot, {name.getBuffer(), static_cast<std::size_t>(name.length())});
}

void FontNames::shrink() {
  for (auto& [language, set] : sets_) set.shrink();
}

}  // namespace QXFontService_NS
