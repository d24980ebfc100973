#pragma once

#include <atomic>
#include <iosfwd>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "qxcommon/lang.h"
#include "qxcommon/rc_object.h"
#include "qxcommon/uri.h"
#include "qxfontservice/cid_system_info.h"
#include "qxfontservice/code_page_range.h"
#include "qxfontservice/embed_status.h"
#include "qxfontservice/encoding_scheme.h"
#include "qxfontservice/font_file_type.h"
#include "qxfontservice/glyph_class_def.h"
#include "qxfontservice/glyph_id.h"
#include "qxfontservice/names.h"
#include "qxfontservice/panose.h"

#include "font/contract/class_ids.h"
#include "font/contract/font_ref.h"
#include "font/contract/free_type_face.h"

namespace QXFontService_NS {

class FS_CFFInfo;
class FS_EnumLogFontEx;
class FS_FontFolder;
class FS_FontKeySink;
class FS_NewTextMetricEx;
class FS_TTGlyphMap;
class FS_TrueTypeInfo;
struct FS_FontFileOptions;
struct FS_GSUBGPOSInfo;

/// Glyph ids that an operation writes.
using GlyphIDs = std::vector<unsigned short>;
/// Codes and glyph names of one page of a Type 1 font.
using Type1CMapArray = std::vector<std::pair<unsigned char, std::string>>;

/// The one abstract type behind every font.
///
/// A font is made from a URI and reads nothing; `readFont` reads its names and style; and
/// `loadFontTables` reads, once, what queries need. No font keeps its file open between calls.
/// The operations stand in a fixed order, which classes that override them rely on. Each default
/// answers its neutral value, which is 0, false, empty or null unless it is told. `entry` is the
/// index of a face in its file; fonts with one face do not look at it. A stream passed in stays
/// the caller's; null: the font opens its file for the time of the call.
///
/// After loading, a font is read from many threads without a lock; the operations that write fonts
/// run on one thread at a time. Objects are counted (see `QXRCObject`), born with no reference.
class FS_BaseFont : public QXRCObject {
 public:
  static constexpr unsigned int kClassID = ID_FS_BaseFont;

  /// @param uri the font's file, copied.
  /// @param folder the folder that found it, which outlives the font's use; may be null. Its
  ///   options for the file, if any, become the font's.
  FS_BaseFont(const QXUri& uri, FS_FontFolder* folder);

 protected:
  ~FS_BaseFont() override;

 public:
  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  // --- Kind and file ---
  virtual const QXUri& getFontFileName2() const;
  virtual FS_TrueTypeInfo* getTrueTypeInfo(int entry) const;
  virtual FS_FontFileType getFontFileType(int entry) const = 0;
  /// Default: `getFontFileType`.
  virtual FS_FontFileType getFontFileType2(int entry) const;
  virtual bool isType1Font() const = 0;
  virtual bool isTrueTypeFont() const = 0;
  virtual bool isType1OrNoCID(int entry) const = 0;
  virtual bool isTrueTypeOrCID(int entry) const = 0;
  virtual bool isOpenType() const;
  /// Whether this wraps a document's font; each output may be null.
  virtual bool isExtraFont(int* weight, bool* italic, int entry) const;
  /// Default: this object.
  virtual FS_BaseFont* getExtraBaseFont();

  // --- Reading ---
  /// Reads names and style. @return false: the font is of no use; `error` may hold the reason.
  virtual bool readFont(QXError* error, std::istream* stream) = 0;
  /// The same for a document's font with the style the document declares; default: `readFont`.
  virtual bool readExtraFont(QXError* error, std::istream* stream, const UnicodeString& family,
                             int weight, int italic);
  /// Reads what was left, once; later calls give the first answer. Default true.
  virtual bool loadFontTables(QXError* error, int entry, std::istream* stream);
  /// Number of faces; default 1.
  virtual int getEntryCount() const;
  /// Enters the file name of `uri` for each face under its style; `ref` is not kept.
  virtual void addStyleKeys(FS_FontKeySink& keys, const FS_FontRef& ref, const QXUri& uri);
  /// Enters all names of each face under its style; `ref` is not kept.
  virtual void addNameKeys(FS_FontKeySink& keys, const FS_FontRef& ref);

