#include "embed/cff/dict.h"

#include <array>
#include <string_view>

namespace QXFontService_NS::cff {
namespace {

constexpr unsigned kFirstNumber = 28;
constexpr unsigned kEscape = 12;
constexpr unsigned kEndOfReal = 0xF;

// What each nibble of a real writes into its text; 0xD is reserved and writes nothing.
constexpr std::array<std::string_view, 15> kRealNibbles = {
    "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", ".", "E", "E-", "", "-",
};

}  // namespace

DictScanner::Kind DictScanner::next() {
  begin_ = end_;
  if (begin_ >= dict_.size()) return Kind::end;
  const unsigned first = dict_.u8(begin_);
  return first < kFirstNumber ? readOperator(first) : readNumber(first);
}

DictScanner::Kind DictScanner::readOperator(unsigned first) {
  const std::size_t size = first == kEscape ? 2 : 1;
  if (!dict_.contains(begin_, size)) return Kind::end;
  operator_ = size == 2 ? kEscape << 8 | dict_.u8(begin_ + 1) : first;
  end_ = begin_ + size;
  return Kind::op;
}

std::size_t DictScanner::sizeOf(unsigned first) const {
  if (first == 28) return 3;
  if (first == 29) return 5;
  return first >= 247 && first <= 254 ? 2 : 1;
}

DictScanner::Kind DictScanner::readNumber(unsigned first) {
  if (first == 30) return readReal();
  const std::size_t size = sizeOf(first);
  if (!dict_.contains(begin_, size)) return Kind::end;
  const std::int32_t b0 = dict_.u8(begin_);
  const std::int32_t b1 = dict_.u8(begin_ + 1);
  if (first == 28) return integer(dict_.i16(begin_ + 1), size);
  if (first == 29) return integer(dict_.i32(begin_ + 1), size);
  if (first == 31 || first == 255) {
    end_ = begin_ + 1;
    return Kind::reserved;
  }
  if (first < 247) return integer(b0 - 139, size);
  if (first < 251) return integer((b0 - 247) * 256 + b1 + 108, size);
  return integer(-(b0 - 251) * 256 - b1 - 108, size);
}

DictScanner::Kind DictScanner::integer(std::int32_t value, std::size_t size) {
  number_ = {false, value, {}};
  end_ = begin_ + size;
  return Kind::number;
}

DictScanner::Kind DictScanner::readReal() {
  number_ = {true, 0, {}};
  for (std::size_t at = begin_ + 1; at < dict_.size(); ++at) {
    const unsigned byte = dict_.u8(at);
    for (unsigned nibble : {byte >> 4, byte & 0xFU}) {
      if (nibble == kEndOfReal) {
        end_ = at + 1;
        return Kind::number;
      }
      number_.text += kRealNibbles[nibble];
    }
  }
  return Kind::end;
}

}  // namespace QXFontService_NS::cff
