#pragma once

#include "embed/cff/index.h"
#include "embed/charstring/tokens.h"
#include "embed/charstring/type2_walker.h"

namespace QXFontService_NS::charstring {

/// The counters of an interpretation; they go on from what they hold.
struct HintCounters {
  int hStems = 0;
  int vStems = 0;
  int stackDepth = 0;
};

/// Interprets a Type 2 charstring and appends its tokens to `out`: subroutines expanded, arithmetic
/// worked out, mask bytes as their count and one integer each. Operators that are not supported
/// leave their operands standing for the next one; `endchar` and `return` end nothing: both
/// required. False where the charstring is endless or explodes.
bool interpretCharString(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
                         const FS_CFFStrings& localSubrs, FS_CharStringTokens& out,
                         HintCounters& counters, WorkBudget& budget);

/// Walks a Type 2 charstring as `interpretCharString` does and keeps no tokens. `operands` is room
/// for those of one operator, whatever it holds. False where the charstring is endless or explodes.
bool walkCharString(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
                    const FS_CFFStrings& localSubrs, FS_CharStringTokens& operands,
                    WorkBudget& budget);

}  // namespace QXFontService_NS::charstring
