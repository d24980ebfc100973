#include "layout/context/coverage_match.h"

#include "layout/context/lookup_flag.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

/// Asks for one coverage after the other along the glyphs.
class CoverageWalk {
 public:
  CoverageWalk(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs)
      : font_(font), glyphs_(glyphs), flag_(flag) {}

  /// Whether the glyphs from `place` on, in steps of `step`, are covered.
  bool holds(int place, int step, CoverageRun coverages) {
    if (!glyphs_.mayWalk()) return false;
    for (const CoveragePtr& coverage : coverages) {
      while (isInside(place) && isSkipped(font_, flag_, glyphs_[place])) {
        place += step;
        ++skipped_;
      }
      if (!isInside(place) || indexIn(coverage, glyphs_[place].glyphID) < 0) return spend(false);
      place += step;
    }
    return spend(true);
  }
  [[nodiscard]] int skipped() const { return skipped_; }

 private:
  [[nodiscard]] bool isInside(int place) const { return place >= 0 && place < glyphs_.size(); }
  [[nodiscard]] bool spend(bool answer) const { return glyphs_.spend(1 + skipped_) && answer; }

  const FS_LayoutTables& font_;
  const GlyphSequence& glyphs_;
  unsigned flag_;
  int skipped_ = 0;
};

}  // namespace

bool backtrackMatch(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs,
                    int position, CoverageRun coverages) {
  return coverages.empty() || CoverageWalk(font, flag, glyphs).holds(position - 1, -1, coverages);
}

bool lookaheadMatch(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs,
                    int position, CoverageRun coverages) {
  return coverages.empty() || CoverageWalk(font, flag, glyphs).holds(position + 1, 1, coverages);
}

int inputMatch(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs,
               int position, CoverageRun coverages) {
  if (coverages.empty()) return 0;
  if (indexIn(coverages[0], glyphs[position].glyphID) < 0) return -1;
  CoverageWalk walk(font, flag, glyphs);
  return walk.holds(position + 1, 1, coverages.subspan(1)) ? walk.skipped() : -1;
}

std::vector<CoveragePtr> readCoverages(GraphReader& reader, std::uint64_t base,
                                       std::uint64_t offsets, unsigned count) {
  const std::size_t fitting = reader.countThatFits(offsets, count, 2);
  if (!reader.charge(fitting * sizeof(CoveragePtr))) return {};
  std::vector<CoveragePtr> coverages(fitting);
  for (std::size_t i = 0; i < fitting; ++i)
    coverages[i] = readCoverage(reader, base, reader.u16(offsets + 2 * i));
  return coverages;
}

std::vector<CoveragePtr> readCountedCoverages(GraphReader& reader, std::uint64_t base,
                                              std::uint64_t& from) {
  const unsigned count = reader.u16(from);
  const std::uint64_t offsets = from + 2;
  from = offsets + 2 * std::uint64_t{count};
  return readCoverages(reader, base, offsets, count);
}

}  // namespace QXFontService_NS::layout
