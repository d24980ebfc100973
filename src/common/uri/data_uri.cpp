#include "common/uri/data_uri.h"

#include <algorithm>
#include <cstdint>

#include "common/uri/percent.h"

namespace QXCommonNS::uri {
namespace {

constexpr std::string_view kDefaultMediaType = "text/plain";
constexpr std::string_view kBase64 = "base64";

char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string trimmedAndLowered(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  std::string result(text.substr(first, text.find_last_not_of(' ') - first + 1));
  std::transform(result.begin(), result.end(), result.begin(), lowered);
  return result;
}

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

int sextet(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  return c == '/' ? 63 : -1;
}

struct Base64Decoder {
  std::string bytes;
  std::uint32_t bits = 0;
  int held = 0;  // bits that are not yet a byte
  std::size_t digits = 0;
  std::size_t padding = 0;

  bool take(char c) {
    if (isBlank(c)) return true;
    if (c == '=') return ++padding <= 2;
    const int value = sextet(c);
    if (value < 0 || padding > 0) return false;
    ++digits;
    bits = (bits << 6 | static_cast<std::uint32_t>(value)) & 0xFFFF;
    held += 6;
    if (held >= 8) {
      held -= 8;
      bytes.push_back(static_cast<char>(bits >> held & 0xFF));
    }
    return true;
  }

  // One digit alone is no byte; padding, where there is any, must fill the last four.
  [[nodiscard]] bool isWhole() const {
    return digits % 4 != 1 && (padding == 0 || (digits + padding) % 4 == 0);
  }
};

// The part of the header before its first ";", and whether its last part is "base64".
struct Header {
  std::string mediaType;
  bool base64 = false;
};

Header readHeader(std::string_view text) {
  Header header;
  header.mediaType = trimmedAndLowered(text.substr(0, text.find(';')));
  if (header.mediaType.empty()) header.mediaType = kDefaultMediaType;
  const std::size_t last = text.rfind(';');
  header.base64 =
      last != std::string_view::npos && trimmedAndLowered(text.substr(last + 1)) == kBase64;
  return header;
}

}  // namespace

std::optional<std::string> decodeBase64(std::string_view text) {
  Base64Decoder decoder;
  decoder.bytes.reserve(text.size() / 4 * 3);
  for (const char c : text) {
    if (!decoder.take(c)) return std::nullopt;
  }
  if (!decoder.isWhole()) return std::nullopt;
  return std::move(decoder.bytes);
}

std::optional<DataContent> readDataUri(std::string_view text) {
  text = text.substr(0, text.find('#'));
  const std::size_t colon = text.find(':');
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos || colon > comma) return std::nullopt;
  const Header header = readHeader(text.substr(colon + 1, comma - colon - 1));
  std::string bytes = decodePercent(text.substr(comma + 1));
  if (!header.base64) return DataContent{header.mediaType, std::move(bytes)};
  std::optional<std::string> decoded = decodeBase64(bytes);
  if (!decoded) return std::nullopt;
  return DataContent{header.mediaType, std::move(*decoded)};
}

}  // namespace QXCommonNS::uri
