#include "font/metrics/mort.h"

#include <algorithm>
#include <utility>

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::metrics {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::uint64_t kFirstChain = 8;
constexpr std::uint64_t kEntrySize = 12;  // also the size of a chain's header
constexpr unsigned kVerticalOnly = 0x8000;
constexpr unsigned kTypeMask = 7;
constexpr unsigned kNonContextual = 4;
constexpr unsigned kSingleTable = 6;

bool isVerticalSubstitution(ByteView subtable) {
  const unsigned coverage = subtable.u16(2);
  return (coverage & kVerticalOnly) != 0 && (coverage & kTypeMask) == kNonContextual;
}

std::vector<MortPair> pairsOf(ByteView subtable) {
  if (subtable.u16(8) != kSingleTable) return {};
  const ByteView units = subtable.slice(20, std::uint64_t{subtable.u16(12)} * 4);
  std::vector<MortPair> pairs;
  for (std::uint64_t at = 0; units.contains(at, 4); at += 4) {
    pairs.push_back({units.u16(at), units.u16(at + 2)});
  }
  return pairs;
}

}  // namespace

std::uint16_t MortPairs::verticalOf(std::uint16_t glyph) const {
  const auto found =
      std::lower_bound(mortPairs.begin(), mortPairs.end(), glyph,
                       [](const MortPair& pair, std::uint16_t g) { return pair.glyph < g; });
  return found != mortPairs.end() && found->glyph == glyph ? found->vertical : kNoGlyph;
}

std::vector<MortPair> parseMort(ByteView table) {
  std::uint64_t chain = kFirstChain;
  for (std::uint32_t left = table.u32(4); left > 0; --left) {
    const std::uint64_t featureEntries = table.u16(chain + 8);
    // Required: only a chain's first subtable is looked at.
    const ByteView subtable = table.from(chain + kEntrySize * (featureEntries + 1));
    if (isVerticalSubstitution(subtable)) return pairsOf(subtable);
    const std::uint32_t length = table.u32(chain + 4);
    if (length < kEntrySize || chain + length >= table.size()) break;
    chain += length;
  }
  return {};
}

TableResult readMort(std::istream& stream, const std::optional<TableRange>& table, MortPairs& out) {
  out = {0, {}};
  if (!table) return {};
  const auto data = QXCommonNS::bytes::readBlock(stream, table->offset, table->length);
  if (data.size() < table->length) return readFailure("'mort' table read error");
  out.mortPairs = parseMort(ByteView(data));
  out.mortPairCount = static_cast<int>(out.mortPairs.size());
  return {};
}

}  // namespace QXFontService_NS::metrics
