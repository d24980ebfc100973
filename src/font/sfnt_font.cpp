#include "font/sfnt_font.h"

#include "font/contract/font_key_sink.h"
#include "font/contract/font_services.h"
#include "font/names/pool_names.h"
#include "layout/driver/layout_info.h"

namespace QXFontService_NS {
namespace {

/// What `query` answers for a record; `neutral` without one.
template <class Result, class Query>
Result ask(const FS_TrueTypeInfo* info, Result neutral, Query query) {
  return info != nullptr ? query(*info) : neutral;
}

/// The same for queries that are members without arguments.
template <class Result>
Result ask(const FS_TrueTypeInfo* info, Result neutral, Result (FS_TrueTypeInfo::*query)() const) {
  return info != nullptr ? (info->*query)() : neutral;
}

using Info = FS_TrueTypeInfo;

}  // namespace

FS_TrueTypeInfo* SfntFont::recordOf(FS_BaseFont& font, int entry) {
  const auto* sfnt = dynamic_cast<const SfntFont*>(font.getExtraBaseFont());
  return sfnt != nullptr ? sfnt->record(entry) : nullptr;
}

bool SfntFont::isTrueTypeOrCID(int entry) const {
  return record(entry) != nullptr;
}

bool SfntFont::loadFontTables(QXError* error, int entry, std::istream* stream) {
  Info* info = record(entry);
  return info != nullptr && info->loadTables(error, stream);
}

void SfntFont::addStyleKeys(FS_FontKeySink& keys, const FS_FontRef&, const QXUri& uri) {
  for (int entry = 0; entry < getEntryCount(); ++entry)
    keys.addFileName(uri, FS_FontRef{this, static_cast<short>(entry)}, record(entry)->styleKey());
}

void SfntFont::addNameKeys(FS_FontKeySink& keys, const FS_FontRef&) {
  const bool preferredFamily = fontServices().usePreferredFamily();
  for (int entry = 0; entry < getEntryCount(); ++entry) {
    const Info& info = *record(entry);
    std::set<UnicodeString> all = names::poolNames(info.records().names, preferredFamily);
    all.insert(fontAliases().begin(), fontAliases().end());
    keys.addFamilyNames(all, FS_FontRef{this, static_cast<short>(entry)}, info.styleKey());
  }
}

UnicodeString SfntFont::name(QXLang::LanguageID lang, NameSlot slot, int entry) const {
  return ask(record(entry), UnicodeString(),
             [&](const Info& info) { return info.getName(static_cast<int>(lang), slot); });
}

bool SfntFont::getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count,
                           bool vertical, int* firstMissing, int entry) const {
  return ask(record(entry), false, [&](const Info& info) {
    info.getGlyphIDs(text, out, count, vertical, firstMissing);
    return true;
  });
}

bool SfntFont::getLogFont(FS_EnumLogFontEx& out, int entry) const {
  return ask(record(entry), false, [&](const Info& info) {
    info.getLogFont(out);
    return true;
  });
}

bool SfntFont::getNewTextMetricEx(FS_NewTextMetricEx& out, int entry) const {
  return ask(record(entry), false, [&](const Info& info) {
    info.getNewTextMetricEx(out);
    return true;
  });
}

bool SfntFont::getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const {
  return ask(record(entry), false, [&](const Info& info) {
    info.getOutlineTextMetrics(out, size);
    return true;
  });
}

FS_GSUBGPOSInfo* SfntFont::getGSUBGPOSInfo(unsigned int script, unsigned int language,
                                           int entry) const {
  const Info* info = record(entry);
  return info != nullptr ? layout::makeGSUBGPOSInfo(*info, script, language).release() : nullptr;
}

void SfntFont::setEudcFont(const FS_FontRef& ref, int entry) {
  if (Info* info = record(entry)) info->eudcLink().set(ref);
}

// The plain answers, in the order of the interface; one line each, to be read beside it.
// clang-format off

FS_TrueTypeInfo* SfntFont::getTrueTypeInfo(int entry) const { return record(entry); }
bool SfntFont::isType1Font() const { return false; }
bool SfntFont::isTrueTypeFont() const { return true; }
bool SfntFont::isType1OrNoCID(int) const { return false; }

UnicodeString SfntFont::getFamilyName(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::family, entry); }
UnicodeString SfntFont::getSubFamilyName(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::subFamily, entry); }
UnicodeString SfntFont::getFullFontName(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::fullName, entry); }
UnicodeString SfntFont::getPostScriptName(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::postScriptName, entry); }
UnicodeString SfntFont::getPreferredFamily(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::preferredFamily, entry); }
UnicodeString SfntFont::getPreferredSubFamily(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::preferredSubFamily, entry); }
UnicodeString SfntFont::getPostScriptCIDFindfontName(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::cidFindfontName, entry); }

int SfntFont::getFontWeight(int entry) const { return ask(record(entry), 0, &Info::getFontWeight); }
bool SfntFont::isItalicFont(int entry) const { return ask(record(entry), false, &Info::isItalicFont); }
int SfntFont::getFontStretch(int entry) const { return ask(record(entry), 0, &Info::getFontStretch); }

