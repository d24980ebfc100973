#include "font/outline/file_window.h"

#include <algorithm>

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::outline {

ByteView FileWindow::read(std::uint64_t position, std::uint64_t size, const OpenFont& open) {
  if (!holds(position, size)) fill(position, size, open);
  return ByteView(bytes_).slice(position - start_, size);
}

bool FileWindow::holds(std::uint64_t position, std::uint64_t size) const {
  return position >= start_ && position - start_ <= asked_ && size <= asked_ - (position - start_);
}

void FileWindow::fill(std::uint64_t position, std::uint64_t size, const OpenFont& open) {
  start_ = position;
  asked_ = std::max(size, kSize);
  bytes_.clear();
  const embed::FontStream stream = open();
  if (stream.get() == nullptr) return;
  bytes_ = QXCommonNS::bytes::readBlock(*stream.get(), static_cast<std::int64_t>(position), asked_);
}

}  // namespace QXFontService_NS::outline
