#include "embed/keyword/keyword.h"

#include <unordered_map>

#include "font/contract/keywords.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXName;
using QXCommonNS::QXValue;

// Names of the keyword table have no order of their own, so the way back needs a map.
std::unordered_map<int, Keyword> makeKeywordsByName() {
  std::unordered_map<int, Keyword> map;
  for (int i = 1; i < kKeywordCount; ++i)
    map.emplace(static_cast<int>(FS_KeywordName(i).getNameEnum()), static_cast<Keyword>(i));
  return map;
}

}  // namespace

QXName keywordName(Keyword keyword) {
  return FS_KeywordName(static_cast<int>(keyword));
}

QXValue keywordValue(Keyword keyword) {
  return QXValue(keywordName(keyword).getNameEnum());
}

Keyword keywordOf(const QXValue& value) {
  static const std::unordered_map<int, Keyword> byName = makeKeywordsByName();
  if (!value.isName()) return Keyword::kNone;
  const auto found = byName.find(static_cast<int>(value.getNameValue()));
  return found == byName.end() ? Keyword::kNone : found->second;
}

}  // namespace QXFontService_NS::embed
