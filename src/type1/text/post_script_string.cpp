#include "type1/text/post_script_string.h"

#include <cstddef>

#include "type1/text/line_reader.h"

namespace QXFontService_NS::type1 {
namespace {

bool isOctal(char c) {
  return c >= '0' && c <= '7';
}

/// Reads a string behind its opening parenthesis.
class StringReader {
 public:
  explicit StringReader(std::string_view text) : text_(text) {}

  std::string read() {
    for (int depth = 1; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (c == '(') ++depth;
      if (c == ')' && --depth == 0) break;
      if (c == '\\') {
        escape();
      } else {
        read_.push_back(c);
      }
    }
    return read_;
  }

 private:
  /// Stands on a backslash, and leaves on the last character of what it begins.
  void escape() {
    if (++at_ >= text_.size()) return;
    if (isOctal(text_[at_])) {
      octal();
      return;
    }
    static constexpr std::string_view kLetters = "nrtbf";
    static constexpr std::string_view kMeanings = "\n\r\t\b\f";
    const std::size_t known = kLetters.find(text_[at_]);
    read_.push_back(known == std::string_view::npos ? text_[at_] : kMeanings[known]);
  }

  void octal() {
    int value = 0;
    std::size_t digits = 0;
    for (; digits < 3 && at_ + digits < text_.size() && isOctal(text_[at_ + digits]); ++digits)
      value = value * 8 + (text_[at_ + digits] - '0');
    read_.push_back(static_cast<char>(value));
    at_ += digits - 1;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::string read_;
};

}  // namespace

std::string postScriptValue(std::string_view text) {
  const std::string_view value = trimmed(text);
  if (value.substr(0, 1) == "(") return StringReader(value.substr(1)).read();
  std::string_view rest;
  return std::string(firstToken(value, rest));
}

}  // namespace QXFontService_NS::type1
