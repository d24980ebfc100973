#pragma once

#include <unicode/unistr.h>

namespace QXCommonNS {

/// The string type of every interface: UTF-16, from ICU.
using icu::UnicodeString;

}  // namespace QXCommonNS
