#pragma once

#include <string>
#include <string_view>

namespace QXFontService_NS::type1 {

/// The text of the first PostScript value: of a string in parentheses, without them and with its
/// escapes resolved (PostScript Language Reference, 3.2.2), or of a name as it stands.
std::string postScriptValue(std::string_view text);

}  // namespace QXFontService_NS::type1
