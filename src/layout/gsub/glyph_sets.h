#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "layout/context/context_rules.h"

namespace QXFontService_NS::layout {

class GraphReader;

/// Lists of glyphs, one for each coverage index: what OpenType's Sequence and AlternateSet tables
/// have in common.
class GlyphSets {
 public:
  /// Reads `count` lists, whose offsets stand at `offsets` and count from `base`.
  void read(GraphReader& reader, std::uint64_t base, std::uint64_t offsets, unsigned count);

  [[nodiscard]] bool has(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < sets_.size();
  }
  /// The list of a coverage index; empty where there is none.
  [[nodiscard]] std::span<const unsigned short> at(int index) const;

 private:
  Run readSet(GraphReader& reader, std::uint64_t at);

  std::vector<Run> sets_;
  std::vector<unsigned short> glyphs_;
};

}  // namespace QXFontService_NS::layout
