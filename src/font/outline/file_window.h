#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "common/bytes/byte_view.h"
#include "embed/font_stream.h"

namespace QXFontService_NS::outline {

using QXCommonNS::bytes::ByteView;

/// Opens a font for reading: its file, or what it was unpacked into.
using OpenFont = std::function<embed::FontStream()>;

/// Bytes of a font, of which the part that was asked for last is kept: a font is not held open, and
/// glyphs that are asked for one after the other stand together.
class FileWindow {
 public:
  static constexpr std::uint64_t kSize = UINT64_C(64) * 1024;

  /// At most `size` bytes from `position`, fewer where the font ends. Valid until the next call.
  [[nodiscard]] ByteView read(std::uint64_t position, std::uint64_t size, const OpenFont& open);

 private:
  [[nodiscard]] bool holds(std::uint64_t position, std::uint64_t size) const;
  void fill(std::uint64_t position, std::uint64_t size, const OpenFont& open);

  std::uint64_t start_ = 0;
  std::uint64_t asked_ = 0;  // bytes; fewer came where the font ends
  std::vector<std::byte> bytes_;
};

}  // namespace QXFontService_NS::outline
