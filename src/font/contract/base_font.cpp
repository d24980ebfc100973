#include "font/contract/base_font.h"

#include "qxcommon/lock.h"

#include "font/contract/font_folder.h"
#include "font/contract/font_services.h"

namespace QXFontService_NS {

FS_BaseFont::FS_BaseFont(const QXUri& uri, FS_FontFolder* folder)
    : fileUri_(uri),
      folder_(folder),
      fontEntry_(folder != nullptr ? folder->findOptions(uri.getFileName()) : nullptr) {}

FS_BaseFont::~FS_BaseFont() = default;

unsigned int FS_BaseFont::getClassID() const {
  return kClassID;
}
bool FS_BaseFont::isKindOf(unsigned int id) const {
  return id == kClassID || QXRCObject::isKindOf(id);
}
UnicodeString FS_BaseFont::getClassName() const {
  return u"FS_BaseFont";
}

FT_Face FS_BaseFont::getFreeTypeFace(int) {
  if ((ftFlags_.load(std::memory_order_acquire) & kFaceOpen) != 0) return ftFace_.get();
  QXMutex guard(&fontServices().renderingLock());
  const unsigned int before = ftFlags_.fetch_or(kFaceTried, std::memory_order_relaxed);
  if ((before & kFaceTried) == 0 && ftFace_.open(getFontFileName2(), getMemStream(), 0) != nullptr)
    ftFlags_.fetch_or(kFaceOpen, std::memory_order_release);
  return ftFace_.get();
}

// The neutral answers, in the order of the interface; one line each, to be read beside it.
// clang-format off
const QXUri& FS_BaseFont::getFontFileName2() const { return fileUri_; }
FS_TrueTypeInfo* FS_BaseFont::getTrueTypeInfo(int) const { return nullptr; }
FS_FontFileType FS_BaseFont::getFontFileType2(int entry) const { return getFontFileType(entry); }
bool FS_BaseFont::isOpenType() const { return false; }
bool FS_BaseFont::isExtraFont(int*, bool*, int) const { return false; }
FS_BaseFont* FS_BaseFont::getExtraBaseFont() { return this; }
bool FS_BaseFont::readExtraFont(QXError* error, std::istream* stream, const UnicodeString&, int,
                                int) {
  return readFont(error, stream);
}
bool FS_BaseFont::loadFontTables(QXError*, int, std::istream*) { return true; }
int FS_BaseFont::getEntryCount() const { return 1; }
void FS_BaseFont::addStyleKeys(FS_FontKeySink&, const FS_FontRef&, const QXUri&) {}
void FS_BaseFont::addNameKeys(FS_FontKeySink&, const FS_FontRef&) {}
UnicodeString FS_BaseFont::getFamilyName(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getFamilyNameEx(int entry) const {
  return getFamilyName(QXLang::LANGID_DEFAULT, entry);
}
UnicodeString FS_BaseFont::getSubFamilyName(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getFullFontName(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getPostScriptName(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getPreferredFamily(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getPreferredSubFamily(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getPostScriptCIDFindfontName(QXLang::LanguageID, int) const {
  return {};
}
void FS_BaseFont::setPostScriptName(const UnicodeString&) {}
int FS_BaseFont::getFontWeight(int) const { return 0; }
bool FS_BaseFont::isItalicFont(int) const { return false; }
int FS_BaseFont::getFontStretch(int) const { return 5; }
int FS_BaseFont::getFontWeight2(int entry) const { return getFontWeight(entry); }
bool FS_BaseFont::isItalicFont2(int entry) const { return isItalicFont(entry); }
int FS_BaseFont::getFontStretch2(int entry) const { return getFontStretch(entry); }
UnicodeString FS_BaseFont::getCopyright(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getManufacturer(QXLang::LanguageID, int) const { return {}; }
UnicodeString FS_BaseFont::getLicenseDescription(QXLang::LanguageID, int) const { return {}; }
bool FS_BaseFont::getLogFont(FS_EnumLogFontEx&, int) const { return false; }
bool FS_BaseFont::getNewTextMetricEx(FS_NewTextMetricEx&, int) const { return false; }
bool FS_BaseFont::getOutlineTextMetrics(FS_NewTextMetricEx&, int, int) const { return false; }
FS_CodePageRange FS_BaseFont::getCodePageRangeBitFields(int) const { return {}; }
float FS_BaseFont::getTextWidth(const UnicodeString&, int, bool, int*, int) const { return 0; }
float FS_BaseFont::getXHeight(int) const { return 0; }
float FS_BaseFont::getCapHeight(int) const { return 0; }
float FS_BaseFont::getTypoAscender(int) const { return 0; }
float FS_BaseFont::getTypoDescender(int) const { return 0; }
unsigned short FS_BaseFont::getGlyphID(int, bool, int) const { return FS_NO_GLYPH; }
bool FS_BaseFont::getGlyphIDs(const UnicodeString&, unsigned short*, int&, bool, int*, int) const {
  return false;
}
GlyphClassDef FS_BaseFont::getGlyphClassDef(unsigned short, int) const { return GCD_NONE; }
float FS_BaseFont::getGlyphWidth(unsigned short, int, bool, int) const { return 0; }
unsigned short FS_BaseFont::getStringID(unsigned short, int) const { return 0; }
FS_CFFInfo* FS_BaseFont::getCFFFont(int) const { return nullptr; }
FS_GSUBGPOSInfo* FS_BaseFont::getGSUBGPOSInfo(unsigned int, unsigned int, int) const {
  return nullptr;
}
bool FS_BaseFont::isSymbolicFont(int) const { return false; }
bool FS_BaseFont::isFixedWidthFont(int) const { return false; }
bool FS_BaseFont::isSerifLikeFont(int) const { return false; }
bool FS_BaseFont::isScriptLikeFont(int) const { return false; }
unsigned int FS_BaseFont::getEmbedableCharCount(int) const { return 0; }
bool FS_BaseFont::canEmbedFont(int) const { return false; }
bool FS_BaseFont::getEmbedFont(const GlyphIDs&, QXMemStream&, const unsigned int*, int,
                               std::istream*) {
  return false;
}
bool FS_BaseFont::getEmbedFont(const GlyphIDs&, QXMemStream&, int, std::istream*) { return false; }
bool FS_BaseFont::getSVG2EmbedFont(const GlyphIDs&, QXMemStream&, int, std::istream*) {
  return false;
}
bool FS_BaseFont::getEmbedFontWithCmap(const GlyphIDs&, QXMemStream&, int, std::istream*) {
  return false;
}
bool FS_BaseFont::getEmbedFontStream(QXMemStream&, int, std::istream*) { return false; }
bool FS_BaseFont::getPSEmbedFont(const GlyphIDs&, QXMemStream&, FS_TTGlyphMap&, int,
                                 std::istream*) {
  return false;
}
bool FS_BaseFont::makeWebFont(const GlyphIDs&, QXMemStream&, int, std::istream*) { return false; }
bool FS_BaseFont::makeSubsetFont(const GlyphIDs&, QXMemStream&, int, std::istream*) {
  return false;
}
bool FS_BaseFont::isEmbeddingAllowed(int) const { return false; }
FS_EMBEDSTATUS FS_BaseFont::getEmbedStatus(int) const { return FS_EMBED_OTHER; }
unsigned short FS_BaseFont::getFontEmbeddingLicence(int) const { return 0; }
FS_EncodingScheme FS_BaseFont::getEncodingScheme(int) const { return FS_ENCODING_NONE; }
bool FS_BaseFont::getCIDSystemInfo(FS_CIDSystemInfo&, int) const { return false; }
bool FS_BaseFont::hasVerticalGlyph(int) const { return false; }
bool FS_BaseFont::hasVerticalMetrics(int) const { return false; }
void FS_BaseFont::setEudcFlag() {}
int FS_BaseFont::getUnitsPerEm(int) const { return 0; }
bool FS_BaseFont::hasVariationSelector(int) const { return false; }
unsigned short FS_BaseFont::variationSequence(int, int, int) const { return FS_NO_GLYPH; }
float FS_BaseFont::getDefaultCharWidth(int, int) const { return 0; }
bool FS_BaseFont::hasPairKerningInfo(bool, int) const { return false; }
float FS_BaseFont::getPairKerningValue(unsigned short, unsigned short, int, bool, int) const {
  return 0;
}
unsigned char FS_BaseFont::getFamilyClass(int) const { return 0; }
unsigned char FS_BaseFont::getFamilySubclass(int) const { return 0; }
PANOSE* FS_BaseFont::getPanose(PANOSE&, int) const { return nullptr; }
unsigned short FS_BaseFont::getType1CharCode(int, int) { return 0; }
unsigned short FS_BaseFont::getType1GlyphIDCode(unsigned short, int) { return 0; }
const Type1CMapArray* FS_BaseFont::getType1CMapArray(unsigned char, int) { return nullptr; }
bool FS_BaseFont::getType1CMapPair(unsigned char, int, unsigned char&, std::string&, int) {
  return false;
}
bool FS_BaseFont::getType1GlyphName(unsigned char, unsigned char, std::string&, int) {
  return false;
}
bool FS_BaseFont::getType1EmbedFont(const GlyphIDs&, QXMemStream&, int, std::istream*) {
  return false;
}
bool FS_BaseFont::getType1EmbedFont(unsigned char, const char*, int, QXMemStream&, int&, int&, int&,
                                    int) {
  return false;
}
bool FS_BaseFont::getType1FontStream(QXMemStream&, int&, int&, int&, int) { return false; }
void FS_BaseFont::setEudcFont(const FS_FontRef&, int) {}
FS_FontRef FS_BaseFont::getEudcFont(int) const { return {}; }
unsigned short FS_BaseFont::getEudcGlyphID(int, int) const { return FS_NO_GLYPH; }
bool FS_BaseFont::makePostScriptCIDFontType0(const GlyphIDs&, QXMemStream&, UnicodeString&,
                                             FS_CIDSystemInfo&, int, std::istream*) {
  return false;
}
QXMemStream* FS_BaseFont::getMemStream() { return nullptr; }
float FS_BaseFont::getDefaultVertOriginY(int, int) const { return 0; }
float FS_BaseFont::getGlyphVertOriginY(unsigned short, int, int) const { return 0; }
// clang-format on

}  // namespace QXFontService_NS
