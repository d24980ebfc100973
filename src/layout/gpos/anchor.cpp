#include "layout/gpos/anchor.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::GPOS_Anchor::GPOS_Anchor(const layout::GraphReader& reader, std::uint64_t at)
    : x_(reader.i16(at + 2)), y_(reader.i16(at + 4)), present_(true) {}

namespace layout {

GPOS_Anchor readAnchor(const GraphReader& reader, std::uint64_t base, unsigned offset) {
  if (offset == 0) return {};
  const std::uint64_t at = base + offset;
  switch (reader.u16(at)) {
    case 1:
      return FS_LayoutTables::GPOS_AnchorFormat1(reader, at);
    case 2:
      return FS_LayoutTables::GPOS_AnchorFormat2(reader, at);
    case 3:
      return FS_LayoutTables::GPOS_AnchorFormat3(reader, at);
    default:
      return {};
  }
}

std::size_t AnchorRows::append(GraphReader& reader, std::uint64_t base, std::uint64_t at,
                               std::size_t count) {
  if (classCount_ == 0) return 0;
  const std::size_t fitting = reader.countThatFits(at, count, 2 * classCount_);
  const std::size_t cells = fitting * classCount_;
  if (!reader.charge(cells * sizeof(GPOS_Anchor))) return 0;
  for (std::size_t i = 0; i < cells; ++i)
    anchors_.push_back(readAnchor(reader, base, reader.u16(at + 2 * i)));
  rows_ += fitting;
  return fitting;
}

GPOS_Anchor AnchorRows::anchor(std::int64_t row, unsigned markClass) const {
  if (row < 0 || static_cast<std::size_t>(row) >= rows_ || markClass >= classCount_) return {};
  return anchors_[static_cast<std::size_t>(row) * classCount_ + markClass];
}

}  // namespace layout
}  // namespace QXFontService_NS
