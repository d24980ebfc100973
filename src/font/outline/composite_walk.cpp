#include "font/outline/composite_walk.h"

#include <algorithm>

#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "embed/composite_glyph.h"

namespace QXFontService_NS::outline {
namespace {

using QXCommonNS::limits::kMostCompositeDepth;
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
  const std::vector<std::uint16_t> parts = components(glyph, open);
  if (parts.empty()) return Verdict::simple;
  heights_.clear();
  return height(glyph, 0, open) == kTooHigh ? Verdict::refused : Verdict::bounded;
}

// A glyph that the walk stands in has height 0: FreeType itself refuses cycles.
int CompositeWalk::height(std::uint16_t glyph, int level, const OpenFont& open) {
  if (level > kMostCompositeDepth) return kTooHigh;
  const auto met = heights_.try_emplace(glyph, 0);
  int& known = met.first->second;
  if (!met.second) return level + known > kMostCompositeDepth ? kTooHigh : known;
  if (heights_.size() > static_cast<std::size_t>(kMostCompositeNodes)) return kTooHigh;
  if (verdict(glyph) == Verdict::simple) return 0;
  const std::vector<std::uint16_t> parts = components(glyph, open);
  if (parts.empty()) verdict(glyph) = Verdict::simple;
  const int above = heightAbove(parts, level, open);
  known = std::max(above, 0);
  return above;
}

int CompositeWalk::heightAbove(const std::vector<std::uint16_t>& components, int level,
                               const OpenFont& open) {
  int highest = 0;
  for (const std::uint16_t component : components) {
    const int one = height(component, level + 1, open);
    if (one == kTooHigh) return kTooHigh;
    highest = std::max(highest, one + 1);
  }
  return highest;
}

// Piece by piece: only as much is read as there are components, whatever length is stated.
std::vector<std::uint16_t> CompositeWalk::components(std::uint16_t glyph, const OpenFont& open) {
  std::vector<std::uint16_t> ids;
  Extent left = extent(glyph);
  const auto isNew = [&](std::uint16_t id) { return ids.empty() || ids.back() != id; };
  const auto skip = [&](std::uint64_t count) {
    left.position += count;
    left.length -= count;
  };
  const ByteView beginning =
      window_.read(left.position, std::min(left.length, kGlyphBeginning), open);
  if (!embed::beginsAsComposite(beginning)) return ids;
  skip(embed::kGlyphHeaderSize);
  for (std::uint64_t taken = 1; taken != 0 && left.length != 0; skip(taken)) {
    const std::uint64_t size = std::min(left.length, FileWindow::kSize);
    taken = embed::forEachComponent(window_.read(left.position, size, open), [&](std::uint16_t id) {
      if (isNew(id)) ids.push_back(id);
    });
  }
  return ids;
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
