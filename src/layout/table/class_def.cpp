#include "layout/table/class_def.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

int FS_LayoutTables::TTI_ClassDefFormat1::classOf(unsigned short glyph) const {
  if (glyph < start_) return -1;
  const std::size_t index = static_cast<std::size_t>(glyph - start_);
  return index < classes_.size() ? classes_[index] : -1;
}

// As for coverage, the halving decides what an unsorted table says.
int FS_LayoutTables::TTI_ClassDefFormat2::classOf(unsigned short glyph) const {
  std::size_t low = 0;
  std::size_t high = ranges_.size();
  while (low < high) {
    const std::size_t mid = (low + high) / 2;
    const Range& range = ranges_[mid];
    if (glyph < range.start) {
      high = mid;
    } else if (glyph > range.end) {
      low = mid + 1;
    } else {
      return range.cls;
    }
  }
  return -1;
}

namespace layout {
namespace {

using Format1 = FS_LayoutTables::TTI_ClassDefFormat1;
using Format2 = FS_LayoutTables::TTI_ClassDefFormat2;
using OwnedClassDef = std::unique_ptr<const TTI_ClassDef>;

void raise(bool* error) {
  if (error != nullptr) *error = true;
}

OwnedClassDef readFormat1(GraphReader& reader, std::uint64_t at, bool* error) {
  const unsigned short start = reader.u16(at + 2);
  const unsigned short count = reader.u16(at + 4);
  const unsigned numGlyphs = reader.font().numGlyphs;
  if (count != 0 && (start >= numGlyphs || unsigned{start} + count > numGlyphs)) {
    raise(error);
    return std::make_unique<Format1>(start, std::vector<unsigned short>());
  }
  return std::make_unique<Format1>(start, reader.words(at + 6, count));
}

OwnedClassDef readFormat2(GraphReader& reader, std::uint64_t at) {
  const std::size_t count = reader.countThatFits(at + 4, reader.u16(at + 2), 6);
  if (!reader.charge(count * sizeof(Format2::Range))) return nullptr;
  std::vector<Format2::Range> ranges(count);
  std::uint64_t from = at + 4;
  for (Format2::Range& range : ranges) {
    range = {reader.u16(from), reader.u16(from + 2), reader.u16(from + 4)};
    from += 6;
  }
  return std::make_unique<Format2>(std::move(ranges));
}

}  // namespace

std::unique_ptr<const TTI_ClassDef> readClassDef(GraphReader& reader, std::uint64_t base,
                                                 unsigned offset, bool* error) {
  constexpr std::size_t kObject = 128;
  if (offset == 0 || !reader.charge(kObject)) return nullptr;
  const std::uint64_t at = base + offset;
  switch (reader.u16(at)) {
    case 1:
      return readFormat1(reader, at, error);
    case 2:
      return readFormat2(reader, at);
    default:
      raise(error);
      return nullptr;
  }
}

ClassDefPtr sharedClassDef(GraphReader& reader, std::uint64_t base, unsigned offset) {
  if (offset == 0) return nullptr;
  return reader.shared<TTI_ClassDef>(GraphReader::kClassDef, base + offset, [&] {
    return ClassDefPtr(readClassDef(reader, base, offset));
  });
}

}  // namespace layout
}  // namespace QXFontService_NS
