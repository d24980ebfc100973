#include "layout/table/layout_table.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

using LookupListReader = bool (*)(TTI_LookupList&, GraphReader&, unsigned);

/// Whether the list at `offset` lies in the table with all its records.
bool lies(QXCommonNS::bytes::ByteView table, unsigned offset, unsigned recordSize) {
  return table.contains(offset, 2) &&
         table.contains(offset + 2U, std::uint64_t{table.u16(offset)} * recordSize);
}

LayoutTableFailure readTable(TTI_LayoutTable& out, const FS_LayoutTables& font,
                             QXCommonNS::bytes::ByteView bytes, LookupListReader readLookupList) {
  const LayoutTableHeader header = readLayoutTableHeader(bytes);
  GraphReader reader(font, bytes);
  if (const unsigned at = header.featureList; at != 0)
    if (!lies(bytes, at, 6) || !readFeatureList(out.featureList, reader, at))
      return LayoutTableFailure::featureList;
  if (const unsigned at = header.lookupList; at != 0)
    if (!lies(bytes, at, 2) || !readLookupList(out.lookupList, reader, at))
      return LayoutTableFailure::lookupList;
  if (const unsigned at = header.scriptList; at != 0)
    if (!lies(bytes, at, 6) || !readScriptList(out, reader, at))
      return LayoutTableFailure::scriptList;
  return LayoutTableFailure::none;
}

}  // namespace

LayoutTableHeader readLayoutTableHeader(QXCommonNS::bytes::ByteView table) {
  return {table.u16(4), table.u16(6), table.u16(8)};
}

LayoutTableFailure readGSUB(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table) {
  font.gsub = std::make_unique<TTI_LayoutTable>();
  return readTable(*font.gsub, font, table, readGSUBLookupList);
}

LayoutTableFailure readGPOS(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table) {
  font.gpos = std::make_unique<TTI_LayoutTable>();
  return readTable(*font.gpos, font, table, readGPOSLookupList);
}

}  // namespace QXFontService_NS::layout
