#include "common/parse/token_scanner.h"

#include <cmath>
#include <limits>
#include <optional>

namespace QXCommonNS::parse {
namespace {

bool isLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
}

bool isInWord(char16_t c) {
  return isLetter(c) || number::isDigit(c) || c == u'-';
}

bool endsToken(const UnicodeString& text, std::int32_t position) {
  return position >= text.length() || isBlank(text.charAt(position));
}

/// An integer where 32 bits hold it, else a real.
QXValue wholeNumber(double amount) {
  using Limits = std::numeric_limits<int>;
  const bool fits = amount >= Limits::min() && amount <= Limits::max();
  return fits ? QXValue(static_cast<int>(amount)) : QXValue(amount);
}

Token scanWord(const UnicodeString& text, std::int32_t start) {
  std::int32_t end = start;
  while (end < text.length() && isInWord(text.charAt(end))) ++end;
  return {QXValue(QXName(text.tempSubStringBetween(start, end)).getNameEnum()), end};
}

/// Text between two marks of one kind; a doubled one inside stands for itself.
std::optional<Token> scanQuoted(const UnicodeString& text, std::int32_t start) {
  const char16_t mark = text.charAt(start);
  if (mark != u'"' && mark != u'\'') return std::nullopt;
  UnicodeString content;
  for (std::int32_t from = start + 1;;) {
    const std::int32_t close = text.indexOf(mark, from);
    if (close < 0) return std::nullopt;
    content.append(text, from, close - from);
    if (text.charAt(close + 1) != mark) return Token{QXValue(content, QXUNIT_NONE), close + 1};
    content.append(mark);
    from = close + 2;
  }
}

std::optional<Token> scanHexadecimal(const UnicodeString& text, std::int32_t start) {
  if (text.charAt(start) != u'0' || text.charAt(start + 1) != u'x') return std::nullopt;
  const std::int32_t first = start + 2;
  std::int32_t end = first;
  double amount = 0;
  for (; end < text.length() && hexDigit(text.charAt(end)) >= 0; ++end) {
    amount = amount * 16 + hexDigit(text.charAt(end));
  }
  if (end == first || !endsToken(text, end)) return std::nullopt;
  return Token{wholeNumber(std::fmin(amount, std::numeric_limits<double>::max())), end};
}

std::optional<Token> scanDecimal(const UnicodeString& text, std::int32_t start,
                                 number::Exponent exponent) {
  const char16_t* from = text.getBuffer() + start;
  const auto left = static_cast<std::size_t>(text.length() - start);
  const number::Decimal found = number::scanDecimal(from, left, exponent);
  const std::int32_t end = start + static_cast<std::int32_t>(found.length);
  if (found.length == 0 || !endsToken(text, end)) return std::nullopt;
  const double amount = number::decimalValue(from, found.length);
  return Token{found.integral ? wholeNumber(amount) : QXValue(amount), end};
}

Token scanOther(const UnicodeString& text, std::int32_t start) {
  std::int32_t end = start;
  while (!endsToken(text, end)) ++end;
  return {QXValue(UnicodeString(text, start, end - start), QXUNIT_NONE), end};
}

}  // namespace

int hexDigit(char16_t c) {
  if (number::isDigit(c)) return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return c >= u'A' && c <= u'F' ? c - u'A' + 10 : -1;
}

std::int32_t skipBlanks(const UnicodeString& text, std::int32_t position) {
  while (position < text.length() && isBlank(text.charAt(position))) ++position;
  return position;
}

Token scanToken(const UnicodeString& text, std::int32_t position, number::Exponent exponent) {
  if (position >= text.length()) return {QXValue(), position};
  if (isLetter(text.charAt(position))) return scanWord(text, position);
  if (auto token = scanQuoted(text, position)) return *token;
  if (auto token = scanHexadecimal(text, position)) return *token;
  if (auto token = scanDecimal(text, position, exponent)) return *token;
  return scanOther(text, position);
}

}  // namespace QXCommonNS::parse
