#include "layout/table/coverage.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

namespace {

layout::GlyphDigest digestOf(const std::vector<unsigned short>& glyphs) {
  layout::GlyphDigest digest;
  for (const unsigned short glyph : glyphs) digest.add(glyph);
  return digest;
}

layout::GlyphDigest digestOf(
    const std::vector<FS_LayoutTables::TTI_CoverageFormat2::Range>& ranges) {
  layout::GlyphDigest digest;
  for (const auto& range : ranges) digest.addRange(range.start, range.end);
  return digest;
}

}  // namespace

FS_LayoutTables::TTI_CoverageFormat1::TTI_CoverageFormat1(std::vector<unsigned short> glyphs)
    : TTI_Coverage(digestOf(glyphs)), glyphs_(std::move(glyphs)) {}

FS_LayoutTables::TTI_CoverageFormat2::TTI_CoverageFormat2(std::vector<Range> ranges)
    : TTI_Coverage(digestOf(ranges)), ranges_(std::move(ranges)) {}

// The halving is written out, with the middle of [low, high): for an unsorted table it decides
// which of its glyphs are covered.

int FS_LayoutTables::TTI_CoverageFormat1::coverageIndex(unsigned short glyph) const {
  std::size_t low = 0;
  std::size_t high = glyphs_.size();
  while (low < high) {
    const std::size_t mid = (low + high) / 2;
    if (glyphs_[mid] == glyph) return static_cast<int>(mid);
    if (glyphs_[mid] < glyph) {
      low = mid + 1;
    } else {
      high = mid;
    }
  }
  return -1;
}

void FS_LayoutTables::TTI_CoverageFormat1::addTo(layout::GlyphSet& glyphs) const {
  for (const unsigned short glyph : glyphs_) glyphs.add(glyph);
}

std::size_t FS_LayoutTables::TTI_CoverageFormat1::stepsToAdd() const {
  return glyphs_.size();
}

int FS_LayoutTables::TTI_CoverageFormat2::coverageIndex(unsigned short glyph) const {
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
      return range.startCoverageIndex + (glyph - range.start);
    }
  }
  return -1;
}

void FS_LayoutTables::TTI_CoverageFormat2::addTo(layout::GlyphSet& glyphs) const {
  for (const Range& range : ranges_) glyphs.addRange(range.start, range.end);
}

std::size_t FS_LayoutTables::TTI_CoverageFormat2::stepsToAdd() const {
  std::size_t steps = ranges_.size();
  for (const Range& range : ranges_)
    if (range.start < range.end) steps += static_cast<std::size_t>(range.end - range.start) / 64;
  return steps;
}

namespace layout {
namespace {

using Format1 = FS_LayoutTables::TTI_CoverageFormat1;
using Format2 = FS_LayoutTables::TTI_CoverageFormat2;

CoveragePtr readFormat1(GraphReader& reader, std::uint64_t at) {
  return std::make_shared<Format1>(reader.words(at + 4, reader.u16(at + 2)));
}

CoveragePtr readFormat2(GraphReader& reader, std::uint64_t at) {
  const std::size_t count = reader.countThatFits(at + 4, reader.u16(at + 2), 6);
  if (!reader.charge(count * sizeof(Format2::Range))) return nullptr;
  std::vector<Format2::Range> ranges(count);
  std::uint64_t from = at + 4;
  for (Format2::Range& range : ranges) {
    range = {reader.u16(from), reader.u16(from + 2), reader.u16(from + 4)};
    from += 6;
  }
  return std::make_shared<Format2>(std::move(ranges));
}

CoveragePtr readAnyFormat(GraphReader& reader, std::uint64_t at) {
  constexpr std::size_t kObject = 128;
  if (!reader.charge(kObject)) return nullptr;
  switch (reader.u16(at)) {
    case 1:
      return readFormat1(reader, at);
    case 2:
      return readFormat2(reader, at);
    default:
      return nullptr;
  }
}

}  // namespace

CoveragePtr readCoverage(GraphReader& reader, std::uint64_t base, unsigned offset) {
  if (offset == 0) return nullptr;
  const std::uint64_t at = base + offset;
  return reader.shared<TTI_Coverage>(GraphReader::kCoverage, at,
                                     [&] { return readAnyFormat(reader, at); });
}

}  // namespace layout
}  // namespace QXFontService_NS
