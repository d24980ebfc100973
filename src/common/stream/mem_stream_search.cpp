#include <algorithm>
#include <cstring>

#include "qxcommon/mem_stream_buf.h"

// Searching and passing over text at the get position of a memory stream.
namespace QXCommonNS {
namespace {

std::size_t textLength(const char* text, std::size_t length) {
  return length != 0 ? length : std::strlen(text);
}

bool isLineEnd(char c) {
  return c == '\r' || c == '\n';
}

}  // namespace

// As seeking does: a read before may have hit the end.
void QXMemStreamBuf::clearState() {
  if (stream_ != nullptr) stream_->clear();
}

// Moves the get position to the next `byte`, or to the end.
bool QXMemStreamBuf::findByte(char byte) {
  while (gptr() < egptr() || openGetArea()) {
    const void* hit = std::memchr(gptr(), byte, static_cast<std::size_t>(egptr() - gptr()));
    setg(eback(), hit != nullptr ? eback() + (static_cast<const char*>(hit) - eback()) : egptr(),
         egptr());
    if (hit != nullptr) return true;
  }
  return false;
}

// Compares from the get position on, and moves it as far as the text goes.
bool QXMemStreamBuf::standsHere(const char* text, std::size_t length) {
  while (length > 0 && (gptr() < egptr() || openGetArea())) {
    const std::size_t count = std::min(length, static_cast<std::size_t>(egptr() - gptr()));
    if (std::memcmp(gptr(), text, count) != 0) return false;
    gbump(static_cast<int>(count));
    text += count;
    length -= count;
  }
  return length == 0;
}

bool QXMemStreamBuf::searchSeek(const char* text, std::size_t length) {
  clearState();
  const std::size_t count = textLength(text, length);
  if (count == 0) return true;
  const std::uint64_t start = getPosition();
  while (findByte(text[0])) {
    const std::uint64_t hit = getPosition();
    const bool whole = standsHere(text, count);
    setGetPosition(whole ? hit : hit + 1);
    if (whole) return true;
  }
  setGetPosition(start);
  return false;
}

bool QXMemStreamBuf::skipSeek(const char* text, std::size_t length) {
  clearState();
  const std::uint64_t start = getPosition();
  if (standsHere(text, textLength(text, length))) return true;
  setGetPosition(start);
  return false;
}

void QXMemStreamBuf::seekEOL() {
  clearState();
  while (gptr() < egptr() || openGetArea()) {
    const char* end = std::find_if(gptr(), egptr(), isLineEnd);
    gbump(static_cast<int>(end - gptr()));
    if (gptr() == egptr()) continue;
    if (sbumpc() == '\r' && sgetc() == '\n') sbumpc();
    return;
  }
}

}  // namespace QXCommonNS
