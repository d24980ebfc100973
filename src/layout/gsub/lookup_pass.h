#pragma once

#include <vector>

#include "layout/gsub/context_run.h"
#include "layout/gsub/pass_arrays.h"
#include "layout/table/lookup_list.h"

namespace QXFontService_NS::layout {

/// Runs one `GSUB` lookup over a whole array.
class LookupPass {
 public:
  /// @param alternate which alternate a type 3 lookup takes, from 1
  /// @param meter what the pass may spend; mostly `WorkMeter::forPass`
  LookupPass(const FS_LayoutTables& font, const TTI_LookupList& lookups, int alternate,
             PassArrays& arrays, const WorkMeter& meter);

  /// Runs a lookup of the list; one of a type outside 1 to 6 and 8 does nothing.
  ///
  /// @return whether any place changed
  /// @throws std::out_of_range where a damaged rule brings the arrays out of step
  bool run(const TTI_Lookup& lookup);

 private:
  template <class Find>
  bool replaceEach(const TTI_Lookup& lookup, Find find);
  bool expandEach(const TTI_Lookup& lookup);
  int expand(int i, const GlyphIDArray& sequence);
  bool joinEach(const TTI_Lookup& lookup);
  void join(int i, int end);
  bool contextEach(const TTI_Lookup& lookup);
  int replaceInContext(int i, int end, const TTI_Lookup& lookup,
                       const std::vector<GlyphIDClassPair>& made);
  void replaceBesideSkipped(int i, int end, const std::vector<GlyphIDClassPair>& made);
  int replaceAll(int i, int end, const std::vector<GlyphIDClassPair>& made);
  void mergeIntoHolder(int i, int end);
  bool reverseEach(const TTI_Lookup& lookup);
  /// Whether a lookup is to be asked at a place. The mask is read in any case: a place it does not
  /// have ends the pass.
  [[nodiscard]] bool mayBegin(const TTI_Lookup& lookup, int i) const {
    return arrays_.isFree(i) && lookup.starts.contains(arrays_.glyph(i).glyphID);
  }
  [[nodiscard]] bool hasGrownTooLong() const;

  const FS_LayoutTables& font_;
  int alternate_;
  PassArrays& arrays_;
  WorkMeter meter_;
  ContextRun contexts_;
  std::vector<int> skipped_;
};

}  // namespace QXFontService_NS::layout
