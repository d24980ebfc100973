#include "layout/gpos/lookup_run.h"

#include <algorithm>

namespace QXFontService_NS::layout {
namespace {

/// So many levels are walked to find a place. Sound fonts stay within, and need no hash table.
constexpr std::size_t kWalkedLevels = 16;

}  // namespace

bool LookupRun::applyGPOSLookup(const TTI_Lookup& lookup, int& position) {
  position_ = position;
  Frame frame = begin(lookup);
  bool applied = trySubTables(frame);
  if (!frame.records.empty()) {
    frames_.push_back(frame);
    applied = runToEnd();
  }
  position = position_;
  return applied;
}

LookupRun::Frame LookupRun::begin(const TTI_Lookup& lookup) const {
  const auto index = static_cast<Place>(&lookup - lookups_.lookups.data());
  Frame frame;
  frame.lookup = &lookup;
  frame.place = index << 32 | static_cast<Place>(position_);
  const bool starts = lookup.starts.contains(glyphs_[position_].getGlyphID());
  if (!starts) frame.nextSubTable = lookup.subTables.size();
  return frame;
}

/// Goes on with the subtables. Stops with an answer, or with the records of a rule that matched.
bool LookupRun::trySubTables(Frame& frame) {
  const std::vector<SubTablePtr>& subTables = frame.lookup->subTables;
  while (frame.nextSubTable < subTables.size()) {
    const SubTablePtr& subTable = subTables[frame.nextSubTable++];
    if (!subTable) continue;
    if (!glyphs_.spend(1)) return false;
    if (subTable->position(font_, lookups_, *frame.lookup, glyphs_, position_, rightToLeft_))
      return true;
    frame.records = glyphs_.takeRecords();
    if (!frame.records.empty()) return false;
  }
  return false;
}

bool LookupRun::runToEnd() {
  for (;;) {
    Frame& frame = frames_.back();
    if (frame.records.empty() && !frame.applied) frame.applied = trySubTables(frame);
    if (!frame.records.empty()) {
      const unsigned lookupIndex = frame.records.front().lookupListIndex;
      frame.records = frame.records.subspan(1);
      runRecord(lookupIndex);
      continue;
    }
    const bool applied = frame.applied;
    leave();
    if (frames_.empty()) return applied;
    frames_.back().applied |= applied;
  }
}

/// Kept: the record's place in the match has no effect. All nested lookups act at the present
/// position, which a pair among them moves.
void LookupRun::runRecord(unsigned lookupIndex) {
  const TTI_Lookup* lookup = lookups_.find(lookupIndex);
  if (lookup == nullptr || !glyphs_.meter().runNested()) return;
  Frame frame = begin(*lookup);
  if (isInProgress(frame.place)) return;
  if (trySubTables(frame)) frames_.back().applied = true;
  if (!frame.records.empty()) enter(frame);
}

void LookupRun::enter(const Frame& frame) {
  if (frames_.size() >= glyphs_.meter().nestingLevels())
    return noteSpent(spentBudgets().nestingLevels);
  if (frames_.size() >= kWalkedLevels) deepPlaces_.insert(frame.place);
  frames_.push_back(frame);
}

void LookupRun::leave() {
  if (frames_.size() > kWalkedLevels) deepPlaces_.erase(frames_.back().place);
  frames_.pop_back();
}

bool LookupRun::isInProgress(Place place) const {
  const auto walkedEnd =
      frames_.begin() + static_cast<std::ptrdiff_t>(std::min(frames_.size(), kWalkedLevels));
  const bool walked = std::any_of(frames_.begin(), walkedEnd,
                                  [place](const Frame& frame) { return frame.place == place; });
  return walked || (!deepPlaces_.empty() && deepPlaces_.contains(place));
}

}  // namespace QXFontService_NS::layout
