#pragma once

#include <span>
#include <string_view>

#include "font/contract/keywords.h"

namespace QXFontService_NS::contract {

/// All words by number, the empty one first; sorted by code units.
std::span<const std::u16string_view> keywordTable();

}  // namespace QXFontService_NS::contract
