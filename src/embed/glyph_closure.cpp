#include "embed/glyph_closure.h"

#include <algorithm>

#include "embed/composite_glyph.h"

namespace QXFontService_NS::embed {
namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;

bool isComposite(const KeptGlyph& glyph) {
  // A shorter one has no room for a component, and is not looked at.
  return glyph.length > kGlyphHeaderSize && glyph.bytes.i16(0) < 0;
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

void GlyphClosure::addComponents(const KeptGlyph& glyph, Ids& round) {
  const auto components = glyph.bytes.slice(kGlyphHeaderSize, glyph.bytes.size());
  forEachComponent(components, [&](std::uint16_t id) { add(id, round); });
}

}  // namespace QXFontService_NS::embed
