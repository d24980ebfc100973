#include "embed/true_type_subset.h"

#include "embed/sfnt_writer.h"
#include "embed/stream_copy.h"
#include "embed/subset_glyf.h"
#include "embed/table_lists.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;

bool writeGlyphSubset(const SubsetSource& source, const std::vector<std::uint16_t>& gids,
                      const std::uint32_t* tags, QXMemStream& out) {
  if (!hasGlyphOutlines(source)) return writeWholeTables(source, tags, out);
  SubsetTables tables;
  if (!selectTables(source, tags, tables)) return false;
  SubsetGlyphs glyphs(source);
  if (!glyphs.fill(gids)) return false;
  const std::vector<ByteView> glyf = subsetGlyf(glyphs);
  const std::vector<std::byte> loca = subsetLoca(glyphs);
  return writeSfnt(source, {.glyf = glyf, .loca = ByteView(loca)}, tables, out);
}

bool writeGlyphSubsetWithCmap(const SubsetSource& source, const std::vector<std::uint16_t>& gids,
                              QXMemStream& out) {
  return hasGlyphOutlines(source) &&
         writeGlyphSubset(source, gids, kEmbedTablesWithCmap.data(), out);
}

bool writeWholeTables(const SubsetSource& source, const std::uint32_t* tags, QXMemStream& out) {
  SubsetTables tables;
  return selectTables(source, tags, tables) && writeSfnt(source, {}, tables, out);
}

bool writeSvgFont(const SubsetSource& source, const std::vector<std::uint16_t>& gids,
                  QXMemStream& out) {
  if (!hasCffOutlines(source)) return writeGlyphSubset(source, gids, nullptr, out);
  copyRange(*source.stream, 0, streamLength(*source.stream), out);
  return true;
}

bool handOverStream(FontStream stream, QXMemStream& out) {
  const bool own = stream.isOwned();
  std::istream* given = stream.release();
  if (given == nullptr) return false;
  given->clear();
  given->seekg(0);
  out.getMemStreamBuf()->setSource(given, own);
  return out.length() != 0;
}

}  // namespace QXFontService_NS::embed
