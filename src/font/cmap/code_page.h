#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string_view>

namespace QXFontService_NS::cmap {

/// A code that a converter gives otherwise than the fonts have it.
struct FixedCode {
  char16_t unit;
  std::uint16_t code;
};

/// Which subtables are searched by the codes of a legacy encoding.
struct CodePageRow {
  std::uint16_t platformID;
  std::uint16_t encodingID;
  const char* converter;  ///< ICU's name
  std::array<FixedCode, 2> fixed;
};

inline constexpr std::size_t kCodePages = 8;
extern const std::array<CodePageRow, kCodePages> kCodePageRows;

/// A legacy encoding: what ICU's converter answers, asked once for each code.
///
/// Opening a converter takes ten times as long as a conversion, and a converter must not be shared
/// between threads. So the answers are kept, 256 codes together, made when the first of them is
/// asked for. They serve all fonts; any number of threads may convert.
class CodePage {
 public:
  static constexpr int kNoCode = -1;

  /// The encoding of a subtable, or null where it has codes of Unicode. Lives as long as the
  /// process.
  static const CodePage* find(std::uint16_t platformID, std::uint16_t encodingID);

  /// The code of one or two bytes (high byte first) for `code`, or `kNoCode`: for codes above
  /// 0xFFFF, and where the converter fails or gives another number of bytes. A lone "?" is refused
  /// as a substitute; the two-byte substitutes of ICU's converters are required to pass as codes.
  [[nodiscard]] int convert(int code) const;

 private:
  static constexpr std::size_t kBlock = 256;
  using Block = std::array<std::int32_t, kBlock>;

  static std::array<CodePage, kCodePages>& all();
  [[nodiscard]] const Block& block(std::size_t high) const;
  [[nodiscard]] const Block* makeBlock(std::size_t high) const;

  const CodePageRow* row_ = nullptr;
  mutable std::array<std::atomic<const Block*>, 256> blocks_{};
};

}  // namespace QXFontService_NS::cmap
