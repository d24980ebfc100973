#include "type1/afm/afm_parser.h"

#include <gtest/gtest.h>

#include <sstream>

namespace QXFontService_NS::type1 {
namespace {

/// "" on success, else what the report says.
std::string parse(const std::string& text, AfmMetrics& metrics) {
  std::istringstream stream(text);
  AfmParser parser(metrics);
  return parser.parse(stream) ? "" : parser.failure();
}

std::string failureOf(const std::string& text) {
  AfmMetrics metrics;
  return parse(text, metrics);
}

AfmMetrics metricsOf(const std::string& text) {
  AfmMetrics metrics;
  EXPECT_EQ(parse(text, metrics), "") << text;
  return metrics;
}

AFMCharMetric metricOf(const std::string& line) {
  const AfmMetrics metrics = metricsOf("StartCharMetrics 1\n" + line + "\nEndCharMetrics\n");
  return metrics.charMetrics.empty() ? AFMCharMetric() : metrics.charMetrics[0];
}

TEST(AfmParser, keysOfTheHeader) {
  const AfmMetrics metrics = metricsOf(
      "StartFontMetrics 4.1\r\nComment FontName No\r\nFontName \t Times-Roman \r\n"
      "FullName Times Roman\nFamilyName Times\nCopyright (c) Nobody\nWeight Bold\n"
      "ItalicAngle -15.5\nIsFixedPitch TRUE!\nFontBBox -168 -218 1000 898.5\n"
      "UnderlinePosition -100\nUnderlineThickness 50\nEncodingScheme FontSpecific\nCapHeight 662\n"
      "XHeight 450\nAscender 683\nDescender -217\nStdHW 28\nStdVW 84\nMetricsSet 2\n");
  EXPECT_EQ(metrics.fontName, "Times-Roman");
  EXPECT_EQ(metrics.fullName, "Times Roman");
  EXPECT_EQ(metrics.familyName, "Times");
  EXPECT_EQ(metrics.copyright, "(c) Nobody");
  EXPECT_EQ(metrics.weightName, "Bold");
  EXPECT_EQ(metrics.weight, 700);
  EXPECT_EQ(metrics.italicAngle, -15.5F);
  EXPECT_TRUE(metrics.isFixedPitch);
  EXPECT_EQ(metrics.fontBBox, (std::array<float, 4>{-168, -218, 1000, 898.5F}));
  EXPECT_EQ(metrics.underlinePosition, -100);
  EXPECT_EQ(metrics.underlineThickness, 50);
  EXPECT_EQ(metrics.encodingName, "FontSpecific");
  EXPECT_EQ(metrics.encodingScheme, FS_ENCODING_FONTSPECIFIC);
  EXPECT_EQ(metrics.capHeight, 662);
  EXPECT_EQ(metrics.xHeight, 450);
  EXPECT_EQ(metrics.ascender, 683);
  EXPECT_EQ(metrics.descender, -217);
  EXPECT_EQ(metrics.stdHW, 28);
  EXPECT_EQ(metrics.stdVW, 84);
  EXPECT_EQ(metrics.metricsSet, 2);
}

TEST(AfmParser, defaults) {
  const AfmMetrics metrics = metricsOf("");
  EXPECT_EQ(metrics.weight, 0);
  EXPECT_EQ(metrics.encodingScheme, FS_ENCODING_NONE);
  EXPECT_EQ(metrics.boxHeight(), 0);
  EXPECT_FALSE(metrics.isFixedPitch);
  EXPECT_EQ(metricsOf("Weight Unheard\n").weight, 400);
  EXPECT_FALSE(metricsOf("IsFixedPitch false\n").isFixedPitch);
}

TEST(AfmParser, metricLines) {
  const AFMCharMetric a = metricOf("C 65 ; WX 500 ; WY 20 ; N A ; B 1 -2 3 4 ;");
  EXPECT_EQ(a.code, 65);
  EXPECT_EQ(a.width, 500);
  EXPECT_EQ(a.height, 20);
  EXPECT_EQ(a.name, "A");
  EXPECT_EQ(a.box, (std::array<int, 4>{1, -2, 3, 4}));
  EXPECT_EQ(metricOf("C -1 ; WX 250.7 ; N space ;").code, -1);
  EXPECT_EQ(metricOf("C 65 ; WX 250.7 ; N A ;").width, 250);
  EXPECT_EQ(metricOf("C 65 ; WX -5 ; N A ;").width, -5);
  EXPECT_EQ(metricOf("C 70000 ; WX 5 ;").code, 70000);
  EXPECT_EQ(metricOf("C 65;WX 5;N A;").name, "A");
  EXPECT_EQ(metricOf("C 65 ; N A ; N B ;").name, "B");
  EXPECT_EQ(metricOf("C 65 ; L f ff ; N A ;").name, "A");
}

TEST(AfmParser, tokensCountAsTheKeyThatTheyBegin) {
  EXPECT_EQ(metricOf("C 65 ; W 7 ; N A ;").width, 7);
  EXPECT_EQ(metricOf("C 65 ; WX0 7 ; N A ;").width, 0);
  EXPECT_EQ(metricOf("C 65 ; WX 7 ;; N A ;").width, 0);  // the empty token begins every key
}

TEST(AfmParser, hexadecimalCodes) {
  EXPECT_EQ(metricOf("CH <41> ; WX 500 ; N A ;").code, 0x41);
  EXPECT_EQ(metricOf("CH 41 ; WX 500 ; N A ;").code, 0x41);
  EXPECT_EQ(metricOf("CH <0x41> ; WX 500 ; N A ;").code, 0x41);
  EXPECT_EQ(metricOf("CH <41> ; WX 500 ; N A ;").width, 500);
}

TEST(AfmParser, fewerMetricsThanPromised) {
  EXPECT_EQ(metricsOf("StartCharMetrics 5\nC 1 ; WX 2 ;\nEndCharMetrics\n").charCount(), 1);
  EXPECT_EQ(metricsOf("StartCharMetrics 2147483647\nC 1 ; WX 2 ;\n").charCount(), 1);
}

TEST(AfmParser, failures) {
  const struct {
    const char* text;
    const char* failure;
  } rows[] = {
      {"StartCharMetrics 0\n", "in line #1 : StartCharMetrics"},
      {"\n\nStartCharMetrics -1\n", "in line #3 : StartCharMetrics"},
      {"StartCharMetrics 1\nStartCharMetrics 1\n", "in line #2 : StartCharMetrics"},
      {"StartCharMetrics 1\nEndCharMetrics\nStartCharMetrics 1\n", "in line #3 : StartCharMetrics"},
      {"StartKernData\nStartCharMetrics 1\n", "in line #2 : StartCharMetrics"},
      {"C 65 ; WX 5 ;\n", "in line #1 : C"},
      {"CH 65 ; WX 5 ;\n", "in line #1 : CH"},
      {"StartCharMetrics 1\nC 1 ;\nC 2 ;\n", "in line #3 : C"},
      {"EndCharMetrics\n", "in line #1 : EndCharMetrics"},
      {"FontBBox 1 2 3\n", "in line #1 : FontBBox"},
      {"FontBBox 1 2 3 4 5\n", "in line #1 : FontBBox"},
      {"FontBBox\n", "in line #1 : FontBBox"},
      {"StartCharMetrics 1\nStartKernData\n", "in line #2 : StartKernData"},
      {"StartKernPairs 1\n", "in line #1 : StartKernPairs"},
      {"StartKernData\nStartKernPairs -1\n", "in line #2 : StartKernPairs"},
      {"KPX A V -80\nStartKernData\nStartKernPairs 1\n", "in line #3 : StartKernPairs"},
      {"StartKernData\nEndKernPairs\n", "in line #2 : EndKernPairs"},
      {"StartKernData\nStartKernPairs0 1\nKPX A V 1\nEndKernPairs\n", "in line #4 : EndKernPairs"},
      {"EndKernData\n", "in line #1 : EndKernData"},
      {"StartKernData\nStartKernPairs 1\nEndKernData\n", "in line #3 : EndKernData"},
  };
  for (const auto& row : rows) EXPECT_EQ(failureOf(row.text), row.failure) << row.text;
}

TEST(AfmParser, kernPairs) {
  const AfmMetrics metrics = metricsOf(
      "StartKernData\nStartKernPairs 5\nKPX A V -80\nKPX A V -10\nKPX A Unheard 5\nKPX V A 12.9 7\n"
      "KPX A\nEndKernPairs\nEndKernData\n");
  EXPECT_EQ(metrics.kernCount, 5);
  EXPECT_EQ(metrics.kernPairs,
            (std::map<std::pair<int, int>, float>{{{'A', 'V'}, -80.0F}, {{'V', 'A'}, 12.0F}}));
}

TEST(AfmParser, aSectionThatStoredNoPairMayBeFollowedByAnother) {
  EXPECT_EQ(failureOf("StartKernData\nStartKernPairs 0\nEndKernPairs\nStartKernPairs 1\n"), "");
  EXPECT_EQ(failureOf("StartKernData\nStartKernPairs 1\nKPX A V 1\nEndKernPairs\n"
                      "StartKernPairs 1\n"),
            "in line #5 : StartKernPairs");
}

TEST(AfmParser, moreLinesOfPairsThanPromisedCount) {
  EXPECT_EQ(
      metricsOf("StartKernData\nStartKernPairs 0\nKPX A V 1\nKPX V A 1\nEndKernPairs\n").kernCount,
      2);
}

TEST(AfmParser, numbersAtExtremes) {
  EXPECT_EQ(metricOf("C 99999999999 ; WX 99999999999 ; N A ;").code, 2147483647);
  EXPECT_EQ(failureOf("StartCharMetrics 99999999999\nC 1 ;\nEndCharMetrics\n"), "");
  EXPECT_EQ(failureOf("StartKernData\nStartKernPairs 99999999999\n"), "");
  EXPECT_EQ(metricsOf("CapHeight 1e999\n").capHeight, 3.402823466e+38F);
}

TEST(AfmParser, pairsNeedNoSection) {
  EXPECT_EQ(metricsOf("KPX A V -80\n").kernPairs.size(), 1u);
  EXPECT_EQ(metricsOf("KPX A V -80\n").kernCount, 0);
}

TEST(AfmParser, keysAreExact) {
  EXPECT_EQ(failureOf("CC 65 ; WX 5 ;\nfontbbox 1\nStartCharMetricsX 0\n"), "");
}

TEST(AfmParser, lineEndsOfAllKinds) {
  EXPECT_EQ(failureOf("\rFontName A\r\n\nC 1\r"), "in line #4 : C");
  EXPECT_EQ(metricsOf("FontName A\rFullName B").fullName, "B");
}

TEST(AfmParser, cutAnywhere) {
  const std::string text =
      "FontName A\nFontBBox 0 0 1 1\nStartCharMetrics 2\nC 65 ; WX 500 ; N A ; B 0 0 1 1 ;\n"
      "CH <42> ; WX 5 ; N B ;\nEndCharMetrics\nStartKernData\nStartKernPairs 1\nKPX A B -5\n"
      "EndKernPairs\nEndKernData\n";
  for (std::size_t size = 0; size <= text.size(); ++size) failureOf(text.substr(0, size));
}

}  // namespace
}  // namespace QXFontService_NS::type1
