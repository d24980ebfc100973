#include "qxfont/html/base64.h"

#include <algorithm>
#include <cstddef>

namespace qxfont {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kGroup = 3;  // bytes, which make four digits
constexpr int kBitsOfDigit = 6;

/// The digits of one to three bytes, without padding.
void append(std::string& text, std::string_view group) {
  unsigned bits = 0;
  for (std::size_t i = 0; i < kGroup; ++i)
    bits = bits << 8U | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
  for (std::size_t i = 0; i <= group.size(); ++i)
    text += kDigits[bits >> (kBitsOfDigit * (kGroup - i)) & 0x3FU];
}

}  // namespace

std::string base64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + kGroup - 1) / kGroup * (kGroup + 1));
  for (std::size_t at = 0; at < bytes.size(); at += kGroup) append(text, bytes.substr(at, kGroup));
  text.append((kGroup - bytes.size() % kGroup) % kGroup, '=');
  return text;
}

}  // namespace qxfont
