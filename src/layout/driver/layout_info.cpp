#include "layout/driver/layout_info.h"

#include "layout/gsub/lookups.h"
#include "layout/gsub/substitutes.h"
#include "layout/guard/limits.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS::layout {
namespace {

/// One table's part of an info.
struct Resolved {
  const TTI_LayoutTable* table = nullptr;
  const TTI_LangSys* langSys = nullptr;
  bool byDefault = false;
};

const TTI_LangSys* langSysOf(const TTI_Script& script, unsigned tag) {
  const auto found = script.langSys.find(tag);
  return found == script.langSys.end() ? nullptr : found->second.get();
}

Resolved resolve(const TTI_LayoutTable& table, unsigned scriptTag, unsigned langTag) {
  const auto script = table.scripts.find(scriptTag);
  if (script == table.scripts.end()) return {};
  Resolved resolved;
  if (langTag != 0) resolved.langSys = langSysOf(*script->second, langTag);
  if (resolved.langSys == nullptr) {
    resolved.langSys = langSysOf(*script->second, 0);
    resolved.byDefault = true;
  }
  if (resolved.langSys != nullptr) resolved.table = &table;
  return resolved;
}

unsigned tagOf(const TTI_LangSys* langSys, int i) {
  if (langSys == nullptr || i < 0) return 0;
  const auto index = static_cast<std::size_t>(i);
  return index < langSys->lookupsInOrder.size() ? langSys->lookupsInOrder[index].first : 0;
}

bool hasFeature(const TTI_LangSys* langSys, unsigned tag) {
  return langSys != nullptr && !langSys->featuresOf(tag).empty();
}

}  // namespace

std::unique_ptr<FS_GSUBGPOSInfo> makeGSUBGPOSInfo(const FS_LayoutTables& font,
                                                  unsigned int scriptTag, unsigned int langTag) {
  const Resolved gsub = resolve(*font.gsub, scriptTag, langTag);
  const Resolved gpos = resolve(*font.gpos, scriptTag, langTag);
  auto info = std::make_unique<FS_GSUBGPOSInfo>();
  info->scriptTag = scriptTag;
  info->font = &font;
  info->gsub = gsub.table;
  info->gpos = gpos.table;
  info->gsubLangSys = gsub.langSys;
  info->gposLangSys = gpos.langSys;
  info->gsubDefault = gsub.byDefault;
  info->gposDefault = gpos.byDefault;
  return info;
}

bool hasGSUBInfo(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gsub != nullptr;
}
bool hasGPOSInfo(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gpos != nullptr;
}
bool isGSUBDefaultLangSys(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gsubDefault;
}
bool isGPOSDefaultLangSys(const FS_GSUBGPOSInfo* info) {
  return info != nullptr && info->gposDefault;
}
unsigned int getGSUBFeatureTag(const FS_GSUBGPOSInfo* info, int i) {
  return info == nullptr ? 0 : tagOf(info->gsubLangSys, i);
}
unsigned int getGPOSFeatureTag(const FS_GSUBGPOSInfo* info, int i) {
  return info == nullptr ? 0 : tagOf(info->gposLangSys, i);
}
bool hasGSUBFeature(const FS_GSUBGPOSInfo* info, unsigned int tag) {
  return info != nullptr && hasFeature(info->gsubLangSys, tag);
}
bool hasGPOSFeature(const FS_GSUBGPOSInfo* info, unsigned int tag) {
  return info != nullptr && hasFeature(info->gposLangSys, tag);
}

unsigned short verticalSubstitute(const FS_LayoutTables& font, unsigned short glyph) {
  const TTI_Feature* vert = font.gsub->featureList.vert;
  if (vert == nullptr) return kNoGlyph;
  WorkMeter meter(kMostVerticalSubTables, 0, 0);
  for (const unsigned short index : vert->lookups) {
    const TTI_Lookup* lookup = font.gsub->lookupList.find(index);
    const auto found =
        lookup == nullptr ? GlyphIDClassPair() : lookupSingle(font, *lookup, glyph, meter);
    if (found.hasGlyph()) return found.glyphID;
  }
  return kNoGlyph;
}

}  // namespace QXFontService_NS::layout
