#include "font/metrics/hmtx.h"

#include <utility>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS::metrics {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::size_t kMetricSize = 4;

std::uint16_t mostCommonAdvance(const std::vector<HMetric>& pairs) {
  std::vector<std::uint32_t> counts(0x10000);
  std::uint32_t most = 0;
  std::uint16_t width = 0;
  for (const HMetric& metric : pairs) {
    const std::uint32_t count = ++counts[metric.advanceWidth];
    if (count <= most) continue;
    most = count;
    width = metric.advanceWidth;
  }
  return width;
}

}  // namespace

HMetrics::HMetrics(std::vector<HMetric> pairs)
    : pairs_(std::move(pairs)),
      defaultCharWidth_(pairs_.empty() ? std::uint16_t{0} : mostCommonAdvance(pairs_)) {}

TableResult readHmtx(std::istream& stream, const std::optional<TableRange>& table,
                     std::uint32_t numberOfHMetrics, HMetrics& out) {
  if (numberOfHMetrics == 0) return {};
  if (!table) return formatFailure("'hmtx' table not found");
  const std::uint64_t size = std::uint64_t{numberOfHMetrics} * kMetricSize;
  const auto data = QXCommonNS::bytes::readBlock(stream, table->offset, size);
  if (data.size() < size) return readFailure("'hmtx' table metric read error");
  std::vector<HMetric> pairs;
  pairs.reserve(numberOfHMetrics);
  const ByteView view(data);
  for (std::uint64_t at = 0; at < size; at += kMetricSize) {
    pairs.push_back({view.u16(at), view.u16(at + 2)});
  }
  out = HMetrics(std::move(pairs));
  return {};
}

}  // namespace QXFontService_NS::metrics
