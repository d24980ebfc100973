#pragma once

#include <string>
#include <vector>

#include "qxcommon/export.h"
#include "qxfontservice/font_info.h"

namespace QXFontService_NS::ext {

/// Which operation wrote the glyphs.
enum class NumberedForm {
  subsetFont,   ///< `makeSubsetFont` and all others that keep the glyph ids of the font
  embedFont,    ///< `getEmbedFont`, which numbers the glyphs of a name-keyed CFF anew
  cidFontType0  ///< `makePostScriptCIDFontType0`, which counts its CIDs as the glyphs are asked for
};

/// A glyph of an embedded font.
struct GlyphNumber {
  unsigned short glyph = 0;  ///< its id in the font
  unsigned short id = 0;     ///< its id, in a CID-keyed font its CID, in what was written
  int unicode = -1;          ///< the lowest character that the font shows by it; -1 for none
  float width = 0;           ///< its advance, in font units
};

/// How a form numbers the glyphs `gids` of a face, so that a document can name them.
///
/// @return by rising `id`. Of a form that renumbers, every glyph that it writes behind glyph 0,
///   parts of composites among them, and those that were asked for twice as often as it writes
///   them; of the others each of `gids` once. Empty for an empty handle and for forms that the font
///   does not have. Whether the form can be written is another question.
/// It may read the font's file. One thread a font, as the operations that write.
QX_EXPORT std::vector<GlyphNumber> numberGlyphs(const FS_FontInfo& font, NumberedForm form,
                                                const std::vector<unsigned short>& gids);

/// A character of a Type 1 font, and what the pages of `FS_FontInfo::getType1EmbedFont` call it.
struct CharacterNumber {
  int character = 0;                   ///< as it was asked for
  unsigned short code = 0;             ///< page << 8 | code; 0: the font cannot show the character
  unsigned short glyph = FS_NO_GLYPH;  ///< its id in the font program; FS_NO_GLYPH without one
  std::string name;                    ///< of the glyph that an embedded page has under the code
  float width = 0;                     ///< its advance, in whole font units
};

/// How the pages of a Type 1 font number characters, so that a document can name them.
///
/// Each character gets its code as by `FS_FontInfo::getType1CharCode`, in the order given, and
/// keeps it as long as the font lives.
///
/// @param characters Unicode, in any order and any number of times.
/// @return a row for each, in their order; empty for an empty handle and for other kinds of fonts.
/// It reads the font's files. One thread a font, as the operations that write.
QX_EXPORT std::vector<CharacterNumber> numberCharacters(const FS_FontInfo& font,
                                                        const std::vector<int>& characters);

}  // namespace QXFontService_NS::ext
