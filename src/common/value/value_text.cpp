#include "common/number/format_number.h"
#include "common/value/value_body.h"

namespace QXCommonNS {
namespace {

constexpr char16_t kQuote = u'"';

}  // namespace

UnicodeString QXValue::toString() const {
  switch (tag_) {
    case TAG_INTEGER:
      return number::formatInteger(content_.integer);
    case TAG_REAL:
      return number::formatReal(content_.real);
    case TAG_NAME:
      return QXNameTable::getSharedNameString(content_.name);
    case TAG_STRING:
      return content_.body->text;
    default:
      return {};
  }
}

UnicodeString QXValue::toQuotedString(QXUtil::QuoteMode) const {
  UnicodeString inner = toString();
  inner.findAndReplace(UnicodeString(kQuote), UnicodeString(u"\"\""));
  return UnicodeString(kQuote) + inner + UnicodeString(kQuote);
}

}  // namespace QXCommonNS
