#pragma once

namespace QXFontService_NS::layout {

// Bits of a glyph record's flag, set by hosts. Beside the outside-position bit, layout changes
// none of them.

/// On a mark: the walk to its base looks at the class of zero-width glyphs too.
inline constexpr int kSeesZeroWidth = 0x1000;
/// On a mark: the walk to its base passes over glyphs that are components.
inline constexpr int kPassesComponents = 0x2000;
/// On the glyph before a mark: the mark's ligature is found by class alone, and its component by
/// the mark's `skipInfo`.
inline constexpr int kByComponent = 0x4000;
/// The glyph is placed absolutely.
inline constexpr int kAbsolute = 0x8000;

}  // namespace QXFontService_NS::layout
