#include "font/metrics/maxp.h"

#include <array>

#include "common/bytes/byte_reader.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS::metrics {
namespace {

using QXCommonNS::bytes::ByteReader;
using QXCommonNS::bytes::ByteView;

constexpr std::uint32_t kVersion1 = 0x00010000;
constexpr std::size_t kVersion1Size = 32;
constexpr std::size_t kShortSize = 6;  // version 0.5

Maxp decode(ByteView bytes) {
  ByteReader in(bytes);
  const bool full = in.u32() == kVersion1;
  Maxp maxp;
  maxp.numGlyphs = in.u16();
  if (!full) return maxp;
  for (std::uint16_t Maxp::*field :
       {&Maxp::maxPoints, &Maxp::maxContours, &Maxp::maxCompositePoints,
        &Maxp::maxCompositeContours, &Maxp::maxZones, &Maxp::maxTwilightPoints, &Maxp::maxStorage,
        &Maxp::maxFunctionDefs, &Maxp::maxInstructionDefs, &Maxp::maxStackElements,
        &Maxp::maxSizeOfInstructions, &Maxp::maxComponentElements, &Maxp::maxComponentDepth}) {
    maxp.*field = in.u16();
  }
  return maxp;
}

}  // namespace

TableResult readMaxp(std::istream& stream, const std::optional<TableRange>& table, Maxp& out) {
  out = Maxp();
  if (!table) return {};
  std::array<std::byte, kVersion1Size> data{};
  const std::size_t came = QXCommonNS::bytes::readUpTo(stream, table->offset, data);
  const bool isShort = came >= kShortSize && ByteView(data).u32(0) != kVersion1;
  if (came < kVersion1Size && !isShort) return readFailure("'maxp' table read error");
  out = decode(ByteView(data));
  return {};
}

}  // namespace QXFontService_NS::metrics
