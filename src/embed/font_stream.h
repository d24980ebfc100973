#pragma once

#include <istream>
#include <memory>

#include "qxcommon/uri.h"

namespace QXFontService_NS::embed {

/// The stream that a font is read from for one operation; deleted with this where it was opened
/// for it.
class FontStream {
 public:
  FontStream() = default;
  explicit FontStream(std::istream* borrowed) : stream_(borrowed) {}
  explicit FontStream(std::unique_ptr<std::istream> owned)
      : owned_(std::move(owned)), stream_(owned_.get()) {}

  /// The stream, or null where there is none.
  [[nodiscard]] std::istream* get() const { return stream_; }
  [[nodiscard]] bool isOwned() const { return owned_ != nullptr; }
  /// Gives the stream away; the taker deletes it if `isOwned` was true before.
  std::istream* release() {
    static_cast<void>(owned_.release());
    return stream_;
  }

 private:
  std::unique_ptr<std::istream> owned_;
  std::istream* stream_ = nullptr;
};

/// The stream to read a font from, seekable.
///
/// @param given the caller's stream, or the font's own in memory; taken as it is, never deleted.
/// @param location opened where nothing was given. What is not a plain file is put behind a
///   memory stream.
/// @return a `FontStream` without a stream where the location cannot be opened.
[[nodiscard]] FontStream openFontStream(std::istream* given, const QXCommonNS::QXUri& location);

}  // namespace QXFontService_NS::embed
