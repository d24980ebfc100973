#include "font/metrics/kern.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::metrics {

using QXCommonNS::bytes::ByteView;

bool KernPairs::hasPairs(bool vertical) const {
  // Required as it is: the two lowest bits together, so that pairs with a minimum are no kerning.
  return kernPairCount_ > 0 && (kernCoverage_ & 3) == (vertical ? 0 : 1);
}

std::int16_t KernPairs::valueOf(std::uint16_t left, std::uint16_t right, bool vertical) const {
  if (!hasPairs(vertical)) return 0;
  if (firstPair_.empty()) return valueByHalving(left, right);
  return valueByIndex(std::uint32_t{left} << 16 | right);
}

std::int16_t KernPairs::valueByHalving(std::uint16_t left, std::uint16_t right) const {
  const std::uint32_t sought = std::uint32_t{left} << 16 | right;
  int low = 0;
  int high = kernPairCount_ - 1;
  while (low <= high) {
    const int middle = (low + high) / 2;
    const auto pair = static_cast<std::uint64_t>(middle);
    if (key(pair) == sought) return value(pair);
    if (key(pair) < sought) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  return 0;
}

std::int16_t KernPairs::valueByIndex(std::uint32_t sought) const {
  const std::size_t run = sought >> 16 >> runShift_;
  if (run + 1 >= firstPair_.size()) return 0;
  std::uint32_t pair = firstPair_[run];
  std::uint32_t left = firstPair_[run + 1] - pair;
  if (left == 0) return 0;
  while (left > 1) {
    const std::uint32_t half = left / 2;
    pair = key(pair + half) <= sought ? pair + half : pair;
    left -= half;
  }
  return key(pair) == sought ? value(pair) : std::int16_t{0};
}

bool KernPairs::ascend() const {
  for (std::uint64_t pair = 1; pair < static_cast<std::uint64_t>(kernPairCount_); ++pair) {
    if (key(pair) <= key(pair - 1)) return false;
  }
  return kernPairCount_ > 0;
}

// One run a left glyph where the pairs are many, else one for a few of them, so that the index
// stays smaller than the pairs.
void KernPairs::makeIndex() {
  if (!ascend()) return;
  const auto count = static_cast<std::uint32_t>(kernPairCount_);
  const std::uint32_t lastLeft = key(count - 1) >> 16;
  while (lastLeft >> runShift_ > count) ++runShift_;
  std::uint32_t pair = 0;
  for (std::uint32_t run = 0; run <= (lastLeft >> runShift_) + 1; ++run) {
    while (pair < count && key(pair) >> 16 >> runShift_ < run) ++pair;
    firstPair_.push_back(static_cast<std::uint16_t>(pair));
  }
}

/// Reads a `kern` table from front to back.
class KernReader {
 public:
  KernReader(std::istream& stream, KernPairs& out) : stream_(stream), out_(out) {}

  TableResult read(const std::optional<TableRange>& table);

 private:
  struct SubtableHeader {
    std::uint16_t length = 0;
    bool isFormat0 = false;
  };

  bool take(std::span<std::byte> bytes);
  TableResult readSubtables();
  TableResult readHeader(const std::string& name, SubtableHeader& header);
  TableResult readFormat0(const std::string& name, std::uint16_t length);
  TableResult readPairs(const std::string& name, std::uint16_t nPairs);

  std::istream& stream_;
  std::int64_t position_ = 0;
  KernPairs& out_;
};

bool KernReader::take(std::span<std::byte> bytes) {
  const bool taken = QXCommonNS::bytes::readExact(stream_, position_, bytes);
  position_ += static_cast<std::int64_t>(bytes.size());
  return taken;
}

TableResult KernReader::read(const std::optional<TableRange>& table) {
  out_.kernPairCount_ = 0;
  if (!table) return {};
  position_ = table->offset;
  return readSubtables();
}

TableResult KernReader::readSubtables() {
  std::array<std::byte, 4> tableHeader{};
  if (!take(tableHeader)) return readFailure("'kern' table read error");
  const unsigned nTables = ByteView(tableHeader).u16(2);
  for (unsigned i = 0; i < nTables; ++i) {
    const std::string name = "'kern' subtable " + std::to_string(i);
    SubtableHeader header;
    if (auto failure = readHeader(name, header)) return failure;
    if (header.isFormat0) return readFormat0(name, header.length);
    // Required: a subtable of another format is not stepped over, its first bytes are taken for the
    // next header. Documents were laid out with the pairs that come, or do not come, of it.
  }
  return {};
}

TableResult KernReader::readHeader(const std::string& name, SubtableHeader& header) {
  std::array<std::byte, 6> bytes{};
  if (!take(bytes)) return readFailure(name + " read error");
  const std::uint16_t coverage = ByteView(bytes).u16(4);
  out_.kernCoverage_ = coverage;
  header = {ByteView(bytes).u16(2), (coverage >> 8 & 0x7F) == 0};
  return {};
}

TableResult KernReader::readFormat0(const std::string& name, std::uint16_t length) {
  constexpr int kHeaders = 14;
  std::array<std::byte, 8> bytes{};
  if (!take(bytes)) return readFailure(name + " format0 read error");
  const std::uint16_t nPairs = ByteView(bytes).u16(0);
  if (nPairs == 0) return {};
  const int size = nPairs * 6;
  // A larger subtable cannot state its length in the 16 bits that it has.
  if (size < 0x10000 && length - kHeaders < size)
    return formatFailure(name + " invalid pairs size");
  return readPairs(name, nPairs);
}

TableResult KernReader::readPairs(const std::string& name, std::uint16_t nPairs) {
  const std::size_t size = nPairs * KernPairs::kPairSize;
  auto pairs = QXCommonNS::bytes::readBlock(stream_, position_, size);
  if (pairs.size() < size) return readFailure(name + " pairs read error");
  out_.kernPairs_ = std::move(pairs);
  out_.kernPairCount_ = nPairs;
  out_.makeIndex();
  return {};
}

TableResult readKern(std::istream& stream, const std::optional<TableRange>& table, KernPairs& out) {
  return KernReader(stream, out).read(table);
}

}  // namespace QXFontService_NS::metrics
