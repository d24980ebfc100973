#include "embed/cff_subset_dict.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "common/bytes/stream_read.h"
#include "embed/cff/dict.h"
#include "embed/cff/operands.h"
#include "embed/cff_subset_index.h"

namespace QXFontService_NS::embed {

using cff::DictScanner;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

namespace {

constexpr std::string_view kPlaceholder{"\x1D\0\0\0\0", 5};
constexpr std::int64_t kOneByteBias = 0x75;  // and not 139: kept

std::int32_t integerOf(const cff::DictNumber& number) {
  return cff::toValue(number).getIntegerValue();
}

/// The last operand before an operator, and the one before it. A damaged DICT may have any number.
class OperandStack {
 public:
  void push(std::size_t begin, const cff::DictNumber& number) {
    last_ = DictPlace{begin, integerOf(number), last_.has_value() ? last_->offset : 0};
  }
  void clear() { last_.reset(); }
  [[nodiscard]] bool empty() const { return !last_.has_value(); }
  /// Where the last operand begins and its value, with the operand before it as the size.
  [[nodiscard]] const DictPlace& last() const { return *last_; }

 private:
  std::optional<DictPlace> last_;
};

std::optional<DictPlace>* placeOf(DictPlaces& places, unsigned op) {
  switch (op) {
    case cff::kOpCharset:
      return &places.charset;
    case cff::kOpCharStrings:
      return &places.charStrings;
    case cff::kOpPrivate:
      return &places.privateDict;
    case cff::kOpFDArray:
      return &places.fdArray;
    case cff::kOpFDSelect:
      return &places.fdSelect;
    default:
      return nullptr;
  }
}

bool isDropped(unsigned op) {
  return op == cff::kOpVersion || op == cff::kOpEncoding;
}

/// Writes the Top DICT of a renumbered font.
class TopDictRewriter {
 public:
  TopDictRewriter(const FS_CFFBytes& source, DictPlaces& places)
      : source_(source), places_(places), scanner_({source.data(), source.size()}) {}

  std::string run() {
    for (;;) {
      switch (scanner_.next()) {
        case DictScanner::Kind::end:
          return out_;
        case DictScanner::Kind::number:
          stack_.push(out_.size(), scanner_.number());
          [[fallthrough]];
        case DictScanner::Kind::reserved:
          copyItem();
          break;
        case DictScanner::Kind::op:
          takeOperator();
          stack_.clear();
          break;
      }
    }
  }

 private:
  void copyItem() { out_.append(source_, scanner_.begin(), scanner_.end() - scanner_.begin()); }

  void takeOperator() {
    const unsigned op = scanner_.op();
    if (isDropped(op)) return rewind();
    if (std::optional<DictPlace>* place = placeOf(places_, op);
        place != nullptr && !stack_.empty()) {
      *place = stack_.last();
      rewind();
      out_ += kPlaceholder;
    }
    if (op == cff::kOpCharstringType && !stack_.empty())
      places_.charstringType = stack_.last().offset;
    copyItem();
  }

  // Drops the last operand. The DICT is cut, so that one that ends here has no stale bytes.
  void rewind() {
    if (!stack_.empty()) out_.resize(stack_.last().operand);
  }

