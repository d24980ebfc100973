#include "embed/glyph_reader.h"

#include <algorithm>

#include "common/bytes/stream_read.h"
#include "embed/stream_copy.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteView;

// Reading a kilobyte costs about as much as a seek and a call.
constexpr std::uint64_t kGapWorthReading = 1024;

}  // namespace

GlyphReader::GlyphReader(std::istream& stream, const GlyphLocations& locations)
    : stream_(stream), locations_(locations), budget_(streamLength(stream)) {
  there_ = budget_ - std::min<std::uint64_t>(budget_, locations.glyfOffset());
}

bool GlyphReader::read(std::span<KeptGlyph> glyphs) {
  const std::vector<Run> runs = planRuns(glyphs);
  if (spent_) return false;
  std::size_t size = 0;
  for (const Run& run : runs) size += run.end - run.start;
  if (size == 0) return true;
  chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
  std::span<std::byte> left(chunks_.back().get(), size);
  for (const Run& run : runs) {
    readRun(run, glyphs, left.first(run.end - run.start));
    left = left.subspan(run.end - run.start);
  }
  return true;
}

std::vector<GlyphReader::Run> GlyphReader::planRuns(std::span<KeptGlyph> glyphs) {
  std::vector<Run> runs;
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    const GlyphLocations::Extent extent = locations_.extent(glyphs[i].id);
    glyphs[i].length = extent.length;
    const std::uint64_t end =
        std::min<std::uint64_t>(std::uint64_t{extent.start} + extent.length, there_);
    if (end <= extent.start) continue;
    spent_ = spent_ || end - extent.start > budget_;
    if (spent_) break;
    budget_ -= end - extent.start;
    const bool near = !runs.empty() && extent.start >= runs.back().end &&
                      extent.start - runs.back().end <= kGapWorthReading;
    if (!near) runs.push_back({extent.start, end, i, i});
    runs.back().end = end;
    runs.back().endGlyph = i + 1;
  }
  return runs;
}

void GlyphReader::readRun(const Run& run, std::span<KeptGlyph> glyphs, std::span<std::byte> out) {
  const auto position = static_cast<std::int64_t>(locations_.glyfOffset() + run.start);
  const std::size_t came = QXCommonNS::bytes::readUpTo(stream_, position, out);
  const ByteView bytes(out.first(came));
  for (std::size_t i = run.firstGlyph; i < run.endGlyph; ++i) {
    if (glyphs[i].length == 0) continue;
    const std::uint64_t start = locations_.extent(glyphs[i].id).start;
    if (start >= run.start) glyphs[i].bytes = bytes.slice(start - run.start, glyphs[i].length);
  }
}

}  // namespace QXFontService_NS::embed
