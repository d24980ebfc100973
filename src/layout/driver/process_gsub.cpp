#include "layout/driver/process_gsub.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "layout/gsub/context_run.h"
#include "layout/gsub/lookups.h"
#include "layout/records/glyph_record_access.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS::layout {
namespace {

/// The lookups of a feature at one position.
class FeatureStep {
 public:
  FeatureStep(const FS_GSUBGPOSInfo& info, const GlyphIDArray& input, int& position,
              GlyphIDArray& output, GlyphIDArray& matched, int alternate)
      : font_(*info.font),
        lookups_(info.gsub->lookupList),
        input_(input),
        start_(position),
        position_(position),
        output_(output),
        matched_(matched),
        alternate_(alternate),
        meter_(WorkMeter::forStep(input.size())),
        glyphs_(input, meter_) {}

  int run(const TTI_LangSys& langSys, unsigned tag) {
    for (const auto& feature : langSys.featuresOf(tag))
      for (const unsigned short index : feature.second)
        if (const int count = tryLookup(index); count != 0) return count;
    return 0;
  }

 private:
  int tryLookup(unsigned index) {
    const TTI_Lookup* lookup = lookups_.find(index);
    position_ = start_;
    const unsigned short glyph = input_[start_].glyphID;
    if (lookup == nullptr || !lookup->starts.contains(glyph)) return 0;
    switch (lookup->type) {
      case 1:
        return replace(lookupSingle(font_, *lookup, glyph, meter_));
      case 2:
        return expand(*lookup, glyph);
      case 3:
        return replace(lookupAlternate(font_, *lookup, glyph, alternate_, meter_));
      case 4:
        return join(*lookup);
      case 5:
      case 6:
        return runContext(*lookup);
      default:
        return 0;
    }
  }

  int replace(const GlyphIDClassPair& pair) {
    if (!pair.hasGlyph()) return 0;
    ++position_;
    return giveOne(pair);
  }

  int giveOne(const GlyphIDClassPair& pair) {
    output_.clear();
    output_.push_back(pair);
    return 1;
  }

  int expand(const TTI_Lookup& lookup, unsigned short glyph) {
    GlyphIDArray sequence;
    if (!lookupMultiple(font_, lookup, glyph, sequence, meter_) || sequence.empty()) return 0;
    ++position_;
    output_ = sequence;
    return output_.size();
  }

  int join(const TTI_Lookup& lookup) {
    std::vector<int> skipped;
    const GlyphIDClassPair ligature = lookupLigature(font_, lookup, glyphs_, position_, skipped);
    if (!ligature.hasGlyph()) return 0;
    giveSkipped(skipped);
    return giveOne(ligature);
  }

  /// A rule that matched has an output, even where it had no effect and the answer is 0.
  int runContext(const TTI_Lookup& lookup) {
    std::vector<int> skipped;
    ContextRun contexts(font_, lookups_);
    const int answer = contexts.apply(lookup, glyphs_, position_, skipped);
    if (!contexts.matched()) return 0;
    const int size = contexts.output().size();
    static_cast<void>(meter_.compare(size));  // a feature may have many rules without effect
    std::vector<GlyphIDClassPair> made = contexts.output().front(size);
    const int count = std::min(answer, size);
    if (count != 0) giveSkipped(skipped);
    GlyphRecordAccess::pairs(output_) = std::move(made);
    return count;
  }

  void giveSkipped(const std::vector<int>& skipped) {
    GlyphIDArray passedOver;
    for (const int place : skipped) passedOver.push_back(input_[place]);
    matched_ = passedOver;
  }

  const FS_LayoutTables& font_;
  const TTI_LookupList& lookups_;
  const GlyphIDArray& input_;
  const int start_;
  int& position_;
  GlyphIDArray& output_;
  GlyphIDArray& matched_;
  int alternate_;
  WorkMeter meter_;
  GlyphSequence glyphs_;
};

}  // namespace

int processGSUB(const FS_GSUBGPOSInfo* info, unsigned int tag, const GlyphIDArray& input,
                int& position, GlyphIDArray& output, GlyphIDArray& matched, int alternate) {
  if (info == nullptr || info->gsubLangSys == nullptr) return 0;
  if (position < 0 || position >= input.size()) return 0;
  FeatureStep step(*info, input, position, output, matched, alternate);
  return step.run(*info->gsubLangSys, tag);
}

}  // namespace QXFontService_NS::layout
