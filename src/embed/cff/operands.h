#pragma once

#include <cstddef>
#include <vector>

#include "qxcommon/value.h"

#include "embed/cff/dict.h"

namespace QXFontService_NS {

/// Operand `n`, from 1, of a dictionary value that holds the operands of one DICT operator; the
/// null value where there is none.
[[nodiscard]] const QXCommonNS::QXValue& FS_Operand(const QXCommonNS::QXValue& map, int n);

namespace cff {

/// A dictionary value without items, which is not the null value: that is what tells an operator
/// without operands from a missing one.
[[nodiscard]] QXCommonNS::QXValue emptyMap();

/// The number as a value: an integer, or what the text of a real reads as. Text that is no number
/// counts as the integer 0.
[[nodiscard]] QXCommonNS::QXValue toValue(const DictNumber& number);

/// The operands that stand before a DICT operator.
class DictOperands {
 public:
  void add(const DictNumber& number);
  void clear();

  [[nodiscard]] bool empty() const { return kept_.empty(); }
  /// The first and the last operand in their own kinds; null without operands.
  [[nodiscard]] const QXCommonNS::QXValue& first() const;
  [[nodiscard]] const QXCommonNS::QXValue& last() const { return last_; }
  /// All operands as a dictionary value with the items 1, 2, 3 ...; an empty dictionary, which is
  /// not null, without operands.
  [[nodiscard]] QXCommonNS::QXValue toMap() const;

 private:
  std::vector<QXCommonNS::QXValue> kept_;  // no more than a DICT may have
  QXCommonNS::QXValue last_;
};

/// Walks a DICT operator by operator, with the operands of each.
class DictReader {
 public:
  explicit DictReader(QXCommonNS::bytes::ByteView dict) : scanner_(dict) {}

  /// Steps to the next operator; false at the end. Operands without an operator are dropped.
  bool next();
  [[nodiscard]] unsigned op() const { return scanner_.op(); }
  [[nodiscard]] const DictOperands& operands() const { return operands_; }

 private:
  DictScanner scanner_;
  DictOperands operands_;
};

}  // namespace cff
}  // namespace QXFontService_NS
