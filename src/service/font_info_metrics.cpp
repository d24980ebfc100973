#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::askFont;
using Font = FS_BaseFont;

bool FS_FontInfo::getOutlineTextMetrics(FS_NewTextMetricEx& out, int size) const {
  return askFont<&Font::getOutlineTextMetrics>(font_, false, out, size, entry_);
}
FS_CodePageRange FS_FontInfo::getCodePageRangeBitFields() const {
  return askFont<&Font::getCodePageRangeBitFields>(font_, FS_CodePageRange(), entry_);
}
float FS_FontInfo::getCapHeight() const {
  return askFont<&Font::getCapHeight>(font_, 0.0F, entry_);
}
float FS_FontInfo::getXHeight() const {
  return askFont<&Font::getXHeight>(font_, 0.0F, entry_);
}
float FS_FontInfo::getTypoAscender() const {
  return askFont<&Font::getTypoAscender>(font_, 0.0F, entry_);
}
float FS_FontInfo::getTypoDescender() const {
  return askFont<&Font::getTypoDescender>(font_, 0.0F, entry_);
}
PANOSE* FS_FontInfo::getPanose(PANOSE& out) const {
  return askFont<&Font::getPanose>(font_, nullptr, out, entry_);
}
unsigned char FS_FontInfo::getFamilyClass() const {
  return askFont<&Font::getFamilyClass>(font_, 0, entry_);
}
unsigned char FS_FontInfo::getFamilySubclass() const {
  return askFont<&Font::getFamilySubclass>(font_, 0, entry_);
}
int FS_FontInfo::getUnitsPerEm() const {
  return askFont<&Font::getUnitsPerEm>(font_, 0, entry_);
}
float FS_FontInfo::getDefaultCharWidth(int size) const {
  return askFont<&Font::getDefaultCharWidth>(font_, 0.0F, size, entry_);
}
float FS_FontInfo::getDefaultVertOriginY(int size) const {
  return askFont<&Font::getDefaultVertOriginY>(font_, 0.0F, size, entry_);
}
// Required not to ask the font: hosts place every vertical glyph by the default origin.
float FS_FontInfo::getGlyphVertOriginY(unsigned short, int) const {
  return 0.0F;
}

float FS_FontInfo::getTextWidth(const UnicodeString& text, int size, bool vertical,
                                int* firstMissing) const {
  if (text.isEmpty()) return 0.0F;
  return askFont<&Font::getTextWidth>(font_, 0.0F, text, size, vertical, firstMissing, entry_);
}

float FS_FontInfo::getTextWidth(int codePoint, int size, bool vertical, int* firstMissing) const {
  // A number that is no code point makes an empty text.
  return getTextWidth(UnicodeString(static_cast<UChar32>(codePoint)), size, vertical, firstMissing);
}

float FS_FontInfo::getGlyphWidth(unsigned short gid, int size, bool vertical) const {
  return askFont<&Font::getGlyphWidth>(font_, 0.0F, gid, size, vertical, entry_);
}
bool FS_FontInfo::hasPairKerningInfo(bool vertical) const {
  return askFont<&Font::hasPairKerningInfo>(font_, false, vertical, entry_);
}
float FS_FontInfo::getPairKerningValue(unsigned short left, unsigned short right, int size,
                                       bool vertical) const {
  return askFont<&Font::getPairKerningValue>(font_, 0.0F, left, right, size, vertical, entry_);
}
bool FS_FontInfo::isSymbolicFont() const {
  return askFont<&Font::isSymbolicFont>(font_, false, entry_);
}
bool FS_FontInfo::isFixedWidthFont() const {
  return askFont<&Font::isFixedWidthFont>(font_, false, entry_);
}
bool FS_FontInfo::isSerifLikeFont() const {
  return askFont<&Font::isSerifLikeFont>(font_, false, entry_);
}
bool FS_FontInfo::isScriptLikeFont() const {
  return askFont<&Font::isScriptLikeFont>(font_, false, entry_);
}

}  // namespace QXFontService_NS
