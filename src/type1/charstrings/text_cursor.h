#pragma once

#include <cstddef>
#include <string_view>

namespace QXFontService_NS::type1 {

/// A cursor over PostScript text with binary strings in it. Past the end it stands at the end.
class TextCursor {
 public:
  explicit TextCursor(std::string_view text, std::size_t position = 0)
      : text_(text), position_(position) {}

  [[nodiscard]] std::size_t position() const { return position_; }
  [[nodiscard]] bool atEnd() const { return position_ >= text_.size(); }
  [[nodiscard]] std::size_t left() const { return atEnd() ? 0 : text_.size() - position_; }

  /// Steps over all characters that stand in `set`.
  void skip(std::string_view set) {
    const std::size_t next = text_.find_first_not_of(set, position_);
    position_ = next == std::string_view::npos ? text_.size() : next;
  }
  /// The text up to the next space, which is not taken.
  std::string_view word() {
    const std::size_t end = text_.find(' ', position_);
    return take((end == std::string_view::npos ? text_.size() : end) - position_);
  }
  /// Steps over one character.
  void step() { take(1); }
  /// The next `count` bytes, or what is left of them.
  std::string_view take(std::size_t count) {
    if (atEnd()) return {};
    const std::string_view taken = text_.substr(position_, count);
    position_ += taken.size();
    return taken;
  }
  /// Steps over the next line end: CR LF, CR or LF.
  void skipLine() {
    const std::size_t end = text_.find_first_of("\r\n", position_);
    if (end == std::string_view::npos) {
      position_ = text_.size();
      return;
    }
    position_ = end + 1;
    if (text_[end] == '\r' && !atEnd() && text_[position_] == '\n') ++position_;
  }
  /// Whether a text stands here; steps over it if so.
  bool accept(std::string_view expected) {
    if (text_.substr(position_, expected.size()) != expected) return false;
    position_ += expected.size();
    return true;
  }

 private:
  std::string_view text_;
  std::size_t position_;
};

/// The number that a text begins with; -1 where it begins with no digit. One that no file can mean
/// is clamped.
long long leadingNumber(std::string_view text);

}  // namespace QXFontService_NS::type1
