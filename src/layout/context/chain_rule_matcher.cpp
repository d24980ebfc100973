#include "layout/context/chain_rule_matcher.h"

#include "layout/context/lookup_flag.h"

namespace QXFontService_NS::layout {

ChainRuleMatcher::ChainRuleMatcher(const FS_LayoutTables& font, const ChainClasses& classes,
                                   const GlyphSequence& glyphs, int position, unsigned flag,
                                   std::vector<int>& skipped)
    : font_(font),
      classes_(classes),
      glyphs_(glyphs),
      position_(position),
      flag_(flag),
      skipped_(skipped) {
  skipped_.clear();
}

int ChainRuleMatcher::match(const ContextRules& rules, int set,
                            std::span<const TTI_SubstLookupRecord>& records) {
  for (const ContextRule& rule : rules.rulesOf(set)) {
    if (!glyphs_.mayWalk()) return 0;
    steps_ = 1;
    const bool found = holds(rules, rule);
    if (!glyphs_.spend(steps_)) return 0;
    if (!found) continue;
    records = rules.records(rule);
    return static_cast<int>(records.size());
  }
  return 0;
}

// All three tests are made even after one failed: the first records what it passes over.
bool ChainRuleMatcher::holds(const ContextRules& rules, const ContextRule& rule) {
  const bool input = inputHolds(rules.values(rule.input));
  return input && backtrackHolds(rules.values(rule.backtrack)) &&
         lookaheadHolds(rules.values(rule.lookahead));
}

bool ChainRuleMatcher::inputHolds(Values input) {
  int place = position_;
  for (const unsigned short sought : input) {
    if (++place >= glyphs_.size()) return false;
    for (; isInside(place) && skips(place); ++place, ++steps_)
      if (recording_) skipped_.push_back(place);
    recording_ = false;
    ++steps_;
    if (sought != valueAt(place, classes_.input)) return false;
  }
  return true;
}

bool ChainRuleMatcher::backtrackHolds(Values backtrack) {
  int place = position_;
  for (const unsigned short sought : backtrack) {
    passOver(place, -1);
    if (sought != valueAt(place, classes_.backtrack)) return false;
  }
  return true;
}

// Kept: the lookahead begins behind the first glyph of the input, whatever the input's length, and
// so overlaps a longer one. Format 3 does not.
bool ChainRuleMatcher::lookaheadHolds(Values lookahead) {
  int place = position_;
  for (const unsigned short sought : lookahead) {
    passOver(place, 1);
    if (sought != valueAt(place, classes_.lookahead)) return false;
  }
  return true;
}

bool ChainRuleMatcher::skips(int place) const {
  return isSkipped(font_, flag_, glyphs_[place]);
}

/// Moves `place` to the next glyph that counts, or out of the sequence.
void ChainRuleMatcher::passOver(int& place, int step) {
  do {
    place += step;
    ++steps_;
  } while (isInside(place) && skips(place));
}

/// -1, which no value equals, outside the sequence.
int ChainRuleMatcher::valueAt(int place, const TTI_ClassDef* classes) const {
  if (!isInside(place)) return -1;
  const unsigned short glyph = glyphs_[place].glyphID;
  return classes == nullptr ? glyph : classes->classOf(glyph);
}

}  // namespace QXFontService_NS::layout
