#pragma once

#include "embed/cff/index.h"
#include "embed/charstring/tokens.h"
#include "embed/charstring/type2_walker.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS::charstring {

/// Takes the tokens of a flat decoding in their order.
class FlatTokenSink {
 public:
  virtual void number(int value) = 0;
  virtual void keyword(embed::Keyword keyword) = 0;

 protected:
  ~FlatTokenSink() = default;
};

/// Decodes a charstring without working anything out: every number and operator gives one token,
/// calls and returns too, and the tokens of a subroutine follow its call. `endchar` ends the
/// charstring or subroutine it stands in; a 255 number is its raw 32 bits; masks are passed over.
/// `stackDepth` and `hintCount` go on from what they hold. False where the budget is spent.
bool walkFlat(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
              const FS_CFFStrings& localSubrs, int& stackDepth, int& hintCount, WorkBudget& budget,
              FlatTokenSink& sink);

/// The same with the tokens appended to a list.
bool decodeCharStringFlat(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
                          const FS_CFFStrings& localSubrs, int& stackDepth, int& hintCount,
                          FS_CharStringTokens& out);

}  // namespace QXFontService_NS::charstring
