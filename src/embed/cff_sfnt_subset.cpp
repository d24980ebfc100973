#include "embed/cff_sfnt_subset.h"

#include "embed/cff_subset.h"
#include "embed/sfnt_writer.h"
#include "embed/stream_copy.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {

using QXCommonNS::QXMemStream;

namespace {

constexpr std::size_t kBlockSize = 8192;

}  // namespace

bool writeCffSubset(const SubsetSource& source, const CffSubsetSource& cff,
                    const std::vector<std::uint16_t>& gids, QXMemStream& out) {
  QXMemStream cffTable(nullptr, kBlockSize, false, true);
  if (!makeCFFSubsetFont(cff, gids, cffTable)) return false;
  SubsetTables tables;
  if (!selectTables(source, nullptr, tables)) return false;
  NewTables fresh;
  fresh.cff = &cffTable;
  return writeSfnt(source, fresh, tables, out);
}

bool copyCffTable(const cff::CffTable& table, QXMemStream& out) {
  if (!table.exists() || table.offset < 0) return false;
  const auto offset = static_cast<std::uint64_t>(table.offset);
  return copyRange(*table.stream, offset, table.length, out) == table.length;
}

}  // namespace QXFontService_NS::embed
