#include "type1/program/text_program.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace QXFontService_NS::type1 {
namespace {

constexpr std::string_view kPrivateBegin = "currentfile eexec\r";
constexpr std::size_t kTrailerZeros = 5;

bool isAlphanumeric(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Letters behind the hexadecimal ones count as 0.
int digitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 0;
}

class Splitter {
 public:
  explicit Splitter(std::string_view text) : text_(text) {}

  TextProgram split() {
    takeClearText();
    while (at_ < text_.size() && takeHexLine()) continue;
    program_.trailer = text_.substr(at_);
    return std::move(program_);
  }

 private:
  void takeClearText() {
    while (at_ < text_.size()) {
      const std::size_t end = std::min(text_.find('\n', at_), text_.size());
      std::string_view line = text_.substr(at_, end - at_);
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      at_ = std::min(end + 1, text_.size());
      const std::size_t begin = program_.clearText.size();
      program_.clearText.append(line).push_back('\r');
      if (program_.clearText.find(kPrivateBegin, begin) != std::string::npos) return;
    }
  }

  /// Takes a line of pairs of digits; false at the line that begins the trailer, which stays.
  bool takeHexLine() {
    const std::size_t begin = at_;
    std::string bytes;
    while (at_ < text_.size() && isAlphanumeric(text_[at_])) bytes.push_back(takeByte());
    skipLineEnd();
    if (bytes.compare(0, kTrailerZeros, std::string(kTrailerZeros, '\0')) == 0) {
      at_ = begin;
      return false;
    }
    program_.privatePart += bytes;
    return true;
  }

  /// A last digit alone is the high half.
  char takeByte() {
    int byte = digitOf(text_[at_++]) << 4;
    if (at_ < text_.size() && isAlphanumeric(text_[at_])) byte |= digitOf(text_[at_++]);
    return static_cast<char>(byte);
  }

  void skipLineEnd() {
    if (at_ >= text_.size()) return;
    const bool cr = text_[at_++] == '\r';
    if (cr && at_ < text_.size() && text_[at_] == '\n') ++at_;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  TextProgram program_;
};

}  // namespace

std::string readWhole(std::istream& program) {
  std::string whole;
  std::array<char, 16 * 1024> block{};
  while (program.read(block.data(), static_cast<std::streamsize>(block.size())) ||
         program.gcount() > 0)
    whole.append(block.data(), static_cast<std::size_t>(program.gcount()));
  return whole;
}

TextProgram splitTextProgram(std::string_view program) {
  return Splitter(program).split();
}

}  // namespace QXFontService_NS::type1
