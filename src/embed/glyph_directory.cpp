#include "embed/glyph_directory.h"

#include <algorithm>

#include "common/bytes/byte_writer.h"
#include "embed/sfnt_writer.h"
#include "embed/stream_copy.h"
#include "embed/subset_glyf.h"
#include "embed/table_lists.h"
#include "embed/table_selection.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

SubsetTables listedTables(const SubsetTables& tables) {
  SubsetTables listed;
  for (const std::uint32_t tag : kPostScriptTables) {
    const auto found = tables.find(tag);
    if (found != tables.end()) listed.insert(*found);
  }
  return listed;
}

void writeRecord(ByteWriter& out, std::uint32_t tag, const SubsetTable& table,
                 std::uint64_t position) {
  out.u32(tag).u32(table.checkSum).u32(static_cast<std::uint32_t>(position)).u32(table.length);
}

// `gdir` has no table; its record stands in its sorted place.
void writeHeader(const FS_TableDirectoryImage& image, const SubsetTables& listed,
                 QXMemStream& out) {
  ByteWriter header;
  header.bytes(ByteView(image.offsetTable()));
  std::uint64_t position =
      header.size() + (listed.size() + 1) * FS_TableDirectoryImage::kRecordSize;
  const auto behindGdir = listed.upper_bound(kGdirTag);
  for (auto record = listed.begin(); record != listed.end(); ++record) {
    if (record == behindGdir) writeRecord(header, kGdirTag, {}, 0);
    writeRecord(header, record->first, record->second, position);
    position = (position + record->second.length + 3) / 4 * 4;
  }
  if (behindGdir == listed.end()) writeRecord(header, kGdirTag, {}, 0);
  appendBytes(out, header.view());
}

void writeTables(const SubsetSource& source, const SubsetTables& listed, QXMemStream& out) {
  for (const auto& [tag, table] : listed) {
    copyRange(*source.stream, table.offset, table.length, out);
    padToLong(out);
  }
}

void handOutGlyphs(const SubsetGlyphs& glyphs, FS_TTGlyphMap& map) {
  for (const KeptGlyph& glyph : glyphs.glyphs()) {
    if (glyph.length == 0) continue;
    QXMemStream* stream = map.getGlyphStream(glyph.id);
    if (stream != nullptr) appendBytes(*stream, glyph.bytes);
  }
}

}  // namespace

bool writeGlyphDirectoryFont(const SubsetSource& source, const std::vector<std::uint16_t>& gids,
                             FS_TTGlyphMap& map, QXMemStream& out) {
  SubsetTables tables;
  if (!hasGlyphOutlines(source)) return false;
  if (!selectTables(source, kPostScriptTables.data(), tables)) return false;
  SubsetGlyphs glyphs(source);
  if (!tablesFitSource(source, tables) || !glyphs.fill(gids)) return false;
  const SubsetTables listed = listedTables(tables);
  setTableCount(*source.image, listed.size() + 1);
  writeHeader(*source.image, listed, out);
  writeTables(source, listed, out);
  handOutGlyphs(glyphs, map);
  return true;
}

}  // namespace QXFontService_NS::embed
