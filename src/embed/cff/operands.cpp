#include "embed/cff/operands.h"

#include <string>

#include "qxcommon/tokenizer.h"

#include "common/limits.h"

namespace QXFontService_NS {

using QXCommonNS::QXName;
using QXCommonNS::QXTokenizer;
using QXCommonNS::QXValue;
using QXCommonNS::limits::kMostDictOperands;

namespace {

std::vector<QXName> makeOperandNames() {
  std::vector<QXName> names;
  for (std::size_t n = 0; n <= kMostDictOperands; ++n)
    names.emplace_back(icu::UnicodeString(std::to_string(n).c_str()));
  return names;
}

QXName operandName(std::size_t n) {
  static const std::vector<QXName> names = makeOperandNames();
  return names[n];
}

// A tokenizer takes what begins with a letter as a word and keeps words for good.
bool beginsANumber(const std::string& text) {
  return !text.empty() && text.front() != 'E';
}

}  // namespace

const QXValue& FS_Operand(const QXValue& map, int n) {
  if (n < 1 || static_cast<std::size_t>(n) > kMostDictOperands) return QXValue::NULL_VALUE;
  return map.getNamedItem(operandName(static_cast<std::size_t>(n)));
}

namespace cff {

QXValue emptyMap() {
  QXValue map;
  map.setNamedItem(QXName(), QXValue());  // an item that is null reads like a missing one
  return map;
}

QXValue toValue(const DictNumber& number) {
  if (!number.isReal) return QXValue(number.integer);
  if (!beginsANumber(number.text)) return QXValue(0);
  QXTokenizer tokenizer(icu::UnicodeString(number.text.c_str()), QXTokenizer::TOKENIZER_DEFAULT);
  const QXValue value = tokenizer.nextTokenValueExp();
  return value.isInteger() || value.isReal() ? value : QXValue(0);
}

void DictOperands::add(const DictNumber& number) {
  last_ = toValue(number);
  if (kept_.size() < kMostDictOperands) kept_.push_back(last_);
}

void DictOperands::clear() {
  kept_.clear();
  last_ = QXValue();
}

const QXValue& DictOperands::first() const {
  return kept_.empty() ? QXValue::NULL_VALUE : kept_.front();
}

QXValue DictOperands::toMap() const {
  QXValue map = emptyMap();
  for (std::size_t i = 0; i < kept_.size(); ++i) map.setNamedItem(operandName(i + 1), kept_[i]);
  return map;
}

bool DictReader::next() {
  operands_.clear();
  for (;;) {
    switch (scanner_.next()) {
      case DictScanner::Kind::end:
        return false;
      case DictScanner::Kind::number:
        operands_.add(scanner_.number());
        break;
      case DictScanner::Kind::reserved:
        break;
      case DictScanner::Kind::op:
        return true;
    }
  }
}

}  // namespace cff
}  // namespace QXFontService_NS
