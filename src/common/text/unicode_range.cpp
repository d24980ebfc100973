#include "qxcommon/unicode_range.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "common/parse/token_scanner.h"

namespace QXCommonNS {
namespace {

constexpr int kLastCodePoint = 0x10FFFF;
constexpr int kMostDigits = 6;

using Bounds = std::pair<int, int>;

/// Walks over one list.
class RangeReader {
 public:
  explicit RangeReader(const UnicodeString& text) : text_(text) {}

  /// Steps over commas and blanks. @return false at the end.
  bool toItem() {
    while (current() == u',' || parse::isBlank(current())) ++position_;
    return position_ < text_.length();
  }

  /// Reads "U+X", "U+X-Y" or "U+X??" up to a separator or the end.
  std::optional<Bounds> item() {
    if (!take(u'U', u'u') || !take(u'+', u'+')) return std::nullopt;
    std::optional<Bounds> bounds = pattern();
    if (bounds && current() == u'-') bounds = upTo(*bounds);
    if (!bounds || bounds->first > bounds->second || bounds->second > kLastCodePoint || !atEnd()) {
      return std::nullopt;
    }
    return bounds;
  }

 private:
  char16_t current() const { return text_.charAt(position_); }  // U+FFFF at the end

  bool atEnd() const {
    return position_ >= text_.length() || current() == u',' || parse::isBlank(current());
  }

  bool take(char16_t one, char16_t other) {
    if (current() != one && current() != other) return false;
    ++position_;
    return true;
  }

  /// Digits, the last of which may be question marks: the lowest and highest they stand for.
  std::optional<Bounds> pattern() {
    Bounds bounds{0, 0};
    const int digits = takeDigits(bounds.first);
    bounds.second = bounds.first;
    int marks = 0;
    for (; digits + marks < kMostDigits && take(u'?', u'?'); ++marks) {
      bounds.first = bounds.first * 16;
      bounds.second = bounds.second * 16 + 15;
    }
    wild_ = marks > 0;
    return digits + marks > 0 ? std::optional(bounds) : std::nullopt;
  }

  std::optional<Bounds> upTo(Bounds bounds) {
    ++position_;
    if (wild_ || takeDigits(bounds.second) == 0) return std::nullopt;
    return bounds;
  }

  /// Reads up to six hexadecimal digits. @return how many there were.
  int takeDigits(int& number) {
    number = 0;
    int count = 0;
    for (; count < kMostDigits; ++count, ++position_) {
      const int digit = parse::hexDigit(current());
      if (digit < 0) break;
      number = number * 16 + digit;
    }
    return count;
  }

  const UnicodeString& text_;
  std::int32_t position_ = 0;
  bool wild_ = false;
};

/// The items of a list; nothing when one is bad or there is none.
std::vector<Bounds> readList(const UnicodeString& text) {
  std::vector<Bounds> list;
  RangeReader reader(text);
  while (reader.toItem()) {
    const std::optional<Bounds> bounds = reader.item();
    if (!bounds) return {};
    list.push_back(*bounds);
  }
  return list;
}

}  // namespace

QXUnicodeRange::QXUnicodeRange() = default;
QXUnicodeRange::~QXUnicodeRange() = default;

bool QXUnicodeRange::inRange(int codePoint) const {
  const auto behind =
      std::upper_bound(ranges_.begin(), ranges_.end(), codePoint,
                       [](int code, const Range& range) { return code < range.first; });
  return behind != ranges_.begin() && codePoint <= std::prev(behind)->last;
}

bool QXUnicodeRange::parseUnicodeRange(const QXValue& value) {
  std::vector<Bounds> list = readList(value.toString());
  if (list.empty()) return false;
  std::sort(list.begin(), list.end());
  std::vector<Range> merged;
  for (const auto& [first, last] : list) {
    if (!merged.empty() && first <= merged.back().last) {
      merged.back().last = std::max(merged.back().last, last);
    } else {
      merged.push_back({first, last});
    }
  }
  ranges_ = std::move(merged);
  return true;
}

}  // namespace QXCommonNS