  const FS_CFFBytes& source_;
  DictPlaces& places_;
  DictScanner scanner_;
  OperandStack stack_;
  std::string out_;
};

/// Stores a number big-endian where an operand had it; what does not fit is cut.
void store(std::span<std::byte> at, std::int64_t value) {
  for (std::size_t i = at.size(); i-- > 0; value >>= 8) at[i] = static_cast<std::byte>(value);
}

/// Stores `value` in the form of the operand at the front of `rest`; whether `rest` got shorter.
bool storeInForm(std::span<std::byte> rest, std::int64_t value) {
  const auto first = std::to_integer<unsigned>(rest[0]);
  if (first == 28) {
    store(rest.subspan(1, 2), value);
  } else if (first == 29) {
    store(rest.subspan(1, 4), value);
  } else if (first < 247) {
    store(rest.first(1), value + kOneByteBias);
  } else if (first < 251 && value >= 108) {
    store(rest.first(1), ((value - 108) >> 8) - 9);
    store(rest.subspan(1, 1), value - 108);
  } else if (first < 251) {
    store(rest.first(1), value + kOneByteBias);
    std::copy(rest.begin() + 2, rest.end(), rest.begin() + 1);
    return true;
  }
  return false;
}

}  // namespace

std::string rewriteTopDict(const FS_CFFBytes& source, DictPlaces& places) {
  return TopDictRewriter(source, places).run();
}

DictPlaces findPlaces(const FS_CFFBytes& source) {
  DictPlaces places;
  OperandStack stack;
  DictScanner scanner({source.data(), source.size()});
  for (auto kind = scanner.next(); kind != DictScanner::Kind::end; kind = scanner.next()) {
    if (kind == DictScanner::Kind::number) stack.push(scanner.begin(), scanner.number());
    if (kind != DictScanner::Kind::op) continue;
    std::optional<DictPlace>* place = placeOf(places, scanner.op());
    if (place != nullptr && !stack.empty()) *place = stack.last();
    stack.clear();
  }
  return places;
}

bool readTopDictIndex(std::istream& stream, std::int64_t& position, FS_CFFIndexHeader& header,
                      FS_CFFBytes& dict) {
  if (!cff::readIndexHeader(stream, position, header) || header.count != 1) return false;
  // The DICT begins at the first byte of the data, whatever the first offset says.
  const std::int64_t size = header.dataSize();
  if (size < 0) return false;
  const auto data =
      QXCommonNS::bytes::readBlock(stream, header.dataPosition, static_cast<std::uint64_t>(size));
  dict.assign(static_cast<const char*>(static_cast<const void*>(data.data())), data.size());
  position = header.endPosition();
  return dict.size() == static_cast<std::size_t>(size);
}

std::size_t writeTopDictIndex(ByteWriter& out, const std::string& dict, unsigned offSize) {
  out.u16(1).u8(static_cast<std::uint8_t>(offSize));
  writeOffset(out, 1, offSize);
  writeOffset(out, static_cast<std::uint32_t>(dict.size() + 1), offSize);
  const std::size_t position = out.size();
  out.text(dict);
  return position;
}

std::size_t patchPrivateOffset(std::span<std::byte> fontDict, std::int64_t delta) {
  std::size_t size = fontDict.size();
  std::size_t start = 0;  // of the part that is walked: behind the last operand that got shorter
  DictScanner scanner{ByteView(fontDict)};
  OperandStack stack;
  for (auto kind = scanner.next(); kind != DictScanner::Kind::end; kind = scanner.next()) {
    if (kind == DictScanner::Kind::number) stack.push(start + scanner.begin(), scanner.number());
    if (kind != DictScanner::Kind::op) continue;
    if (scanner.op() == cff::kOpPrivate && !stack.empty()) {
      const std::size_t operand = stack.last().operand;
      if (storeInForm(fontDict.subspan(operand, size - operand), stack.last().offset - delta)) {
        --size;
        start += scanner.end() - 1;
        scanner = DictScanner(ByteView(fontDict.subspan(start, size - start)));
      }
    }
    stack.clear();
  }
  return size;
}

bool copyFontDicts(std::istream& stream, std::int64_t& position, std::int64_t delta,
                   ByteWriter& out) {
  FS_CFFIndexHeader header;
  if (!cff::readIndexHeader(stream, position, header) || header.dataSize() < 0) return false;
  const std::int64_t headSize = header.dataPosition - position;
  if (!copyExactly(stream, position, headSize, out)) return false;
  const auto dataSize = static_cast<std::uint64_t>(header.dataSize());
  std::vector<std::byte> data = QXCommonNS::bytes::readBlock(stream, header.dataPosition, dataSize);
  if (data.size() != dataSize) return false;
  position = header.endPosition();
  for (unsigned i = 0; i < header.count; ++i) {
    std::int64_t at = 0;
    std::uint32_t size = 0;
    if (!header.locate(i, at, size)) return false;
    const auto from = static_cast<std::uint64_t>(at - header.dataPosition);
    if (!ByteView(data).contains(from, size)) return false;
    if (i == 0) out.bytes(ByteView(data).slice(0, from));
    const std::span<std::byte> dict = std::span(data).subspan(from, size);
    out.bytes(ByteView(dict.first(patchPrivateOffset(dict, delta))));
  }
  return true;
}

}  // namespace QXFontService_NS::embed
