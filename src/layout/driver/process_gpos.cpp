#include "layout/driver/process_gpos.h"

#include <span>

#include "layout/gpos/lookup_run.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS::layout {
namespace {

constexpr unsigned kArab = 0x61726162;  // 'arab'
constexpr unsigned kHebr = 0x68656272;  // 'hebr'

/// The lookups of a feature at one position. How they run hangs on the script alone, not on the
/// direction of the text.
class FeatureStep {
 public:
  using Indices = std::span<const unsigned short>;

  FeatureStep(const FS_GSUBGPOSInfo& info, PositionRun& glyphs, int position, bool rightToLeft)
      : scriptTag_(info.scriptTag),
        lookups_(info.gpos->lookupList),
        run_(*info.font, lookups_, glyphs, rightToLeft),
        position_(position) {}

  /// Whether any of the lookups applied.
  bool run(Indices lookups) {
    if (scriptTag_ == kArab) return runLastToFirst(lookups);
    return runFirstToLast(lookups, scriptTag_ == kHebr);
  }

 private:
  bool runLastToFirst(Indices lookups) {
    for (auto index = lookups.rbegin(); index != lookups.rend(); ++index)
      if (apply(*index)) return true;
    return false;
  }

  bool runFirstToLast(Indices lookups, bool upToTheFirst) {
    bool applied = false;
    for (const unsigned short index : lookups) {
      if (apply(index)) applied = true;
      if (applied && upToTheFirst) break;
    }
    return applied;
  }

  bool apply(unsigned index) {
    const TTI_Lookup* lookup = lookups_.find(index);
    return lookup != nullptr && run_.applyGPOSLookup(*lookup, position_);
  }

  unsigned scriptTag_;
  const TTI_LookupList& lookups_;
  LookupRun run_;
  int position_;
};

}  // namespace

bool processGPOS(const FS_GSUBGPOSInfo* info, unsigned int tag,
                 std::vector<GlyphIDPosition>& glyphs, int position, bool rightToLeft) {
  if (info == nullptr || info->gposLangSys == nullptr) return false;
  const auto features = info->gposLangSys->featuresOf(tag);
  // Kept: a first feature without lookups hides the later ones of its tag.
  if (features.empty() || features.front().second.empty()) return false;
  const int size = static_cast<int>(glyphs.size());
  if (position < 0 || position >= size) return false;
  PositionRun run(glyphs, WorkMeter::forStep(size));
  FeatureStep step(*info, run, position, rightToLeft);
  for (const auto& feature : features)
    if (step.run(feature.second)) return true;
  return false;
}

}  // namespace QXFontService_NS::layout
