#pragma once

#include <cstddef>
#include <cstdint>

namespace QXFontService_NS::layout {

// Bounds of what a damaged layout table may cost. Each lies beyond any real font; what goes
// beyond one gets the neutral answer of its place. See `spent_budgets.h` for how tests see them.

/// Runs of nested lookups in a call for one position. HarfBuzz grants as many to all lookups of a
/// shaping call together.
inline constexpr std::int64_t kMostNestedRuns = 65'536;
/// The same for a pass over a whole array: this many for each glyph, if that is more.
inline constexpr std::int64_t kNestedRunsPerGlyph = 4'096;

/// Glyph comparisons in a call, and more for each glyph: about half a second. What takes as long as
/// one counts as one: a subtable that is asked, a glyph that is copied, a move that is summed up.
/// Long runs of the most context-heavy fonts, Nastaliq ones, stay below 2^24.
inline constexpr std::int64_t kMostComparisons = std::int64_t{1} << 28;
inline constexpr std::int64_t kComparisonsPerGlyph = 4'096;

/// Subtables that are asked for the vertical form of a glyph: as many as one lookup may have.
inline constexpr std::int64_t kMostVerticalSubTables = 65'535;

/// How deep lookups may nest, if the sequence is no longer than this: rules that advance by one
/// glyph a level are sound, so a longer sequence allows its own length.
inline constexpr std::size_t kMostNestingLevels = 1'024;

/// How long an array may grow under lookups that expand, if its length times `kGrowthPerGlyph` is
/// not more. The figure is HarfBuzz's.
inline constexpr std::int64_t kMostGrownGlyphs = 65'536;
inline constexpr std::int64_t kGrowthPerGlyph = 256;

/// Bytes of the objects made from one layout table, and more for each byte of the table.
/// Overlapping offsets could otherwise make gigabytes from 64 KiB; real tables need about twice
/// their length.
inline constexpr std::int64_t kMostGraphBytes = std::int64_t{16} << 20;
inline constexpr std::int64_t kGraphBytesPerTableByte = 64;

/// Steps of preparing the lookups' sets of starting glyphs, and more for each byte of the table.
inline constexpr std::int64_t kMostStartSteps = std::int64_t{16} << 20;
inline constexpr std::int64_t kStartStepsPerTableByte = 64;

/// Entries (features and their lookups) of one language system, and of all those of a table.
/// HarfBuzz cuts at 8,000 feature indices.
inline constexpr std::int64_t kMostLangSysEntries = std::int64_t{1} << 20;
inline constexpr std::int64_t kMostLangSysEntriesOfTable = std::int64_t{8} << 20;

/// Extensions that lead to extensions. OpenType allows none.
inline constexpr int kMostExtensionHops = 16;

}  // namespace QXFontService_NS::layout
