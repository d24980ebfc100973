#pragma once

#include <sstream>
#include <string>

#include "font/contract/plain_font.h"

namespace qxtest {

/// A font that notes each call and its plain arguments, and answers nothing neutral: true, 7, "7".
class EchoFont final : public PlainFont {
 public:
  using UnicodeString = icu::UnicodeString;
  using LanguageID = QXCommonNS::QXLang::LanguageID;
  using GlyphIDs = QXFontService_NS::GlyphIDs;
  using QXMemStream = QXCommonNS::QXMemStream;

  /// The last call, such as "getGlyphID 97 1 3".
  mutable std::string call;

  bool isType1Font() const override { return yes("isType1Font"); }
  bool isTrueTypeFont() const override { return yes("isTrueTypeFont"); }
  bool isType1OrNoCID(int entry) const override { return yes("isType1OrNoCID", entry); }
  bool isTrueTypeOrCID(int entry) const override { return yes("isTrueTypeOrCID", entry); }
  bool isExtraFont(int* weight, bool* italic, int entry) const override {
    *weight = 7;
    *italic = true;
    return yes("isExtraFont", entry);
  }
  QXFontService_NS::FS_FontFileType getFontFileType(int entry) const override {
    return number<QXFontService_NS::FS_FontFileType>("getFontFileType", entry);
  }
  QXFontService_NS::FS_FontFileType getFontFileType2(int entry) const override {
    return number<QXFontService_NS::FS_FontFileType>("getFontFileType2", entry);
  }

  UnicodeString getFamilyName(LanguageID lang, int entry) const override {
    return text("getFamilyName", lang, entry);
  }
  UnicodeString getFamilyNameEx(int entry) const override { return text("getFamilyNameEx", entry); }
  UnicodeString getSubFamilyName(LanguageID lang, int entry) const override {
    return text("getSubFamilyName", lang, entry);
  }
  UnicodeString getFullFontName(LanguageID lang, int entry) const override {
    return text("getFullFontName", lang, entry);
  }
  UnicodeString getPostScriptName(LanguageID lang, int entry) const override {
    return text("getPostScriptName", lang, entry);
  }
  UnicodeString getPreferredFamily(LanguageID lang, int entry) const override {
    return text("getPreferredFamily", lang, entry);
  }
  UnicodeString getPreferredSubFamily(LanguageID lang, int entry) const override {
    return text("getPreferredSubFamily", lang, entry);
  }
  UnicodeString getPostScriptCIDFindfontName(LanguageID lang, int entry) const override {
    return text("getPostScriptCIDFindfontName", lang, entry);
  }
  UnicodeString getCopyright(LanguageID lang, int entry) const override {
    return text("getCopyright", lang, entry);
  }
  UnicodeString getManufacturer(LanguageID lang, int entry) const override {
    return text("getManufacturer", lang, entry);
  }
  UnicodeString getLicenseDescription(LanguageID lang, int entry) const override {
    return text("getLicenseDescription", lang, entry);
  }

  int getFontWeight(int entry) const override { return number<int>("", entry) * 100; }
  bool isItalicFont(int) const override { return true; }
  int getFontStretch(int) const override { return 7; }
  int getFontWeight2(int entry) const override { return number<int>("", entry) * 10; }
  bool isItalicFont2(int) const override { return false; }
  int getFontStretch2(int) const override { return 3; }

