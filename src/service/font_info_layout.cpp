#include "qxfontservice/font_info.h"

#include "layout/driver/process_gpos.h"
#include "layout/table/gsub_gpos_info.h"
#include "layout/table/script_list.h"

/// The layout members: the one place where handles and the layout tables meet.

namespace QXFontService_NS {
namespace {

using LangSys = FS_LayoutTables::TTI_LangSys;

bool hasFeature(const LangSys* system, unsigned int tag) {
  return system != nullptr && !system->featuresOf(tag).empty();
}

unsigned int featureTag(const LangSys* system, int i) {
  if (system == nullptr || i < 0) return 0;
  const auto index = static_cast<std::size_t>(i);
  return index < system->lookupsInOrder.size() ? system->lookupsInOrder[index].first : 0;
}

}  // namespace

void FS_FontInfo::deleteGSUBGPOSInfo(FS_GSUBGPOSInfo* info) {
  delete info;
}

bool FS_FontInfo::hasGSUBInfo(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gsub != nullptr;
}

bool FS_FontInfo::hasGPOSInfo(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gpos != nullptr;
}

bool FS_FontInfo::hasMorxInfo(const FS_GSUBGPOSInfo*) {
  return false;
}

bool FS_FontInfo::isGSUBDefaultLangSys(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gsubDefault;
}

bool FS_FontInfo::isGPOSDefaultLangSys(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gposDefault;
}

bool FS_FontInfo::hasGSUBFeature(const FS_GSUBGPOSInfo* info, unsigned int tag) {
  return info != nullptr && hasFeature(info->gsubLangSys, tag);
}

bool FS_FontInfo::hasGPOSFeature(const FS_GSUBGPOSInfo* info, unsigned int tag) {
  return info != nullptr && hasFeature(info->gposLangSys, tag);
}

unsigned int FS_FontInfo::getGSUBFeatureTag(const FS_GSUBGPOSInfo* info, int i) {
  return info != nullptr ? featureTag(info->gsubLangSys, i) : 0;
}

unsigned int FS_FontInfo::getGPOSFeatureTag(const FS_GSUBGPOSInfo* info, int i) {
  return info != nullptr ? featureTag(info->gposLangSys, i) : 0;
}

// Awaiting the driver of `GSUB`: until it is called here, nothing is ever substituted.

int FS_FontInfo::processGSUB(const FS_GSUBGPOSInfo*, unsigned int, const GlyphIDArray&, int&,
                             GlyphIDArray&, GlyphIDArray&, int) {
  return 0;
}

bool FS_FontInfo::processGSUB3(const FS_GSUBGPOSInfo*, int, const GlyphIDArray2&, GlyphIDArray2&,
                               int) {
  return false;
}

bool FS_FontInfo::processGPOS(const FS_GSUBGPOSInfo* info, unsigned int tag,
                              std::vector<GlyphIDPosition>& glyphs, int position,
                              bool rightToLeft) {
  return layout::processGPOS(info, tag, glyphs, position, rightToLeft);
}

int FS_FontInfo::processGPOS3(const FS_GSUBGPOSInfo* info, int index,
                              std::vector<GlyphIDPosition>& glyphs, bool rightToLeft) {
  return layout::processGPOS3(info, index, glyphs, rightToLeft);
}

bool FS_FontInfo::processMorx(const FS_GSUBGPOSInfo*, const GlyphIDArray2&, GlyphIDArray2&) {
  return false;
}

}  // namespace QXFontService_NS
