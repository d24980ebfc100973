#include "layout/gsub/context_run.h"

#include <algorithm>

#include "layout/gsub/lookups.h"

namespace QXFontService_NS::layout {
namespace {

constexpr unsigned kContext = 5;
constexpr unsigned kChainContext = 6;

/// Outcomes are kept only while small: a rule may point far from its match.
constexpr std::size_t kMostHeldInOutcome = 64;

/// A table that grew large once is let go: emptying it takes time by its size, at each match.
template <class Table>
void empty(Table& table) {
  constexpr std::size_t kMostBucketsKept = 4096;
  if (table.bucket_count() > kMostBucketsKept) {
    table = Table();
  } else if (!table.empty()) {
    table.clear();
  }
}

bool isContextual(const TTI_Lookup& lookup) {
  return lookup.type == kContext || lookup.type == kChainContext;
}

}  // namespace

int ContextRun::apply(const TTI_Lookup& lookup, const GlyphSequence& glyphs, int& position,
                      std::vector<int>& skipped) {
  glyphs_ = &glyphs;
  skipped_ = &skipped;
  position_ = position;
  frames_.clear();
  passed_.clear();
  matched_ = enter(lookup, position);
  if (!matched_) return 0;
  const int result = runToEnd();
  empty(active_);
  empty(outcomes_);
  position = position_;
  return result;
}

ContextRun::Place ContextRun::placeOf(const TTI_Lookup& lookup, int position) const {
  const auto index = static_cast<Place>(&lookup - lookups_.lookups.data());
  return index << 32 | static_cast<Place>(position);
}

/// The records of the first subtable that matches, and their count as the subtable gives it.
int ContextRun::match(const TTI_Lookup& lookup, int position, Records& records) {
  if (!lookup.starts.contains((*glyphs_)[position].glyphID)) return 0;
  for (const SubTablePtr& subTable : lookup.subTables) {
    if (!glyphs_->spend(1)) return 0;
    if (!subTable) continue;
    passedInMatch_.clear();
    const int count =
        subTable->matchContext(font_, records, *glyphs_, position, lookup.flag, passedInMatch_);
    if (count != 0) return count;
  }
  return 0;
}

/// Begins a contextual lookup, if it matches: the output starts anew.
bool ContextRun::enter(const TTI_Lookup& lookup, int position) {
  Records records;
  const int count = match(lookup, position, records);
  if (count == 0) return false;
  Frame frame;
  frame.place = placeOf(lookup, position);
  frame.start = frame.furthest = position;
  if (count > 0) frame.records = records.first(static_cast<std::size_t>(count));
  frame.passedFrom = passed_.size();
  frame.dependsOn = frames_.size();
  passed_.insert(passed_.end(), passedInMatch_.begin(), passedInMatch_.end());
  frames_.push_back(frame);
  output_.reset(*glyphs_);
  return true;
}

int ContextRun::runToEnd() {
  for (;;) {
    Frame& frame = frames_.back();
    if (!frame.records.empty()) {
      const TTI_SubstLookupRecord record = frame.records.front();
      frame.records = frame.records.subspan(1);
      runRecord(record);
      continue;
    }
    const int result = finishFrame();
    if (frames_.empty()) return result;
    absorb(result != 0 ? 1 : 0);
  }
}

void ContextRun::runRecord(const TTI_SubstLookupRecord& record) {
  Frame& frame = frames_.back();
  const int place = placeOfRecord(frame, record.sequenceIndex);
  if (place >= glyphs_->size()) return;
  position_ = frame.before = place;
  const TTI_Lookup* nested = lookups_.find(record.lookupListIndex);
  if (nested == nullptr || !glyphs_->meter().runNested()) return absorb(0);
  if (isContextual(*nested)) return runNestedContext(*nested);
  absorb(runSimple(*nested));
}

/// Sequence indices count unskipped glyphs: what the match recorded as passed over shifts them, by
/// one for each place up to the one that they lead to then. The places ascend, so that their number
/// is found by halving.
int ContextRun::placeOfRecord(const Frame& frame, int sequenceIndex) const {
  const int place = frame.start + sequenceIndex;
  std::size_t low = frame.passedFrom;
  std::size_t high = passed_.size();
  const auto before = [&frame](std::size_t i) { return static_cast<int>(i - frame.passedFrom); };
  while (low < high) {
    const std::size_t mid = (low + high) / 2;
    if (passed_[mid] <= place + before(mid)) {
      low = mid + 1;
    } else {
      high = mid;
    }
  }
  return place + before(low);
}

/// Begins a nested contextual lookup, or settles it at once.
void ContextRun::runNestedContext(const TTI_Lookup& lookup) {
  const Place place = placeOf(lookup, position_);
  if (repeatOutcome(place)) return;
  if (!mayEnter(place) || !enter(lookup, position_)) return absorb(0);
  active_.emplace(place, frames_.size() - 1);
}

/// Whether a lookup is not yet in progress at its position, and may nest that deep.
bool ContextRun::mayEnter(Place place) {
  if (active_.empty()) active_.emplace(frames_.front().place, 0);
  Frame& frame = frames_.back();
  if (const auto found = active_.find(place); found != active_.end()) {
    frame.dependsOn = std::min(frame.dependsOn, found->second);
    return false;
  }
  if (frames_.size() < glyphs_->meter().nestingLevels()) return true;
  frame.dependsOn = 0;
  noteSpent(spentBudgets().nestingLevels);
  return false;
}

/// Does again what a lookup did at this position before, without running it.
bool ContextRun::repeatOutcome(Place place) {
  const auto found = outcomes_.find(place);
  if (found == outcomes_.end()) return false;
  const Outcome& outcome = found->second;
  output_.restore(outcome.output);
  position_ = outcome.position;
  if (outcome.skipped) {
    *skipped_ = *outcome.skipped;
    frames_.back().touchedSkipped = true;
  }
  absorb(outcome.result != 0 ? 1 : 0);
  return true;
}

/// Ends the lookup in progress: what it made begins at its own start.
int ContextRun::finishFrame() {
  const Frame frame = frames_.back();
  frames_.pop_back();
  passed_.resize(frame.passedFrom);
  position_ = frame.furthest;
  output_.eraseFront(frame.start);
  if (frames_.empty()) return frame.result;
  active_.erase(frame.place);
  keepOutcome(frame, frame.result);
  Frame& outer = frames_.back();
  outer.dependsOn = std::min(outer.dependsOn, frame.dependsOn);
  outer.touchedSkipped |= frame.touchedSkipped;
  return frame.result;
}

/// An outcome counts for the next time only if no outer level had a part in it.
void ContextRun::keepOutcome(const Frame& frame, int result) {
  if (frame.dependsOn < frames_.size()) return;
  if (output_.state().held.size() > kMostHeldInOutcome || skipped_->size() > kMostHeldInOutcome)
    return;
  Outcome outcome{result, position_, output_.state(), std::nullopt};
  if (frame.touchedSkipped) outcome.skipped = *skipped_;
  outcomes_.emplace(frame.place, std::move(outcome));
}

/// Takes what a record's lookup did into the outcome of its rule.
void ContextRun::absorb(int result) {
  Frame& frame = frames_.back();
  if (result != 0) frame.result = std::max(frame.result, result - frame.start + frame.before);
  frame.furthest = std::max(frame.furthest, position_);
}

int ContextRun::runSimple(const TTI_Lookup& lookup) {
  constexpr int kFirstAlternate = 1;
  const unsigned short glyph = (*glyphs_)[position_].glyphID;
  switch (lookup.type) {
    case 1:
      return writeOne(lookupSingle(font_, lookup, glyph, glyphs_->meter()));
    case 2:
      return lookupMultiple(font_, lookup, glyph, sequence_, glyphs_->meter())
                 ? writeSequence(sequence_)
                 : 0;
    case 3:
      return writeOne(lookupAlternate(font_, lookup, glyph, kFirstAlternate, glyphs_->meter()));
    case 4:
      return writeLigature(lookup);
    default:
      return 0;
  }
}

int ContextRun::writeOne(const GlyphIDClassPair& pair) {
  if (!pair.hasGlyph()) return 0;
  output_.set(position_++, pair);
  return 1;
}

int ContextRun::writeSequence(const GlyphIDArray& sequence) {
  if (sequence.empty() || !glyphs_->spend(sequence.size())) return 0;
  if (!glyphs_->meter().mayGrowTo(output_.size())) return 0;
  const int first = position_++;
  output_.set(first, sequence[0]);
  for (int k = 1; k < sequence.size(); ++k) output_.insert(first + k, sequence[k]);
  return sequence.size();
}

int ContextRun::writeLigature(const TTI_Lookup& lookup) {
  const int first = position_;
  const GlyphIDClassPair ligature = findLigature(lookup);
  if (!ligature.hasGlyph()) return 0;
  output_.set(first, ligature);
  // The swallowed places stay in the output, as holes.
  for (int k = first + 1; k < position_; ++k) output_.set(k, GlyphIDClassPair());
  return 1;
}

/// The caller's places change only where a ligature was tried, also in vain: kept, the drivers
/// decide by them.
GlyphIDClassPair ContextRun::findLigature(const TTI_Lookup& lookup) {
  constexpr int kUntried = -1;
  passedByLigature_.assign(1, kUntried);
  const GlyphIDClassPair ligature =
      lookupLigature(font_, lookup, *glyphs_, position_, passedByLigature_);
  const bool tried = passedByLigature_.empty() || passedByLigature_.front() != kUntried;
  if (tried) {
    *skipped_ = passedByLigature_;
    frames_.back().touchedSkipped = true;
  }
  return ligature;
}

}  // namespace QXFontService_NS::layout
