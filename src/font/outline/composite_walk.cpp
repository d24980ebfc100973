#include "font/outline/composite_walk.h"

#include <algorithm>

#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "embed/composite_glyph.h"

namespace QXFontService_NS::outline {
namespace {

using QXCommonNS::limits::kMostCompositeDepth;
using QXCommonNS::limits::kMostCompositeLoads;
using QXCommonNS::limits::kMostCompositeNodes;

constexpr std::uint64_t kMostLocations = 0x10001;
// What tells a composite from a simple glyph.
constexpr std::uint64_t kGlyphBeginning = embed::kGlyphHeaderSize + 1;

}  // namespace

bool CompositeWalk::isBounded(std::uint16_t glyph, const OpenFont& open) {
  if (!locationsRead_) readLocations(open);
  if (verdict(glyph) == Verdict::open) {
    const Verdict found = walk(glyph, open);
    verdict(glyph) = found;
  }
  return verdict(glyph) != Verdict::refused;
}

CompositeWalk::Verdict CompositeWalk::walk(std::uint16_t glyph, const OpenFont& open) {
  if (components(glyph, open).empty()) return Verdict::simple;
  trees_.clear();
  return measure(glyph, 0, open) ? Verdict::bounded : Verdict::refused;
}

// A glyph that the walk stands in counts as simple: FreeType itself refuses cycles.
std::optional<CompositeWalk::Tree> CompositeWalk::measure(std::uint16_t glyph, int level,
                                                          const OpenFont& open) {
  if (level > kMostCompositeDepth) return std::nullopt;
  const auto met = trees_.try_emplace(glyph);
  Tree& known = met.first->second;
  if (!met.second && level + known.height > kMostCompositeDepth) return std::nullopt;
  if (!met.second) return known;
  if (trees_.size() > static_cast<std::size_t>(kMostCompositeNodes)) return std::nullopt;
  if (verdict(glyph) == Verdict::simple) return known;
  const std::vector<Run> parts = components(glyph, open);
  if (parts.empty()) verdict(glyph) = Verdict::simple;
  const std::optional<Tree> tree = measureAbove(parts, level, open);
  if (tree) known = *tree;
  return tree;
}

std::optional<CompositeWalk::Tree> CompositeWalk::measureAbove(const std::vector<Run>& components,
                                                               int level, const OpenFont& open) {
  Tree whole;
  for (const Run& run : components) {
    const std::optional<Tree> one = measure(run.glyph, level + 1, open);
    if (!one) return std::nullopt;
    whole.height = std::max(whole.height, one->height + 1);
    whole.loads += run.length * one->loads;
    if (whole.loads > kMostCompositeLoads) return std::nullopt;
  }
  return whole;
}

// Piece by piece: only as much is read as there are components, whatever length is stated.
std::vector<CompositeWalk::Run> CompositeWalk::components(std::uint16_t glyph,
                                                          const OpenFont& open) {
  std::vector<Run> runs;
  Extent left = extent(glyph);
  const auto add = [&](std::uint16_t id) {
    if (runs.empty() || runs.back().glyph != id) runs.push_back({id, 0});
    ++runs.back().length;
  };
  const auto skip = [&](std::uint64_t count) {
    left.position += count;
    left.length -= count;
  };
  const ByteView beginning =
      window_.read(left.position, std::min(left.length, kGlyphBeginning), open);
  if (!embed::beginsAsComposite(beginning)) return runs;
  skip(embed::kGlyphHeaderSize);
  for (std::uint64_t taken = 1; taken != 0 && left.length != 0; skip(taken)) {
    const std::uint64_t size = std::min(left.length, FileWindow::kSize);
    taken = embed::forEachComponent(window_.read(left.position, size, open), add);
  }
  return runs;
}

// FreeType takes falling offsets for a glyph that goes on to the end of the table.
CompositeWalk::Extent CompositeWalk::extent(std::uint16_t glyph) const {
  const std::uint64_t length = tables_.glyf.length;
  const std::uint64_t start = std::min<std::uint64_t>(offset(glyph), length);
  const std::uint64_t end = std::min<std::uint64_t>(offset(std::uint32_t{glyph} + 1), length);
  const std::uint64_t position = std::uint64_t{tables_.glyf.offset} + start;
  return {position, (end >= start ? end : length) - start};
}

std::uint32_t CompositeWalk::offset(std::uint32_t glyph) const {
  const ByteView loca(loca_);
  const std::uint64_t size = tables_.longOffsets ? 4 : 2;
  const std::uint64_t at = glyph * size;
  if (!loca.contains(at, size)) return tables_.glyf.length;
  return tables_.longOffsets ? loca.u32(at) : std::uint32_t{2} * loca.u16(at);
}

void CompositeWalk::readLocations(const OpenFont& open) {
  locationsRead_ = true;
  const std::uint64_t size = tables_.longOffsets ? 4 : 2;
  const embed::FontStream stream = open();
  if (stream.get() == nullptr) return;
  loca_ = QXCommonNS::bytes::readBlock(
      *stream.get(), std::int64_t{tables_.loca.offset},
      std::min<std::uint64_t>(tables_.loca.length, kMostLocations * size));
}

CompositeWalk::Verdict& CompositeWalk::verdict(std::uint16_t glyph) {
  if (glyph >= verdicts_.size()) verdicts_.resize(std::size_t{glyph} + 1, Verdict::open);
  return verdicts_[glyph];
}

}  // namespace QXFontService_NS::outline
