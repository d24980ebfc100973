#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace QXFontService_NS::layout {

/// A sequence that is changed along one direction: free room stands at the place of the last
/// change, so that a run of changes from front to back moves each item once at most.
template <class Item>
class GapBuffer {
 public:
  explicit GapBuffer(std::vector<Item> items)
      : items_(std::move(items)), gapStart_(items_.size()) {}

  [[nodiscard]] int size() const { return static_cast<int>(items_.size() - gapLength_); }
  /// The item at `i`, which must be inside.
  Item& operator[](int i) { return items_[place(i)]; }
  const Item& operator[](int i) const { return items_[place(i)]; }

  /// Inserts before `at`, or at the end where that is outside.
  void insert(int at, std::span<const Item> items) {
    openGap(at, items.size());
    std::copy(items.begin(), items.end(), items_.begin() + offset(gapStart_));
    take(items.size());
  }
  void insert(int at, int count, const Item& item) {
    const auto wanted = static_cast<std::size_t>(std::max(count, 0));
    openGap(at, wanted);
    std::fill_n(items_.begin() + offset(gapStart_), wanted, item);
    take(wanted);
  }
  /// Removes [first, last), as far as it is there.
  void erase(int first, int last) {
    const int from = std::max(first, 0);
    const int to = std::min(last, size());
    if (from >= to) return;
    moveGap(static_cast<std::size_t>(from));
    gapLength_ += static_cast<std::size_t>(to - from);
  }

  /// All items, in a row; leaves nothing here.
  std::vector<Item> release() {
    moveGap(static_cast<std::size_t>(size()));
    items_.resize(items_.size() - gapLength_);
    gapStart_ = gapLength_ = 0;
    return std::exchange(items_, {});
  }

  // How the items lie: `gapStart()` of them from `data()` on, the gap, the rest.
  [[nodiscard]] const Item* data() const { return items_.data(); }
  [[nodiscard]] int gapStart() const { return static_cast<int>(gapStart_); }
  [[nodiscard]] int gapLength() const { return static_cast<int>(gapLength_); }

 private:
  static std::ptrdiff_t offset(std::size_t place) { return static_cast<std::ptrdiff_t>(place); }

  [[nodiscard]] std::size_t place(int i) const {
    const auto index = static_cast<std::size_t>(i);
    return index < gapStart_ ? index : index + gapLength_;
  }
  void take(std::size_t count) {
    gapStart_ += count;
    gapLength_ -= count;
  }
  void openGap(int at, std::size_t count) {
    const bool inside = at >= 0 && at < size();
    moveGap(static_cast<std::size_t>(inside ? at : size()));
    if (gapLength_ < count) growGap(count);
  }
  void moveGap(std::size_t to) {
    const auto begin = items_.begin();
    if (gapLength_ != 0 && to < gapStart_)
      std::move_backward(begin + offset(to), begin + offset(gapStart_),
                         begin + offset(gapStart_ + gapLength_));
    if (gapLength_ != 0 && to > gapStart_)
      std::move(begin + offset(gapStart_ + gapLength_), begin + offset(to + gapLength_),
                begin + offset(gapStart_));
    gapStart_ = to;
  }
  void growGap(std::size_t count) {
    const std::size_t more = std::max(count - gapLength_, items_.size() / 2 + 16);
    const std::size_t oldEnd = items_.size();
    items_.resize(oldEnd + more);
    std::move_backward(items_.begin() + offset(gapStart_ + gapLength_),
                       items_.begin() + offset(oldEnd), items_.end());
    gapLength_ += more;
  }

  std::vector<Item> items_;
  std::size_t gapStart_;
  std::size_t gapLength_ = 0;
};

}  // namespace QXFontService_NS::layout
