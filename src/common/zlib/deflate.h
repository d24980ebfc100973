#pragma once

#include <zlib.h>

#include <ostream>

#include "common/bytes/byte_view.h"

namespace QXCommonNS::zlib {

/// Compresses what is written to it into a stream in zlib format (RFC 1950), piece by piece: no
/// copy of the whole is held. The level is 6: 9 takes half as long again for a thousandth less.
class Deflater {
 public:
  /// `out` is borrowed and must outlive the deflater.
  explicit Deflater(std::ostream& out);
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;
  ~Deflater();

  /// False when `out` fails; all later calls then fail too.
  bool write(bytes::ByteView data);
  /// Ends the data; to be called once, after the last write.
  [[nodiscard]] bool finish();

 private:
  bool run(bytes::ByteView data, int flush);
  bool drain(int flush);

  std::ostream& out_;
  z_stream state_{};
  bool good_;
};

}  // namespace QXCommonNS::zlib
