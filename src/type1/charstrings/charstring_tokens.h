#pragma once

#include <string>
#include <vector>

#include "qxcommon/value.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS::type1 {

/// Takes a Type 1 charstring apart into numbers, as integers, and operators, as texts. Nothing is
/// carried out; numbers that the end cuts off end the list.
/// @param bytes encrypted, with four bytes ahead that are dropped, unless `decrypted`.
/// @param tokens receives the tokens, behind those it has.
/// @return the place of the first `seac` among the tokens, or -1.
int readCharStringTokens(std::string bytes, std::vector<QXValue>& tokens, bool decrypted);

}  // namespace QXFontService_NS::type1
