#include "support/afm_builder.h"

namespace qxtest {
namespace {

using Lines = std::vector<std::string>;

void append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

}  // namespace

AfmBuilder& AfmBuilder::glyph(int code, int width, const std::string& name) {
  metrics.push_back("C " + std::to_string(code) + " ; WX " + std::to_string(width) + " ; N " +
                    name + " ; B 0 0 " + std::to_string(width) + " 700 ;");
  return *this;
}

AfmBuilder& AfmBuilder::kern(const std::string& left, const std::string& right, int value) {
  pairs.push_back("KPX " + left + " " + right + " " + std::to_string(value));
  return *this;
}

std::string AfmBuilder::build() const {
  Lines lines = {"StartFontMetrics 4.1", "FontName " + fontName,
                 "FullName " + fullName, "FamilyName " + familyName,
                 "Weight " + weight,     "EncodingScheme " + encodingScheme,
                 "FontBBox " + fontBBox};
  append(lines, headers);
  if (!metrics.empty()) {
    lines.push_back("StartCharMetrics " + std::to_string(metrics.size()));
    append(lines, metrics);
    lines.emplace_back("EndCharMetrics");
  }
  if (!pairs.empty()) {
    lines.emplace_back("StartKernData");
    lines.push_back("StartKernPairs " + std::to_string(pairs.size()));
    append(lines, pairs);
    append(lines, {"EndKernPairs", "EndKernData"});
  }
  lines.emplace_back("EndFontMetrics");
  std::string text;
  for (const std::string& line : lines) text += line + lineEnd;
  return text;
}

}  // namespace qxtest
