#include "font/names/pool_names.h"

namespace QXFontService_NS::names {
namespace {

void add(std::set<UnicodeString>& out, const FS_NameSet& set, NameSlot slot) {
  const UnicodeString name = set.get(slot);
  if (!name.isEmpty()) out.insert(name);
}

}  // namespace

std::set<UnicodeString> poolNames(const FontNames& names, bool preferredFamily) {
  std::set<UnicodeString> out;
  for (const auto& [language, set] : names.sets()) {
    add(out, set, NameSlot::family);
    add(out, set, NameSlot::fullName);
    add(out, set, NameSlot::postScriptName);
    if (preferredFamily) add(out, set, NameSlot::preferredFamily);
  }
  return out;
}

}  // namespace QXFontService_NS::names
