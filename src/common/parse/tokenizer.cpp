#include "qxcommon/tokenizer.h"

#include <unicode/utf16.h>

#include "common/parse/token_scanner.h"

namespace QXCommonNS {
namespace {

UnicodeString takeUntil(const UnicodeString& text, std::int32_t& position, UChar32 separator) {
  const std::int32_t start = position;
  const std::int32_t found = text.indexOf(separator, start);
  const std::int32_t end = found < 0 ? text.length() : found;
  position = found < 0 ? end : found + U16_LENGTH(separator);
  return UnicodeString(text, start, end - start);
}

}  // namespace

QXTokenizer::QXTokenizer(const UnicodeString& text, TokenizerType) : text_(text) {}

QXTokenizer::~QXTokenizer() = default;

UnicodeString QXTokenizer::nextSeparatedValue(char16_t separator) {
  return takeUntil(text_, position_, separator);
}

UnicodeString QXTokenizer::nextSeparatedValue(wchar_t separator) {
  return takeUntil(text_, position_, static_cast<UChar32>(separator));
}

QXValue QXTokenizer::nextTokenValueExp() {
  const std::int32_t start = parse::skipBlanks(text_, position_);
  parse::Token token = parse::scanToken(text_, start, number::Exponent::allowed);
  position_ = token.end;
  return token.value;
}

}  // namespace QXCommonNS
