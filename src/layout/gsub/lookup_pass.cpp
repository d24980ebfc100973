#include "layout/gsub/lookup_pass.h"

#include <algorithm>

#include "layout/gsub/lookups.h"
#include "layout/records/glyph_record_access.h"

namespace QXFontService_NS::layout {

LookupPass::LookupPass(const FS_LayoutTables& font, const TTI_LookupList& lookups, int alternate,
                       PassArrays& arrays, const WorkMeter& meter)
    : font_(font),
      alternate_(alternate),
      arrays_(arrays),
      meter_(meter),
      contexts_(font, lookups) {}

bool LookupPass::run(const TTI_Lookup& lookup) {
  switch (lookup.type) {
    case 1:
      return replaceEach(
          lookup, [&](unsigned short glyph) { return lookupSingle(font_, lookup, glyph, meter_); });
    case 2:
      return expandEach(lookup);
    case 3:
      return replaceEach(lookup, [&](unsigned short glyph) {
        return lookupAlternate(font_, lookup, glyph, alternate_, meter_);
      });
    case 4:
      return joinEach(lookup);
    case 5:
    case 6:
      return contextEach(lookup);
    case 8:
      return reverseEach(lookup);
    default:
      return false;
  }
}

bool LookupPass::hasGrownTooLong() const {
  return !meter_.mayGrowTo(arrays_.size());
}

template <class Find>
bool LookupPass::replaceEach(const TTI_Lookup& lookup, Find find) {
  bool changed = false;
  for (int i = 0; i < arrays_.size(); ++i) {
    if (!mayBegin(lookup, i)) continue;
    const GlyphIDClassPair found = find(arrays_.glyph(i).glyphID);
    if (!found.hasGlyph()) continue;
    arrays_.setGlyph(i, found);
    changed = true;
  }
  return changed;
}

bool LookupPass::expandEach(const TTI_Lookup& lookup) {
  bool changed = false;
  GlyphIDArray sequence;
  for (int i = 0; i < arrays_.size() && !hasGrownTooLong(); ++i) {
    if (!mayBegin(lookup, i)) continue;
    if (!lookupMultiple(font_, lookup, arrays_.glyph(i).glyphID, sequence, meter_) ||
        sequence.empty())
      continue;
    i = expand(i, sequence);
    changed = true;
  }
  return changed;
}

/// Puts a sequence in place of a glyph; gives its last place, as this lookup does not look at the
/// new glyphs.
int LookupPass::expand(int i, const GlyphIDArray& sequence) {
  const int added = sequence.size() - 1;
  const std::span<const GlyphIDClassPair> pairs(GlyphRecordAccess::pairs(sequence));
  arrays_.setGlyph(i, pairs.front());
  if (added > 0) {
    arrays_.insertGlyphs(i + 1, pairs.subspan(1));
    arrays_.insertPlaces(i + 1, added);
  }
  return i + added;
}

bool LookupPass::joinEach(const TTI_Lookup& lookup) {
  bool changed = false;
  for (int i = 0; i < arrays_.size(); ++i) {
    if (!mayBegin(lookup, i)) continue;
    skipped_.clear();
    int end = i;
    const GlyphIDClassPair ligature =
        lookupLigature(font_, lookup, arrays_.view(meter_), end, skipped_);
    if (!ligature.hasGlyph()) continue;
    arrays_.setGlyph(i, ligature);
    join(i, end);
    changed = true;
  }
  return changed;
}

void LookupPass::join(int i, int end) {
  if (skipped_.empty()) {
    arrays_.merge(i, i + 1, end);
  } else {
    arrays_.mergeKeepingSkipped(i, i + 1, end, skipped_);
  }
}

bool LookupPass::contextEach(const TTI_Lookup& lookup) {
  bool changed = false;
  for (int i = 0; i < arrays_.size() && !hasGrownTooLong(); ++i) {
    if (!mayBegin(lookup, i)) continue;
    skipped_.clear();
    int end = i;
    const GlyphSequence glyphs = arrays_.view(meter_);
    const int answer = contexts_.apply(lookup, glyphs, end, skipped_);
    if (answer == 0) continue;
    const int count = std::min(answer, contexts_.output().size());
    // A rule may point far from its match, so that much is replaced that was never compared.
    if (count <= 0 || !meter_.compare(std::int64_t{count} + (end - i))) continue;
    i = replaceInContext(i, end, lookup, contexts_.output().front(count));
    changed = true;
  }
  return changed;
}

/// Puts what a rule made in place of [i, end); gives the last place that the lookup is done with.
///
/// Kept: a plain context (5) is done with all it made, a chained one (6) looks at its new glyphs
/// again, unless it consumed one glyph and that glyph came back.
int LookupPass::replaceInContext(int i, int end, const TTI_Lookup& lookup,
                                 const std::vector<GlyphIDClassPair>& made) {
  constexpr unsigned kContext = 5;
  const int added = static_cast<int>(made.size()) - 1;
  int again = 0;
  if (skipped_.empty()) {
    again = replaceAll(i, end, made);
  } else {
    replaceBesideSkipped(i, end, made);
  }
  if (added > 0) arrays_.insertPlaces(i + 1, added);
  if (lookup.type == kContext) return i + added;
  return again != 0 && i + 1 == end ? i + again - 1 : i;
}

/// Kept: the merge takes its places as they were before the new glyphs came in, since words and
/// mask have not grown yet.
void LookupPass::replaceBesideSkipped(int i, int end, const std::vector<GlyphIDClassPair>& made) {
  arrays_.setGlyph(i, made.front());
  arrays_.insertGlyphs(i + 1, std::span(made).subspan(1));
  if (i + 1 < end) arrays_.mergeKeepingSkipped(i, i + 1, end, skipped_);
}

/// Gives one past the last of the new glyphs that is the first of the old ones; 0 for none.
int LookupPass::replaceAll(int i, int end, const std::vector<GlyphIDClassPair>& made) {
  const unsigned short first = arrays_.glyph(i).glyphID;
  arrays_.eraseGlyphs(i, end);
  arrays_.insertGlyphs(i, made);
  if (i + 1 < end) mergeIntoHolder(i, end);
  const auto last = std::find_if(made.rbegin(), made.rend(), [first](const GlyphIDClassPair& pair) {
    return pair.glyphID == first;
  });
  return static_cast<int>(made.rend() - last);
}

/// Counts go to the glyph that holds the count of `i`: after a long expansion it stands far back,
/// and the way there is counted like comparisons.
void LookupPass::mergeIntoHolder(int i, int end) {
  const int holder = arrays_.holderOf(i);
  static_cast<void>(meter_.compare(i - holder));
  arrays_.mergePlaces(holder, i + 1, end);
}

bool LookupPass::reverseEach(const TTI_Lookup& lookup) {
  bool changed = false;
  const GlyphSequence glyphs = arrays_.view(meter_);  // glyphs change in place: it sees them
  for (int i = arrays_.size() - 1; i >= 0; --i) {
    if (!mayBegin(lookup, i)) continue;
    const GlyphIDClassPair found = lookupReverse(font_, lookup, glyphs, i);
    if (!found.hasGlyph()) continue;
    arrays_.setGlyph(i, found);
    changed = true;
  }
  return changed;
}

}  // namespace QXFontService_NS::layout
