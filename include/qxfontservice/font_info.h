#pragma once

#include <string>
#include <utility>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/export.h"
#include "qxcommon/lang.h"
#include "qxcommon/uri.h"
#include "qxfontservice/cid_system_info.h"
#include "qxfontservice/code_page_range.h"
#include "qxfontservice/embed_status.h"
#include "qxfontservice/encoding_scheme.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_file_type.h"
#include "qxfontservice/glyph_class_def.h"
#include "qxfontservice/glyph_id.h"
#include "qxfontservice/names.h"
#include "qxfontservice/panose.h"

namespace QXFontService_NS {

class FS_BaseFont;
class FS_NewTextMetricEx;
class FS_TTGlyphMap;
class GlyphIDArray;
class GlyphIDArray2;
class GlyphIDPosition;
struct FS_GSUBGPOSInfo;
struct FS_GlyphDrawInfo;
struct FontInfoAccess;

/// A handle on one face of a font.
///
/// Copies name the same font. A handle does not keep its font alive: fonts found by name belong to
/// the service or to the `FS_ExtraFonts` they came from, and the handle must not outlive those; a
/// font opened by URI belongs to its handle until `deleteFont`.
///
/// An empty handle may be asked anything: each query tells its neutral answer, where that is not
/// 0, false or empty. Queries fail silently and never throw a `QXError`.
///
/// Unless a member says otherwise: glyph ids are 16 bits and FS_NO_GLYPH is none; a metric's `size`
/// is the cell height (usWinAscent + usWinDescent) when positive, the em when negative, in any unit
/// of the host, which the answer then has too, and 0 asks for font units; queries may run on any
/// thread, the members that write fonts on one thread a font, and those that write take nothing
/// back from `out` when they answer false.
class QX_EXPORT FS_FontInfo {
 public:
  FS_FontInfo() {}  // user-provided, so that hosts may declare constant handles
  FS_FontInfo(const FS_FontInfo&) = default;
  FS_FontInfo& operator=(const FS_FontInfo&) = default;
  /// Releases no font.
  ~FS_FontInfo() = default;

  // --- Making ---

  /// Finds a face by family or file name and loads it.
  ///
  /// A style that the family lacks is answered by the nearest one: the same weight upright for an
  /// italic, then the nearest lighter weight up to 500 and the nearest heavier one above, else the
  /// nearest on the other side. Such a request fills the family for good, so that the answer to a
  /// later one may depend on it.
  ///
  /// @param weight scale of OpenType usWeightClass; 0 means 400.
  /// @param stretch scale of OpenType usWidthClass; 0 means 5.
  /// @param extra a document's fonts, searched first; may be null.
  /// @return false when nothing is found or the face cannot be loaded; the reason stands in
  ///   `getError`, and the handle keeps the font it had.
  bool createFont(const UnicodeString& family, int weight, bool italic, int stretch,
                  FS_ExtraFonts* extra = nullptr);
  /// As above with stretch 0.
  bool createFont(const UnicodeString& family, int weight, bool italic,
                  FS_ExtraFonts* extra = nullptr);
  /// Opens a single sfnt font of a file or `data:` URI that the service need not know; each call
  /// makes a font of its own, which `deleteFont` releases. The first four bytes decide between
  /// OpenType and TrueType, not the extension: collections, web fonts and Type 1 files never open
  /// (`ext::openFontFile` opens those too).
  /// @return false with the reason in `getError`; the handle keeps the font it had, at face 0.
  bool createFont(const QXUri& uri);
  /// Releases a font opened by URI and empties the handle; not for fonts found by name.
  void deleteFont();
  /// Whether the handle names a font.
  bool isCreatedFont() const { return font_ != nullptr; }
  /// The font object, or null; it stays the service's.
  FS_BaseFont* getFont() const { return font_; }
  /// Index of the face in its file.
  int getEntry() const { return entry_; }
  /// Why the last `createFont` failed; it may hold a code after a success too, when a linked EUDC
  /// font did not open.
  const QXError& getError() const { return error_; }

