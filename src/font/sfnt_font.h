#pragma once

#include <functional>
#include <map>

#include "font/contract/base_font.h"
#include "font/sfnt/true_type_info.h"

namespace QXFontService_NS {

struct WritingSource;

/// What the font classes over sfnt data share: the queries that a record answers, written once over
/// "the record of this entry, or none". It has no class id of its own.
///
/// A derived class says how an entry finds its record, and overrides where it differs. Without a
/// record every query gives 0, false, no glyph, empty or null, also where the contract's default is
/// another: there is no default member.
class SfntFont : public FS_BaseFont {
 public:
  using FS_BaseFont::FS_BaseFont;

  FS_TrueTypeInfo* getTrueTypeInfo(int entry) const override;
  bool isType1Font() const override;
  bool isTrueTypeFont() const override;
  bool isType1OrNoCID(int entry) const override;
  bool isTrueTypeOrCID(int entry) const override;
  bool loadFontTables(QXError* error, int entry, std::istream* stream) override;
  void addStyleKeys(FS_FontKeySink& keys, const FS_FontRef& ref, const QXUri& uri) override;
  void addNameKeys(FS_FontKeySink& keys, const FS_FontRef& ref) override;

  UnicodeString getFamilyName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getSubFamilyName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getFullFontName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getPostScriptName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getPreferredFamily(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getPreferredSubFamily(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getPostScriptCIDFindfontName(QXLang::LanguageID lang, int entry) const override;

  int getFontWeight(int entry) const override;
  bool isItalicFont(int entry) const override;
  int getFontStretch(int entry) const override;

  UnicodeString getCopyright(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getManufacturer(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getLicenseDescription(QXLang::LanguageID lang, int entry) const override;
  bool getLogFont(FS_EnumLogFontEx& out, int entry) const override;
  bool getNewTextMetricEx(FS_NewTextMetricEx& out, int entry) const override;
  bool getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const override;
  FS_CodePageRange getCodePageRangeBitFields(int entry) const override;
  float getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing,
                     int entry) const override;
  float getXHeight(int entry) const override;
  float getCapHeight(int entry) const override;
  float getTypoAscender(int entry) const override;
  float getTypoDescender(int entry) const override;

  unsigned short getGlyphID(int code, bool vertical, int entry) const override;
  bool getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count, bool vertical,
                   int* firstMissing, int entry) const override;
  GlyphClassDef getGlyphClassDef(unsigned short gid, int entry) const override;
  float getGlyphWidth(unsigned short gid, int size, bool vertical, int entry) const override;
  FS_CFFInfo* getCFFFont(int entry) const override;
  FS_GSUBGPOSInfo* getGSUBGPOSInfo(unsigned int script, unsigned int language,
                                   int entry) const override;
  bool isSymbolicFont(int entry) const override;
  bool isFixedWidthFont(int entry) const override;
  bool isSerifLikeFont(int entry) const override;
  bool isScriptLikeFont(int entry) const override;

  unsigned int getEmbedableCharCount(int entry) const override;
  bool canEmbedFont(int entry) const override;
  // The forms of embedding, see `embed/true_type_subset.h`. `out` must be empty. Each answers
  // false, and leaves in `out` what is of no use, where the font cannot be read or written.
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, const unsigned int* tags, int entry,
                    std::istream* source) override;
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                    std::istream* source) override;
  bool getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                        std::istream* source) override;
  bool getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream& out, int entry,
                            std::istream* source) override;
  /// All tables of the face, unchanged.
  bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) override;
  bool getPSEmbedFont(const GlyphIDs& gids, QXMemStream& out, FS_TTGlyphMap& map, int entry,
                      std::istream* source) override;
  /// The font of `makeSubsetFont` packed as WOFF 1.0, see `embed::writeWOFF`.
  bool makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                   std::istream* source) override;
  bool makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                      std::istream* source) override;
  /// See `embed::cffEmbedGlyphs`: how the bare CFF of `getEmbedFont` numbers its glyphs. Empty for
  /// fonts without one.
  std::map<unsigned short, unsigned short> cffEmbedGlyphs(const GlyphIDs& gids, int entry);
  /// The subset of `makeSubsetFont` in a form that strict readers take, of either kind of outlines;
  /// see `embed/conforming`.
  bool makeConformingSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                std::istream* source);
  bool isEmbeddingAllowed(int entry) const override;
  FS_EMBEDSTATUS getEmbedStatus(int entry) const override;
  unsigned short getFontEmbeddingLicence(int entry) const override;

  bool getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const override;
  bool hasVerticalGlyph(int entry) const override;
  bool hasVerticalMetrics(int entry) const override;
  int getUnitsPerEm(int entry) const override;
  bool hasVariationSelector(int entry) const override;
  unsigned short variationSequence(int code, int selector, int entry) const override;
  float getDefaultCharWidth(int size, int entry) const override;
  bool hasPairKerningInfo(bool vertical, int entry) const override;
  float getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical,
                            int entry) const override;
  unsigned char getFamilyClass(int entry) const override;
  unsigned char getFamilySubclass(int entry) const override;
  PANOSE* getPanose(PANOSE& out, int entry) const override;

  void setEudcFont(const FS_FontRef& ref, int entry) override;
  FS_FontRef getEudcFont(int entry) const override;
  unsigned short getEudcGlyphID(int code, int entry) const override;

  /// The record of the face of a font over sfnt data, also where `getTrueTypeInfo` tells none: of a
  /// suitcase's member, and of the font inside a web font. Null for other fonts and faces.
  static FS_TrueTypeInfo* recordOf(FS_BaseFont& font, int entry);

 protected:
  /// The record of an entry, or null.
  [[nodiscard]] virtual FS_TrueTypeInfo* record(int entry) const = 0;

  using Writing = std::function<bool(const WritingSource&)>;

  /// Runs an operation that writes the font: `write` gets what the writers need of the face.
  /// @param source the stream to read; null: the font in memory, else its file.
  /// @return what `write` answers; false, before anything is opened, without a record, and without
  ///   a stream or when `write` throws a standard exception but `std::bad_alloc`.
  bool writeFont(int entry, std::istream* source, const Writing& write);
  /// The same, but read from the font's file also where there is one in memory.
  bool writeFontFile(int entry, const Writing& write);

 private:
  bool writeFrom(std::istream* given, FS_TrueTypeInfo& info, const Writing& write);
  [[nodiscard]] UnicodeString name(QXLang::LanguageID lang, NameSlot slot, int entry) const;
};

}  // namespace QXFontService_NS
