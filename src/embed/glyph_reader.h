#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <span>
#include <vector>

#include "common/bytes/byte_view.h"
#include "embed/glyph_locations.h"

namespace QXFontService_NS::embed {

/// A glyph that goes into a subset.
struct KeptGlyph {
  std::uint16_t id = 0;
  std::uint32_t length = 0;  ///< as `loca` says
  /// The bytes that are there: fewer than `length` where the font was cut.
  QXCommonNS::bytes::ByteView bytes;
};

/// Reads glyphs out of `glyf` and holds their bytes.
///
/// Glyphs that stand together are read together, small gaps included, since a read costs more than
/// the bytes of a gap.
class GlyphReader {
 public:
  /// Both must outlive this.
  GlyphReader(std::istream& stream, const GlyphLocations& locations);

  /// Fills in length and bytes of `glyphs`, whose ids should rise. The bytes live as long as this.
  /// @return false where all glyphs read so far would be longer than the stream: the ranges of
  ///   a sound font do not overlap.
  [[nodiscard]] bool read(std::span<KeptGlyph> glyphs);

 private:
  /// Bytes read in one go, and the glyphs that stand in them.
  struct Run {
    std::uint64_t start = 0;  // from the start of `glyf`
    std::uint64_t end = 0;
    std::size_t firstGlyph = 0;
    std::size_t endGlyph = 0;
  };

  [[nodiscard]] std::vector<Run> planRuns(std::span<KeptGlyph> glyphs);
  void readRun(const Run& run, std::span<KeptGlyph> glyphs, std::span<std::byte> out);

  std::istream& stream_;
  const GlyphLocations& locations_;
  std::uint64_t there_;   // bytes of the stream behind the start of `glyf`
  std::uint64_t budget_;  // glyph bytes that may still be read
  bool spent_ = false;
  std::vector<std::unique_ptr<std::byte[]>> chunks_;
};

}  // namespace QXFontService_NS::embed
