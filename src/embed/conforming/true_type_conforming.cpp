#include "embed/conforming/true_type_conforming.h"

#include <algorithm>
#include <limits>

#include "common/bytes/byte_writer.h"
#include "common/bytes/stream_read.h"
#include "embed/conforming/conforming_sfnt.h"
#include "embed/conforming/hollow_gvar.h"
#include "embed/sfnt_writer.h"
#include "embed/subset_glyf.h"
#include "embed/table_selection.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

constexpr std::uint32_t kDsigTag = tableTag("DSIG");
constexpr std::uint32_t kGvarTag = tableTag("gvar");

bool areWhole(const std::vector<KeptGlyph>& glyphs) {
  return std::all_of(glyphs.begin(), glyphs.end(),
                     [](const KeptGlyph& glyph) { return glyph.bytes.size() == glyph.length; });
}

/// The entries that readers expect: one more than there are glyphs.
std::size_t locaEntries(const SubsetSource& source, const GlyphLocations& locations) {
  return source.glyphCount > 0 ? source.glyphCount + std::size_t{1} : locations.entryCount();
}

bool writeLocaEntry(std::size_t offset, bool isLong, ByteWriter& loca) {
  if (isLong) {
    loca.u32(static_cast<std::uint32_t>(offset));
    return offset <= std::numeric_limits<std::uint32_t>::max();
  }
  loca.u16(static_cast<std::uint16_t>(offset / 2));
  return offset / 2 <= std::numeric_limits<std::uint16_t>::max();
}

/// Each glyph at a multiple of what `loca` counts in.
bool writeOutlines(const SubsetSource& source, const SubsetGlyphs& glyphs, ByteWriter& glyf,
                   ByteWriter& loca) {
  const bool isLong = glyphs.locations().areLong();
  const std::size_t entries = locaEntries(source, glyphs.locations());
  auto kept = glyphs.glyphs().begin();
  for (std::size_t i = 0; i < entries; ++i) {
    if (!writeLocaEntry(glyf.size(), isLong, loca)) return false;
    if (kept == glyphs.glyphs().end() || kept->id != i) continue;
    glyf.bytes(kept->bytes).align(isLong ? 4 : 2);
    ++kept;
  }
  if (glyf.size() == 0) glyf.u8(0);  // strict readers refuse a table without a byte
  return true;
}

bool readTables(const SubsetSource& source, const SubsetTables& tables, TableBodies& bodies) {
  for (const auto& [tag, table] : tables) {
    if (tag == kDsigTag || tag == kGlyfTag || tag == kLocaTag) continue;
    auto body = QXCommonNS::bytes::readBlock(*source.stream, table.offset, table.length);
    if (body.size() != table.length) return false;
    bodies.emplace(tag, std::move(body));
  }
  return true;
}

void hollowVariations(const SubsetGlyphs& glyphs, TableBodies& bodies) {
  const auto gvar = bodies.find(kGvarTag);
  if (gvar != bodies.end()) gvar->second = hollowGvar(ByteView(gvar->second), glyphs.glyphs());
}

}  // namespace

bool writeConformingTrueType(const SubsetSource& source, const std::vector<std::uint16_t>& gids,
                             QXCommonNS::QXMemStream& out) {
  SubsetTables tables;
  if (!hasGlyphOutlines(source) || !selectTables(source, nullptr, tables)) return false;
  SubsetGlyphs glyphs(source);
  if (!tablesFitSource(source, tables) || !glyphs.fill(gids)) return false;
  if (!areWhole(glyphs.glyphs())) return false;
  ByteWriter glyf;
  ByteWriter loca;
  TableBodies bodies;
  if (!writeOutlines(source, glyphs, glyf, loca)) return false;
  if (!readTables(source, tables, bodies)) return false;
  hollowVariations(glyphs, bodies);
  bodies[kGlyfTag] = glyf.take();
  bodies[kLocaTag] = loca.take();
  const std::uint32_t version = ByteView(source.image->offsetTable()).u32(0);
  return writeConformingSfnt(version, std::move(bodies), out);
}

}  // namespace QXFontService_NS::embed::conforming
