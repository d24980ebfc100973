#include "font/sfnt/vmtx.h"

namespace QXFontService_NS::sfnt {

VerticalMetric VerticalMetric::decode(ByteView record) {
  return {record.u16(0), record.i16(2)};
}

std::vector<VerticalMetric> decodeVmtx(ByteView table) {
  std::vector<VerticalMetric> metrics(table.size() / VerticalMetric::kSize);
  for (std::size_t i = 0; i < metrics.size(); ++i)
    metrics[i] = VerticalMetric::decode(table.from(i * VerticalMetric::kSize));
  return metrics;
}

}  // namespace QXFontService_NS::sfnt
