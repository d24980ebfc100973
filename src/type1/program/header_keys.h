#pragma once

#include <string>
#include <string_view>

#include "type1/program/program_header.h"

namespace QXFontService_NS::type1 {

/// The two forms of a font program differ in what they make of a value.
enum class ProgramForm { text, segments };

/// Takes the value of a key of the header.
/// @return false where the value makes no sense; a key that is not known is no failure.
bool takeHeaderValue(ProgramForm form, std::string_view key, std::string_view value,
                     ProgramHeader& header);

/// Whether a header has the key.
bool isHeaderKey(std::string_view key);

}  // namespace QXFontService_NS::type1
