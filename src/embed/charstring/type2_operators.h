#pragma once

#include "embed/keyword/keyword.h"

namespace QXFontService_NS::charstring {

/// What the interpretation of a Type 2 charstring does with an operator.
enum class OperatorKind {
  dropped,    ///< not supported: leaves its operands where they are
  path,       ///< goes out as it stands
  hstem,      ///< path, and declares horizontal stems
  vstem,      ///< path, and declares vertical stems
  mask,       ///< `hintmask` and `cntrmask`: mask bytes follow
  callsubr,   ///< local subroutine
  callgsubr,  ///< global subroutine
  returns,    ///< `return`
  endchar,
  arithmetic  ///< worked out on the spot
};

struct Type2Operator {
  embed::Keyword keyword = embed::Keyword::kNone;
  OperatorKind kind = OperatorKind::dropped;
};

/// The operator of a code; a two-byte operator 12 n is 0x0C00 + n (Adobe Technical Note 5177).
/// Codes that the format does not use have no word and are dropped.
[[nodiscard]] Type2Operator type2Operator(unsigned code);

}  // namespace QXFontService_NS::charstring
