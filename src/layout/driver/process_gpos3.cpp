#include "layout/context/lookup_flag.h"
#include "layout/driver/process_gpos.h"
#include "layout/gpos/lookup_run.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS::layout {
namespace {

/// The lookup of an entry of the lookups in order; null where there is none.
const TTI_Lookup* lookupOf(const FS_GSUBGPOSInfo& info, int index) {
  const auto& entries = info.gposLangSys->lookupsInOrder;
  const auto entry = static_cast<std::size_t>(index);
  if (index < 0 || entry >= entries.size()) return nullptr;
  return info.gpos->lookupList.find(entries[entry].second);
}

}  // namespace

int processGPOS3(const FS_GSUBGPOSInfo* info, int index, std::vector<GlyphIDPosition>& glyphs,
                 bool rightToLeft) {
  if (info == nullptr || info->gposLangSys == nullptr) return -1;
  const TTI_Lookup* lookup = lookupOf(*info, index);
  if (lookup == nullptr) return -1;
  const bool direction = rightToLeft || (lookup->flag & kRightToLeft) != 0;
  const int size = static_cast<int>(glyphs.size());
  PositionRun run(glyphs, WorkMeter::forPass(size));
  LookupRun lookups(*info->font, info->gpos->lookupList, run, direction);
  int first = -1;
  for (int place = 0; place < size; ++place) {
    if (!lookup->starts.contains(run[place].getGlyphID())) continue;
    if (lookups.applyGPOSLookup(*lookup, place) && first == -1) first = place;
  }
  return first;
}

}  // namespace QXFontService_NS::layout
