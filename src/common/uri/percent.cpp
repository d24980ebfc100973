#include "common/uri/percent.h"

namespace QXCommonNS::uri {
namespace {

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The byte that stands encoded at `at`, or -1.
int byteAt(std::string_view text, std::size_t at) {
  if (text[at] != '%' || text.size() - at < 3) return -1;
  const int high = hexValue(text[at + 1]);
  const int low = hexValue(text[at + 2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

}  // namespace

std::string decodePercent(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const int byte = byteAt(text, at);
    bytes.push_back(byte < 0 ? text[at] : static_cast<char>(byte));
    if (byte >= 0) at += 2;
  }
  return bytes;
}

}  // namespace QXCommonNS::uri
