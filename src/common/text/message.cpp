#include "qxcommon/message.h"

#include <array>

namespace QXCommonNS {
namespace {

using Arguments = std::array<const UnicodeString*, 5>;

constexpr std::int32_t kPlaceholderLength = 3;  // {n}

/// The argument of the placeholder at `position`; null when none stands there.
const UnicodeString* placeholderAt(const UnicodeString& pattern, std::int32_t position,
                                   const Arguments& arguments) {
  // charAt gives U+FFFF behind the end.
  const char16_t digit = pattern.charAt(position + 1);
  if (pattern.charAt(position) != u'{' || pattern.charAt(position + 2) != u'}') return nullptr;
  if (digit < u'0' || digit > u'4') return nullptr;
  return arguments.at(static_cast<std::size_t>(digit - u'0'));
}

UnicodeString fill(const UnicodeString& pattern, const Arguments& arguments) {
  UnicodeString text;
  std::int32_t position = 0;
  while (position < pattern.length()) {
    if (const UnicodeString* argument = placeholderAt(pattern, position, arguments)) {
      text.append(*argument);
      position += kPlaceholderLength;
    } else {
      text.append(pattern.charAt(position));
      ++position;
    }
  }
  return text;
}

}  // namespace

QXMessage::QXMessage(const UnicodeString& pattern, const UnicodeString& a0, const UnicodeString& a1,
                     const UnicodeString& a2, const UnicodeString& a3, const UnicodeString& a4)
    : text_(fill(pattern, {&a0, &a1, &a2, &a3, &a4})) {}

QXMessage::~QXMessage() = default;

QXMessage::operator UnicodeString() const {
  return text_;
}

}  // namespace QXCommonNS