  // --- Names ---
  virtual UnicodeString getFamilyName(QXLang::LanguageID lang, int entry) const;
  /// Default: `getFamilyName` in the default language.
  virtual UnicodeString getFamilyNameEx(int entry = 0) const;
  virtual UnicodeString getSubFamilyName(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getFullFontName(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getPostScriptName(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getPreferredFamily(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getPreferredSubFamily(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getPostScriptCIDFindfontName(QXLang::LanguageID lang, int entry) const;
  virtual void setPostScriptName(const UnicodeString& name);

  // --- Style ---
  virtual int getFontWeight(int entry) const;
  virtual bool isItalicFont(int entry) const;
  /// Default 5.
  virtual int getFontStretch(int entry) const;
  // The style of the font inside a document's font; defaults: the three above.
  virtual int getFontWeight2(int entry) const;
  virtual bool isItalicFont2(int entry) const;
  virtual int getFontStretch2(int entry) const;

  // --- More names, records, metrics ---
  virtual UnicodeString getCopyright(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getManufacturer(QXLang::LanguageID lang, int entry) const;
  virtual UnicodeString getLicenseDescription(QXLang::LanguageID lang, int entry) const;
  virtual bool getLogFont(FS_EnumLogFontEx& out, int entry) const;
  virtual bool getNewTextMetricEx(FS_NewTextMetricEx& out, int entry) const;
  virtual bool getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const;
  virtual FS_CodePageRange getCodePageRangeBitFields(int entry) const;
  virtual float getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing,
                             int entry) const;
  virtual float getXHeight(int entry) const;
  virtual float getCapHeight(int entry) const;
  virtual float getTypoAscender(int entry) const;
  virtual float getTypoDescender(int entry) const;

  // --- Glyphs ---
  /// Default FS_NO_GLYPH.
  virtual unsigned short getGlyphID(int code, bool vertical, int entry) const;
  virtual bool getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count,
                           bool vertical, int* firstMissing, int entry) const;
  /// Default GCD_NONE.
  virtual GlyphClassDef getGlyphClassDef(unsigned short gid, int entry) const;
  virtual float getGlyphWidth(unsigned short gid, int size, bool vertical, int entry) const;
  virtual unsigned short getStringID(unsigned short cid, int entry) const;
  virtual FS_CFFInfo* getCFFFont(int entry) const;
  virtual FS_GSUBGPOSInfo* getGSUBGPOSInfo(unsigned int script, unsigned int language,
                                           int entry) const;
  virtual bool isSymbolicFont(int entry) const;
  virtual bool isFixedWidthFont(int entry) const;
  virtual bool isSerifLikeFont(int entry) const;
  virtual bool isScriptLikeFont(int entry) const;

  // --- Embedding ---
  virtual unsigned int getEmbedableCharCount(int entry) const;
  virtual bool canEmbedFont(int entry) const;
  // No default arguments here: 0 would not tell a tag list from a face index.
  virtual bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, const unsigned int* tags,
                            int entry, std::istream* source);
  virtual bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                            std::istream* source);
  virtual bool getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                std::istream* source);
  virtual bool getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream& out, int entry,
                                    std::istream* source);
  virtual bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source);
  virtual bool getPSEmbedFont(const GlyphIDs& gids, QXMemStream& out, FS_TTGlyphMap& map, int entry,
                              std::istream* source);
  virtual bool makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry, std::istream* source);
  virtual bool makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                              std::istream* source);
  virtual bool isEmbeddingAllowed(int entry) const;
  /// Default FS_EMBED_OTHER.
  virtual FS_EMBEDSTATUS getEmbedStatus(int entry) const;
  virtual unsigned short getFontEmbeddingLicence(int entry) const;

  // --- Facts ---
  virtual FS_EncodingScheme getEncodingScheme(int entry) const;
  virtual bool getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const;
  virtual bool hasVerticalGlyph(int entry) const;
  virtual bool hasVerticalMetrics(int entry) const;
  /// Makes an EUDC font answer with vertical forms.
  virtual void setEudcFlag();
  virtual int getUnitsPerEm(int entry) const;
  virtual bool hasVariationSelector(int entry) const;
  /// Default FS_NO_GLYPH.
  virtual unsigned short variationSequence(int code, int selector, int entry) const;
  virtual float getDefaultCharWidth(int size, int entry) const;
  virtual bool hasPairKerningInfo(bool vertical, int entry) const;
  virtual float getPairKerningValue(unsigned short left, unsigned short right, int size,
                                    bool vertical, int entry) const;
  virtual unsigned char getFamilyClass(int entry) const;
  virtual unsigned char getFamilySubclass(int entry) const;
  /// Fills and returns `out`; null, with `out` untouched, where there is nothing to tell.
  virtual PANOSE* getPanose(PANOSE& out, int entry) const;

  // --- Type 1 ---
  virtual unsigned short getType1CharCode(int code, int entry);
  virtual unsigned short getType1GlyphIDCode(unsigned short gid, int entry);
  virtual const Type1CMapArray* getType1CMapArray(unsigned char page, int entry);
  virtual bool getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name,
                                int entry);
  virtual bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name,
                                 int entry);
  virtual bool getType1EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                 std::istream* source);
  virtual bool getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream& out,
                                 int& length1, int& length2, int& length3, int entry);
  virtual bool getType1FontStream(QXMemStream& out, int& length1, int& length2, int& length3,
                                  int entry);

  // --- EUDC, outlines, the rest ---
  virtual void setEudcFont(const FS_FontRef& ref, int entry);
  virtual FS_FontRef getEudcFont(int entry) const;
  /// Default FS_NO_GLYPH.
  virtual unsigned short getEudcGlyphID(int code, int entry) const;
  /// The FreeType face, or null. Default: face 0 of the file, tried once; a failure is remembered.
  /// Whoever uses the face holds `FS_OutlineLock`.
  virtual FT_Face getFreeTypeFace(int entry);
  virtual bool makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream& out,
                                          UnicodeString& fontName, FS_CIDSystemInfo& info,
                                          int entry, std::istream* source);
  /// The font in memory, where it has no file of its own to read; owned by the font.
  virtual QXMemStream* getMemStream();
  virtual float getDefaultVertOriginY(int size, int entry) const;
  virtual float getGlyphVertOriginY(unsigned short gid, int size, int entry) const;

  // --- What every font holds ---

  /// Bits of the font flags.
  enum FontFlag : unsigned int {
    kFaceTried = 1,      ///< Internal: opening the FreeType face was tried.
    kFaceOpen = 2,       ///< Internal: it is open, and stays so: no lock is needed to tell it.
    kSystemFont = 8,     ///< Found in the system's font list.
    kEudcFont = 16,      ///< Loaded as an EUDC font.
    kToldFlags = 8 | 16  ///< What enumeration tells.
  };

  const QXUri& fileUri() const { return fileUri_; }
  FS_FontFolder* folder() const { return folder_; }
  /// What the configuration says of the file, or null.
  const FS_FontFileOptions* fontEntry() const { return fontEntry_; }
  /// The told flags alone, so that opening a face changes no enumeration.
  unsigned int fontFlags() const { return ftFlags_.load(std::memory_order_relaxed) & kToldFlags; }
  void addFontFlags(unsigned int flags) { ftFlags_.fetch_or(flags, std::memory_order_relaxed); }
  /// Further names under which the pool enters the font.
  std::set<UnicodeString>& fontAliases() { return fontAliases_; }
  const std::set<UnicodeString>& fontAliases() const { return fontAliases_; }

 protected:
  QXUri fileUri_;
  FS_FontFolder* folder_;
  contract::FreeTypeFace ftFace_;
  std::atomic<unsigned int> ftFlags_{0};
  const FS_FontFileOptions* fontEntry_ = nullptr;
  std::set<UnicodeString> fontAliases_;
};

}  // namespace QXFontService_NS
