#include "qxfont/pdf/to_unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace qxfont {
namespace {

// A CMap takes at most this many mappings in one block.
constexpr std::size_t kBlock = 100;

constexpr const char* kHead =
    "/CIDInit /ProcSet findresource begin\n"
    "12 dict begin\n"
    "begincmap\n"
    "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
    "/CMapName /Adobe-Identity-UCS def\n"
    "/CMapType 2 def\n";

constexpr const char* kTail =
    "endcmap\n"
    "CMapName currentdict /CMap defineresource pop\n"
    "end\n"
    "end\n";

std::string codeHex(unsigned code, int codeBytes) {
  return fmt::format("<{:0{}X}>", code, codeBytes * 2);
}

std::string codeSpace(int codeBytes) {
  const unsigned last = codeBytes == 1 ? 0xFF : 0xFFFF;
  return fmt::format("1 begincodespacerange\n{} {}\nendcodespacerange\n", codeHex(0, codeBytes),
                     codeHex(last, codeBytes));
}

}  // namespace

std::string utf16Hex(const icu::UnicodeString& text) {
  std::string hex;
  for (int i = 0; i < text.length(); ++i) {
    hex += fmt::format("{:04X}", static_cast<unsigned>(text.charAt(i)));
  }
  return hex;
}

std::string toUnicodeMap(const std::map<unsigned short, icu::UnicodeString>& texts, int codeBytes) {
  std::vector<std::string> rows;
  for (const auto& [code, text] : texts) {
    if (text.isEmpty()) continue;
    rows.push_back(fmt::format("{} <{}>\n", codeHex(code, codeBytes), utf16Hex(text)));
  }
  std::string map = kHead + codeSpace(codeBytes);
  for (std::size_t i = 0; i < rows.size(); i += kBlock) {
    const std::size_t count = std::min(kBlock, rows.size() - i);
    map += fmt::format("{} beginbfchar\n", count);
    for (std::size_t row = i; row < i + count; ++row) map += rows[row];
    map += "endbfchar\n";
  }
  return map + kTail;
}

}  // namespace qxfont
