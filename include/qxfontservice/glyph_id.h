#pragma once

namespace QXFontService_NS {

/// The glyph id that means "no glyph" wherever glyph ids are passed.
inline constexpr unsigned short FS_NO_GLYPH = 0xFFFF;

}  // namespace QXFontService_NS
