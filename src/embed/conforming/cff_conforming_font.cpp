#include "embed/conforming/cff_conforming_font.h"

#include <utility>

#include "common/bytes/stream_read.h"
#include "embed/conforming/cff_conforming.h"
#include "embed/conforming/conforming_sfnt.h"
#include "embed/sfnt_writer.h"
#include "embed/table_selection.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed::conforming {

using QXCommonNS::bytes::ByteView;

namespace {

constexpr std::uint32_t kDsigTag = tableTag("DSIG");

bool readOtherTables(const SubsetSource& source, const SubsetTables& tables, TableBodies& bodies) {
  for (const auto& [tag, table] : tables) {
    if (tag == kDsigTag || tag == kCffTag) continue;
    auto body = QXCommonNS::bytes::readBlock(*source.stream, table.offset, table.length);
    if (body.size() != table.length) return false;
    bodies.emplace(tag, std::move(body));
  }
  return true;
}

}  // namespace

bool writeConformingOpenType(const SubsetSource& source, const CffSubsetSource& cff,
                             const std::vector<std::uint16_t>& gids, QXCommonNS::QXMemStream& out) {
  SubsetTables tables;
  if (!hasCffOutlines(source) || !selectTables(source, nullptr, tables)) return false;
  TableBodies bodies;
  if (!tablesFitSource(source, tables)) return false;
  if (!makeConformingCff(cff, gids, source.glyphCount, bodies[kCffTag])) return false;
  if (!readOtherTables(source, tables, bodies)) return false;
  const std::uint32_t version = ByteView(source.image->offsetTable()).u32(0);
  return writeConformingSfnt(version, std::move(bodies), out);
}

}  // namespace QXFontService_NS::embed::conforming
