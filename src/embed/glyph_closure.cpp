#include "embed/glyph_closure.h"

#include <algorithm>

#include "common/bytes/byte_reader.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteReader;

constexpr std::uint16_t kNoGlyph = 0xFFFF;
constexpr std::uint32_t kHeaderSize = 10;  // numberOfContours and the bounding box

// Flags of a component.
constexpr unsigned kArgumentsAreWords = 0x0001;
constexpr unsigned kHasScale = 0x0008;
constexpr unsigned kMoreComponents = 0x0020;
constexpr unsigned kHasTwoScales = 0x0040;
constexpr unsigned kHasMatrix = 0x0080;

std::uint32_t argumentsSize(unsigned flags) {
  const std::uint32_t size = (flags & kArgumentsAreWords) != 0 ? 4 : 2;
  if ((flags & kHasScale) != 0) return size + 2;
  if ((flags & kHasTwoScales) != 0) return size + 4;
  if ((flags & kHasMatrix) != 0) return size + 8;
  return size;
}

bool isComposite(const KeptGlyph& glyph) {
  // A shorter one has no room for a component, and is not looked at.
  return glyph.length > kHeaderSize && glyph.bytes.i16(0) < 0;
}

}  // namespace

bool GlyphClosure::fill(const std::vector<std::uint16_t>& gids) {
  Ids round;
  add(0, round);
  for (const std::uint16_t gid : gids) add(gid, round);
  // In rounds instead of by recursion: composites may nest as deep as a font has glyphs.
  while (!round.empty()) {
    const std::size_t first = glyphs_.size();
    if (!readRound(round)) return false;
    round = components(first);
  }
  const auto idRises = [](const KeptGlyph& a, const KeptGlyph& b) { return a.id < b.id; };
  std::sort(glyphs_.begin(), glyphs_.end(), idRises);
  return true;
}

void GlyphClosure::add(std::uint16_t gid, Ids& round) {
  if (gid == kNoGlyph || isIn_[gid]) return;
  isIn_.set(gid);
  round.push_back(gid);
}

bool GlyphClosure::readRound(Ids& round) {
  std::sort(round.begin(), round.end());
  const std::size_t first = glyphs_.size();
  glyphs_.resize(first + round.size());
  for (std::size_t i = 0; i < round.size(); ++i) glyphs_[first + i].id = round[i];
  return reader_.read(std::span(glyphs_).subspan(first));
}

GlyphClosure::Ids GlyphClosure::components(std::size_t firstGlyph) {
  Ids round;
  for (std::size_t i = firstGlyph; i < glyphs_.size(); ++i) {
    if (isComposite(glyphs_[i])) addComponents(glyphs_[i], round);
  }
  return round;
}

// A component that says it is longer than the glyph ends the walk; its own id counts.
void GlyphClosure::addComponents(const KeptGlyph& glyph, Ids& round) {
  ByteReader reader(glyph.bytes, kHeaderSize);
  while (reader.left() >= 4) {
    const unsigned flags = reader.u16();
    add(reader.u16(), round);
    if ((flags & kMoreComponents) == 0) return;
    reader.skip(argumentsSize(flags));
    if (reader.failed()) return;
  }
}

}  // namespace QXFontService_NS::embed
