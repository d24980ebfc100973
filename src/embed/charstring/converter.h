#pragma once

#include <vector>

#include "qxcommon/value.h"

#include "embed/charstring/hints.h"
#include "embed/charstring/tokens.h"

namespace QXFontService_NS {

/// Converts the tokens of a Type 2 charstring into those of a Type 1 charstring. One serves one
/// glyph at a time; it is made from the Private DICT in force for the glyph.
class FS_CharStringConverter {
 public:
  /// @param privateMap the Private DICT; a width that it does not have is 0, a real one is cut.
  explicit FS_CharStringConverter(const QXCommonNS::QXValue& privateMap);

  int defaultWidthX = 0;
  int nominalWidthX = 0;
  int x = 0;  ///< the current point, in font units
  int y = 0;
  std::vector<FS_Stem> stems;  ///< every stem of the glyph in order of declaration
  std::vector<std::vector<FS_CounterEntry>> hCounters;
  std::vector<std::vector<FS_CounterEntry>> vCounters;
  int subrBase = 0;  ///< number of Subrs when the work on the glyph began

  /// Converts a glyph. Tokens are appended to `out`; each `hintmask` appends one Subr to `subrs`,
  /// numbered on from `subrCount`. False for a charstring that has no Type 1 form here, with what
  /// was written so far left in place.
  /// @throws std::out_of_range for a mask bit without a stem.
  bool convertCharString(const FS_CharStringTokens& tokens, int subrCount, FS_CharStringTokens& out,
                         std::vector<FS_CharStringTokens>& subrs);
};

}  // namespace QXFontService_NS