  bool getOutlineTextMetrics(QXFontService_NS::FS_NewTextMetricEx&, int size,
                             int entry) const override {
    return yes("getOutlineTextMetrics", size, entry);
  }
  QXFontService_NS::FS_CodePageRange getCodePageRangeBitFields(int entry) const override {
    return {number<unsigned>("getCodePageRangeBitFields", entry), 8};
  }
  float getTextWidth(const UnicodeString& string, int size, bool vertical, int* firstMissing,
                     int entry) const override {
    if (firstMissing != nullptr) *firstMissing = 7;
    return number<float>("getTextWidth", string.length(), size, vertical, entry);
  }
  float getXHeight(int entry) const override { return number<float>("getXHeight", entry); }
  float getCapHeight(int entry) const override { return number<float>("getCapHeight", entry); }
  float getTypoAscender(int entry) const override {
    return number<float>("getTypoAscender", entry);
  }
  float getTypoDescender(int entry) const override {
    return number<float>("getTypoDescender", entry);
  }
  unsigned short getGlyphID(int code, bool vertical, int entry) const override {
    return number<unsigned short>("getGlyphID", code, vertical, entry);
  }
  bool getGlyphIDs(const UnicodeString& string, unsigned short*, int& count, bool vertical, int*,
                   int entry) const override {
    count = 7;
    return yes("getGlyphIDs", string.length(), vertical, entry);
  }
  QXFontService_NS::GlyphClassDef getGlyphClassDef(unsigned short gid, int entry) const override {
    return number<QXFontService_NS::GlyphClassDef>("getGlyphClassDef", gid, entry);
  }
  float getGlyphWidth(unsigned short gid, int size, bool vertical, int entry) const override {
    return number<float>("getGlyphWidth", gid, size, vertical, entry);
  }
  unsigned short getStringID(unsigned short cid, int entry) const override {
    return number<unsigned short>("getStringID", cid, entry);
  }
  QXFontService_NS::FS_GSUBGPOSInfo* getGSUBGPOSInfo(unsigned int script, unsigned int language,
                                                     int entry) const override {
    note("getGSUBGPOSInfo", script, language, entry);
    return nullptr;
  }
  bool isSymbolicFont(int entry) const override { return yes("isSymbolicFont", entry); }
  bool isFixedWidthFont(int entry) const override { return yes("isFixedWidthFont", entry); }
  bool isSerifLikeFont(int entry) const override { return yes("isSerifLikeFont", entry); }
  bool isScriptLikeFont(int entry) const override { return yes("isScriptLikeFont", entry); }

