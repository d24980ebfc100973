#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::askFont;
using Font = FS_BaseFont;
using LanguageID = QXLang::LanguageID;

UnicodeString FS_FontInfo::getFamilyName(LanguageID lang) const {
  return getFamilyName(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getSubFamilyName(LanguageID lang) const {
  return getSubFamilyName(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getFullFontName(LanguageID lang) const {
  return getFullFontName(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getPostScriptName(LanguageID lang) const {
  return getPostScriptName(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getPreferredFamily(LanguageID lang) const {
  return getPreferredFamily(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getPreferredSubFamily(LanguageID lang) const {
  return getPreferredSubFamily(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getPostScriptCIDFindfontName(LanguageID lang) const {
  return getPostScriptCIDFindfontName(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getCopyright(LanguageID lang) const {
  return getCopyright(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getManufacturer(LanguageID lang) const {
  return getManufacturer(font_, entry_, lang);
}
UnicodeString FS_FontInfo::getLicenseDescription(LanguageID lang) const {
  return getLicenseDescription(font_, entry_, lang);
}

UnicodeString FS_FontInfo::getFamilyName(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getFamilyName>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getSubFamilyName(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getSubFamilyName>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getFullFontName(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getFullFontName>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getPostScriptName(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getPostScriptName>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getPreferredFamily(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getPreferredFamily>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getPreferredSubFamily(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getPreferredSubFamily>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getPostScriptCIDFindfontName(const Font* font, int entry,
                                                        LanguageID lang) {
  return askFont<&Font::getPostScriptCIDFindfontName>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getCopyright(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getCopyright>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getManufacturer(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getManufacturer>(font, UnicodeString(), lang, entry);
}
UnicodeString FS_FontInfo::getLicenseDescription(const Font* font, int entry, LanguageID lang) {
  return askFont<&Font::getLicenseDescription>(font, UnicodeString(), lang, entry);
}

// The name of record is that of the whole file: no face is passed, and the first one answers.
UnicodeString FS_FontInfo::getFamilyNameEx() const {
  return askFont<&Font::getFamilyNameEx>(font_, UnicodeString(), 0);
}

}  // namespace QXFontService_NS
