#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "qxfont/specimen/characters.h"

namespace qxfont {

/// The characters of a face in one block of Unicode.
struct BlockCharacters {
  std::string name;  ///< "Latin 1 Supplement"
  std::vector<int> codes;
};

/// All blocks of which a face has characters, by rising code.
std::vector<BlockCharacters> blocksOf(const Characters& characters);

/// As many blocks as are shown glyph by glyph: that of the sample text, then the first others.
/// @param most of them.
/// @return indexes of `blocks`, rising.
std::vector<std::size_t> blocksToShow(const std::vector<BlockCharacters>& blocks,
                                      const icu::UnicodeString& sample, std::size_t most);

/// A row of sixteen neighbours.
struct CharacterRow {
  static constexpr std::size_t kColumns = 16;
  static constexpr int kNone = -1;

  int first = 0;  ///< the code of the first column, a multiple of 16
  std::array<int, kColumns> codes{};
};

/// Characters as a chart shows them, without rows that would be empty.
struct CharacterChart {
  std::vector<CharacterRow> rows;
  std::size_t more = 0;  ///< characters that can be seen behind the last one shown
};

/// @param most how many characters are shown.
CharacterChart chartOf(const std::vector<int>& codes, std::size_t most);

}  // namespace qxfont
