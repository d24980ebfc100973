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
    "/CMapType 2 def\n"
    "1 begincodespacerange\n"
    "<0000> <FFFF>\n"
    "endcodespacerange\n";

constexpr const char* kTail =
    "endcmap\n"
    "CMapName currentdict /CMap defineresource pop\n"
    "end\n"
    "end\n";

}  // namespace

std::string utf16Hex(const icu::UnicodeString& text) {
  std::string hex;
  for (int i = 0; i < text.length(); ++i) {
    hex += fmt::format("{:04X}", static_cast<unsigned>(text.charAt(i)));
  }
  return hex;
}

std::string toUnicodeMap(const std::map<unsigned short, icu::UnicodeString>& texts) {
  std::vector<std::string> rows;
  for (const auto& [code, text] : texts) {
    if (!text.isEmpty()) rows.push_back(fmt::format("<{:04X}> <{}>\n", code, utf16Hex(text)));
  }
  std::string map = kHead;
  for (std::size_t i = 0; i < rows.size(); i += kBlock) {
    const std::size_t count = std::min(kBlock, rows.size() - i);
    map += fmt::format("{} beginbfchar\n", count);
    for (std::size_t row = i; row < i + count; ++row) map += rows[row];
    map += "endbfchar\n";
  }
  return map + kTail;
}

}  // namespace qxfont