  // --- Questions by name; none of them changes a handle ---

  /// URI of the file that `createFont` would take; empty when nothing is found.
  /// @param isExtra told whether it came from `extra`; may be null.
  static QXUri getFontFolderPath(const UnicodeString& family, int weight, bool italic, int stretch,
                                 FS_ExtraFonts* extra, bool* isExtra);
  /// Metrics in font units of the face that `createFont` would take, which is loaded for it.
  /// @return false when nothing is found or the face cannot be loaded.
  static bool getNewTextMetricEx(const UnicodeString& family, int weight, bool italic, int stretch,
                                 FS_NewTextMetricEx& out, FS_ExtraFonts* extra);
  /// As above with stretch 0.
  static bool getNewTextMetricEx(const UnicodeString& family, int weight, bool italic,
                                 FS_NewTextMetricEx& out, FS_ExtraFonts* extra);
  /// The name, in a language, of the family's regular face; the preferred family where there is
  /// one, unless the configuration switches that off. Empty when nothing is found and for a
  /// document's web font, which tells no names of its own.
  static UnicodeString getFamilyName(QXLang::LanguageID lang, const UnicodeString& family,
                                     FS_ExtraFonts* extra);
  /// Whether two family names are the same to a lookup: case, blanks and hyphens do not count.
  static bool isSameFontName(const UnicodeString& a, const UnicodeString& b);

  // --- End-user-defined characters ---

  /// Whether the code point lies in the configured range; false from U+10000 on.
  static bool isEUDC(int codePoint);
  /// Glyph in the EUDC font that serves this face; FS_NO_GLYPH for none.
  unsigned short getEudcGlyphID(int codePoint) const;
  /// Name and style with which `createFont` finds that EUDC font; on false the outputs stay.
  bool getEudcFontName(int codePoint, UnicodeString& name, int& weight, bool& italic) const;

  // --- Kind, file, style ---

  /// Whether the font is a pair of metric file and Type 1 font program.
  bool isType1Font() const;
  /// Whether there is an sfnt around the font, of whichever outlines. A document's font answers
  /// these four as the font inside it.
  bool isTrueTypeFont() const;
  /// Whether glyphs are reached by name: Type 1, or OpenType that is not CID-keyed.
  bool isType1OrNoCID() const;
  /// Whether glyphs are reached by number: TrueType, or CID-keyed OpenType.
  bool isTrueTypeOrCID() const;
  /// Whether the font is a document's; each output may be null.
  bool isExtraFont(int* weight, bool* italic) const;
  /// FS_FILETYPE_UNKNOWN for an empty handle.
  FS_FontFileType getFontFileType() const;
  /// The kind of the font inside a web font; else as `getFontFileType`.
  FS_FontFileType getFontFileType2() const;
  /// The file as it was found; empty for an empty handle.
  QXUri getFontFileName() const;
  /// The file of the font inside a document's font; else as `getFontFileName`.
  QXUri getFontFileName2() const;
  /// The font inside a document's font, else the font itself; null for an empty handle.
  FS_BaseFont* getExtraBaseFont() const;
  /// Weight, italic, stretch; each output may be null. An empty handle gives 0, false, 0.
  void getFontStyle(int* weight, bool* italic, int* stretch) const;
  /// As `getFontStyle` for the font inside a document's font.
  void getFontStyle2(int* weight, bool* italic, int* stretch) const;
  /// The configured shift of the baseline in em; 0 without one.
  float getBaselineAdjust() const;
  /// The configured factor on the font's size; 1 without one.
  float getFontSizeAdjust() const;

  // --- Names ---

