#include "type1/program/embed_stream.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/bytes/stream_read.h"
#include "type1/eexec/eexec.h"
#include "type1/program/segment.h"
#include "type1/program/text_program.h"

namespace QXFontService_NS::type1 {
namespace {

void write(QXMemStream& out, std::string_view bytes) {
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void writeLength(QXMemStream& out, std::size_t length) {
  for (unsigned shift = 0; shift < 32; shift += 8)
    out.put(static_cast<char>(length >> shift & 0xFF));
}

void writeMark(QXMemStream& out, std::byte kind) {
  out.put(std::to_integer<char>(kSegmentMark));
  out.put(std::to_integer<char>(kind));
}

void writeSegment(QXMemStream& out, std::string_view bytes, int& length) {
  length = static_cast<int>(bytes.size());
  writeLength(out, bytes.size());
  write(out, bytes);
}

/// Decrypts a private part, takes the charstrings that are wanted, and encrypts it again.
bool cutDown(std::string& privatePart, const std::optional<WantedCodes>& wanted) {
  decryptEexec(privatePart);
  std::string cut;
  if (!rewriteCharStrings(privatePart, cut, wanted)) return false;
  encryptEexec(cut);
  privatePart = std::move(cut);
  return true;
}

/// Copies a program of segments part by part.
class SegmentCopier {
 public:
  SegmentCopier(std::istream& program, QXMemStream& out) : program_(program), out_(out) {}

  /// Copies a segment as it stands, and tells its length as soon as it is written.
  bool copy(int& length) {
    if (!copyMark()) return false;
    writeLength(out_, stated_);
    length = static_cast<int>(stated_);
    const std::string bytes = take(stated_);
    write(out_, bytes);
    return bytes.size() == stated_;
  }

  bool copyCutDown(const std::optional<WantedCodes>& wanted, int& length) {
    if (!copyMark()) return false;
    std::string bytes = take(stated_);
    if (bytes.size() != stated_ || !cutDown(bytes, wanted)) return false;
    writeSegment(out_, bytes, length);
    return true;
  }

  bool copyEndMark() {
    const std::string mark = take(2);
    write(out_, mark);
    return mark.size() == 2;
  }

 private:
  /// Copies the two bytes ahead of a segment and reads its length.
  bool copyMark() {
    std::array<std::byte, kSegmentHeaderSize> header{};
    if (!QXCommonNS::bytes::readExact(program_, position_, header)) return false;
    position_ += std::int64_t{kSegmentHeaderSize};
    out_.put(std::to_integer<char>(header[0]));
    out_.put(std::to_integer<char>(header[1]));
    stated_ = segmentLength(header);
    return true;
  }

  std::string take(std::uint32_t count) {
    const auto bytes = QXCommonNS::bytes::readBlock(program_, position_, count);
    position_ += static_cast<std::int64_t>(bytes.size());
    std::string text(bytes.size(), '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) text[i] = static_cast<char>(bytes[i]);
    return text;
  }

  std::istream& program_;
  QXMemStream& out_;
  std::int64_t position_ = 0;
  std::uint32_t stated_ = 0;
};

}  // namespace

bool writePfbStream(std::istream& program, const std::optional<WantedCodes>& wanted,
                    QXMemStream& out, EmbedLengths lengths) {
  SegmentCopier copier(program, out);
  return copier.copy(lengths.clearText) && copier.copyCutDown(wanted, lengths.privatePart) &&
         copier.copy(lengths.trailer) && copier.copyEndMark();
}

bool writePfaStream(std::istream& program, const std::optional<WantedCodes>& wanted,
                    QXMemStream& out, EmbedLengths lengths) {
  TextProgram parts = splitTextProgram(readWhole(program));
  writeMark(out, kTextSegment);
  writeSegment(out, parts.clearText, lengths.clearText);
  writeMark(out, kBinarySegment);
  if (!cutDown(parts.privatePart, wanted)) return false;
  writeSegment(out, parts.privatePart, lengths.privatePart);
  writeMark(out, kTextSegment);
  writeSegment(out, parts.trailer, lengths.trailer);
  writeMark(out, kEndOfFile);
  return true;
}

}  // namespace QXFontService_NS::type1
