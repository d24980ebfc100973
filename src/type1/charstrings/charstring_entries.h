#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace QXFontService_NS::type1 {

/// An entry of the CharStrings dictionary in the plain text of a private part.
struct CharStringEntry {
  std::string name;
  std::size_t start = 0;   ///< where the text of the entry begins
  std::size_t length = 0;  ///< of that text, to the end of the entry's line
  bool used = false;       ///< wanted in the output; `.notdef` always is
  // Entry numbers of the parts of an accented glyph, from 1; 0: none. And their codes in the
  // standard encoding, as read.
  std::size_t seacBase = 0;
  std::size_t seacAccent = 0;
  int standardBase = 0;
  int standardAccent = 0;
};

/// Entry numbers from 1 by glyph name: 0 means none everywhere, and a base letter may be the first
/// of its font.
using CharStringIndex = std::map<std::string, std::size_t, std::less<>>;

/// Reads at most `count` entries of a CharStrings dictionary and finds the parts of their accents.
///
/// The count of many fonts is too high: the first text that is no entry ends the read.
/// @param plain the decrypted private part.
/// @param position where the entries begin; moved to where they end.
void readCharStringEntries(std::string_view plain, std::size_t& position, std::size_t count,
                           std::vector<CharStringEntry>& entries, CharStringIndex& index);

}  // namespace QXFontService_NS::type1
