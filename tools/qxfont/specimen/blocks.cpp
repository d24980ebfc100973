#include "qxfont/specimen/blocks.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <utility>

namespace qxfont {
namespace {

int blockOf(int codePoint) {
  return ublock_getCode(codePoint);
}

/// Unicode writes the names of its blocks with underscores where people have blanks.
std::string nameOf(int block) {
  const char* name = u_getPropertyValueName(UCHAR_BLOCK, block, U_LONG_PROPERTY_NAME);
  std::string text = name != nullptr ? name : "No Block";
  std::replace(text.begin(), text.end(), '_', ' ');
  return text;
}

bool hasAnyOf(const BlockCharacters& block, const icu::UnicodeString& text) {
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const int codePoint = text.char32At(i);
    if (isSeen(codePoint) && std::binary_search(block.codes.begin(), block.codes.end(), codePoint))
      return true;
  }
  return false;
}

CharacterRow emptyRow(int first) {
  CharacterRow row;
  row.first = first;
  row.codes.fill(CharacterRow::kNone);
  return row;
}

}  // namespace

std::vector<BlockCharacters> blocksOf(const Characters& characters) {
  std::vector<BlockCharacters> blocks;
  int last = -1;
  for (const int codePoint : characters.codes()) {
    const int block = blockOf(codePoint);
    if (blocks.empty() || block != last) blocks.push_back({nameOf(block), {}});
    blocks.back().codes.push_back(codePoint);
    last = block;
  }
  return blocks;
}

std::vector<std::size_t> blocksToShow(const std::vector<BlockCharacters>& blocks,
                                      const icu::UnicodeString& sample, std::size_t most) {
  std::vector<std::size_t> chosen;
  for (const bool wanted : {true, false}) {
    for (std::size_t i = 0; i < blocks.size() && chosen.size() < most; ++i)
      if (hasAnyOf(blocks[i], sample) == wanted) chosen.push_back(i);
  }
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

CharacterChart chartOf(const std::vector<int>& codes, std::size_t most) {
  constexpr int kColumns = static_cast<int>(CharacterRow::kColumns);
  CharacterChart chart;
  std::size_t count = 0;
  for (const int codePoint : codes) {
    if (!isSeen(codePoint)) continue;
    if (count == most) {
      ++chart.more;
      continue;
    }
    const int first = codePoint - codePoint % kColumns;
    if (chart.rows.empty() || chart.rows.back().first != first)
      chart.rows.push_back(emptyRow(first));
    chart.rows.back().codes[static_cast<std::size_t>(codePoint % kColumns)] = codePoint;
    ++count;
  }
  return chart;
}

}  // namespace qxfont
