#pragma once

#include <cstdint>

namespace QXFontService_NS::cmap {

class CodePage;

/// How a Unicode code becomes a code of the subtable that is searched: by the platform and the
/// encoding of the subtable. Immutable; any number of threads may convert.
class CodeConversion {
 public:
  /// What no subtable maps.
  static constexpr int kNoCode = -1;

  /// Codes stay as they are.
  CodeConversion() = default;

  /// The conversion for a subtable. `symbolRange`: it is of format 4 or 12 and its first mapped
  /// code lies in the private range of symbol fonts.
  CodeConversion(std::uint16_t platformID, std::uint16_t encodingID, bool symbolRange);

  /// The code of the subtable for `code`, or `kNoCode`.
  [[nodiscard]] int convert(int code) const;

  /// Where the 256 codes from `block` * 256 on lie after the symbol rule: the rule moves them
  /// together. Not to be asked with a code page.
  [[nodiscard]] std::uint32_t blockAfterSymbolRule(std::uint32_t block) const;

  [[nodiscard]] bool usesCodePage() const { return codePage_ != nullptr; }

 private:
  static constexpr int kPrivateBits = 0xF000;

  bool symbol_ = false;
  const CodePage* codePage_ = nullptr;  ///< lives as long as the process
};

}  // namespace QXFontService_NS::cmap
