#include "qxfont/typeset/line_breaker.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>
#include <new>

namespace qxfont {
namespace {

// Sums of the same advances in another order differ by less.
constexpr double kTolerance = 1e-6;

using Iterator = std::unique_ptr<icu::BreakIterator>;

Iterator checked(icu::BreakIterator* iterator, UErrorCode status) {
  Iterator owned(iterator);
  if (U_FAILURE(status) || !owned) throw std::bad_alloc();  // ICU's data are part of ICU
  return owned;
}

std::vector<int> boundaries(const icu::UnicodeString& text, icu::BreakIterator& iterator) {
  std::vector<int> all;
  iterator.setText(text);
  for (int at = iterator.first(); at != icu::BreakIterator::DONE; at = iterator.next()) {
    if (at > 0) all.push_back(at);
  }
  return all;
}

std::vector<int> lineBoundaries(const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  auto* iterator = icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status);
  return boundaries(text, *checked(iterator, status));
}

std::vector<int> characterBoundaries(const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  auto* iterator = icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status);
  return boundaries(text, *checked(iterator, status));
}

/// Fills lines with pieces.
class Filler {
 public:
  Filler(const icu::UnicodeString& text, const std::vector<double>& advances, double width)
      : text_(text), width_(width), before_(advances.size() + 1, 0) {
    for (std::size_t i = 0; i < advances.size(); ++i) before_[i + 1] = before_[i] + advances[i];
  }

  /// Takes the piece up to `end`, which may be followed by a line end.
  void take(int end) {
    if (fits(begin_, end)) {
      taken_ = end;
      return;
    }
    endLine();
    if (fits(begin_, end)) {
      taken_ = end;
    } else {
      cut(end);
    }
  }

  std::vector<LineRange> finish() {
    endLine();
    return lines_;
  }

 private:
  [[nodiscard]] int withoutSpaces(int begin, int end) const {
    while (end > begin && u_isUWhiteSpace(text_.charAt(end - 1)) != 0) --end;
    return end;
  }

  [[nodiscard]] bool fits(int begin, int end) const {
    const auto first = static_cast<std::size_t>(begin);
    const auto last = static_cast<std::size_t>(withoutSpaces(begin, end));
    return before_[last] - before_[first] <= width_ + kTolerance;
  }

  void endLine() {
    if (taken_ > begin_) lines_.push_back({begin_, withoutSpaces(begin_, taken_)});
    begin_ = taken_;
  }

  /// Cuts a piece that no line can hold; each line takes one character at least.
  void cut(int end) {
    if (characters_.empty()) characters_ = characterBoundaries(text_);
    auto at = std::upper_bound(characters_.begin(), characters_.end(), begin_);
    for (; at != characters_.end() && *at <= end; ++at) {
      if (!fits(begin_, *at)) endLine();
      taken_ = *at;
    }
  }

  const icu::UnicodeString& text_;
  double width_;
  std::vector<double> before_;  // each index: the sum of the advances before it
  int begin_ = 0;               // of the line
  int taken_ = 0;               // what it holds so far
  std::vector<int> characters_;
  std::vector<LineRange> lines_;
};

}  // namespace

std::vector<LineRange> breakLines(const icu::UnicodeString& text,
                                  const std::vector<double>& advances, double width) {
  Filler filler(text, advances, width);
  for (const int end : lineBoundaries(text)) filler.take(end);
  return filler.finish();
}

}  // namespace qxfont
