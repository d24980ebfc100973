#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "qxfontservice/names.h"

namespace QXFontService_NS::type1 {

/// The converter of a Windows character set; those that have no code page of their own are read as
/// that of Western Europe.
const char* converterOfCharSet(std::uint8_t charSet);

/// Text of a file in the code page of its character set; empty where that cannot be had.
UnicodeString decodeCharSet(std::uint8_t charSet, const std::string& bytes);

/// Turns characters into bytes of a code page.
class CharSetEncoder {
 public:
  explicit CharSetEncoder(std::uint8_t charSet);
  ~CharSetEncoder();
  CharSetEncoder(const CharSetEncoder&) = delete;
  CharSetEncoder& operator=(const CharSetEncoder&) = delete;

  /// Whether there is a converter.
  [[nodiscard]] bool isOpen() const { return converter_ != nullptr; }
  /// The byte of a character; nothing where the code page does not have it.
  std::optional<std::uint8_t> encode(int character);

 private:
  struct UConverter* converter_;
};

}  // namespace QXFontService_NS::type1
