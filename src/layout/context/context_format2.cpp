#include "layout/context/context_format2.h"

#include "layout/context/lookup_flag.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

namespace {

using layout::GlyphSequence;
using layout::TTI_ClassDef;

/// One attempt of `matchContext` at a position.
class ClassMatcher {
 public:
  ClassMatcher(const FS_LayoutTables& font, const TTI_ClassDef& classes,
               const GlyphSequence& glyphs, unsigned flag, std::vector<int>& skipped)
      : font_(font), classes_(classes), glyphs_(glyphs), flag_(flag), skipped_(skipped) {}

  int classAt(int place) const { return classes_.classOf(glyphs_[place].glyphID); }

  /// The class of the first glyph behind `place` that is not passed over; -1 if there is none.
  int classBehind(int place) const {
    if (!glyphs_.mayWalk()) return -1;
    const int start = place++;
    while (place < glyphs_.size() && skips(place)) ++place;
    if (!spend(place - start, true)) return -1;
    return place < glyphs_.size() ? classAt(place) : -1;
  }

  /// Whether the classes behind `place` are these.
  bool follows(int place, std::span<const unsigned short> input) {
    if (!glyphs_.mayWalk()) return false;
    const int start = place;
    for (const unsigned short sought : input) {
      if (++place >= glyphs_.size() || sought != nextClass(place))
        return spend(place - start, false);
    }
    return spend(place - start, true);
  }

 private:
  bool skips(int place) const { return layout::isSkipped(font_, flag_, glyphs_[place]); }

  bool spend(int steps, bool answer) const { return glyphs_.spend(1 + steps) && answer; }

  /// Moves `place` on to the next glyph that counts. What it passes over before the first
  /// comparison of all is recorded, and later records are not: kept, the places of nested lookups
  /// depend on it.
  int nextClass(int& place) {
    while (place < glyphs_.size() && skips(place)) {
      if (recording_) skipped_.push_back(place);
      ++place;
    }
    recording_ = false;
    return place < glyphs_.size() ? classAt(place) : -1;
  }

  const FS_LayoutTables& font_;
  const TTI_ClassDef& classes_;
  const GlyphSequence& glyphs_;
  unsigned flag_;
  std::vector<int>& skipped_;
  bool recording_ = true;
};

}  // namespace

FS_LayoutTables::TTI_ContextFormat2::TTI_ContextFormat2(layout::GraphReader& reader,
                                                        std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      classDef_(layout::sharedClassDef(reader, at, reader.u16(at + 4))) {
  rules_.readSets(reader, at, at + 8, reader.u16(at + 6));
  rules_.indexByFirstInput();
}

int FS_LayoutTables::TTI_ContextFormat2::matchContext(
    const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
    const GlyphSequence& glyphs, int position, unsigned int flag, std::vector<int>& skipped) const {
  if (position + 1 >= glyphs.size()) return 0;
  if (coverageIndexOf(glyphs[position].glyphID) < 0 || !classDef_) return 0;
  skipped.clear();
  ClassMatcher matcher(font, *classDef_, glyphs, flag, skipped);
  const int firstClass = matcher.classAt(position);
  const int secondClass = matcher.classBehind(position);
  if (firstClass == -1 || secondClass == -1) return 0;
  for (const layout::ContextRule& rule : rules_.rulesOf(firstClass, secondClass)) {
    if (!glyphs.mayWalk()) break;
    if (!matcher.follows(position, rules_.values(rule.input))) continue;
    records = rules_.records(rule);
    return static_cast<int>(records.size());
  }
  return 0;
}

}  // namespace QXFontService_NS
