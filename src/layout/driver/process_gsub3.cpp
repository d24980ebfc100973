#include <algorithm>
#include <stdexcept>
#include <vector>

#include "layout/driver/process_gsub.h"
#include "layout/gsub/lookup_pass.h"
#include "layout/records/glyph_record_access.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS::layout {
namespace {

/// Makes `output` the glyphs of `input`, each of which stands for itself.
void startFrom(const GlyphIDArray2& input, GlyphIDArray2& output) {
  GlyphRecordAccess::pairs(output) = GlyphRecordAccess::pairs(input);
  GlyphRecordAccess::words(output).assign(static_cast<std::size_t>(input.size()), 1U);
}

/// Whether a lookup can do something at any of the glyphs: mostly it cannot.
bool mayApply(const TTI_Lookup& lookup, const GlyphIDArray2& input) {
  const auto& pairs = GlyphRecordAccess::pairs(input);
  return std::any_of(pairs.begin(), pairs.end(), [&](const GlyphIDClassPair& pair) {
    return lookup.starts.contains(pair.glyphID);
  });
}

/// Runs a lookup over `output`, which begins as `input`.
bool applyLookupPass(const FS_GSUBGPOSInfo& info, const TTI_Lookup& lookup,
                     const GlyphIDArray2& input, GlyphIDArray2& output, int alternate) {
  startFrom(input, output);
  PassArrays arrays(output, GlyphRecordAccess::words(input));
  LookupPass pass(*info.font, info.gsub->lookupList, alternate, arrays,
                  WorkMeter::forPass(arrays.size()));
  const bool changed = pass.run(lookup);
  arrays.release(output);
  return changed;
}

/// The lookup of an entry of the lookups in order; null where the entry names none.
const TTI_Lookup* lookupOf(const FS_GSUBGPOSInfo& info, std::size_t entry) {
  return info.gsub->lookupList.find(info.gsubLangSys->lookupsInOrder[entry].second);
}

}  // namespace

bool processGSUB3(const FS_GSUBGPOSInfo* info, int index, const GlyphIDArray2& input,
                  GlyphIDArray2& output, int alternate) {
  if (info == nullptr || info->gsubLangSys == nullptr || index < 0) return false;
  const auto entry = static_cast<std::size_t>(index);
  if (entry >= info->gsubLangSys->lookupsInOrder.size()) return false;
  if (&input == &output) {
    const GlyphIDArray2 copy = input;
    return processGSUB3(info, index, copy, output, alternate);
  }
  const TTI_Lookup* lookup = lookupOf(*info, entry);
  try {
    if (lookup != nullptr && mayApply(*lookup, input))
      return applyLookupPass(*info, *lookup, input, output, alternate);
  } catch (const std::out_of_range&) {
    // A damaged rule: nothing is applied.
  }
  startFrom(input, output);
  return false;
}

}  // namespace QXFontService_NS::layout
