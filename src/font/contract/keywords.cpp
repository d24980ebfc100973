#include "font/contract/keywords.h"

#include <algorithm>
#include <array>

#include "font/contract/keywords_data.h"

namespace QXFontService_NS {
namespace {

using Texts = std::array<UnicodeString, kKeywordCount>;
using Names = std::array<QXName, kKeywordCount>;

Texts makeTexts() {
  Texts texts;
  std::transform(contract::keywordTable().begin(), contract::keywordTable().end(), texts.begin(),
                 [](std::u16string_view word) {
                   return UnicodeString(word.data(), static_cast<int32_t>(word.size()));
                 });
  return texts;
}

Names makeNames() {
  Names names;
  for (int i = 0; i < kKeywordCount; ++i)
    names[static_cast<std::size_t>(i)] = QXName(FS_KeywordText(i));
  return names;
}

// An index outside the table stands for the empty word.
std::size_t clipped(int index) {
  return index > 0 && index < kKeywordCount ? static_cast<std::size_t>(index) : 0;
}

}  // namespace

// Both tables are made at the first call, so that other static objects may use them.
const UnicodeString& FS_KeywordText(int index) {
  static const Texts texts = makeTexts();
  return texts[clipped(index)];
}

QXName FS_KeywordName(int index) {
  static const Names names = makeNames();
  return names[clipped(index)];
}

int FS_KeywordIndex(const UnicodeString& text) {
  const auto table = contract::keywordTable();
  const std::u16string_view word(text.getBuffer(), static_cast<std::size_t>(text.length()));
  const auto found = std::lower_bound(table.begin(), table.end(), word);
  return found != table.end() && *found == word ? static_cast<int>(found - table.begin()) : 0;
}

}  // namespace QXFontService_NS
