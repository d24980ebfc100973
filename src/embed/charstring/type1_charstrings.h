#pragma once

#include <cstdint>
#include <vector>

#include "common/limits.h"
#include "embed/cff/cff_subset_source.h"
#include "embed/charstring/tokens.h"

namespace QXFontService_NS::charstring {

/// The glyphs of a CFF font as Type 1 charstrings.
struct Type1CharStrings {
  std::vector<FS_CharStringTokens> charStrings;  ///< glyph 0, then the requested glyphs
  std::vector<FS_CharStringTokens> subrs;        ///< the four fixed ones, then one a `hintmask`
  std::vector<QXCommonNS::QXValue> privates;     ///< of each Font DICT, or the font's one
  std::vector<unsigned char> fdIndexes;          ///< Font DICT of each charstring
};

/// What the interpretation of the charstrings of a font needs.
struct CharStringContext {
  FS_CFFStrings globalSubrs;
  std::vector<cff::LocalSubrs> localSubrs;  ///< one a Font DICT, or the font's one
  std::vector<FS_FDRange> fdSelect;         ///< of a CID-keyed font
  /// Tokens that a call may walk, and then keep.
  std::uint64_t mostTokens = QXCommonNS::limits::kMostCharStringTokens;
};

/// The Subrs that every Type 1 font begins with: flex and hint replacement.
[[nodiscard]] std::vector<FS_CharStringTokens> fixedSubrs();

/// Interprets glyph 0 and then each of `gids` in the caller's order, leaving out 0 and 0xFFFF.
/// False where a charstring cannot be read, or all together have more tokens than any font.
/// @throws std::out_of_range for a glyph of a CID-keyed font without a Font DICT.
[[nodiscard]] bool collectCharStrings(const embed::CffSubsetSource& source,
                                      const std::vector<std::uint16_t>& gids,
                                      const CharStringContext& context,
                                      std::vector<FS_CharStringTokens>& out,
                                      std::vector<unsigned char>& fdIndexes);

/// The whole run for a font; of `context` only the budget is taken. False for what cannot be read
/// and for a glyph without a Type 1 form.
/// @throws std::out_of_range for a glyph of a CID-keyed font without a Font DICT, and for a mask
/// bit
///         without a stem.
[[nodiscard]] bool makeType1CharStrings(const embed::CffSubsetSource& source,
                                        const std::vector<std::uint16_t>& gids,
                                        Type1CharStrings& out, CharStringContext context = {});

}  // namespace QXFontService_NS::charstring
