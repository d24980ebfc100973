#pragma once

#include <cstddef>
#include <istream>
#include <string>

#include "qxcommon/export.h"
#include "qxcommon/mem_stream_buf.h"

namespace QXCommonNS {

/// A stream over growable memory with an optional source behind it: font files are read through
/// one, and every font that the service writes is delivered in one. See `QXMemStreamBuf` for the
/// two positions and the source. Not to be used on two threads at once.
class QX_EXPORT QXMemStream : public std::iostream {
 public:
  /// `source` may be null; with `own` the stream deletes it. `blockSize` is a hint in bytes;
  /// `keep` tells whether bytes read from the source stay in memory.
  QXMemStream(std::istream* source, std::size_t blockSize, bool own, bool keep);
  ~QXMemStream() override;

  /// The number of bytes held or readable, wherever the positions stand.
  std::size_t length() const;
  /// Drops content and source; the stream is empty and good afterwards.
  void remove();
  /// Appends at most `count` bytes read from `from` and gives how many came.
  std::size_t copyStream(std::istream& from, std::size_t count);
  /// Appends a zero-ended text. Text and string stand behind all content, wherever the put
  /// position is, and leave it at the new end.
  QXMemStream& writeStr(const char* text);
  QXMemStream& operator+=(const std::string& text);  ///< As `writeStr`; zeros count.
  /// The stream's own buffer; never null.
  QXMemStreamBuf* getMemStreamBuf() const;

 private:
  mutable QXMemStreamBuf buffer_;  // measuring a source does not change what the stream holds
};

}  // namespace QXCommonNS
