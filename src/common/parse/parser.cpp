#include "qxcommon/parser.h"

#include "common/parse/token_scanner.h"

namespace QXCommonNS {
namespace {

UnicodeString trimmed(const UnicodeString& text) {
  const std::int32_t start = parse::skipBlanks(text, 0);
  std::int32_t end = text.length();
  while (end > start && parse::isBlank(text.charAt(end - 1))) --end;
  return UnicodeString(text, start, end - start);
}

}  // namespace

QXValue QXParser::parse(const UnicodeString& text, QXTokenizer::TokenizerType) {
  const UnicodeString content = trimmed(text);
  parse::Token token = parse::scanToken(content, 0, number::Exponent::none);
  if (token.end == content.length()) return token.value;
  return QXValue(content, QXUNIT_NONE);  // several tokens
}

}  // namespace QXCommonNS
