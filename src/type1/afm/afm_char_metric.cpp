#include "type1/afm/afm_char_metric.h"

#include <algorithm>

#include "type1/text/leading_number.h"
#include "type1/text/line_reader.h"

namespace QXFontService_NS::type1 {
namespace {

/// The token at the start of a text, which ends at a blank or a semicolon.
std::string_view token(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::size_t end = std::min(text.find_first_of(" \t\r\n;"), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end);
  return taken;
}

void readBox(std::string_view text, AFMCharMetric& metric) {
  for (int& edge : metric.box) edge = leadingInteger(text, 10, text);
}

void readField(std::string_view text, AFMCharMetric& metric) {
  const std::string_view key = token(text);
  const auto begins = [&](std::string_view whole) { return whole.substr(0, key.size()) == key; };
  if (begins("WX")) {
    metric.width = leadingInteger(text);
  } else if (begins("WY")) {
    metric.height = leadingInteger(text);
  } else if (begins("N")) {
    metric.name = token(text);
  } else if (begins("B")) {
    readBox(text, metric);
  }
}

}  // namespace

AFMCharMetric readCharMetric(int code, std::string_view rest) {
  AFMCharMetric metric;
  metric.code = code;
  for (std::size_t at = rest.find(';'); at != std::string_view::npos; at = rest.find(';')) {
    rest.remove_prefix(at + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty()) break;
    readField(rest, metric);
  }
  return metric;
}

}  // namespace QXFontService_NS::type1
