#include "font/extra_font.h"

// What a document's font answers as its inner font does, and neutrally without one, in the order
// of the interface; one line each, to be read beside it.
namespace QXFontService_NS {

// clang-format off

const QXUri& FS_ExtraFont::getFontFileName2() const { return inner() != nullptr ? inner()->getFontFileName2() : FS_BaseFont::getFontFileName2(); }
FS_FontFileType FS_ExtraFont::getFontFileType2(int entry) const { return inner() != nullptr ? inner()->getFontFileType(entry) : FS_BaseFont::getFontFileType2(entry); }
bool FS_ExtraFont::isType1Font() const { return inner() != nullptr && inner()->isType1Font(); }
bool FS_ExtraFont::isTrueTypeFont() const { return inner() != nullptr && inner()->isTrueTypeFont(); }
bool FS_ExtraFont::isType1OrNoCID(int entry) const { return inner() != nullptr && inner()->isType1OrNoCID(entry); }
bool FS_ExtraFont::isTrueTypeOrCID(int entry) const { return inner() != nullptr && inner()->isTrueTypeOrCID(entry); }
UnicodeString FS_ExtraFont::getCopyright(QXLang::LanguageID lang, int entry) const { return inner() != nullptr ? inner()->getCopyright(lang, entry) : FS_BaseFont::getCopyright(lang, entry); }
UnicodeString FS_ExtraFont::getManufacturer(QXLang::LanguageID lang, int entry) const { return inner() != nullptr ? inner()->getManufacturer(lang, entry) : FS_BaseFont::getManufacturer(lang, entry); }
UnicodeString FS_ExtraFont::getLicenseDescription(QXLang::LanguageID lang, int entry) const { return inner() != nullptr ? inner()->getLicenseDescription(lang, entry) : FS_BaseFont::getLicenseDescription(lang, entry); }
bool FS_ExtraFont::getLogFont(FS_EnumLogFontEx& out, int entry) const { return inner() != nullptr ? inner()->getLogFont(out, entry) : FS_BaseFont::getLogFont(out, entry); }
bool FS_ExtraFont::getNewTextMetricEx(FS_NewTextMetricEx& out, int entry) const { return inner() != nullptr ? inner()->getNewTextMetricEx(out, entry) : FS_BaseFont::getNewTextMetricEx(out, entry); }
bool FS_ExtraFont::getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const { return inner() != nullptr ? inner()->getOutlineTextMetrics(out, size, entry) : FS_BaseFont::getOutlineTextMetrics(out, size, entry); }
FS_CodePageRange FS_ExtraFont::getCodePageRangeBitFields(int entry) const { return inner() != nullptr ? inner()->getCodePageRangeBitFields(entry) : FS_BaseFont::getCodePageRangeBitFields(entry); }
float FS_ExtraFont::getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing, int entry) const { return inner() != nullptr ? inner()->getTextWidth(text, size, vertical, firstMissing, entry) : FS_BaseFont::getTextWidth(text, size, vertical, firstMissing, entry); }
float FS_ExtraFont::getXHeight(int entry) const { return inner() != nullptr ? inner()->getXHeight(entry) : FS_BaseFont::getXHeight(entry); }
float FS_ExtraFont::getCapHeight(int entry) const { return inner() != nullptr ? inner()->getCapHeight(entry) : FS_BaseFont::getCapHeight(entry); }
float FS_ExtraFont::getTypoAscender(int entry) const { return inner() != nullptr ? inner()->getTypoAscender(entry) : FS_BaseFont::getTypoAscender(entry); }
float FS_ExtraFont::getTypoDescender(int entry) const { return inner() != nullptr ? inner()->getTypoDescender(entry) : FS_BaseFont::getTypoDescender(entry); }
unsigned short FS_ExtraFont::getGlyphID(int code, bool vertical, int entry) const { return inner() != nullptr ? inner()->getGlyphID(code, vertical, entry) : FS_BaseFont::getGlyphID(code, vertical, entry); }
bool FS_ExtraFont::getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count, bool vertical, int* firstMissing, int entry) const { return inner() != nullptr ? inner()->getGlyphIDs(text, out, count, vertical, firstMissing, entry) : FS_BaseFont::getGlyphIDs(text, out, count, vertical, firstMissing, entry); }
GlyphClassDef FS_ExtraFont::getGlyphClassDef(unsigned short gid, int entry) const { return inner() != nullptr ? inner()->getGlyphClassDef(gid, entry) : FS_BaseFont::getGlyphClassDef(gid, entry); }
float FS_ExtraFont::getGlyphWidth(unsigned short gid, int size, bool vertical, int entry) const { return inner() != nullptr ? inner()->getGlyphWidth(gid, size, vertical, entry) : FS_BaseFont::getGlyphWidth(gid, size, vertical, entry); }
unsigned short FS_ExtraFont::getStringID(unsigned short cid, int entry) const { return inner() != nullptr ? inner()->getStringID(cid, entry) : FS_BaseFont::getStringID(cid, entry); }
FS_GSUBGPOSInfo* FS_ExtraFont::getGSUBGPOSInfo(unsigned int script, unsigned int language, int entry) const { return inner() != nullptr ? inner()->getGSUBGPOSInfo(script, language, entry) : FS_BaseFont::getGSUBGPOSInfo(script, language, entry); }
bool FS_ExtraFont::isSymbolicFont(int entry) const { return inner() != nullptr ? inner()->isSymbolicFont(entry) : FS_BaseFont::isSymbolicFont(entry); }
bool FS_ExtraFont::isFixedWidthFont(int entry) const { return inner() != nullptr ? inner()->isFixedWidthFont(entry) : FS_BaseFont::isFixedWidthFont(entry); }
bool FS_ExtraFont::isSerifLikeFont(int entry) const { return inner() != nullptr ? inner()->isSerifLikeFont(entry) : FS_BaseFont::isSerifLikeFont(entry); }
bool FS_ExtraFont::isScriptLikeFont(int entry) const { return inner() != nullptr ? inner()->isScriptLikeFont(entry) : FS_BaseFont::isScriptLikeFont(entry); }
unsigned int FS_ExtraFont::getEmbedableCharCount(int entry) const { return inner() != nullptr ? inner()->getEmbedableCharCount(entry) : FS_BaseFont::getEmbedableCharCount(entry); }
bool FS_ExtraFont::canEmbedFont(int entry) const { return inner() != nullptr ? inner()->canEmbedFont(entry) : FS_BaseFont::canEmbedFont(entry); }
bool FS_ExtraFont::isEmbeddingAllowed(int entry) const { return inner() != nullptr ? inner()->isEmbeddingAllowed(entry) : FS_BaseFont::isEmbeddingAllowed(entry); }
FS_EMBEDSTATUS FS_ExtraFont::getEmbedStatus(int entry) const { return inner() != nullptr ? inner()->getEmbedStatus(entry) : FS_BaseFont::getEmbedStatus(entry); }
unsigned short FS_ExtraFont::getFontEmbeddingLicence(int entry) const { return inner() != nullptr ? inner()->getFontEmbeddingLicence(entry) : FS_BaseFont::getFontEmbeddingLicence(entry); }
FS_EncodingScheme FS_ExtraFont::getEncodingScheme(int entry) const { return inner() != nullptr ? inner()->getEncodingScheme(entry) : FS_BaseFont::getEncodingScheme(entry); }
bool FS_ExtraFont::getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const { return inner() != nullptr ? inner()->getCIDSystemInfo(out, entry) : FS_BaseFont::getCIDSystemInfo(out, entry); }
bool FS_ExtraFont::hasVerticalGlyph(int entry) const { return inner() != nullptr ? inner()->hasVerticalGlyph(entry) : FS_BaseFont::hasVerticalGlyph(entry); }
bool FS_ExtraFont::hasVerticalMetrics(int entry) const { return inner() != nullptr ? inner()->hasVerticalMetrics(entry) : FS_BaseFont::hasVerticalMetrics(entry); }
int FS_ExtraFont::getUnitsPerEm(int entry) const { return inner() != nullptr ? inner()->getUnitsPerEm(entry) : FS_BaseFont::getUnitsPerEm(entry); }
float FS_ExtraFont::getDefaultCharWidth(int size, int entry) const { return inner() != nullptr ? inner()->getDefaultCharWidth(size, entry) : FS_BaseFont::getDefaultCharWidth(size, entry); }
bool FS_ExtraFont::hasPairKerningInfo(bool vertical, int entry) const { return inner() != nullptr ? inner()->hasPairKerningInfo(vertical, entry) : FS_BaseFont::hasPairKerningInfo(vertical, entry); }
float FS_ExtraFont::getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical, int entry) const { return inner() != nullptr ? inner()->getPairKerningValue(left, right, size, vertical, entry) : FS_BaseFont::getPairKerningValue(left, right, size, vertical, entry); }
PANOSE* FS_ExtraFont::getPanose(PANOSE& out, int entry) const { return inner() != nullptr ? inner()->getPanose(out, entry) : FS_BaseFont::getPanose(out, entry); }
unsigned short FS_ExtraFont::getType1CharCode(int code, int entry) { return inner() != nullptr ? inner()->getType1CharCode(code, entry) : FS_BaseFont::getType1CharCode(code, entry); }
unsigned short FS_ExtraFont::getType1GlyphIDCode(unsigned short gid, int entry) { return inner() != nullptr ? inner()->getType1GlyphIDCode(gid, entry) : FS_BaseFont::getType1GlyphIDCode(gid, entry); }
const Type1CMapArray* FS_ExtraFont::getType1CMapArray(unsigned char page, int entry) { return inner() != nullptr ? inner()->getType1CMapArray(page, entry) : FS_BaseFont::getType1CMapArray(page, entry); }
bool FS_ExtraFont::getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name, int entry) { return inner() != nullptr ? inner()->getType1CMapPair(page, i, code, name, entry) : FS_BaseFont::getType1CMapPair(page, i, code, name, entry); }
bool FS_ExtraFont::getType1GlyphName(unsigned char page, unsigned char code, std::string& name, int entry) { return inner() != nullptr ? inner()->getType1GlyphName(page, code, name, entry) : FS_BaseFont::getType1GlyphName(page, code, name, entry); }
bool FS_ExtraFont::getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream& out, int& length1, int& length2, int& length3, int entry) { return inner() != nullptr ? inner()->getType1EmbedFont(page, codes, count, out, length1, length2, length3, entry) : FS_BaseFont::getType1EmbedFont(page, codes, count, out, length1, length2, length3, entry); }
bool FS_ExtraFont::getType1FontStream(QXMemStream& out, int& length1, int& length2, int& length3, int entry) { return inner() != nullptr ? inner()->getType1FontStream(out, length1, length2, length3, entry) : FS_BaseFont::getType1FontStream(out, length1, length2, length3, entry); }

// clang-format on

FT_Face FS_ExtraFont::getFreeTypeFace(int entry) {
  return inner() != nullptr ? inner()->getFreeTypeFace(entry) : nullptr;
}

}  // namespace QXFontService_NS
