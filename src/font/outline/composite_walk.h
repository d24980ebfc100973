#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "font/directory/table_directory.h"
#include "font/outline/file_window.h"

namespace QXFontService_NS::outline {

/// Where the glyphs of a font stand.
struct GlyphTables {
  sfnt::TableRecord glyf;
  sfnt::TableRecord loca;
  bool longOffsets = false;
};

/// Walks the components of composite glyphs (OpenType `glyf`), since FreeType follows them by
/// recursion as deep as the font says. One thread at a time.
class CompositeWalk {
 public:
  explicit CompositeWalk(const GlyphTables& tables) : tables_(tables) {}

  /// Whether a glyph has at most 64 levels of components, and consists of at most 1,024 glyphs,
  /// each counted once, and of at most 16,384, each counted as often as FreeType loads it. What
  /// cannot be read has no components. A glyph is walked at the first call.
  [[nodiscard]] bool isBounded(std::uint16_t glyph, const OpenFont& open);

 private:
  enum class Verdict : std::uint8_t { open, simple, bounded, refused };
  struct Extent {
    std::uint64_t position = 0;  // in the font
    std::uint64_t length = 0;
  };

  /// Components of one glyph that stand one behind the other.
  struct Run {
    std::uint16_t glyph = 0;
    std::uint64_t length = 0;
  };
  /// A glyph with all it is made of.
  struct Tree {
    int height = 0;
    std::uint64_t loads = 1;
  };

  [[nodiscard]] Verdict walk(std::uint16_t glyph, const OpenFont& open);
  std::optional<Tree> measure(std::uint16_t glyph, int level, const OpenFont& open);
  std::optional<Tree> measureAbove(const std::vector<Run>& components, int level,
                                   const OpenFont& open);
  [[nodiscard]] std::vector<Run> components(std::uint16_t glyph, const OpenFont& open);
  [[nodiscard]] Extent extent(std::uint16_t glyph) const;
  [[nodiscard]] std::uint32_t offset(std::uint32_t glyph) const;
  void readLocations(const OpenFont& open);
  Verdict& verdict(std::uint16_t glyph);

  GlyphTables tables_;
  bool locationsRead_ = false;
  std::vector<std::byte> loca_;
  FileWindow window_;
  std::vector<Verdict> verdicts_;
  std::map<std::uint16_t, Tree> trees_;  // of the glyphs that the walk at hand has met
};

}  // namespace QXFontService_NS::outline