UnicodeString SfntFont::getCopyright(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::copyright, entry); }
UnicodeString SfntFont::getManufacturer(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::manufacturer, entry); }
UnicodeString SfntFont::getLicenseDescription(QXLang::LanguageID lang, int entry) const { return name(lang, NameSlot::licenseDescription, entry); }
FS_CodePageRange SfntFont::getCodePageRangeBitFields(int entry) const { return ask(record(entry), FS_CodePageRange{}, &Info::getCodePageRangeBitFields); }
float SfntFont::getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing, int entry) const {
  return ask(record(entry), 0.0F, [&](const Info& info) { return info.getTextWidth(text, size, vertical, firstMissing); });
}
float SfntFont::getXHeight(int entry) const { return ask(record(entry), 0.0F, &Info::getXHeight); }
float SfntFont::getCapHeight(int entry) const { return ask(record(entry), 0.0F, &Info::getCapHeight); }
float SfntFont::getTypoAscender(int entry) const { return ask(record(entry), 0.0F, &Info::getTypoAscender); }
float SfntFont::getTypoDescender(int entry) const { return ask(record(entry), 0.0F, &Info::getTypoDescender); }

unsigned short SfntFont::getGlyphID(int code, bool vertical, int entry) const {
  return ask(record(entry), kNoGlyph, [&](const Info& info) { return info.getGlyphID(code, vertical); });
}
GlyphClassDef SfntFont::getGlyphClassDef(unsigned short gid, int entry) const {
  return ask(record(entry), GCD_NONE, [&](const Info& info) { return info.glyphClass(gid); });
}
float SfntFont::getGlyphWidth(unsigned short gid, int size, bool vertical, int entry) const {
  return ask(record(entry), 0.0F, [&](const Info& info) { return info.getGlyphWidth(gid, size, vertical); });
}
FS_CFFInfo* SfntFont::getCFFFont(int entry) const { return ask(record(entry), static_cast<FS_CFFInfo*>(nullptr), &Info::cffFont); }
bool SfntFont::isSymbolicFont(int entry) const { return ask(record(entry), false, &Info::isSymbolicFont); }
bool SfntFont::isFixedWidthFont(int entry) const { return ask(record(entry), false, &Info::isFixedWidthFont); }
bool SfntFont::isSerifLikeFont(int entry) const { return ask(record(entry), false, &Info::isSerifLikeFont); }
bool SfntFont::isScriptLikeFont(int entry) const { return ask(record(entry), false, &Info::isScriptLikeFont); }

unsigned int SfntFont::getEmbedableCharCount(int entry) const { return ask(record(entry), 0U, &Info::getEmbedableCharCount); }
bool SfntFont::canEmbedFont(int entry) const { return ask(record(entry), false, &Info::canEmbedFont); }
bool SfntFont::isEmbeddingAllowed(int entry) const { return ask(record(entry), false, &Info::isEmbeddingAllowed); }
FS_EMBEDSTATUS SfntFont::getEmbedStatus(int entry) const { return ask(record(entry), FS_EMBED_ALLOWED, &Info::getEmbedStatus); }
unsigned short SfntFont::getFontEmbeddingLicence(int entry) const { return ask(record(entry), static_cast<unsigned short>(0), &Info::getFontEmbeddingLicence); }

bool SfntFont::getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const {
  return ask(record(entry), false, [&](const Info& info) { return info.getCIDSystemInfo(out); });
}
bool SfntFont::hasVerticalGlyph(int entry) const { return ask(record(entry), false, &Info::hasVerticalGlyph); }
bool SfntFont::hasVerticalMetrics(int entry) const { return ask(record(entry), false, &Info::hasVerticalMetrics); }
int SfntFont::getUnitsPerEm(int entry) const { return ask(record(entry), 0, &Info::getUnitsPerEm); }
bool SfntFont::hasVariationSelector(int entry) const { return ask(record(entry), false, &Info::hasVariationSelector); }
unsigned short SfntFont::variationSequence(int code, int selector, int entry) const {
  return ask(record(entry), kNoGlyph, [&](const Info& info) { return info.variationSequence(code, selector); });
}
float SfntFont::getDefaultCharWidth(int size, int entry) const {
  return ask(record(entry), 0.0F, [&](const Info& info) { return info.getDefaultCharWidth(size); });
}
bool SfntFont::hasPairKerningInfo(bool vertical, int entry) const {
  return ask(record(entry), false, [&](const Info& info) { return info.hasPairKerningInfo(vertical); });
}
float SfntFont::getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical, int entry) const {
  return ask(record(entry), 0.0F, [&](const Info& info) { return info.getPairKerningValue(left, right, size, vertical); });
}
unsigned char SfntFont::getFamilyClass(int entry) const { return ask(record(entry), static_cast<unsigned char>(0), &Info::getFamilyClass); }
unsigned char SfntFont::getFamilySubclass(int entry) const { return ask(record(entry), static_cast<unsigned char>(0), &Info::getFamilySubclass); }
PANOSE* SfntFont::getPanose(PANOSE& out, int entry) const {
  return ask(record(entry), static_cast<PANOSE*>(nullptr), [&](const Info& info) { return info.getPanose(out); });
}

FS_FontRef SfntFont::getEudcFont(int entry) const {
  return ask(record(entry), FS_FontRef{}, [](const Info& info) { return info.eudcLink().get(); });
}
unsigned short SfntFont::getEudcGlyphID(int code, int entry) const {
  return ask(record(entry), kNoGlyph, [&](const Info& info) { return info.getEudcGlyphID(code); });
}

// clang-format on

}  // namespace QXFontService_NS
