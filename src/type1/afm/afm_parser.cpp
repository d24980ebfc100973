#include "type1/afm/afm_parser.h"

#include <algorithm>
#include <cctype>

#include "font/contract/font_name_rules.h"
#include "type1/afm/afm_char_metric.h"
#include "type1/maps/encoding_scheme_name.h"
#include "type1/maps/glyph_names.h"
#include "type1/text/leading_number.h"
#include "type1/text/line_reader.h"

namespace QXFontService_NS::type1 {

struct AfmParser::Key {
  std::string_view name;
  Handler handler;
};

const AfmParser::Key AfmParser::kKeys[] = {
    {"FontName", &AfmParser::text<&AfmMetrics::fontName>},
    {"FullName", &AfmParser::text<&AfmMetrics::fullName>},
    {"FamilyName", &AfmParser::text<&AfmMetrics::familyName>},
    {"Copyright", &AfmParser::text<&AfmMetrics::copyright>},
    {"Weight", &AfmParser::weight},
    {"ItalicAngle", &AfmParser::number<&AfmMetrics::italicAngle>},
    {"UnderlinePosition", &AfmParser::number<&AfmMetrics::underlinePosition>},
    {"UnderlineThickness", &AfmParser::number<&AfmMetrics::underlineThickness>},
    {"CapHeight", &AfmParser::number<&AfmMetrics::capHeight>},
    {"XHeight", &AfmParser::number<&AfmMetrics::xHeight>},
    {"Ascender", &AfmParser::number<&AfmMetrics::ascender>},
    {"Descender", &AfmParser::number<&AfmMetrics::descender>},
    {"StdHW", &AfmParser::number<&AfmMetrics::stdHW>},
    {"StdVW", &AfmParser::number<&AfmMetrics::stdVW>},
    {"IsFixedPitch", &AfmParser::isFixedPitch},
    {"StartCharMetrics", &AfmParser::startCharMetrics},
    {"C", &AfmParser::decimalCode},
    {"CH", &AfmParser::hexadecimalCode},
    {"EndCharMetrics", &AfmParser::endCharMetrics},
    {"EncodingScheme", &AfmParser::encodingScheme},
    {"FontBBox", &AfmParser::fontBBox},
    {"MetricsSet", &AfmParser::metricsSet},
    {"StartKernData", &AfmParser::startKernData},
    {"StartKernPairs", &AfmParser::startKernPairs},
    {"KPX", &AfmParser::kernPair},
    {"EndKernPairs", &AfmParser::endKernPairs},
    {"EndKernData", &AfmParser::endKernData},
};

AfmParser::Handler AfmParser::handlerOf(std::string_view key) {
  const Key* const found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                        [&](const Key& row) { return row.name == key; });
  return found == std::end(kKeys) ? nullptr : found->handler;
}

bool AfmParser::parse(std::istream& stream) {
  LineReader lines(stream);
  std::string line;
  for (int number = 1; lines.next(line); ++number) {
    std::string_view value;
    const std::string_view key = firstToken(line, value);
    const Handler handler = handlerOf(key);
    if (handler == nullptr || (this->*handler)(trimmed(value))) continue;
    failure_ = "in line #" + std::to_string(number) + " : " + std::string(key);
    return false;
  }
  return true;
}

template <std::string AfmMetrics::*field>
bool AfmParser::text(std::string_view value) {
  metrics_.*field = value;
  return true;
}

template <float AfmMetrics::*field>
bool AfmParser::number(std::string_view value) {
  metrics_.*field = leadingReal(value);
  return true;
}

bool AfmParser::weight(std::string_view value) {
  metrics_.weightName = value;
  metrics_.weight = weightFromName(UnicodeString::fromUTF8(metrics_.weightName));
  return true;
}

bool AfmParser::isFixedPitch(std::string_view value) {
  std::string lower(value);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) {
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  });
  metrics_.isFixedPitch = lower.find("true") != std::string::npos;
  return true;
}

bool AfmParser::metricsSet(std::string_view value) {
  metrics_.metricsSet = leadingInteger(value);
  return true;
}

bool AfmParser::encodingScheme(std::string_view value) {
  metrics_.encodingName = value;
  metrics_.encodingScheme = encodingSchemeOf(value);
  return true;
}

bool AfmParser::fontBBox(std::string_view value) {
  std::size_t count = 0;
  for (std::string_view token = firstToken(value, value); !token.empty();
       token = firstToken(value, value)) {
    if (count < metrics_.fontBBox.size()) metrics_.fontBBox[count] = leadingReal(token);
    ++count;
  }
  return count == metrics_.fontBBox.size();
}

bool AfmParser::move(Section from, Section to) {
  if (section_ != from) return false;
  section_ = to;
  return true;
}

bool AfmParser::startCharMetrics(std::string_view value) {
  const int count = leadingInteger(value);
  if (count <= 0 || promised_ != 0) return false;
  if (!move(Section::none, Section::charMetrics)) return false;
  promised_ = count;
  counter_ = 0;
  return true;
}

bool AfmParser::decimalCode(std::string_view value) {
  std::string_view rest;
  const int code = leadingInteger(value, 10, rest);
  return metricLine(code, rest);
}

bool AfmParser::hexadecimalCode(std::string_view value) {
  if (value.substr(0, 1) == "<") value.remove_prefix(1);
  std::string_view rest;
  const int code = leadingInteger(value, 16, rest);
  if (rest.substr(0, 1) == ">") rest.remove_prefix(1);
  return metricLine(code, rest);
}

bool AfmParser::metricLine(int code, std::string_view rest) {
  if (section_ != Section::charMetrics || counter_ >= promised_) return false;
  ++counter_;
  // The count is a promise that the file need not keep: records grow with their lines.
  metrics_.charMetrics.push_back(readCharMetric(code, rest));
  return true;
}

bool AfmParser::endCharMetrics(std::string_view) {
  return move(Section::charMetrics, Section::none);
}

bool AfmParser::startKernData(std::string_view) {
  return move(Section::none, Section::kernData);
}

bool AfmParser::startKernPairs(std::string_view value) {
  if (leadingInteger(value) < 0 || !metrics_.kernPairs.empty()) return false;
  if (!move(Section::kernData, Section::kernPairs)) return false;
  counter_ = 0;
  return true;
}

/// Needs no section: pairs that stand elsewhere count too.
bool AfmParser::kernPair(std::string_view value) {
  const int left = unicodeOf(firstToken(value, value));
  const int right = unicodeOf(firstToken(value, value));
  if (left != 0 && right != 0)
    metrics_.kernPairs.emplace(std::pair(left, right), static_cast<float>(leadingInteger(value)));
  ++counter_;
  return true;
}

bool AfmParser::endKernPairs(std::string_view) {
  if (!move(Section::kernPairs, Section::kernData)) return false;
  metrics_.kernCount = counter_;
  return true;
}

bool AfmParser::endKernData(std::string_view) {
  return move(Section::kernData, Section::none);
}

}  // namespace QXFontService_NS::type1
