#include "embed/charstring/flat_decoder.h"

#include <algorithm>
#include <optional>

#include "embed/charstring/type2_operators.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;

namespace {

class FlatDecoder {
 public:
  FlatDecoder(const FS_CFFStrings& globalSubrs, const FS_CFFStrings& localSubrs, int& stackDepth,
              int& hintCount, FlatTokenSink& sink)
      : globalSubrs_(globalSubrs),
        localSubrs_(localSubrs),
        stackDepth_(stackDepth),
        hintCount_(hintCount),
        sink_(sink) {}

  bool run(Type2Walker& walker) {
    for (;;) {
      switch (walker.next()) {
        case Type2Walker::Kind::end:
          return !walker.failed();
        case Type2Walker::Kind::op:
          takeOperator(walker);
          break;
        case Type2Walker::Kind::integer:
        case Type2Walker::Kind::fixed:
          takeNumber(walker.integer());
          break;
      }
    }
  }

 private:
  void takeNumber(int value) {
    sink_.number(value);
    last_ = value;
    ++stackDepth_;
  }

  // Every keyword clears the depth, that of a call too: stems whose operands stand before a call of
  // the subroutine that declares them are not counted. Kept.
  void takeOperator(Type2Walker& walker) {
    const Type2Operator op = type2Operator(walker.op());
    sink_.keyword(op.keyword);
    countHints(op.kind);
    if (op.kind == OperatorKind::mask) walker.take(maskSize());
    if (op.kind == OperatorKind::callsubr && last_.has_value()) walker.call(localSubrs_, *last_);
    if (op.kind == OperatorKind::callgsubr && last_.has_value()) walker.call(globalSubrs_, *last_);
    if (op.kind == OperatorKind::endchar) walker.leave();
    stackDepth_ = 0;
    last_.reset();
  }

  // Stems may be left pending before a mask, and are added as if declared.
  void countHints(OperatorKind kind) {
    const bool counts =
        kind == OperatorKind::hstem || kind == OperatorKind::vstem || kind == OperatorKind::mask;
    if (counts) hintCount_ += stackDepth_ / 2;
  }

  [[nodiscard]] std::uint64_t maskSize() const {
    return static_cast<std::uint64_t>(std::max(1, (hintCount_ + 7) / 8));
  }

  const FS_CFFStrings& globalSubrs_;
  const FS_CFFStrings& localSubrs_;
  int& stackDepth_;
  int& hintCount_;
  FlatTokenSink& sink_;
  std::optional<int> last_;  // the number right before an operator
};

class TokenList final : public FlatTokenSink {
 public:
  explicit TokenList(FS_CharStringTokens& tokens) : tokens_(tokens) {}
  void number(int value) override { tokens_.emplace_back(value); }
  void keyword(Keyword keyword) override { tokens_.push_back(embed::keywordValue(keyword)); }

 private:
  FS_CharStringTokens& tokens_;
};

}  // namespace

bool walkFlat(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
              const FS_CFFStrings& localSubrs, int& stackDepth, int& hintCount, WorkBudget& budget,
              FlatTokenSink& sink) {
  Type2Walker walker(bytes, budget);
  return FlatDecoder(globalSubrs, localSubrs, stackDepth, hintCount, sink).run(walker);
}

bool decodeCharStringFlat(const FS_CFFBytes& bytes, const FS_CFFStrings& globalSubrs,
                          const FS_CFFStrings& localSubrs, int& stackDepth, int& hintCount,
                          FS_CharStringTokens& out) {
  WorkBudget budget = glyphBudget();
  TokenList list(out);
  return walkFlat(bytes, globalSubrs, localSubrs, stackDepth, hintCount, budget, list);
}

}  // namespace QXFontService_NS::charstring
