#include "type1/program/post_script_tokens.h"

#include <algorithm>
#include <charconv>

namespace QXFontService_NS::type1 {
namespace {

constexpr std::string_view kSpaces("\0\t\n\f\r ", 6);
constexpr std::string_view kDelimiters("\0\t\n\f\r ()<>[]{}/%", 16);

}  // namespace

void PostScriptTokens::skipBlanks() {
  while (at_ < text_.size()) {
    at_ = std::min(text_.find_first_not_of(kSpaces, at_), text_.size());
    if (at_ >= text_.size() || text_[at_] != '%') return;
    at_ = std::min(text_.find_first_of("\r\n", at_), text_.size());
  }
}

void PostScriptTokens::skipRegular() {
  at_ = std::min(text_.find_first_of(kDelimiters, at_), text_.size());
}

/// Stands on the opening parenthesis.
void PostScriptTokens::skipString() {
  std::size_t depth = 0;
  while (at_ < text_.size()) {
    const char c = text_[at_++];
    if (c == '\\' && at_ < text_.size()) ++at_;
    if (c == '(') ++depth;
    if (c == ')' && --depth == 0) return;
  }
}

/// Stands on the opening brace.
void PostScriptTokens::skipProcedure() {
  std::size_t depth = 0;
  while (at_ < text_.size()) {
    const char c = text_[at_];
    if (c == '(') {
      skipString();
    } else if (c == '%') {
      skipBlanks();
    } else {
      ++at_;
      if (c == '{') ++depth;
      if (c == '}' && --depth == 0) return;
    }
  }
}

std::string_view PostScriptTokens::next() {
  skipBlanks();
  const std::size_t begin = at_;
  if (at_ >= text_.size()) return {};
  const char c = text_[at_];
  if (c == '(') {
    skipString();
  } else if (c == '{') {
    skipProcedure();
  } else if (c == '/' || kDelimiters.find(c) == std::string_view::npos) {
    ++at_;
    skipRegular();
  } else {
    ++at_;
  }
  return text_.substr(begin, at_ - begin);
}

std::optional<int> PostScriptTokens::integer() {
  const std::string_view token = next();
  int value = 0;
  const auto result = std::from_chars(token.data(), token.data() + token.size(), value);
  if (result.ec != std::errc() || result.ptr != token.data() + token.size()) return std::nullopt;
  return value;
}

bool PostScriptTokens::continuesWith(std::string_view expected) {
  skipBlanks();
  return text_.substr(at_, expected.size()) == expected;
}

std::optional<std::string_view> PostScriptTokens::bytes(int count) {
  const std::size_t begin = at_ + 1;
  if (count < 0 || begin > text_.size() || text_.size() - begin < static_cast<std::size_t>(count))
    return std::nullopt;
  at_ = begin + static_cast<std::size_t>(count);
  return text_.substr(begin, static_cast<std::size_t>(count));
}

}  // namespace QXFontService_NS::type1
