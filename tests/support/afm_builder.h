#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// Writes an Adobe Font Metrics file. Example:
/// `AfmBuilder().glyph(65, 700, "A").glyph(-1, 500, "Euro").kern("A", "V", -80).build()`.
struct AfmBuilder {
  std::string fontName = "Made-Roman", fullName = "Made Roman", familyName = "Made";
  std::string weight = "Medium", encodingScheme = "AdobeStandardEncoding";
  std::string fontBBox = "-50 -200 1000 1050";
  std::string lineEnd = "\n";
  std::vector<std::string> headers;  ///< further lines, such as "ItalicAngle -12"
  std::vector<std::string> metrics;
  std::vector<std::string> pairs;

  /// @param code -1 for a glyph that is not encoded.
  AfmBuilder& glyph(int code, int width, const std::string& name);
  AfmBuilder& kern(const std::string& left, const std::string& right, int value);

  [[nodiscard]] std::string build() const;
};

}  // namespace qxtest
