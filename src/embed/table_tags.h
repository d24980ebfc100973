#pragma once

#include <cstdint>

namespace QXFontService_NS::embed {

/// A four-letter table tag as the big-endian number that it is in files: `tableTag("glyf")`.
constexpr std::uint32_t tableTag(const char (&text)[5]) {
  std::uint32_t tag = 0;
  for (int i = 0; i < 4; ++i) tag = tag << 8 | static_cast<unsigned char>(text[i]);
  return tag;
}

inline constexpr std::uint32_t kCffTag = tableTag("CFF ");
inline constexpr std::uint32_t kGdirTag = tableTag("gdir");
inline constexpr std::uint32_t kGlyfTag = tableTag("glyf");
inline constexpr std::uint32_t kHeadTag = tableTag("head");
inline constexpr std::uint32_t kLocaTag = tableTag("loca");

}  // namespace QXFontService_NS::embed
