#pragma once

namespace QXFontService_NS::layout {

/// The nearest glyph before a place that meets a condition, remembered from search to search:
/// marks that follow one another all look for the same base, each from one place further on.
///
/// What a condition reads (glyph, class, width, flag bits) must not change between searches.
class LeftSearch {
 public:
  /// The last place below `place` for which `meets(place)`; -1 if there is none.
  ///
  /// @param condition tells conditions apart: another one than before is searched for anew
  /// @param steps raised by the number of places looked at
  template <class Meets>
  int before(int place, unsigned condition, Meets meets, int& steps) {
    if (condition != condition_ || place <= found_) forget(condition);
    if (place <= upTo_) return found_;
    for (int i = place - 1; i >= upTo_; --i) {
      ++steps;
      if (!meets(i)) continue;
      found_ = i;
      break;
    }
    upTo_ = place;
    return found_;
  }

 private:
  void forget(unsigned condition) {
    condition_ = condition;
    found_ = -1;
    upTo_ = 0;
  }

  // Of the places below `upTo_`, `found_` is the last to meet the condition.
  unsigned condition_ = 0;
  int found_ = -1;
  int upTo_ = 0;
};

}  // namespace QXFontService_NS::layout