  ///@{
  /// A name of the face in a language (OpenType `name`); `ext::nameLanguages` tells which there
  /// are.
  ///
  /// @param lang a Windows language id; 0 asks for the name in the language of the process, as
  ///   it was when the font was read (`QXLang::getDefaultLocale`), else for the English one, else
  ///   for any.
  /// @return empty for a name that the font has not in that language, and for an empty handle.
  UnicodeString getFamilyName(QXLang::LanguageID lang) const;
  UnicodeString getSubFamilyName(QXLang::LanguageID lang) const;
  UnicodeString getFullFontName(QXLang::LanguageID lang) const;
  UnicodeString getPostScriptName(QXLang::LanguageID lang) const;
  UnicodeString getPreferredFamily(QXLang::LanguageID lang) const;
  UnicodeString getPreferredSubFamily(QXLang::LanguageID lang) const;
  UnicodeString getPostScriptCIDFindfontName(QXLang::LanguageID lang) const;
  UnicodeString getCopyright(QXLang::LanguageID lang) const;
  UnicodeString getManufacturer(QXLang::LanguageID lang) const;
  UnicodeString getLicenseDescription(QXLang::LanguageID lang) const;
  ///@}

  ///@{
  /// The same of a font object and the index of a face; a null font gives an empty text.
  static UnicodeString getFamilyName(const FS_BaseFont* font, int entry, QXLang::LanguageID lang);
  static UnicodeString getSubFamilyName(const FS_BaseFont* font, int entry,
                                        QXLang::LanguageID lang);
  static UnicodeString getFullFontName(const FS_BaseFont* font, int entry, QXLang::LanguageID lang);
  static UnicodeString getPostScriptName(const FS_BaseFont* font, int entry,
                                         QXLang::LanguageID lang);
  static UnicodeString getPreferredFamily(const FS_BaseFont* font, int entry,
                                          QXLang::LanguageID lang);
  static UnicodeString getPreferredSubFamily(const FS_BaseFont* font, int entry,
                                             QXLang::LanguageID lang);
  static UnicodeString getPostScriptCIDFindfontName(const FS_BaseFont* font, int entry,
                                                    QXLang::LanguageID lang);
  static UnicodeString getCopyright(const FS_BaseFont* font, int entry, QXLang::LanguageID lang);
  static UnicodeString getManufacturer(const FS_BaseFont* font, int entry, QXLang::LanguageID lang);
  static UnicodeString getLicenseDescription(const FS_BaseFont* font, int entry,
                                             QXLang::LanguageID lang);
  ///@}

  /// The family a document declared for its font, else the default-language family of face 0.
  UnicodeString getFamilyNameEx() const;

  // --- Metrics ---

  /// Metrics and coverage in one record. A `size` of 0 gives lengths of 0, not font units.
  /// @return false where the font has none to tell.
  bool getOutlineTextMetrics(FS_NewTextMetricEx& out, int size) const;
  /// No bits where the font states none.
  FS_CodePageRange getCodePageRangeBitFields() const;
  ///@{
  /// A height above the baseline as a part of the em; 0 where the font does not tell.
  float getCapHeight() const;
  float getXHeight() const;
  float getTypoAscender() const;
  ///@}
  /// As a part of the em: the ascender once more for a single sfnt font; the descender for
  /// collections. Hosts have come to rely on it: take the descender from `getOutlineTextMetrics`.
  float getTypoDescender() const;
  /// Fills and returns `out`; null, with `out` untouched, when the font has no PANOSE numbers.
  PANOSE* getPanose(PANOSE& out) const;
  ///@{
  /// High and low byte of OpenType `OS/2`, sFamilyClass; 0 where the font has none.
  unsigned char getFamilyClass() const;
  unsigned char getFamilySubclass() const;
  ///@}
  /// Font units to the em.
  int getUnitsPerEm() const;
  /// The advance that most glyphs of an sfnt font have; 0 for other kinds.
  float getDefaultCharWidth(int size) const;
  /// 0 for sfnt fonts, of which `VORG` is not read.
  float getDefaultVertOriginY(int size) const;
  /// Always 0: hosts take the default origin for every glyph.
  float getGlyphVertOriginY(unsigned short gid, int size) const;
  /// Sum of the advances, those of end-user-defined characters from their fonts included. A font or
  /// a text that is missing gives 0 and leaves `*firstMissing`.
  /// @param size as above, but 0 sums end-user-defined characters alone.
  /// @param firstMissing told the UTF-16 index of the first character without a glyph, -1 for none;
  ///   may be null.
  float getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing) const;
  /// As above of one character; a number that is no code point gives 0.
  float getTextWidth(int codePoint, int size, bool vertical, int* firstMissing) const;
  /// The horizontal advance of a glyph, for vertical text as well; 0 for FS_NO_GLYPH.
  float getGlyphWidth(unsigned short gid, int size, bool vertical) const;
  /// Whether the font lists kerning pairs for that direction.
  bool hasPairKerningInfo(bool vertical) const;
  /// The kerning between two neighbouring glyphs by their ids (characters, for fonts of an AFM
  /// file); 0 for a pair that is not listed. Only a negative `size` scales an sfnt font's value: a
  /// positive one gives font units too, which hosts rely on.
  float getPairKerningValue(unsigned short left, unsigned short right, int size,
                            bool vertical) const;
  ///@{
  /// What the font says of its design (OpenType `OS/2`, or its metric file).
  bool isSymbolicFont() const;
  bool isFixedWidthFont() const;
  bool isSerifLikeFont() const;
  bool isScriptLikeFont() const;
  ///@}

