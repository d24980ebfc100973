#pragma once

#include <cstdint>
#include <optional>

#include "font/outline/charstring_walk.h"
#include "font/outline/composite_walk.h"

namespace QXFontService_NS::outline {

/// Tells of each glyph of a face whether FreeType will be done with it in good time. Whoever asks
/// holds the outline lock.
class GlyphGuard {
 public:
  /// Without tables every glyph passes.
  GlyphGuard() = default;

  void setGlyphTables(const GlyphTables& tables) { composites_.emplace(tables); }
  /// @param info see `CharStringWalk`.
  void setCff(const sfnt::TableRecord& cff, const FS_CFFInfo* info) {
    charStrings_.emplace(cff, info);
  }

  /// False only for a glyph whose composites or charstring go beyond all reason: what this cannot
  /// read is FreeType's to judge.
  [[nodiscard]] bool passes(std::uint16_t glyph, const OpenFont& open) {
    return (!composites_ || composites_->isBounded(glyph, open)) &&
           (!charStrings_ || charStrings_->isBounded(glyph, open));
  }

 private:
  std::optional<CompositeWalk> composites_;
  std::optional<CharStringWalk> charStrings_;
};

}  // namespace QXFontService_NS::outline
