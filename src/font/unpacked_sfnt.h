#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <span>

#include "qxcommon/lock.h"
#include "qxcommon/mem_stream.h"

namespace QXFontService_NS {

/// A font that was unpacked into memory, once, and is read from then on by any number of cursors,
/// each with a position of its own and each on one thread.
class UnpackedSfnt {
 public:
  /// @param size bytes that are expected; a hint.
  explicit UnpackedSfnt(std::size_t size);

  /// What the font is written to, as long as there is no cursor. A write behind the end fills the
  /// gap with zero bytes.
  [[nodiscard]] QXCommonNS::QXMemStream& content() { return content_; }

  /// A seekable stream over the font, which keeps it alive.
  [[nodiscard]] static std::unique_ptr<std::istream> cursor(std::shared_ptr<UnpackedSfnt> font);

  /// Reads at most `out.size()` bytes at a position, and gives how many came. Any thread.
  std::size_t read(std::uint64_t position, std::span<char> out);
  [[nodiscard]] std::uint64_t length();

 private:
  QXCommonNS::QXLock lock_;  // a leaf: nothing is locked below it
  QXCommonNS::QXMemStream content_;
};

}  // namespace QXFontService_NS
