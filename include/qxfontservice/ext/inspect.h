#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/glyph_class_def.h"

namespace QXFontService_NS::ext {

/// @file
/// Whole tables of a face as the queries of `FS_FontInfo` answer from them. All are empty for an
/// empty handle and, unless they say otherwise, for fonts that have no sfnt around them. Any
/// thread: they ask what was read when the face was found or created.

/// The languages in which a face has names, for the name queries of `FS_FontInfo`.
///
/// @return the numbers of the `name` table, rising: Windows language ids, and for names that only
///   a Macintosh record gives Macintosh language codes, of which English is 0.
QX_EXPORT std::vector<int> nameLanguages(const FS_FontInfo& font);

/// How many glyphs a face has, as `maxp` says; 0 for fonts without one.
QX_EXPORT unsigned int glyphCount(const FS_FontInfo& font);

/// Whether a face has outlines in `CFF `, which decides how `FS_FontInfo::getEmbedFont` embeds it;
/// the file type tells the version of the font file.
QX_EXPORT bool hasCffOutlines(const FS_FontInfo& font);

/// A character and its glyph.
struct CharacterGlyph {
  int code = 0;              ///< Unicode
  unsigned short glyph = 0;  ///< its id
};

/// Each code of Unicode for which `getGlyphID` has a horizontal glyph, rising (OpenType `cmap`).
/// Fonts of other kinds are asked code by code, which takes a moment.
QX_EXPORT std::vector<CharacterGlyph> characterMap(const FS_FontInfo& font);

/// The advance of each glyph in font units, `glyphCount` of them (OpenType `hmtx`).
QX_EXPORT std::vector<unsigned short> advances(const FS_FontInfo& font);

/// A character and its width.
struct CharacterWidth {
  int code = 0;     ///< Unicode
  float width = 0;  ///< whole font units, as `getTextWidth` of an em of that many tells it
};

/// Each character that a Type 1 font measures, rising, which needs no font program; empty for other
/// kinds of fonts. They are asked one by one, which takes a moment.
QX_EXPORT std::vector<CharacterWidth> characterWidths(const FS_FontInfo& font);

/// Two glyphs that move towards or away from each other.
struct KernPair {
  unsigned short left = 0;   ///< glyph id
  unsigned short right = 0;  ///< glyph id
  short value = 0;           ///< font units, as `getPairKerningValue` of size 0 tells it
};

/// Each pair that the font lists, once, by rising left glyph, then right (OpenType `kern`); empty
/// where `hasPairKerningInfo(vertical)` is false. A pair that the search of `getPairKerningValue`
/// misses, since the font does not list its pairs in order, has 0.
///
/// Type 1 fonts are asked with what `getPairKerningValue` takes in place of glyphs: characters that
/// the font measures for AFM files, codes of the font's code page for PFM files. Pairs of value 0
/// do not tell themselves apart there and are left out.
QX_EXPORT std::vector<KernPair> kernPairs(const FS_FontInfo& font, bool vertical);

/// A character, the variation selector behind it, and what stands for both.
struct VariationGlyph {
  int code = 0;              ///< Unicode
  int selector = 0;          ///< Unicode
  unsigned short glyph = 0;  ///< its id
};

/// Each sequence that the font lists and `variationSequence` answers, once, by rising selector,
/// then character (OpenType `cmap` format 14). Of a damaged font that lists millions, the first
/// ones.
QX_EXPORT std::vector<VariationGlyph> variationSequences(const FS_FontInfo& font);

/// A glyph and its class.
struct ClassedGlyph {
  unsigned short glyph = 0;             ///< its id
  GlyphClassDef glyphClass = GCD_NONE;  ///< as the font's table has it
};

/// Each glyph to which the font gives a class, rising (OpenType `GDEF`, GlyphClassDef).
QX_EXPORT std::vector<ClassedGlyph> glyphClasses(const FS_FontInfo& font);

}  // namespace QXFontService_NS::ext
