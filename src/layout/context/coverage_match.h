#pragma once

#include <span>
#include <vector>

#include "layout/records/glyph_sequence.h"
#include "layout/table/coverage.h"

namespace QXFontService_NS::layout {

using CoverageRun = std::span<const CoveragePtr>;

/// Whether the glyphs before `position`, the nearest first, are covered each by its coverage;
/// glyphs that a lookup of this flag skips are passed over. True for no coverages.
bool backtrackMatch(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs,
                    int position, CoverageRun coverages);
/// The same for the glyphs behind `position`.
bool lookaheadMatch(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs,
                    int position, CoverageRun coverages);

/// How many glyphs are passed over between the glyph at `position` and the last of a sequence that
/// begins there and is covered by `coverages`; -1 where there is no such sequence. The glyph at
/// `position` itself is not passed over.
int inputMatch(const FS_LayoutTables& font, unsigned flag, const GlyphSequence& glyphs,
               int position, CoverageRun coverages);

class GraphReader;

/// Reads `count` coverages, whose offsets stand at `offsets` and count from `base`.
std::vector<CoveragePtr> readCoverages(GraphReader& reader, std::uint64_t base,
                                       std::uint64_t offsets, unsigned count);
/// Reads a count at `from` and the coverages behind it, and moves `from` past them.
std::vector<CoveragePtr> readCountedCoverages(GraphReader& reader, std::uint64_t base,
                                              std::uint64_t& from);

}  // namespace QXFontService_NS::layout
