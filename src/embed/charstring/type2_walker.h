#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"
#include "embed/cff/index.h"

namespace QXFontService_NS::charstring {

/// How much work is left. Only endless or exploding charstrings spend it.
class WorkBudget {
 public:
  explicit WorkBudget(std::uint64_t units) : left_(units) {}

  /// Takes `units` off; false, from then on for good, where that many are not left.
  bool spend(std::uint64_t units) {
    left_ = units <= left_ ? left_ - units : 0;
    spent_ = spent_ || left_ == 0;
    return !spent_;
  }
  [[nodiscard]] bool isSpent() const { return spent_; }

 private:
  std::uint64_t left_;
  bool spent_ = false;
};

/// The budget of one glyph.
[[nodiscard]] WorkBudget glyphBudget();

/// The bias of subroutine numbers in an INDEX of `count` (Adobe Technical Note 5177).
[[nodiscard]] int getSubrBias(std::size_t count);

/// Walks the items of a Type 2 charstring and of the subroutines it calls. Open calls are kept on
/// the heap, so no nesting overflows the machine stack. An item that is cut short by the end of its
/// charstring ends that charstring.
class Type2Walker {
 public:
  enum class Kind { end, integer, fixed, op };

  /// The bytes are borrowed, and so are the subroutines that are called later.
  Type2Walker(const FS_CFFBytes& charString, WorkBudget& budget);

  /// Steps to the next item, back in the caller at the end of a subroutine. `end` at the end of the
  /// charstring and where the budget is spent or too many calls are open: see `failed`.
  Kind next();

  [[nodiscard]] std::int32_t integer() const { return value_; }    ///< 255: the raw 32 bits
  [[nodiscard]] double fixed() const { return value_ / 65536.0; }  ///< of a 255 number
  [[nodiscard]] unsigned op() const { return operator_; }

  /// Goes on in subroutine `number` (its bias not yet added). A number outside is passed over.
  void call(const FS_CFFStrings& subrs, std::int64_t number);
  /// Ends the charstring or subroutine that the walk is in.
  void leave();
  /// The next `count` bytes, as far as they are there.
  QXCommonNS::bytes::ByteView take(std::uint64_t count);

  [[nodiscard]] bool failed() const { return failed_ || budget_.isSpent(); }

 private:
  struct Frame {
    QXCommonNS::bytes::ByteView bytes;
    std::size_t position;
  };

  bool toOpenFrame();
  Kind readOperator(unsigned first);
  Kind readNumber(unsigned first);

  std::vector<Frame> frames_;
  WorkBudget& budget_;
  std::int32_t value_ = 0;
  unsigned operator_ = 0;
  bool failed_ = false;
};

}  // namespace QXFontService_NS::charstring