  // --- Glyphs ---

  /// The glyph of a character, in its vertical form if asked; FS_NO_GLYPH for none.
  unsigned short getGlyphID(int codePoint, bool vertical) const;
  /// The glyphs of a text, one for each character; FS_NO_GLYPH where the font has none. The first
  /// character without one has the glyph of the font's default character instead, if it names one
  /// (OpenType `OS/2`, usDefaultChar); end-user-defined ones ahead of it have 0.
  /// @param out room for `text.length()` ids.
  /// @param count told the number written.
  /// @param firstMissing told the UTF-16 index of the first character without a glyph, -1 for none;
  ///   may be null.
  /// @return false, with nothing touched, without a font, for an empty text and for null `out`.
  bool getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count, bool vertical,
                   int* firstMissing) const;
  /// Glyph of a CID in a CID-keyed font; FS_NO_GLYPH for none.
  unsigned short getGlyphIDfromCID(unsigned short cid) const;
  /// String id (CID in a CID-keyed font) of a glyph with `CFF ` outlines.
  unsigned short getStringID(unsigned short gid) const;
  /// Whether the face has vertical forms at all.
  bool hasVerticalGlyph() const;
  /// Whether a character has a vertical form of its own.
  bool hasVerticalGlyph(int codePoint) const;
  /// Whether the face has vertical advances (OpenType `vhea`) and, once it is loaded, forms to set
  /// by them.
  bool hasVerticalMetrics() const;
  /// Whether `variationSequence` has anything to answer.
  bool hasVariationSelector() const;
  /// Glyph of a character with a variation selector (OpenType `cmap` format 14); FS_NO_GLYPH.
  unsigned short variationSequence(int codePoint, int selector) const;
  /// GCD_NONE for an empty handle.
  GlyphClassDef getGlyphClassDef(unsigned short gid) const;
  /// FS_ENCODING_NONE for fonts without PostScript outlines.
  FS_EncodingScheme getEncodingScheme() const;
  /// The character collection of a CID-keyed font; false for all others. On false `out` stays.
  bool getCIDSystemInfo(FS_CIDSystemInfo& out) const;
  /// Whether the rasterizer can open the face; the spelling belongs to the interface.
  bool isGlyphDrawInfoAvialable() const;
  /// Metrics and outline of a glyph; on false `info.valid` is false.
  bool getGlyphDrawInfo(unsigned short gid, FS_GlyphDrawInfo& info, bool vertical) const;

  // --- OpenType layout. The static members take no lock and change only their outputs ---

  /// Opens substitution and positioning for a script and a language, given as tags; release it with
  /// `deleteGSUBGPOSInfo`, before the font goes. Null for an empty handle and a font that is not
  /// sfnt; a font without the tables, the script or the language gives an info that has neither.
  FS_GSUBGPOSInfo* getGSUBGPOSInfo(unsigned int scriptTag, unsigned int languageTag) const;
  /// `info` may be null.
  static void deleteGSUBGPOSInfo(FS_GSUBGPOSInfo* info);
  ///@{
  /// Whether there is substitution (positioning) for the script and language; false for null.
  static bool hasGSUBInfo(const FS_GSUBGPOSInfo* info);
  static bool hasGPOSInfo(const FS_GSUBGPOSInfo* info);
  ///@}
  /// Always false: extended glyph metamorphosis is not applied.
  static bool hasMorxInfo(const FS_GSUBGPOSInfo* info);
  ///@{
  /// Whether the script's default language system was taken; `info` must not be null.
  static bool isGSUBDefaultLangSys(const FS_GSUBGPOSInfo* info);
  static bool isGPOSDefaultLangSys(const FS_GSUBGPOSInfo* info);
  ///@}
  ///@{
  /// Whether the script and language have a feature of that tag; `info` must not be null.
  static bool hasGSUBFeature(const FS_GSUBGPOSInfo* info, unsigned int tag);
  static bool hasGPOSFeature(const FS_GSUBGPOSInfo* info, unsigned int tag);
  ///@}
  ///@{
  /// Tag of the feature that lookup `i` belongs to, in the order in which lookups apply; 0 from the
  /// end on. `info` must not be null.
  static unsigned int getGSUBFeatureTag(const FS_GSUBGPOSInfo* info, int i);
  static unsigned int getGPOSFeatureTag(const FS_GSUBGPOSInfo* info, int i);
  ///@}
  /// Applies the first lookup of a feature that fits at one position; `info` must not be null.
  /// @param position index in `input`; moved behind what was replaced.
  /// @param output receives the replacement, behind it the rest of a contextual match.
  /// @param matched receives the glyphs that a match passed over, which the host keeps behind the
  ///   replacement; untouched by other hits.
  /// @param alternate which alternate to take, from 1; below 1 none is taken.
  /// @return the number of glyphs of `output` that form the replacement; 0 if nothing applied.
  static int processGSUB(const FS_GSUBGPOSInfo* info, unsigned int tag, const GlyphIDArray& input,
                         int& position, GlyphIDArray& output, GlyphIDArray& matched, int alternate);
  /// Applies one lookup to a whole array; `index` is that of `getGSUBFeatureTag`.
  /// @param input a position whose `ligaInfo` and `skipInfo` are not both 0 is not worked on.
  /// @param output replaced wholly, also its words; untouched by an invalid `index`.
  /// @return whether any position changed.
  static bool processGSUB3(const FS_GSUBGPOSInfo* info, int index, const GlyphIDArray2& input,
                           GlyphIDArray2& output, int alternate);
  /// Applies a feature's positioning at one position; moves are in font units.
  /// @param glyphs changed in place.
  /// @return whether any lookup applied. `info` must not be null.
  static bool processGPOS(const FS_GSUBGPOSInfo* info, unsigned int tag,
                          std::vector<GlyphIDPosition>& glyphs, int position, bool rightToLeft);
  /// Applies one positioning lookup to a whole vector, as `processGSUB3` does; `index` is that of
  /// `getGPOSFeatureTag`.
  /// @return the first index that changed, not a count; -1 when none did, for an `index` without a
  ///   lookup and for null.
  static int processGPOS3(const FS_GSUBGPOSInfo* info, int index,
                          std::vector<GlyphIDPosition>& glyphs, bool rightToLeft);
  /// Always false, with `output` untouched.
  static bool processMorx(const FS_GSUBGPOSInfo* info, const GlyphIDArray2& input,
                          GlyphIDArray2& output);

  // --- Embedding. `gids` are the glyphs used; the font's own are added as they are needed ---

  /// OpenType `OS/2`, fsType.
  unsigned short getFontEmbeddingLicence() const;
  /// FS_EMBED_RESTRICTED for an empty handle.
  FS_EMBEDSTATUS getEmbedStatus() const;
  /// How many characters the font can show, by its largest character map.
  unsigned int getEmbedableCharCount() const;
  /// Whether an sfnt font has outlines to write; false for Type 1 fonts, whose `getEmbedStatus`
  /// tells whether there is a font program. What the licence allows is another question, which no
  /// member below asks.
  bool canEmbedFont() const;
  /// An sfnt subset of the tables in a zero-ended list of tags; null takes all tables.
  bool getEmbedFont(const std::vector<unsigned short>& gids, QXMemStream& out,
                    const unsigned int* tags) const;
  /// A subset for a PDF document: sfnt for `glyf` outlines, bare CFF for `CFF ` ones.
  bool getEmbedFont(const std::vector<unsigned short>& gids, QXMemStream& out) const;
  /// The font as an sfnt: whole with `CFF ` outlines, else a subset of all tables.
  bool getSVG2EmbedFont(const std::vector<unsigned short>& gids, QXMemStream& out) const;
  /// An sfnt subset like that for a PDF document, with the whole `cmap`; `glyf` outlines only.
  bool getEmbedFontWithCmap(const std::vector<unsigned short>& gids, QXMemStream& out) const;
  /// The whole font.
  bool getEmbedFontStream(QXMemStream& out) const;
  /// The glyph-directory form for PostScript: tables to `out`, outlines to the streams of `map`.
  bool getPSEmbedFont(const std::vector<unsigned short>& gids, QXMemStream& out,
                      FS_TTGlyphMap& map) const;
  /// A subset as WOFF 1.0.
  bool makeWebFont(const std::vector<unsigned short>& gids, QXMemStream& out) const;
  /// A subset as an sfnt file of its own.
  bool makeSubsetFont(const std::vector<unsigned short>& gids, QXMemStream& out) const;
  /// A subset of `CFF ` outlines as a PostScript CIDFontType 0 resource.
  /// @param fontName,info told the resource's name and character collection.
  bool makePostScriptCIDFontType0(const std::vector<unsigned short>& gids, QXMemStream& out,
                                  UnicodeString& fontName, FS_CIDSystemInfo& info) const;

  // --- Type 1: fonts whose glyphs are reached through pages of 256 codes ---

  /// Page and code (high and low byte) of a character; 0 for none.
  unsigned short getType1CharCode(int character) const;
  /// Page and code of a glyph of an OpenType font; 0 for none.
  unsigned short getType1GlyphIDCode(unsigned short gid) const;
  /// Codes and glyph names of a page, or null; it grows with further queries, so hold no iterators.
  const std::vector<std::pair<unsigned char, std::string>>* getType1CMapArray(
      unsigned char page) const;
  /// Row `index` of a page; on false the outputs stay.
  bool getType1CMapPair(unsigned char page, int index, unsigned char& code,
                        std::string& name) const;
  /// Glyph name of a code of a page; on false `name` stays.
  bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name) const;
  /// A subset of an OpenType font as a Type 1 font program.
  bool getType1EmbedFont(const std::vector<unsigned short>& gids, QXMemStream& out) const;
  /// A subset of a Type 1 font of `count` codes of one page, in PFB form.
  /// @param length1,length2,length3 told the bytes of its clear, encrypted and closing part.
  bool getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream& stream,
                         int& length1, int& length2, int& length3) const;
  /// The whole Type 1 font program; lengths as above.
  bool getType1FontStream(QXMemStream& stream, int& length1, int& length2, int& length3) const;

 private:
  friend struct FontInfoAccess;  // the library's own way in

  FS_BaseFont* font_ = nullptr;
  int entry_ = 0;
  QXError error_;
};

}  // namespace QXFontService_NS
