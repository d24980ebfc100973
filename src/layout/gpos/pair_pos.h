#pragma once

#include <vector>

#include "layout/gpos/pair_values.h"
#include "layout/table/class_def.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Moves pairs of glyphs, listed by their first glyph (OpenType `GPOS` 2, format 1).
class FS_LayoutTables::GPOS_PairPosFormat1 final : public TTI_SubTable {
 public:
  GPOS_PairPosFormat1(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 2; }

 private:
  /// Records of a first glyph: second glyph, values.
  struct PairSet {
    std::size_t at = 0;  ///< in `records_`
    std::size_t count = 0;
    bool ascending = true;  ///< strictly, by second glyph
  };
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  void readPairSets(layout::GraphReader& reader, std::uint64_t at);
  PairSet readPairSet(layout::GraphReader& reader, std::uint64_t at);
  [[nodiscard]] std::size_t recordSize() const { return 2 + values_.size(); }
  [[nodiscard]] unsigned short secondGlyph(const PairSet& set, std::size_t i) const;
  [[nodiscard]] bool isAscending(const PairSet& set) const;
  [[nodiscard]] std::size_t find(const PairSet& set, unsigned short glyph) const;
  [[nodiscard]] std::size_t findByHalving(const PairSet& set, unsigned short glyph) const;

  layout::PairValues values_;
  std::vector<PairSet> sets_;  ///< by coverage index; none where the formats move nothing
  layout::KeptBytes records_;
};

/// Moves pairs of glyphs by the classes of both (OpenType `GPOS` 2, format 2).
class FS_LayoutTables::GPOS_PairPosFormat2 final : public TTI_SubTable {
 public:
  GPOS_PairPosFormat2(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 2; }

 private:
  bool applyClasses(layout::PositionRun& glyphs, int first, int second, unsigned firstClass,
                    unsigned secondClass) const;

  layout::PairValues values_;
  layout::ClassDefPtr firstClasses_;
  layout::ClassDefPtr secondClasses_;
  unsigned secondClassCount_;
  std::size_t count_ = 0;      ///< of records; none where the formats move nothing
  layout::KeptBytes records_;  ///< first class by second class
};

}  // namespace QXFontService_NS
