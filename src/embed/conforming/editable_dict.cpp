#include "embed/conforming/editable_dict.h"

#include <algorithm>

#include "embed/cff/dict.h"
#include "embed/cff/operands.h"

namespace QXFontService_NS::embed::conforming {

using cff::DictScanner;
using QXCommonNS::bytes::ByteView;

namespace {

constexpr char kFourByteNumber = 29;
constexpr char kEscape = 12;

void append(std::string& out, ByteView bytes) {
  out.append(static_cast<const char*>(static_cast<const void*>(bytes.data())), bytes.size());
}

std::string fourByteNumber(std::uint32_t value) {
  std::string out{kFourByteNumber};
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(value >> shift & 0xFF);
  return out;
}

}  // namespace

EditableDict::EditableDict(ByteView dict) {
  Entry entry;
  DictScanner scanner(dict);
  for (auto kind = scanner.next(); kind != DictScanner::Kind::end; kind = scanner.next()) {
    if (kind == DictScanner::Kind::number) {
      append(entry.operands, dict.slice(scanner.begin(), scanner.end() - scanner.begin()));
      entry.beforeLast = entry.last;
      entry.last = cff::toValue(scanner.number()).getIntegerValue();
    } else if (kind == DictScanner::Kind::op) {
      entry.op = scanner.op();
      entries_.push_back(std::move(entry));
      entry = {};
    }
  }
}

bool EditableDict::has(unsigned op) const {
  return find(op) != nullptr;
}

std::int32_t EditableDict::last(unsigned op) const {
  const Entry* entry = find(op);
  return entry != nullptr ? entry->last : 0;
}

std::int32_t EditableDict::beforeLast(unsigned op) const {
  const Entry* entry = find(op);
  return entry != nullptr ? entry->beforeLast : 0;
}

void EditableDict::set(unsigned op, std::initializer_list<std::uint32_t> operands) {
  std::string bytes;
  for (const std::uint32_t operand : operands) bytes += fourByteNumber(operand);
  for (Entry& entry : entries_)
    if (entry.op == op) entry.operands = bytes;
}

std::string EditableDict::bytes() const {
  std::string out;
  for (const Entry& entry : entries_) {
    out += entry.operands;
    if (entry.op > 0xFF) out += kEscape;
    out += static_cast<char>(entry.op & 0xFF);
  }
  return out;
}

const EditableDict::Entry* EditableDict::find(unsigned op) const {
  const auto found = std::find_if(entries_.rbegin(), entries_.rend(),
                                  [op](const Entry& entry) { return entry.op == op; });
  return found == entries_.rend() ? nullptr : &*found;
}

}  // namespace QXFontService_NS::embed::conforming
