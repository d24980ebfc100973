#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "qxcommon/mem_stream.h"

#include "common/bytes/byte_view.h"
#include "embed/subset_source.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {

/// The tables that do not come from the source.
struct NewTables {
  /// `glyf` in pieces, in file order; borrowed.
  std::optional<std::span<const QXCommonNS::bytes::ByteView>> glyf;
  /// `loca`, as long as that of the source; given together with `glyf`.
  std::optional<QXCommonNS::bytes::ByteView> loca;
  /// `CFF `; borrowed. It is read from its start.
  QXCommonNS::QXMemStream* cff = nullptr;
};

/// Writes the sfnt of `tables`, as `selectTables` gave them: the offset table of the image, the
/// directory, and each table at a multiple of 4 bytes, from `fresh` or from the source.
///
/// Length and checksum of the new tables are set; every other record keeps those of the source,
/// and `head` goes out byte for byte. Kept, for documents already written: `checkSumAdjustment` is
/// that of the source, and nothing follows the last table, so that the file may end on any byte.
///
/// `out` must be empty. A read that comes short is no failure: what is there goes out.
/// @return false, with nothing written, where the tables overlap so that the font would be many
///   times as long as its source.
[[nodiscard]] bool writeSfnt(const SubsetSource& source, const NewTables& fresh,
                             SubsetTables& tables, QXCommonNS::QXMemStream& out);

/// Whether the tables can be written without being many times as long as the source: directories
/// that point at the same bytes again and again are refused.
[[nodiscard]] bool tablesFitSource(const SubsetSource& source, const SubsetTables& tables);

}  // namespace QXFontService_NS::embed
