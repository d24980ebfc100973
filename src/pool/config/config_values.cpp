#include "pool/config/config_values.h"

#include <unicode/locid.h>

#include <array>
#include <string_view>

#include "qxcommon/parser.h"
#include "qxcommon/util.h"
#include "qxcommon/value.h"

#include "font/contract/keywords.h"

namespace QXFontService_NS::config {
namespace {

using QXCommonNS::QXParser;
using QXCommonNS::QXTokenizer;
using QXCommonNS::QXUtil;
using QXCommonNS::QXValue;

constexpr int kIntegerTag = 1;
constexpr int kNameTag = 3;

constexpr std::array kBooleans = {Choice{kYes, true}, Choice{kTrue, true}, Choice{kNo, false},
                                  Choice{kFalse, false}};

UnicodeString lowerCased(UnicodeString text) {
  return text.toLower(icu::Locale::getRoot());
}

QXValue parsed(const UnicodeString& text) {
  return QXParser::parse(text, QXTokenizer::TOKENIZER_DEFAULT);
}

bool holds(const UnicodeString& text, const char16_t* part) {
  return text.indexOf(UnicodeString(part)) >= 0;
}

/// A width word with its usWidthClass plain and with each of the words that strengthen it.
struct Width {
  const char16_t* word;
  int plain, ultra, extra, semi;
};

constexpr std::array kWidths = {Width{u"condensed", 3, 1, 2, 4}, Width{u"expanded", 7, 9, 8, 6}};

int strengthened(const UnicodeString& text, const Width& width) {
  if (holds(text, u"ultra")) return width.ultra;
  if (holds(text, u"extra")) return width.extra;
  if (holds(text, u"semi")) return width.semi;
  return width.plain;
}

}  // namespace

std::optional<bool> choose(const UnicodeString& text, std::span<const Choice> choices) {
  for (const Choice& choice : choices) {
    if (text == FS_KeywordText(choice.word)) return choice.value;
  }
  return std::nullopt;
}

std::optional<bool> booleanOf(const UnicodeString& text) {
  return choose(lowerCased(text), kBooleans);
}

std::optional<int> integerOf(const UnicodeString& text) {
  const QXValue value = parsed(text);
  if (value.getTag() != kIntegerTag) return std::nullopt;
  return value.getIntegerValue();
}

bool isAffirmative(const UnicodeString& text) {
  const QXValue value = parsed(text);
  return value.getTag() == kNameTag && (value.getNameValue() == QXCommonNS::QXNAME_TRUE ||
                                        value.getNameValue() == QXCommonNS::QXNAME_YES);
}

float ratioOf(const UnicodeString& text) {
  UnicodeString copy(text);
  const char16_t* begin = copy.getTerminatedBuffer();
  const char16_t* end = begin;
  const double number = QXUtil::parseNumber(begin, &end, nullptr, nullptr);
  return static_cast<float>(*end == u'%' ? number / 100 : number);
}

int weightOfWord(const UnicodeString& text) {
  const UnicodeString lower = lowerCased(text);
  return holds(lower, u"bold") || holds(lower, u"demi") ? 700 : 400;
}

int stretchOf(const UnicodeString& text) {
  for (const Width& width : kWidths) {
    if (holds(text, width.word)) return strengthened(text, width);
  }
  return 0;
}

}  // namespace QXFontService_NS::config
