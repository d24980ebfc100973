#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace QXFontService_NS::type1 {

inline constexpr std::size_t kStandardStringCount = 391;

/// The strings that every CFF font knows without carrying them, by string id (SID); the strings of
/// a font's own String INDEX begin at SID 391 (Adobe Technical Note 5176, Appendix A).
extern const std::array<std::string_view, kStandardStringCount> kStandardStrings;

/// Adobe StandardEncoding: the SID of each character code, 0 where the code is not encoded (Adobe
/// Technical Note 5176, Appendix B).
extern const std::array<std::uint16_t, 256> kStandardEncodingSids;

}  // namespace QXFontService_NS::type1
