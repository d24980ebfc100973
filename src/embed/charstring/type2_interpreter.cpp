#include "embed/charstring/type2_interpreter.h"

#include <algorithm>

#include "embed/charstring/arithmetic.h"
#include "embed/charstring/type2_operators.h"

namespace QXFontService_NS::charstring {

using QXCommonNS::QXValue;

namespace {

/// What becomes of the tokens behind their operator.
enum class Tokens { kept, dropped };

// Operands that a walk which drops tokens lets pile up behind operators that are not supported: far
// more than any operator takes.
constexpr std::size_t kMostOperands = 1024;

class Interpreter {
 public:
  Interpreter(const FS_CFFStrings& globalSubrs, const FS_CFFStrings& localSubrs,
              FS_CharStringTokens& out, HintCounters& counters, Tokens tokens)
      : globalSubrs_(globalSubrs),
        localSubrs_(localSubrs),
        out_(out),
        counters_(counters),
        tokens_(tokens),
        operands_(out.size()) {}

  bool run(Type2Walker& walker) {
    for (;;) {
      switch (walker.next()) {
        case Type2Walker::Kind::end:
          return !walker.failed();
        case Type2Walker::Kind::integer:
          push(QXValue(walker.integer()));
          break;
        case Type2Walker::Kind::fixed:
          push(QXValue(walker.fixed()));
          break;
        case Type2Walker::Kind::op:
          takeOperator(walker, type2Operator(walker.op()));
          break;
      }
    }
  }

 private:
  void push(const QXValue& number) {
    if (tokens_ == Tokens::dropped && out_.size() >= kMostOperands)
      out_.erase(out_.begin(), out_.begin() + kMostOperands / 2);
    out_.push_back(number);
    ++counters_.stackDepth;
  }

  void takeOperator(Type2Walker& walker, Type2Operator op) {
    switch (op.kind) {
      case OperatorKind::hstem:
        counters_.hStems += counters_.stackDepth / 2;
        return pushKeyword(op);
      case OperatorKind::vstem:
        counters_.vStems += counters_.stackDepth / 2;
        return pushKeyword(op);
      case OperatorKind::path:
      case OperatorKind::endchar:
        return pushKeyword(op);
      case OperatorKind::mask:
        return takeMask(walker, op);
      case OperatorKind::callsubr:
        return takeCall(walker, localSubrs_);
      case OperatorKind::callgsubr:
        return takeCall(walker, globalSubrs_);
      case OperatorKind::arithmetic:
        return changeDepth(applyArithmetic(op.keyword, out_.size() - operands_, out_));
      case OperatorKind::dropped:
        counters_.stackDepth = 0;
        return;
      case OperatorKind::returns:
        return;
    }
  }

  void pushKeyword(Type2Operator op) {
    out_.push_back(embed::keywordValue(op.keyword));
    counters_.stackDepth = 0;
    endOperator();
  }

  void endOperator() {
    if (tokens_ == Tokens::dropped) out_.clear();
    operands_ = out_.size();
  }

  // Pending stem operands are assigned, not added, and to the vertical stems only where there are
  // horizontal ones: kept, hosts have files whose hints were cut so.
  void takeMask(Type2Walker& walker, Type2Operator op) {
    if (counters_.stackDepth != 0)
      (counters_.hStems != 0 ? counters_.vStems : counters_.hStems) = counters_.stackDepth / 2;
    pushKeyword(op);
    const int size = (counters_.hStems + counters_.vStems + 7) / 8;
    out_.emplace_back(size);
    for (const std::byte byte : walker.take(static_cast<std::uint64_t>(size)).span())
      out_.emplace_back(std::to_integer<int>(byte));
    endOperator();
  }

  void takeCall(Type2Walker& walker, const FS_CFFStrings& subrs) {
    if (out_.size() == operands_) return;
    const int number = out_.back().getIntegerValue();
    out_.pop_back();
    changeDepth(-1);
    walker.call(subrs, number);
  }

  void changeDepth(int by) { counters_.stackDepth = std::max(0, counters_.stackDepth + by); }

  const FS_CFFStrings& globalSubrs_;
  const FS_CFFStrings& localSubrs_;
  FS_CharStringTokens& out_;
  HintCounters& counters_;
  Tokens tokens_;
  std::size_t operands_;  // where the number tokens behind the last keyword begin
};

}  // namespace

bool interpretCharString(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
                         const FS_CFFStrings& localSubrs, FS_CharStringTokens& out,
                         HintCounters& counters, WorkBudget& budget) {
  Type2Walker walker(bytes, budget);
  return Interpreter(globalSubrs, localSubrs, out, counters, Tokens::kept).run(walker);
}

bool walkCharString(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
                    const FS_CFFStrings& localSubrs, FS_CharStringTokens& operands,
                    WorkBudget& budget) {
  operands.clear();
  HintCounters counters;
  Type2Walker walker(bytes, budget);
  return Interpreter(globalSubrs, localSubrs, operands, counters, Tokens::dropped).run(walker);
}

}  // namespace QXFontService_NS::charstring
