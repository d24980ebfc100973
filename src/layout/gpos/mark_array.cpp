#include "layout/gpos/mark_array.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {

MarkArray::MarkArray(GraphReader& reader, std::uint64_t at) {
  const std::size_t count = reader.countThatFits(at + 2, reader.u16(at), 4);
  if (!reader.charge(count * sizeof(Mark))) return;
  marks_.reserve(count);
  for (std::uint64_t from = at + 2; marks_.size() < count; from += 4)
    marks_.push_back({reader.u16(from), readAnchor(reader, at, reader.u16(from + 2))});
}

Mark MarkArray::mark(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= marks_.size()) return {};
  return marks_[static_cast<std::size_t>(index)];
}

}  // namespace QXFontService_NS::layout
