#pragma once

#include <span>

#include "embed/cff/operands.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS::cff {

/// How the operands of a DICT operator are kept.
enum class StoredAs {
  integer,  ///< the last operand, cut to an integer
  number,   ///< the last operand in its own kind
  map,      ///< all operands; without any, an empty dictionary
  truth     ///< the word `true` or `false`, by whether the last operand is 0
};

/// An operator that is kept, and under which keyword.
struct DictEntry {
  unsigned op;
  embed::Keyword keyword;
  StoredAs form;
};

/// The operators of each kind of DICT that are kept (Adobe Technical Note 5176, tables 9, 10, 23).
/// Of a Font DICT only the name and the Private are: its FontMatrix is dropped, which hosts rely
/// on when they correct the matrix of the whole font.
extern const std::span<const DictEntry> kTopDictEntries;
extern const std::span<const DictEntry> kPrivateDictEntries;
extern const std::span<const DictEntry> kFontDictEntries;

/// Keeps the operator that `reader` stands on in `out`, where `entries` have it; an operator met
/// again replaces what it had stored. Without operands only a map is stored.
void storeOperator(const DictReader& reader, std::span<const DictEntry> entries,
                   QXCommonNS::QXValue& out);

/// A whole DICT as a dictionary value.
[[nodiscard]] QXCommonNS::QXValue parseDict(QXCommonNS::bytes::ByteView dict,
                                            std::span<const DictEntry> entries);

}  // namespace QXFontService_NS::cff
