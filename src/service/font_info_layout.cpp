#include "qxfontservice/font_info.h"
#include "qxfontservice/glyph_id_position.h"

#include "layout/driver/layout_info.h"
#include "layout/driver/process_gpos.h"
#include "layout/driver/process_gsub.h"
#include "service/boundary.h"

// The layout members: forwarders to the drivers.

namespace QXFontService_NS {

using service::atBoundary;

void FS_FontInfo::deleteGSUBGPOSInfo(FS_GSUBGPOSInfo* info) {
  delete info;
}
bool FS_FontInfo::hasGSUBInfo(const FS_GSUBGPOSInfo* info) {
  return layout::hasGSUBInfo(info);
}
bool FS_FontInfo::hasGPOSInfo(const FS_GSUBGPOSInfo* info) {
  return layout::hasGPOSInfo(info);
}
bool FS_FontInfo::hasMorxInfo(const FS_GSUBGPOSInfo*) {
  return false;
}
bool FS_FontInfo::isGSUBDefaultLangSys(const FS_GSUBGPOSInfo* info) {
  return layout::isGSUBDefaultLangSys(info);
}
bool FS_FontInfo::isGPOSDefaultLangSys(const FS_GSUBGPOSInfo* info) {
  return layout::isGPOSDefaultLangSys(info);
}
bool FS_FontInfo::hasGSUBFeature(const FS_GSUBGPOSInfo* info, unsigned int tag) {
  return layout::hasGSUBFeature(info, tag);
}
bool FS_FontInfo::hasGPOSFeature(const FS_GSUBGPOSInfo* info, unsigned int tag) {
  return layout::hasGPOSFeature(info, tag);
}
unsigned int FS_FontInfo::getGSUBFeatureTag(const FS_GSUBGPOSInfo* info, int i) {
  return layout::getGSUBFeatureTag(info, i);
}
unsigned int FS_FontInfo::getGPOSFeatureTag(const FS_GSUBGPOSInfo* info, int i) {
  return layout::getGPOSFeatureTag(info, i);
}

int FS_FontInfo::processGSUB(const FS_GSUBGPOSInfo* info, unsigned int tag,
                             const GlyphIDArray& input, int& position, GlyphIDArray& output,
                             GlyphIDArray& matched, int alternate) {
  return atBoundary(0, [&] {
    return layout::processGSUB(info, tag, input, position, output, matched, alternate);
  });
}

bool FS_FontInfo::processGSUB3(const FS_GSUBGPOSInfo* info, int index, const GlyphIDArray2& input,
                               GlyphIDArray2& output, int alternate) {
  return atBoundary(false,
                    [&] { return layout::processGSUB3(info, index, input, output, alternate); });
}

bool FS_FontInfo::processGPOS(const FS_GSUBGPOSInfo* info, unsigned int tag,
                              std::vector<GlyphIDPosition>& glyphs, int position,
                              bool rightToLeft) {
  return atBoundary(false,
                    [&] { return layout::processGPOS(info, tag, glyphs, position, rightToLeft); });
}

int FS_FontInfo::processGPOS3(const FS_GSUBGPOSInfo* info, int index,
                              std::vector<GlyphIDPosition>& glyphs, bool rightToLeft) {
  return atBoundary(-1, [&] { return layout::processGPOS3(info, index, glyphs, rightToLeft); });
}

bool FS_FontInfo::processMorx(const FS_GSUBGPOSInfo*, const GlyphIDArray2&, GlyphIDArray2&) {
  return false;
}

}  // namespace QXFontService_NS
