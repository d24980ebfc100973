#include "qxfontservice/ext/type1_segments.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"
#include "service/boundary.h"
#include "type1/program/segment.h"

namespace QXFontService_NS::ext {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::size_t kParts = 3;  // clear text, private part, trailer

/// The parts of a program, gathered segment by segment.
class Parts {
 public:
  /// Adds a segment; false where its kind cannot stand here.
  bool add(std::byte kind, const std::vector<std::byte>& bytes) {
    if (kind != kindOf(part_) && !next(kind)) return false;
    for (const std::byte byte : bytes) bytes_.push_back(std::to_integer<char>(byte));
    lengths_[part_] += bytes.size();
    return true;
  }

  [[nodiscard]] bool isComplete() const {
    return part_ >= 1 && lengths_[0] > 0 &&
           bytes_.size() <= std::size_t{std::numeric_limits<int>::max()};
  }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }
  [[nodiscard]] int length(std::size_t part) const { return static_cast<int>(lengths_[part]); }

 private:
  static std::byte kindOf(std::size_t part) {
    return part == 1 ? type1::kBinarySegment : type1::kTextSegment;
  }
  bool next(std::byte kind) { return ++part_ < kParts && kind == kindOf(part_); }

  std::size_t part_ = 0;
  std::string bytes_;
  std::array<std::size_t, kParts> lengths_{};
};

/// The whole of a program, or nothing where it is no run of segments up to the end mark.
std::optional<Parts> partsOf(std::istream& program) {
  Parts parts;
  std::int64_t at = 0;
  for (std::array<std::byte, type1::kSegmentHeaderSize> header{};;) {
    const std::size_t read = QXCommonNS::bytes::readUpTo(program, at, header);
    if (read < 2 || header[0] != type1::kSegmentMark) return std::nullopt;
    if (header[1] == type1::kEndOfFile) return parts;
    if (read < header.size()) return std::nullopt;
    at += std::int64_t{type1::kSegmentHeaderSize};
    const std::uint32_t length = type1::segmentLength(header);
    const auto bytes = QXCommonNS::bytes::readBlock(program, at, length);
    if (bytes.size() != length || !parts.add(header[1], bytes)) return std::nullopt;
    at += length;
  }
}

}  // namespace

bool removeType1Segments(std::istream& program, QXCommonNS::QXMemStream& out, int& length1,
                         int& length2, int& length3) {
  return service::atBoundary(false, [&] {
    const std::optional<Parts> parts = partsOf(program);
    if (!parts || !parts->isComplete()) return false;
    out.write(parts->bytes().data(), static_cast<std::streamsize>(parts->bytes().size()));
    length1 = parts->length(0);
    length2 = parts->length(1);
    length3 = parts->length(2);
    return true;
  });
}

}  // namespace QXFontService_NS::ext
