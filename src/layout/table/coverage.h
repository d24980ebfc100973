#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "layout/table/glyph_digest.h"
#include "layout/table/glyph_set.h"
#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

/// Which glyphs a subtable works on, numbered (OpenType Coverage table).
class FS_LayoutTables::TTI_Coverage {
 public:
  virtual ~TTI_Coverage() = default;
  /// Whether a glyph may have a coverage index; false is certain, and told without a search.
  [[nodiscard]] bool mayCover(unsigned short glyph) const { return digest_.mayHold(glyph); }
  /// The coverage index of a glyph, or -1.
  virtual int coverageIndex(unsigned short glyph) const = 0;
  /// Adds to `glyphs` at least every glyph that has a coverage index.
  virtual void addTo(layout::GlyphSet& glyphs) const = 0;
  /// How many steps `addTo` takes.
  virtual std::size_t stepsToAdd() const = 0;

 protected:
  /// @param digest holds every glyph that has a coverage index.
  explicit TTI_Coverage(const layout::GlyphDigest& digest) : digest_(digest) {}
  TTI_Coverage(const TTI_Coverage&) = default;
  TTI_Coverage& operator=(const TTI_Coverage&) = default;

 private:
  layout::GlyphDigest digest_;
};

/// Coverage as a sorted list of glyphs.
class FS_LayoutTables::TTI_CoverageFormat1 final : public TTI_Coverage {
 public:
  explicit TTI_CoverageFormat1(std::vector<unsigned short> glyphs);
  int coverageIndex(unsigned short glyph) const override;
  void addTo(layout::GlyphSet& glyphs) const override;
  std::size_t stepsToAdd() const override;

 private:
  std::vector<unsigned short> glyphs_;
};

/// Coverage as sorted ranges of glyphs.
class FS_LayoutTables::TTI_CoverageFormat2 final : public TTI_Coverage {
 public:
  struct Range {
    unsigned short start, end, startCoverageIndex;
  };
  explicit TTI_CoverageFormat2(std::vector<Range> ranges);
  int coverageIndex(unsigned short glyph) const override;
  void addTo(layout::GlyphSet& glyphs) const override;
  std::size_t stepsToAdd() const override;

 private:
  std::vector<Range> ranges_;
};

namespace layout {

using TTI_Coverage = FS_LayoutTables::TTI_Coverage;
using CoveragePtr = std::shared_ptr<const TTI_Coverage>;
class GraphReader;

/// Reads the Coverage table at `base` + `offset`. Null for an offset of 0 and an unknown format.
/// Tables at one place are read once and shared.
CoveragePtr readCoverage(GraphReader& reader, std::uint64_t base, unsigned offset);

/// The coverage index of a glyph; -1 where there is no coverage table: it covers nothing.
inline int indexIn(const CoveragePtr& coverage, unsigned short glyph) {
  return coverage && coverage->mayCover(glyph) ? coverage->coverageIndex(glyph) : -1;
}

}  // namespace layout
}  // namespace QXFontService_NS
