#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qxcommon/value.h"
#include "qxfontservice/cid_system_info.h"

#include "embed/cid/cid_layout.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS::cid {

/// What the prologue of a CIDFontType 0 tells.
struct CidPrologue {
  std::string fontName;
  FS_CIDSystemInfo systemInfo;
  QXCommonNS::QXValue topDict;
  std::vector<QXCommonNS::QXValue> privates;
  std::size_t glyphs = 0;
  std::size_t subrs = 0;
  CidLayout layout;
};

/// The text from the first line to the one that opens the binary data.
[[nodiscard]] std::string prologueText(const CidPrologue& prologue);

/// How a key of a Private DICT is written.
enum class PrivateForm {
  value,         ///< the value
  deltas,        ///< each element, as the file has it
  sums,          ///< the running integer sum of the elements
  languageGroup  ///< the value, and `RndStemUp` where it is 1
};

/// A line of the Private dictionary; it is written where the key is present, whatever its value.
struct PrivateLine {
  embed::Keyword keyword;
  std::string_view before;
  PrivateForm form;
  std::string_view after;
};

// The fixed texts. `@name@` is replaced. The misspellings "/Nontice" and "/BlueFuss" are required:
// documents already written have them.
extern const std::string_view kPrologueHead;
extern const std::string_view kFontDictHead;
extern const std::span<const PrivateLine> kPrivateLines;
extern const std::string_view kRndStemUp;
extern const std::string_view kFontDictTail;
extern const std::string_view kPrologueTail;
extern const std::string_view kDataTail;
extern const std::string_view kDefaultFontBBox;
extern const std::string_view kDefaultFontMatrix;
/// OtherSubrs 0 to 3: flex and hint replacement.
extern const std::string_view kFlexProcedures;

/// What `systemInfo` says of every font that is written here.
extern const std::string_view kRegistry;
extern const std::string_view kOrderingTail;  ///< behind the subset tag
inline constexpr int kSupplement = 1;

}  // namespace QXFontService_NS::cid
