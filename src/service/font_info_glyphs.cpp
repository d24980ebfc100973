#include "qxfontservice/font_info.h"

#include "embed/cff/cff_info.h"
#include "font/contract/base_font.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::askFont;
using Font = FS_BaseFont;

unsigned short FS_FontInfo::getGlyphID(int codePoint, bool vertical) const {
  return askFont<&Font::getGlyphID>(font_, FS_NO_GLYPH, codePoint, vertical, entry_);
}

bool FS_FontInfo::getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count,
                              bool vertical, int* firstMissing) const {
  if (text.isEmpty() || out == nullptr) return false;
  return askFont<&Font::getGlyphIDs>(font_, false, text, out, count, vertical, firstMissing,
                                     entry_);
}

unsigned short FS_FontInfo::getGlyphIDfromCID(unsigned short cid) const {
  const FS_CFFInfo* cff = askFont<&Font::getCFFFont>(font_, nullptr, entry_);
  return cff != nullptr ? cff->getGIDFromCID(cid) : FS_NO_GLYPH;
}

unsigned short FS_FontInfo::getStringID(unsigned short gid) const {
  return askFont<&Font::getStringID>(font_, 0, gid, entry_);
}
bool FS_FontInfo::hasVerticalGlyph() const {
  return askFont<&Font::hasVerticalGlyph>(font_, false, entry_);
}

bool FS_FontInfo::hasVerticalGlyph(int codePoint) const {
  const unsigned short vertical = getGlyphID(codePoint, true);
  return vertical != FS_NO_GLYPH && vertical != getGlyphID(codePoint, false);
}

bool FS_FontInfo::hasVerticalMetrics() const {
  return askFont<&Font::hasVerticalMetrics>(font_, false, entry_);
}
bool FS_FontInfo::hasVariationSelector() const {
  return askFont<&Font::hasVariationSelector>(font_, false, entry_);
}
unsigned short FS_FontInfo::variationSequence(int codePoint, int selector) const {
  return askFont<&Font::variationSequence>(font_, FS_NO_GLYPH, codePoint, selector, entry_);
}
GlyphClassDef FS_FontInfo::getGlyphClassDef(unsigned short gid) const {
  return askFont<&Font::getGlyphClassDef>(font_, GCD_NONE, gid, entry_);
}
FS_EncodingScheme FS_FontInfo::getEncodingScheme() const {
  return askFont<&Font::getEncodingScheme>(font_, FS_ENCODING_NONE, entry_);
}
bool FS_FontInfo::getCIDSystemInfo(FS_CIDSystemInfo& out) const {
  return askFont<&Font::getCIDSystemInfo>(font_, false, out, entry_);
}
FS_GSUBGPOSInfo* FS_FontInfo::getGSUBGPOSInfo(unsigned int scriptTag,
                                              unsigned int languageTag) const {
  return askFont<&Font::getGSUBGPOSInfo>(font_, nullptr, scriptTag, languageTag, entry_);
}

}  // namespace QXFontService_NS
