#include "qxcommon/mem_stream.h"

#include <cstring>

namespace QXCommonNS {

QXMemStream::QXMemStream(std::istream* source, std::size_t blockSize, bool own, bool keep)
    : std::iostream(nullptr), buffer_(source, blockSize, own, keep) {
  rdbuf(&buffer_);
  buffer_.stream_ = this;
}

QXMemStream::~QXMemStream() = default;

std::size_t QXMemStream::length() const {
  return buffer_.length();
}

void QXMemStream::remove() {
  buffer_.remove();
  clear();
}

std::size_t QXMemStream::copyStream(std::istream& from, std::size_t count) {
  return buffer_.copyStream(from, count);
}

QXMemStream& QXMemStream::writeStr(const char* text) {
  const std::size_t count = std::strlen(text);
  if (buffer_.append(text, count) < count) setstate(badbit);
  return *this;
}

QXMemStream& QXMemStream::operator+=(const std::string& text) {
  if (buffer_.append(text.data(), text.size()) < text.size()) setstate(badbit);
  return *this;
}

QXMemStreamBuf* QXMemStream::getMemStreamBuf() const {
  return &buffer_;
}

}  // namespace QXCommonNS
