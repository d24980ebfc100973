#include "pool/system/registry_text.h"

#include <vector>

namespace QXFontService_NS {

using icu::UnicodeString;
using QXCommonNS::bytes::ByteView;

UnicodeString registryText(ByteView data) {
  UnicodeString text;
  for (std::size_t at = 0; at + 1 < data.size(); at += 2) {
    const auto unit = static_cast<char16_t>(data.u8(at) | data.u8(at + 1) << 8);
    if (unit == 0) break;
    text.append(unit);
  }
  return text;
}

bool registryTextValue(QXCommonNS::RegistryRoot root, std::string_view key,
                       std::u16string_view name, UnicodeString& out) {
  std::vector<QXCommonNS::RegistryValue> values;
  if (!QXCommonNS::platform().registryValues(root, key, values)) return false;
  for (const QXCommonNS::RegistryValue& value : values) {
    const UnicodeString valueName(value.name.data(), static_cast<int>(value.name.size()));
    const UnicodeString wanted(name.data(), static_cast<int>(name.size()));
    if (valueName.caseCompare(wanted, 0) != 0) continue;
    if (value.type != QXCommonNS::RegistryValue::kText) return false;
    out = registryText(ByteView(value.data));
    return true;
  }
  return false;
}

}  // namespace QXFontService_NS
