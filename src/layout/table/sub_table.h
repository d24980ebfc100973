#pragma once

#include <span>
#include <vector>

#include "layout/records/glyph_sequence.h"
#include "layout/table/coverage.h"
#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

namespace layout {
class PositionRun;
}

/// "Run this lookup at that glyph of the match" (OpenType SequenceLookup record).
struct FS_LayoutTables::TTI_SubstLookupRecord {
  unsigned short sequenceIndex, lookupListIndex;
};

/// A subtable of a `GSUB` or `GPOS` lookup. One hierarchy serves both tables: each lookup type
/// overrides the operation that its driver calls, and the others keep their neutral answer, so a
/// subtable in a lookup of another type does nothing.
///
/// Immutable once read.
class FS_LayoutTables::TTI_SubTable {
 public:
  virtual ~TTI_SubTable() = default;

  /// The glyph that replaces `glyph`, or 0xFFFF.
  virtual unsigned short substGlyph(unsigned short glyph) const;
  /// The alternate of `glyph` with this number, from 1; or 0xFFFF.
  virtual unsigned short alternateGlyph(unsigned short glyph, int number) const;
  /// The ligature that begins at `position`, or 0xFFFF. On a hit `position` comes to rest after its
  /// last component. `skipped` holds the places that the last ligature tried passed over: use it
  /// on a hit only.
  virtual unsigned short ligatureGlyph(const FS_LayoutTables& font,
                                       const layout::GlyphSequence& glyphs, int& position,
                                       unsigned int flag, std::vector<int>& skipped) const;
  /// Whether a contextual rule holds at `position`: how many records it has, or -1 for a rule that
  /// holds and has none; 0 for no match. `records` is the subtable's own.
  virtual int matchContext(const FS_LayoutTables& font,
                           std::span<const TTI_SubstLookupRecord>& records,
                           const layout::GlyphSequence& glyphs, int position, unsigned int flag,
                           std::vector<int>& skipped) const;
  /// The glyph that replaces the one at `position` in its context, for runs from the end; or
  /// 0xFFFF.
  virtual unsigned short reverseGlyph(const FS_LayoutTables& font,
                                      const layout::GlyphSequence& glyphs, int position,
                                      unsigned int flag) const;
  /// Moves glyphs at `position`, which a pair may advance. Answers whether it applied.
  virtual bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                        const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                        bool rightToLeft) const;
  /// The lookup type in its table, from 1.
  virtual int lookupType() const = 0;

  /// Adds to `glyphs` at least every glyph at which one of the operations can have an effect.
  void addStartsTo(layout::GlyphSet& glyphs) const;
  /// How many steps `addStartsTo` takes.
  std::size_t stepsToAddStarts() const;

 protected:
  /// @param coverage what the glyph at `position` must be in; null covers nothing
  explicit TTI_SubTable(layout::CoveragePtr coverage) : coverage_(std::move(coverage)) {}
  TTI_SubTable(const TTI_SubTable&) = default;
  TTI_SubTable& operator=(const TTI_SubTable&) = default;

  /// For the rare rule that names no first glyph: it may hold at any.
  void startAnywhere() { startsAnywhere_ = true; }
  int coverageIndexOf(unsigned short glyph) const { return layout::indexIn(coverage_, glyph); }

 private:
  layout::CoveragePtr coverage_;
  bool startsAnywhere_ = false;
};

namespace layout {

using TTI_SubstLookupRecord = FS_LayoutTables::TTI_SubstLookupRecord;
using TTI_SubTable = FS_LayoutTables::TTI_SubTable;
using SubTablePtr = std::shared_ptr<const TTI_SubTable>;

}  // namespace layout
}  // namespace QXFontService_NS
