#include <algorithm>

#include "qxcommon/mem_stream_buf.h"

#include "common/limits.h"
#include "common/stream/otf_checksum.h"

// What a memory stream holds: blocks, and the source behind them.
namespace QXCommonNS {

void QXMemStreamBuf::setSource(std::istream* source, bool own) {
  dropSource();
  forget();
  source_ = source;
  if (own) owned_.reset(source);
  sourceKind_ = source != nullptr ? Source::untried : Source::none;
}

void QXMemStreamBuf::abandonBuffer() {
  forget();
}

void QXMemStreamBuf::remove() {
  dropSource();
  forget();
}

void QXMemStreamBuf::dropSource() {
  owned_.reset();
  source_ = nullptr;
  sourceKind_ = Source::none;
  sourceLength_ = 0;
}

void QXMemStreamBuf::forget() {
  setg(nullptr, nullptr, nullptr);
  setp(nullptr, nullptr);
  blocks_.clear();
  heldEnd_ = 0;
  getStart_ = 0;
  putStart_ = 0;
  putAtEnd_ = true;
}

std::uint64_t QXMemStreamBuf::knownEnd() const {
  return std::max(heldEnd_, sourceLength_);
}

void QXMemStreamBuf::trySource() {
  if (sourceKind_ != Source::untried) return;
  source_->clear();
  const std::streamoff length = source_->seekg(0, std::ios_base::end).tellg();
  source_->clear();
  sourceKind_ = length < 0 ? Source::sequential : Source::seekable;
  if (length > 0)
    sourceLength_ = std::min(static_cast<std::uint64_t>(length), limits::kMostStreamBytes);
}

// A source that cannot seek is read in order, block by block, and let go at its end.
void QXMemStreamBuf::pullTo(std::uint64_t end) {
  while (sourceKind_ == Source::sequential && heldEnd_ < end) {
    const std::size_t at = offsetIn(heldEnd_);
    char* block = blockAt(indexOf(heldEnd_));
    source_->read(block + at, static_cast<std::streamsize>(blockSize_ - at));
    const auto came = static_cast<std::uint64_t>(source_->gcount());
    heldEnd_ += came;
    if (came == 0 || heldEnd_ >= limits::kMostStreamBytes) dropSource();
  }
}

// A short read tells that the source has shrunk: it then ends there.
std::size_t QXMemStreamBuf::readSource(std::uint64_t position, char* out, std::size_t count) {
  source_->clear();
  source_->seekg(static_cast<std::streamoff>(position));
  source_->read(out, static_cast<std::streamsize>(count));
  const auto came = static_cast<std::size_t>(source_->gcount());
  source_->clear();
  if (came < count) sourceLength_ = std::min(sourceLength_, position + came);
  return came;
}

bool QXMemStreamBuf::isHeld(std::size_t index) const {
  return index < blocks_.size() && blocks_[index].bytes != nullptr;
}

char* QXMemStreamBuf::blockAt(std::size_t index) {
  if (index >= blocks_.size()) blocks_.resize(index + 1);
  std::unique_ptr<char[]>& bytes = blocks_[index].bytes;
  if (bytes) return bytes.get();
  auto fresh = std::make_unique<char[]>(blockSize_);
  const std::uint64_t start = std::uint64_t{index} * blockSize_;
  if (start < sourceLength_)
    readSource(start, fresh.get(), std::min<std::uint64_t>(blockSize_, sourceLength_ - start));
  bytes = std::move(fresh);
  return bytes.get();
}

// Frees a block that the source can give again.
void QXMemStreamBuf::release(std::size_t index) {
  const bool again = sourceKind_ == Source::seekable && isHeld(index) && !blocks_[index].written;
  if (again && std::uint64_t{index} * blockSize_ < sourceLength_) blocks_[index].bytes.reset();
}

// A long read of bytes that only the source has takes them from it as they are.
std::size_t QXMemStreamBuf::readPastBlocks(char* out, std::size_t count) {
  if (count < blockSize_) return 0;
  trySource();
  const std::uint64_t position = getPosition();
  if (sourceKind_ != Source::seekable || position >= sourceLength_) return 0;
  const std::uint64_t most = std::min<std::uint64_t>(position + count, sourceLength_);
  std::uint64_t end = position;
  while (end < most && !isHeld(indexOf(end))) end += blockSize_ - offsetIn(end);
  end = std::min(end, most);
  if (end == position) return 0;
  const std::size_t came = readSource(position, out, end - position);
  setGetPosition(position + came);
  return came;
}

unsigned int QXMemStreamBuf::calcOTFTableChecksum() {
  const std::uint64_t end = length();
  std::unique_ptr<char[]> passing;
  std::uint32_t sum = 0;
  for (std::uint64_t start = 0; start < end; start += blockSize_) {
    const std::size_t count = std::min<std::uint64_t>(blockSize_, end - start);
    if (isHeld(indexOf(start))) {
      sum += stream::otfChecksum({blocks_[indexOf(start)].bytes.get(), count});
    } else if (start < sourceLength_) {
      if (!passing) passing = std::make_unique<char[]>(blockSize_);
      const std::size_t wanted = std::min<std::uint64_t>(count, sourceLength_ - start);
      sum += stream::otfChecksum({passing.get(), readSource(start, passing.get(), wanted)});
    }
  }
  return sum;
}

}  // namespace QXCommonNS
