#include "layout/gsub/pass_mask.h"

#include <algorithm>
#include <stdexcept>

namespace QXFontService_NS::layout {
namespace {

std::vector<unsigned int> fitted(const std::vector<unsigned int>& words, int length, bool wanted) {
  if (!wanted) return {};
  std::vector<unsigned int> copy = words;
  copy.resize(static_cast<std::size_t>(length));
  return copy;
}

bool isZero(const std::vector<unsigned int>& words) {
  return std::all_of(words.begin(), words.end(), [](unsigned int word) { return word == 0; });
}

}  // namespace

void throwOutside() {
  throw std::out_of_range("invalid vector<T> subscript");
}

PassMask::PassMask(const std::vector<unsigned int>& words, int length)
    : length_(length), allZero_(isZero(words)), words_(fitted(words, length, !allZero_)) {}

void PassMask::copy(int from, int to) {
  const unsigned int word = at(from);
  requireInside(to, length_);
  if (!allZero_) words_[to] = word;
}

void PassMask::insertZeros(int at, int count) {
  length_ += std::max(count, 0);
  if (!allZero_) words_.insert(at, count, 0U);
}

void PassMask::erase(int first, int last) {
  const int from = std::max(first, 0);
  const int to = std::min(last, length_);
  if (from >= to) return;
  length_ -= to - from;
  if (!allZero_) words_.erase(from, to);
}

}  // namespace QXFontService_NS::layout
