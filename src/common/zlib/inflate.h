#pragma once

#include <zlib.h>

#include <cstdint>
#include <memory>
#include <ostream>

#include "common/bytes/byte_view.h"

namespace QXCommonNS::zlib {

/// Decompresses zlib data (RFC 1950) into a stream, piece by piece: no copy of the whole is held.
class Inflater {
 public:
  /// `out` is borrowed and must outlive the inflater. At most `most` bytes are written to it.
  Inflater(std::ostream& out, std::uint64_t most);
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater();

  /// Takes the next compressed bytes; bytes behind the end of the data are ignored. False when
  /// the data is damaged, would pass the limit, or `out` fails; what came out before stays.
  bool write(bytes::ByteView data);
  /// Whether the data has come to its end, its checksum tested.
  [[nodiscard]] bool finished() const { return good_ && finished_; }
  /// The number of bytes that came out.
  [[nodiscard]] std::uint64_t written() const { return written_; }

 private:
  bool run(bytes::ByteView data);
  bool takePiece();

  std::ostream& out_;
  std::unique_ptr<char[]> piece_;
  z_stream state_{};
  std::uint64_t most_;
  std::uint64_t written_ = 0;
  bool good_;
  bool finished_ = false;
};

/// Decompresses `data` into `out`; false when it is damaged, cut short, or holds more than `most`
/// bytes. What came out before a failure stays in `out`.
[[nodiscard]] bool inflateBounded(std::ostream& out, const unsigned char* data, std::size_t size,
                                  std::uint64_t most);

}  // namespace QXCommonNS::zlib
