#include "type1/charstrings/text_cursor.h"

#include <algorithm>

namespace QXFontService_NS::type1 {

long long leadingNumber(std::string_view text) {
  constexpr long long kLargest = 0x7FFFFFFF;
  if (text.empty() || text.front() < '0' || text.front() > '9') return -1;
  long long number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') break;
    number = std::min(number * 10 + (digit - '0'), kLargest);
  }
  return number;
}

}  // namespace QXFontService_NS::type1
