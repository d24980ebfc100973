#pragma once

#include <cstddef>

#include "embed/charstring/tokens.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS::charstring {

/// Works out an arithmetic operator of a Type 2 charstring on the topmost tokens.
///
/// It works on integer values and pushes an integer; `sqrt` and `random` push reals; `dup`, `exch`
/// and `drop` move tokens as they are. Sums, products and the like wrap at 32 bits. `ifelse` is the
/// reverse of the format's rule: required.
///
/// @param operands how many number tokens stand at the end of `tokens`; with too few of them
///        nothing happens.
/// @return by how much the stack depth changes.
int applyArithmetic(embed::Keyword op, std::size_t operands, FS_CharStringTokens& tokens);

}  // namespace QXFontService_NS::charstring
