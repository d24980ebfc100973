#include "qxcommon/util.h"

#include <cstdint>

#include "common/number/decimal.h"
#include "common/number/format_number.h"

namespace QXCommonNS {
namespace {

template <class Char>
double parse(const Char* text, const Char** end) {
  std::size_t length = 0;
  if (text != nullptr) {
    length = number::scanDecimal(text, SIZE_MAX, number::Exponent::none).length;
  }
  if (end != nullptr) *end = text + length;
  return length > 0 ? number::decimalValue(text, length) : 0;
}

}  // namespace

double QXUtil::parseNumber(const wchar_t* text, const wchar_t** end, bool*, bool*) {
  return parse(text, end);
}

double QXUtil::parseNumber(const char16_t* text, const char16_t** end, bool*, bool*) {
  return parse(text, end);
}

UnicodeString QXUtil::formatNumber(long long value, const UnicodeString&, const UnicodeString&, int,
                                   QXLang, QXNameEnum) {
  return number::formatInteger(value);
}

}  // namespace QXCommonNS
