#include "qxfont/shape/feature_list.h"

#include <memory>

namespace qxfont {
namespace {

using Font = QXFontService_NS::FS_FontInfo;
using LayoutInfo = QXFontService_NS::FS_GSUBGPOSInfo;

std::vector<LayoutTag> tagsOf(const LayoutInfo* info,
                              unsigned int (*tagAt)(const LayoutInfo*, int)) {
  std::vector<LayoutTag> tags;
  for (int i = 0; const LayoutTag tag = tagAt(info, i); ++i) tags.push_back(tag);
  return tags;
}

}  // namespace

FeatureList featureList(const Font& font, LayoutTag script, LayoutTag language) {
  FeatureList list;
  const std::unique_ptr<LayoutInfo, void (*)(LayoutInfo*)> info(
      font.getGSUBGPOSInfo(script, language), &Font::deleteGSUBGPOSInfo);
  if (!info) return list;
  list.isLayout = true;
  list.gsub = tagsOf(info.get(), &Font::getGSUBFeatureTag);
  list.gpos = tagsOf(info.get(), &Font::getGPOSFeatureTag);
  list.gsubByDefault = Font::isGSUBDefaultLangSys(info.get());
  list.gposByDefault = Font::isGPOSDefaultLangSys(info.get());
  return list;
}

}  // namespace qxfont
