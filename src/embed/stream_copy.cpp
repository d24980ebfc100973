#include "embed/stream_copy.h"

namespace QXFontService_NS::embed {

std::uint64_t streamLength(std::istream& stream) {
  stream.clear();
  const std::streamoff length = stream.seekg(0, std::ios_base::end).tellg();
  stream.clear();
  return length > 0 ? static_cast<std::uint64_t>(length) : 0;
}

std::uint64_t copyRange(std::istream& from, std::uint64_t offset, std::uint64_t count,
                        QXCommonNS::QXMemStream& out) {
  from.clear();
  const bool there(from.seekg(static_cast<std::streamoff>(offset)));
  const std::uint64_t came = there ? out.copyStream(from, count) : 0;
  from.clear();
  return came;
}

void appendBytes(QXCommonNS::QXMemStream& out, QXCommonNS::bytes::ByteView bytes) {
  // Streams speak of chars.
  const auto* chars = static_cast<const char*>(static_cast<const void*>(bytes.data()));
  out.getMemStreamBuf()->append(chars, bytes.size());
}

void padToLong(QXCommonNS::QXMemStream& out) {
  constexpr char kZeros[3]{};
  out.getMemStreamBuf()->append(kZeros, (4 - out.length() % 4) % 4);
}

}  // namespace QXFontService_NS::embed
