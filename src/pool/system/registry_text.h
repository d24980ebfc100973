#pragma once

#include <unicode/unistr.h>

#include "common/bytes/byte_view.h"
#include "common/platform/platform.h"

namespace QXFontService_NS {

/// The UTF-16 text (little-endian, as the registry keeps it) up to the first zero unit.
icu::UnicodeString registryText(QXCommonNS::bytes::ByteView data);

/// The value of that name under a key, if it stands there and is a text.
bool registryTextValue(QXCommonNS::RegistryRoot root, std::string_view key,
                       std::u16string_view name, icu::UnicodeString& out);

}  // namespace QXFontService_NS
