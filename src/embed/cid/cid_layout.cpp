#include "embed/cid/cid_layout.h"

#include <string_view>

#include "embed/charstring/type1_encoder.h"

namespace QXFontService_NS::cid {
namespace {

constexpr std::uint64_t kMostThreeByteBlock = 0x1000001;
constexpr std::size_t kHexBytesPerLine = 32;

void appendNumber(std::string& out, std::uint64_t value, unsigned size) {
  for (unsigned i = size; i-- > 0;) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

}  // namespace

PackedCharStrings packCharStrings(const std::vector<FS_CharStringTokens>& lists) {
  PackedCharStrings packed;
  for (const FS_CharStringTokens& tokens : lists) {
    packed.starts.push_back(packed.bytes.size());
    std::string bytes = charstring::type1Bytes(tokens);
    charstring::encryptCharString(bytes);
    packed.bytes += bytes;
  }
  packed.starts.push_back(packed.bytes.size());
  return packed;
}

unsigned fdBytesFor(std::size_t fontDicts) {
  if (fontDicts == 0) return 0;
  return fontDicts < 257 ? 1 : 2;
}

unsigned gdBytesFor(std::uint64_t charStringSize, unsigned fdBytes, std::size_t glyphs) {
  if (charStringSize + std::uint64_t{fdBytes + 2} * (glyphs + 1) <= 4096) return 2;
  return charStringSize + std::uint64_t{fdBytes + 3} * (glyphs + 1) < kMostThreeByteBlock ? 3 : 4;
}

unsigned sdBytesFor(std::uint64_t before, std::uint64_t subrSize, std::size_t subrs) {
  const std::uint64_t data = before + subrSize;
  if (data + 2 + 2 * std::uint64_t{subrs} <= 0x10000) return 2;
  return data + 3 + 3 * std::uint64_t{subrs} < kMostThreeByteBlock ? 3 : 4;
}

CidLayout layOut(const PackedCharStrings& charStrings, const PackedCharStrings& subrs,
                 std::size_t fontDicts) {
  const std::size_t glyphs = charStrings.starts.size() - 1;
  const std::size_t subrCount = subrs.starts.size() - 1;
  CidLayout layout;
  layout.charStringSize = charStrings.bytes.size();
  layout.subrSize = subrs.bytes.size();
  layout.fdBytes = fdBytesFor(fontDicts);
  layout.gdBytes = gdBytesFor(layout.charStringSize, layout.fdBytes, glyphs);
  layout.cidMapSize = std::uint64_t{layout.gdBytes + layout.fdBytes} * (glyphs + 1);
  layout.sdBytes = sdBytesFor(layout.subrMapOffset(), layout.subrSize, subrCount);
  layout.subrMapSize = std::uint64_t{layout.sdBytes} * (subrCount + 1);
  return layout;
}

std::string cidBlock(const CidLayout& layout, const PackedCharStrings& charStrings,
                     const PackedCharStrings& subrs, const std::vector<unsigned char>& fdIndexes) {
  std::string block;
  block.reserve(layout.size());
  for (std::size_t i = 0; i < charStrings.starts.size(); ++i) {
    appendNumber(block, i < fdIndexes.size() ? fdIndexes[i] : 0U, layout.fdBytes);
    appendNumber(block, charStrings.starts[i] + layout.cidMapSize, layout.gdBytes);
  }
  block += charStrings.bytes;
  for (const std::uint64_t start : subrs.starts)
    appendNumber(block, start + layout.subrOffset(), layout.sdBytes);
  block += subrs.bytes;
  return block;
}

std::string hexLines(const std::string& bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(bytes.size() * 2 + bytes.size() / kHexBytesPerLine);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
    if ((i + 1) % kHexBytesPerLine == 0) text += '\n';
  }
  return text;
}

}  // namespace QXFontService_NS::cid
