#include "font/cmap/code_conversion.h"

#include "font/cmap/code_page.h"

namespace QXFontService_NS::cmap {
namespace {

constexpr std::uint16_t kWindows = 3;
constexpr std::uint16_t kSymbolEncoding = 0;
constexpr std::uint16_t kUnicodeEncoding = 1;

// Icon fonts call their encoding Unicode and yet begin at U+F000: the rule serves them too.
bool followsSymbolRule(std::uint16_t platformID, std::uint16_t encodingID) {
  return platformID == kWindows &&
         (encodingID == kSymbolEncoding || encodingID == kUnicodeEncoding);
}

}  // namespace

CodeConversion::CodeConversion(std::uint16_t platformID, std::uint16_t encodingID, bool symbolRange)
    : symbol_(symbolRange && followsSymbolRule(platformID, encodingID)),
      codePage_(CodePage::find(platformID, encodingID)) {}

int CodeConversion::convert(int code) const {
  if (codePage_ != nullptr) return codePage_->convert(code);
  return symbol_ && (code & kPrivateBits) == 0 ? code | kPrivateBits : code;
}

std::uint32_t CodeConversion::blockAfterSymbolRule(std::uint32_t block) const {
  constexpr std::uint32_t bits = kPrivateBits >> 8;
  return symbol_ && (block & bits) == 0 ? block | bits : block;
}

}  // namespace QXFontService_NS::cmap
