#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "embed/charstring/type1_charstrings.h"

namespace QXFontService_NS::cid {

/// Charstrings back to back, and where each begins; the last start is the end of the last one.
struct PackedCharStrings {
  std::string bytes;
  std::vector<std::uint64_t> starts;
};

/// Encodes and encrypts each list of tokens.
[[nodiscard]] PackedCharStrings packCharStrings(const std::vector<FS_CharStringTokens>& lists);

/// How the binary block of a CIDFontType 0 is laid out (Adobe Technical Note 5014): the map of the
/// CIDs, the charstrings, the map of the Subrs, the Subrs. Offsets count from the start of the
/// block.
struct CidLayout {
  unsigned fdBytes = 0;  ///< bytes of a Font DICT index in the CID map
  unsigned gdBytes = 0;  ///< of a charstring offset
  unsigned sdBytes = 0;  ///< of a Subr offset
  std::uint64_t cidMapSize = 0;
  std::uint64_t charStringSize = 0;
  std::uint64_t subrMapSize = 0;
  std::uint64_t subrSize = 0;

  [[nodiscard]] std::uint64_t subrMapOffset() const { return cidMapSize + charStringSize; }
  [[nodiscard]] std::uint64_t subrOffset() const { return subrMapOffset() + subrMapSize; }
  [[nodiscard]] std::uint64_t size() const { return subrOffset() + subrSize; }
};

/// Bytes of a Font DICT index for `fontDicts` of them.
[[nodiscard]] unsigned fdBytesFor(std::size_t fontDicts);
/// Bytes of a charstring offset. Two bytes end at 4096 already: kept.
[[nodiscard]] unsigned gdBytesFor(std::uint64_t charStringSize, unsigned fdBytes,
                                  std::size_t glyphs);
/// Bytes of a Subr offset; `before` is the size of the CID map and the charstrings.
[[nodiscard]] unsigned sdBytesFor(std::uint64_t before, std::uint64_t subrSize, std::size_t subrs);

[[nodiscard]] CidLayout layOut(const PackedCharStrings& charStrings, const PackedCharStrings& subrs,
                               std::size_t fontDicts);

/// The binary block itself.
[[nodiscard]] std::string cidBlock(const CidLayout& layout, const PackedCharStrings& charStrings,
                                   const PackedCharStrings& subrs,
                                   const std::vector<unsigned char>& fdIndexes);

/// Bytes as lowercase hexadecimal, with a line end after every 32 bytes.
[[nodiscard]] std::string hexLines(const std::string& bytes);

}  // namespace QXFontService_NS::cid
