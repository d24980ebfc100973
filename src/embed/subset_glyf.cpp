#include "embed/subset_glyf.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteView;

void storeBigEndian(std::uint32_t value, std::span<std::byte> out) {
  for (std::size_t i = out.size(); i > 0; value >>= 8) {
    out[--i] = static_cast<std::byte>(value & 0xFF);
  }
}

}  // namespace

std::vector<ByteView> subsetGlyf(const SubsetGlyphs& glyphs) {
  std::vector<ByteView> pieces;
  pieces.reserve(glyphs.glyphs().size());
  for (const KeptGlyph& glyph : glyphs.glyphs()) {
    if (!glyph.bytes.empty()) pieces.push_back(glyph.bytes);
  }
  return pieces;
}

std::vector<std::byte> subsetLoca(const SubsetGlyphs& glyphs) {
  const GlyphLocations& locations = glyphs.locations();
  const std::size_t size = locations.entrySize();
  std::vector<std::byte> loca(locations.tableSize());
  std::uint32_t offset = 0;
  auto kept = glyphs.glyphs().begin();
  for (std::size_t i = 0; i < locations.entryCount(); ++i) {
    const std::uint32_t stored = locations.areLong() ? offset : offset / 2;
    storeBigEndian(stored, std::span(loca).subspan(i * size, size));
    if (kept == glyphs.glyphs().end() || kept->id != i) continue;
    offset += kept->length;
    ++kept;
  }
  return loca;
}

}  // namespace QXFontService_NS::embed
