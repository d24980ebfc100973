#include "font/cmap/character_maps.h"

#include <utility>

namespace QXFontService_NS::cmap {

CharacterMaps::CharacterMaps() {
  direct_.fill(kNoGlyph);
}

CharacterMaps::CharacterMaps(CmapSubtables subtables, bool useZeroGlyph)
    : subtables_(std::move(subtables)), zeroGlyph_(useZeroGlyph ? std::uint16_t{0} : kNoGlyph) {
  chooseHeld();
  fillDirect();
}

void CharacterMaps::chooseHeld() {
  if (CmapFormat12* map = subtables_.format12.get()) {
    held_ = Held::format12;
    map->makeIndex();
    conversion_ = {map->platformID, map->encodingID, map->startsInPrivateRange()};
  } else if (CmapFormat4* segments = subtables_.format4.get()) {
    held_ = Held::format4;
    segments->makeIndex();
    conversion_ = {segments->platformID, segments->encodingID, segments->startsInPrivateRange()};
  } else if (const CmapFormat2* bytes = subtables_.format2.get()) {
    held_ = Held::format2;
    conversion_ = {bytes->platformID, bytes->encodingID, false};
  } else if (subtables_.format0) {
    held_ = Held::format0;  // searched by the code as it is
  }
}

void CharacterMaps::fillDirect() {
  for (std::size_t code = 0; code < direct_.size(); ++code) {
    direct_[code] = search(static_cast<int>(code));
  }
}

std::uint16_t CharacterMaps::search(int code) const {
  const int converted = conversion_.convert(code);
  switch (held_) {
    case Held::format12:
      return judged(subtables_.format12->glyph(converted));
    case Held::format4:
      return judged(subtables_.format4->glyph(converted));
    case Held::format2:
      return subtables_.format2->glyph(converted);
    case Held::format0:
      return subtables_.format0->glyph(converted);
    case Held::none:
      break;
  }
  return kNoGlyph;
}

bool CharacterMaps::mayMap(std::uint32_t block) const {
  constexpr std::uint32_t kBmpBlocks = 0x100;
  if (conversion_.usesCodePage()) return block < kBmpBlocks;
  switch (held_) {
    case Held::format12:
      return subtables_.format12->mayMap(conversion_.blockAfterSymbolRule(block));
    case Held::format4:
      return subtables_.format4->mayMap(conversion_.blockAfterSymbolRule(block));
    case Held::format2:
      return block < kBmpBlocks;
    case Held::format0:
      return block == 0;
    case Held::none:
      break;
  }
  return false;
}

std::uint16_t CharacterMaps::variationSequence(int code, int selector) const {
  if (!subtables_.format14) return kNoGlyph;
  const CmapFormat14::Answer answer = subtables_.format14->find(code, selector);
  if (answer.kind == CmapFormat14::Answer::Kind::ordinaryGlyph) return lookup(code);
  return answer.glyph;
}

void CharacterMaps::forEachVariation(
    const std::function<void(int code, int selector, std::uint16_t glyph)>& visit) const {
  if (!subtables_.format14) return;
  subtables_.format14->forEach([&](int code, int selector) {
    const std::uint16_t glyph = variationSequence(code, selector);
    if (glyph != kNoGlyph) visit(code, selector, glyph);
  });
}

}  // namespace QXFontService_NS::cmap