  unsigned int getEmbedableCharCount(int entry) const override {
    return number<unsigned int>("getEmbedableCharCount", entry);
  }
  bool canEmbedFont(int entry) const override { return yes("canEmbedFont", entry); }
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream&, const unsigned int* tags, int entry,
                    std::istream* source) override {
    return yes("getEmbedFont tags", gids.size(), tags == nullptr, entry, source == nullptr);
  }
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream&, int entry, std::istream* source) override {
    return yes("getEmbedFont", gids.size(), entry, source == nullptr);
  }
  bool getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream&, int entry,
                        std::istream* source) override {
    return yes("getSVG2EmbedFont", gids.size(), entry, source == nullptr);
  }
  bool getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream&, int entry,
                            std::istream* source) override {
    return yes("getEmbedFontWithCmap", gids.size(), entry, source == nullptr);
  }
  bool getEmbedFontStream(QXMemStream&, int entry, std::istream* source) override {
    return yes("getEmbedFontStream", entry, source == nullptr);
  }
  bool getPSEmbedFont(const GlyphIDs& gids, QXMemStream&, QXFontService_NS::FS_TTGlyphMap&,
                      int entry, std::istream* source) override {
    return yes("getPSEmbedFont", gids.size(), entry, source == nullptr);
  }
  bool makeWebFont(const GlyphIDs& gids, QXMemStream&, int entry, std::istream* source) override {
    return yes("makeWebFont", gids.size(), entry, source == nullptr);
  }
  bool makeSubsetFont(const GlyphIDs& gids, QXMemStream&, int entry,
                      std::istream* source) override {
    return yes("makeSubsetFont", gids.size(), entry, source == nullptr);
  }
  bool makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream&, UnicodeString& fontName,
                                  QXFontService_NS::FS_CIDSystemInfo& info, int entry,
                                  std::istream* source) override {
    fontName = u"7";
    info.Supplement = 7;
    return yes("makePostScriptCIDFontType0", gids.size(), entry, source == nullptr);
  }
  QXFontService_NS::FS_EMBEDSTATUS getEmbedStatus(int entry) const override {
    return number<QXFontService_NS::FS_EMBEDSTATUS>("getEmbedStatus", entry);
  }
  unsigned short getFontEmbeddingLicence(int entry) const override {
    return number<unsigned short>("getFontEmbeddingLicence", entry);
  }
  QXFontService_NS::FS_EncodingScheme getEncodingScheme(int entry) const override {
    return number<QXFontService_NS::FS_EncodingScheme>("getEncodingScheme", entry);
  }
  bool getCIDSystemInfo(QXFontService_NS::FS_CIDSystemInfo&, int entry) const override {
    return yes("getCIDSystemInfo", entry);
  }
  bool hasVerticalGlyph(int entry) const override { return yes("hasVerticalGlyph", entry); }
  bool hasVerticalMetrics(int entry) const override { return yes("hasVerticalMetrics", entry); }
  int getUnitsPerEm(int entry) const override { return number<int>("getUnitsPerEm", entry); }
  bool hasVariationSelector(int entry) const override { return yes("hasVariationSelector", entry); }
  unsigned short variationSequence(int code, int selector, int entry) const override {
    return number<unsigned short>("variationSequence", code, selector, entry);
  }
  float getDefaultCharWidth(int size, int entry) const override {
    return number<float>("getDefaultCharWidth", size, entry);
  }
  bool hasPairKerningInfo(bool vertical, int entry) const override {
    return yes("hasPairKerningInfo", vertical, entry);
  }
  float getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical,
                            int entry) const override {
    return number<float>("getPairKerningValue", left, right, size, vertical, entry);
  }
  unsigned char getFamilyClass(int entry) const override {
    return number<unsigned char>("getFamilyClass", entry);
  }
  unsigned char getFamilySubclass(int entry) const override {
    return number<unsigned char>("getFamilySubclass", entry);
  }
  QXFontService_NS::PANOSE* getPanose(QXFontService_NS::PANOSE& out, int entry) const override {
    out.bWeight = 7;
    note("getPanose", entry);
    return &out;
  }
  unsigned short getType1CharCode(int code, int entry) override {
    return number<unsigned short>("getType1CharCode", code, entry);
  }
  unsigned short getType1GlyphIDCode(unsigned short gid, int entry) override {
    return number<unsigned short>("getType1GlyphIDCode", gid, entry);
  }
  const QXFontService_NS::Type1CMapArray* getType1CMapArray(unsigned char page,
                                                            int entry) override {
    note("getType1CMapArray", int{page}, entry);
    return nullptr;
  }
  bool getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name,
                        int entry) override {
    code = 7;
    name = "7";
    return yes("getType1CMapPair", int{page}, i, entry);
  }
  bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name,
                         int entry) override {
    name = "7";
    return yes("getType1GlyphName", int{page}, int{code}, entry);
  }
  bool getType1EmbedFont(const GlyphIDs& gids, QXMemStream&, int entry,
                         std::istream* source) override {
    return yes("getType1EmbedFont", gids.size(), entry, source == nullptr);
  }
  bool getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream&,
                         int& length1, int& length2, int& length3, int entry) override {
    length1 = 1;
    length2 = 2;
    length3 = 3;
    return yes("getType1EmbedFont codes", int{page}, codes, count, entry);
  }
  bool getType1FontStream(QXMemStream&, int& length1, int& length2, int& length3,
                          int entry) override {
    length1 = 1;
    length2 = 2;
    length3 = 3;
    return yes("getType1FontStream", entry);
  }
  float getDefaultVertOriginY(int size, int entry) const override {
    return number<float>("getDefaultVertOriginY", size, entry);
  }
  float getGlyphVertOriginY(unsigned short, int, int) const override {
    return number<float>("getGlyphVertOriginY");
  }

 private:
  template <class... Args>
  void note(const char* name, Args... args) const {
    std::ostringstream line;
    line << name;
    ((line << ' ' << args), ...);
    call = line.str();
  }
  template <class... Args>
  bool yes(const char* name, Args... args) const {
    note(name, args...);
    return true;
  }
  template <class Result, class... Args>
  Result number(const char* name, Args... args) const {
    note(name, args...);
    return static_cast<Result>(7);
  }
  template <class... Args>
  UnicodeString text(const char* name, Args... args) const {
    note(name, args...);
    return u"7";
  }
};

}  // namespace qxtest
