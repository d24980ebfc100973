#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

#include "type1/afm/afm_metrics.h"

namespace QXFontService_NS::type1 {

/// Reads an Adobe Font Metrics file line by line. Keys that it does not know are passed by.
class AfmParser {
 public:
  explicit AfmParser(AfmMetrics& metrics) : metrics_(metrics) {}

  /// Reads to the end of the stream.
  /// @return false where a known key does not make sense; `failure` tells which.
  bool parse(std::istream& stream);

  /// "in line #3 : StartCharMetrics", for the report.
  [[nodiscard]] const std::string& failure() const { return failure_; }

 private:
  enum class Section { none, charMetrics, kernData, kernPairs };
  using Handler = bool (AfmParser::*)(std::string_view);
  struct Key;
  static const Key kKeys[];

  static Handler handlerOf(std::string_view key);

  template <std::string AfmMetrics::*field>
  bool text(std::string_view value);
  template <float AfmMetrics::*field>
  bool number(std::string_view value);

  bool weight(std::string_view value);
  bool isFixedPitch(std::string_view value);
  bool metricsSet(std::string_view value);
  bool encodingScheme(std::string_view value);
  bool fontBBox(std::string_view value);
  bool startCharMetrics(std::string_view value);
  bool decimalCode(std::string_view value);
  bool hexadecimalCode(std::string_view value);
  bool endCharMetrics(std::string_view value);
  bool startKernData(std::string_view value);
  bool startKernPairs(std::string_view value);
  bool kernPair(std::string_view value);
  bool endKernPairs(std::string_view value);
  bool endKernData(std::string_view value);

  bool metricLine(int code, std::string_view rest);
  bool move(Section from, Section to);

  AfmMetrics& metrics_;
  Section section_ = Section::none;
  long promised_ = 0;  // metric lines; 0 before they begin
  int counter_ = 0;
  std::string failure_;
};

}  // namespace QXFontService_NS::type1
