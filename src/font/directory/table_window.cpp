#include "font/directory/table_window.h"

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::readBlock;

TableWindow::TableWindow(std::istream& stream, std::uint32_t offset, std::uint64_t length)
    : stream_(stream), offset_(offset), block_(readBlock(stream, offset, length)) {}

std::optional<ByteView> TableWindow::read(std::uint64_t position, std::uint32_t count) {
  if (const auto inside = ByteView(block_).trySlice(position, count)) return inside;
  const auto place = static_cast<std::int64_t>(offset_ + position);
  outside_ = readBlock(stream_, place, count);
  if (outside_.size() < count) return std::nullopt;
  return ByteView(outside_);
}

}  // namespace QXFontService_NS::sfnt
