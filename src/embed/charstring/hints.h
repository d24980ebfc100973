#pragma once

#include <span>
#include <vector>

#include "qxcommon/value.h"

#include "embed/charstring/tokens.h"

namespace QXFontService_NS {

/// A stem of a glyph, as it was declared.
struct FS_Stem {
  int kind = 0;  ///< 0 horizontal, 1 vertical
  QXCommonNS::QXValue position;
  QXCommonNS::QXValue width;
};

/// One stem of a counter group.
struct FS_CounterEntry {
  QXCommonNS::QXValue delta;  ///< from the edge of the entry before; of the first, its position
  QXCommonNS::QXValue width;
  QXCommonNS::QXValue edge;  ///< position and width together
};

namespace charstring {

/// Whether the position of a stem counts from the far edge of the stem before it, as the Type 2
/// format has it, or from its near edge. Files are written in the second way; only hints depend on
/// it, outlines and widths do not.
inline constexpr bool kStemPositionsIncludeWidths = false;

/// The stems of a stem operator from its (delta, width) pairs; a stray last operand is left out.
[[nodiscard]] std::vector<FS_Stem> stemsOf(std::span<const QXCommonNS::QXValue> operands, int kind,
                                           bool includeWidths = kStemPositionsIncludeWidths);

/// Appends a stem to a counter group.
void addToGroup(std::vector<FS_CounterEntry>& group, const FS_Stem& stem);

/// Marks the last entry of a group as its end. A stem of negative width (a ghost) stays unmarked.
void markEnd(std::vector<FS_CounterEntry>& group);

/// The tokens that tell the counter groups of a glyph to a Type 1 interpreter: pieces of at most 22
/// values cut from the end, the rear-most first, each closed by OtherSubr 12, or 13 where it is
/// shorter.
[[nodiscard]] FS_CharStringTokens counterTokens(
    const std::vector<std::vector<FS_CounterEntry>>& horizontal,
    const std::vector<std::vector<FS_CounterEntry>>& vertical);

}  // namespace charstring
}  // namespace QXFontService_NS
