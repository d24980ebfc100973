#pragma once

#include "qxcommon/ptr.h"

#include "embed/font_stream.h"
#include "font/contract/base_font.h"

namespace QXFontService_NS {

/// A font that a document brings along, around the font object that reads it.
///
/// Weight, italic and family are what the document declares, where it does; all else is the inner
/// font's, or the contract's neutral answer without one. Kept: what the inner font is called,
/// its record, its family class and its variation sequences are not told here, but by
/// `getExtraBaseFont`, since hosts take this object for the document's own rule.
class FS_ExtraFont : public FS_BaseFont {
 public:
  static constexpr unsigned int kClassID = ID_FS_ExtraFont;

  FS_ExtraFont(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  // What the document declares.
  bool isExtraFont(int* weight, bool* italic, int entry) const override;
  FS_BaseFont* getExtraBaseFont() override;
  bool readFont(QXError* error, std::istream* stream) override;
  bool readExtraFont(QXError* error, std::istream* stream, const UnicodeString& family, int weight,
                     int italic) override;
  bool loadFontTables(QXError* error, int entry, std::istream* stream) override;
  /// Nothing: a document's font is not found by its file.
  void addStyleKeys(FS_FontKeySink& keys, const FS_FontRef& ref, const QXUri& uri) override;
  /// The names under which the document asked for it, in its declared style.
  void addNameKeys(FS_FontKeySink& keys, const FS_FontRef& ref) override;
  UnicodeString getFamilyNameEx(int entry) const override;
  int getFontWeight(int entry) const override;
  bool isItalicFont(int entry) const override;
  int getFontWeight2(int entry) const override;
  bool isItalicFont2(int entry) const override;

  // What the inner font answers, in the order of the interface.
  const QXUri& getFontFileName2() const override;
  FS_FontFileType getFontFileType2(int entry) const override;
  bool isType1Font() const override;
  bool isTrueTypeFont() const override;
  bool isType1OrNoCID(int entry) const override;
  bool isTrueTypeOrCID(int entry) const override;
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
  unsigned short getStringID(unsigned short cid, int entry) const override;
  FS_GSUBGPOSInfo* getGSUBGPOSInfo(unsigned int script, unsigned int language,
                                   int entry) const override;
  bool isSymbolicFont(int entry) const override;
  bool isFixedWidthFont(int entry) const override;
  bool isSerifLikeFont(int entry) const override;
  bool isScriptLikeFont(int entry) const override;
  unsigned int getEmbedableCharCount(int entry) const override;
  bool canEmbedFont(int entry) const override;
  bool isEmbeddingAllowed(int entry) const override;
  FS_EMBEDSTATUS getEmbedStatus(int entry) const override;
  unsigned short getFontEmbeddingLicence(int entry) const override;
  FS_EncodingScheme getEncodingScheme(int entry) const override;
  bool getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const override;
  bool hasVerticalGlyph(int entry) const override;
  bool hasVerticalMetrics(int entry) const override;
  int getUnitsPerEm(int entry) const override;
  float getDefaultCharWidth(int size, int entry) const override;
  bool hasPairKerningInfo(bool vertical, int entry) const override;
  float getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical,
                            int entry) const override;
  PANOSE* getPanose(PANOSE& out, int entry) const override;
  unsigned short getType1CharCode(int code, int entry) override;
  unsigned short getType1GlyphIDCode(unsigned short gid, int entry) override;
  const Type1CMapArray* getType1CMapArray(unsigned char page, int entry) override;
  bool getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name,
                        int entry) override;
  bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name,
                         int entry) override;
  bool getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream& out,
                         int& length1, int& length2, int& length3, int entry) override;
  bool getType1FontStream(QXMemStream& out, int& length1, int& length2, int& length3,
                          int entry) override;
  FT_Face getFreeTypeFace(int entry) override;

  // The forms of embedding: the inner font's, read from `source`, else from the font in memory.
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, const unsigned int* tags, int entry,
                    std::istream* source) override;
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                    std::istream* source) override;
  bool getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                        std::istream* source) override;
  bool getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream& out, int entry,
                            std::istream* source) override;
  bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) override;
  bool getPSEmbedFont(const GlyphIDs& gids, QXMemStream& out, FS_TTGlyphMap& map, int entry,
                      std::istream* source) override;
  bool getType1EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                         std::istream* source) override;
  bool makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream& out, UnicodeString& fontName,
                                  FS_CIDSystemInfo& info, int entry, std::istream* source) override;

 protected:
  ~FS_ExtraFont() override;

  /// The inner font, or null.
  [[nodiscard]] FS_BaseFont* inner() const { return innerFont_.get(); }
  /// Replaces the inner font; the one before is released.
  void setInner(QXPtr<FS_BaseFont> font) { innerFont_ = std::move(font); }
  /// What an operation reads that was given no stream: by default `getMemStream`, which may be
  /// none at all.
  virtual embed::FontStream ownStream();

  /// Runs an embedding operation of the inner font on `source`, or on the own stream.
  template <class Form>
  bool writeInner(std::istream* source, Form form) {
    if (inner() == nullptr) return false;
    if (source != nullptr) return form(*inner(), source);
    const embed::FontStream own = ownStream();
    return form(*inner(), own.get());
  }

 private:
  static constexpr int kNotDeclared = -1;

  QXPtr<FS_BaseFont> innerFont_;
  UnicodeString familyName_;
  int declaredWeight_ = 0;             // 0: not declared
  int declaredItalic_ = kNotDeclared;  // 1 italic, others not
};

}  // namespace QXFontService_NS
