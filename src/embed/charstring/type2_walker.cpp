#include "embed/charstring/type2_walker.h"

#include "common/limits.h"

namespace QXFontService_NS::charstring {

using QXCommonNS::bytes::ByteView;

namespace {

constexpr unsigned kEscape = 12;
constexpr unsigned kInt16 = 28;
constexpr unsigned kFixed = 255;

bool isOperator(unsigned byte) {
  return byte < 32 && byte != kInt16;
}

ByteView viewOf(const FS_CFFBytes& bytes) {
  return {bytes.data(), bytes.size()};
}

}  // namespace

WorkBudget glyphBudget() {
  return WorkBudget(QXCommonNS::limits::kMostCharStringWork);
}

int getSubrBias(std::size_t count) {
  if (count < 1240) return 107;
  return count < 33900 ? 1131 : 32768;
}

Type2Walker::Type2Walker(const FS_CFFBytes& charString, WorkBudget& budget) : budget_(budget) {
  frames_.push_back({viewOf(charString), 0});
}

Type2Walker::Kind Type2Walker::next() {
  for (;;) {
    if (!toOpenFrame() || !budget_.spend(1)) return Kind::end;
    const Frame& frame = frames_.back();
    const unsigned first = frame.bytes.u8(frame.position);
    const Kind kind = isOperator(first) ? readOperator(first) : readNumber(first);
    if (kind != Kind::end) return kind;
    leave();  // the item was cut short
  }
}

bool Type2Walker::toOpenFrame() {
  while (!frames_.empty() && frames_.back().position >= frames_.back().bytes.size())
    frames_.pop_back();
  return !frames_.empty() && !failed();
}

Type2Walker::Kind Type2Walker::readOperator(unsigned first) {
  Frame& frame = frames_.back();
  const std::size_t size = first == kEscape ? 2 : 1;
  if (!frame.bytes.contains(frame.position, size)) return Kind::end;
  operator_ = size == 2 ? kEscape << 8 | frame.bytes.u8(frame.position + 1) : first;
  frame.position += size;
  return Kind::op;
}

Type2Walker::Kind Type2Walker::readNumber(unsigned first) {
  Frame& frame = frames_.back();
  const std::size_t size = first == kFixed ? 5 : first == kInt16 ? 3 : first < 247 ? 1 : 2;
  if (!frame.bytes.contains(frame.position, size)) return Kind::end;
  const std::int32_t b0 = frame.bytes.u8(frame.position);
  const std::int32_t b1 = frame.bytes.u8(frame.position + 1);
  if (first == kFixed) {
    value_ = frame.bytes.i32(frame.position + 1);
  } else if (first == kInt16) {
    value_ = frame.bytes.i16(frame.position + 1);
  } else if (first < 247) {
    value_ = b0 - 139;
  } else {
    value_ = first < 251 ? (b0 - 247) * 256 + b1 + 108 : -(b0 - 251) * 256 - b1 - 108;
  }
  frame.position += size;
  return first == kFixed ? Kind::fixed : Kind::integer;
}

void Type2Walker::call(const FS_CFFStrings& subrs, std::int64_t number) {
  const std::int64_t index = number + getSubrBias(subrs.size());
  if (index < 0 || static_cast<std::uint64_t>(index) >= subrs.size()) return;
  if (frames_.size() > QXCommonNS::limits::kMostCharStringCalls) {
    failed_ = true;
    return;
  }
  frames_.push_back({viewOf(subrs[static_cast<std::size_t>(index)]), 0});
}

void Type2Walker::leave() {
  if (!frames_.empty()) frames_.back().position = frames_.back().bytes.size();
}

ByteView Type2Walker::take(std::uint64_t count) {
  if (frames_.empty()) return {};
  Frame& frame = frames_.back();
  const ByteView taken = frame.bytes.slice(frame.position, count);
  frame.position += taken.size();
  budget_.spend(taken.size());
  return taken;
}

}  // namespace QXFontService_NS::charstring
