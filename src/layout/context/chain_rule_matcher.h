#pragma once

#include <span>
#include <vector>

#include "layout/context/context_rules.h"
#include "layout/records/glyph_sequence.h"
#include "layout/table/class_def.h"

namespace QXFontService_NS::layout {

/// What the values of chained rules are compared with: classes, or glyph ids where a table is null.
struct ChainClasses {
  const TTI_ClassDef* backtrack = nullptr;
  const TTI_ClassDef* input = nullptr;
  const TTI_ClassDef* lookahead = nullptr;
};

/// Matches the chained rules of formats 1 and 2 at one position.
class ChainRuleMatcher {
 public:
  /// @param skipped emptied, and then given what is passed over before the first comparison of an
  ///   input value, in whichever rule
  ChainRuleMatcher(const FS_LayoutTables& font, const ChainClasses& classes,
                   const GlyphSequence& glyphs, int position, unsigned flag,
                   std::vector<int>& skipped);

  /// The records of the first rule of `set` that holds; their count, or 0 for none.
  int match(const ContextRules& rules, int set, std::span<const TTI_SubstLookupRecord>& records);

 private:
  using Values = std::span<const unsigned short>;

  bool holds(const ContextRules& rules, const ContextRule& rule);
  bool inputHolds(Values input);
  bool backtrackHolds(Values backtrack);
  bool lookaheadHolds(Values lookahead);
  [[nodiscard]] bool isInside(int place) const { return place >= 0 && place < glyphs_.size(); }
  [[nodiscard]] bool skips(int place) const;
  void passOver(int& place, int step);
  [[nodiscard]] int valueAt(int place, const TTI_ClassDef* classes) const;

  const FS_LayoutTables& font_;
  ChainClasses classes_;
  const GlyphSequence& glyphs_;
  int position_;
  unsigned flag_;
  std::vector<int>& skipped_;
  bool recording_ = true;
  int steps_ = 0;
};

}  // namespace QXFontService_NS::layout
