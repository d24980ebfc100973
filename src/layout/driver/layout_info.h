#pragma once

#include <memory>

#include "layout/table/gsub_gpos_info.h"

namespace QXFontService_NS::layout {

/// Resolves a script and a language in both tables of a font, each for itself. No other script is
/// turned to, 'DFLT' neither; a language of 0, or one that the script lacks, turns to the script's
/// default language system. Never null.
std::unique_ptr<FS_GSUBGPOSInfo> makeGSUBGPOSInfo(const FS_LayoutTables& font,
                                                  unsigned int scriptTag, unsigned int langTag);

// What hosts ask of an info. A null one answers false and 0.

bool hasGSUBInfo(const FS_GSUBGPOSInfo* info);
bool hasGPOSInfo(const FS_GSUBGPOSInfo* info);
bool isGSUBDefaultLangSys(const FS_GSUBGPOSInfo* info);
bool isGPOSDefaultLangSys(const FS_GSUBGPOSInfo* info);
/// The feature of the `i`th of the lookups in order: what `processGSUB3` takes as index. 0 outside
/// and without a language system.
unsigned int getGSUBFeatureTag(const FS_GSUBGPOSInfo* info, int i);
unsigned int getGPOSFeatureTag(const FS_GSUBGPOSInfo* info, int i);
bool hasGSUBFeature(const FS_GSUBGPOSInfo* info, unsigned int tag);
bool hasGPOSFeature(const FS_GSUBGPOSInfo* info, unsigned int tag);

/// The vertical form of a glyph by the lookups of the first 'vert' feature, or 0xFFFF.
unsigned short verticalSubstitute(const FS_LayoutTables& font, unsigned short glyph);

}  // namespace QXFontService_NS::layout
