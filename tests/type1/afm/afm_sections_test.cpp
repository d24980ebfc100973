#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "type1/afm/afm_parser.h"

namespace QXFontService_NS::type1 {
namespace {

/// "" where the file is read, else what the report says.
std::string failureOf(const std::string& text) {
  AfmMetrics metrics;
  std::istringstream stream(text);
  AfmParser parser(metrics);
  return parser.parse(stream) ? "" : parser.failure();
}

AfmMetrics metricsOf(const std::string& text) {
  AfmMetrics metrics;
  std::istringstream stream(text);
  EXPECT_TRUE(AfmParser(metrics).parse(stream)) << text;
  return metrics;
}

/// Four places of a file where a key may stand: on the second to fourth line.
constexpr const char* kPlaces[] = {"Comment\n", "StartCharMetrics 1\n", "StartKernData\n",
                                   "StartKernData\nStartKernPairs 1\n"};

TEST(AfmSections, EachKeyAtEachPlace) {
  const struct {
    const char* line;
    bool fits[4];  // outside, among metrics, among kerning data, among pairs
  } rows[] = {{"StartCharMetrics 1", {true, false, false, false}},
              {"C 65 ; WX 5 ; N A ;", {false, true, false, false}},
              {"CH <41> ; WX 5 ; N A ;", {false, true, false, false}},
              {"EndCharMetrics", {false, true, false, false}},
              {"StartKernData", {true, false, false, false}},
              {"StartKernPairs 1", {false, false, true, false}},
              {"KPX A V -80", {true, true, true, true}},
              {"EndKernPairs", {false, false, false, true}},
              {"EndKernData", {false, false, true, false}},
              {"FontBBox 0 0 1 1", {true, true, true, true}},
              {"FontName A", {true, true, true, true}},
              {"MetricsSet 1", {true, true, true, true}},
              {"Unheard 1", {true, true, true, true}}};
  for (const auto& row : rows) {
    const std::string line(row.line);
    for (std::size_t place = 0; place < std::size(kPlaces); ++place) {
      const std::string number = place == 3 ? "3" : "2";
      const std::string failure = "in line #" + number + " : " + line.substr(0, line.find(' '));
      EXPECT_EQ(failureOf(kPlaces[place] + line + "\n"), row.fits[place] ? "" : failure)
          << kPlaces[place] << line;
    }
  }
}

TEST(AfmSections, CountsThatAreNoNumbers) {
  EXPECT_EQ(failureOf("StartCharMetrics\n"), "in line #1 : StartCharMetrics");
  EXPECT_EQ(failureOf("StartCharMetrics x\n"), "in line #1 : StartCharMetrics");
  EXPECT_EQ(failureOf("StartCharMetrics -2147483649\n"), "in line #1 : StartCharMetrics");
  EXPECT_EQ(failureOf("StartCharMetrics 1x\n"), "") << "as much of it as is a number";
  EXPECT_EQ(failureOf("StartKernData\nStartKernPairs\n"), "") << "none are none";
}

TEST(AfmSections, APromiseIsKeptAtItsCountAndBrokenBehindIt) {
  const std::string three = "StartCharMetrics 3\nC 1 ;\nC 2 ;\nC 3 ;\n";
  EXPECT_EQ(metricsOf(three + "EndCharMetrics\n").charCount(), 3);
  EXPECT_EQ(metricsOf(three).charCount(), 3) << "the file ends before the section";
  EXPECT_EQ(failureOf(three + "CH 4 ;\n"), "in line #5 : CH");
  EXPECT_EQ(metricsOf("StartCharMetrics 3\nEndCharMetrics\n").charCount(), 0);
}

TEST(AfmSections, PairsOfASecondSectionAreCountedAnew) {
  EXPECT_EQ(metricsOf("StartKernData\nStartKernPairs 2\nKPX A Unheard 1\nKPX A Unheard 1\n"
                      "EndKernPairs\nStartKernPairs 1\nKPX A V 1\nEndKernPairs\nEndKernData\n")
                .kernCount,
            1);
}

TEST(AfmSections, PairsNeedACharacterOfBothGlyphs) {
  const struct {
    const char* pair;
    std::size_t stored;
  } rows[] = {
      {"A V -80", 1}, {"Unheard V -80", 0}, {"A Unheard -80", 0}, {"A.sc V -80", 0}, {"A", 0},
      {"", 0},        {"A V", 1},           {"a V x", 1}};
  for (const auto& row : rows)
    EXPECT_EQ(metricsOf(std::string("KPX ") + row.pair + "\n").kernPairs.size(), row.stored)
        << row.pair;
  EXPECT_EQ(metricsOf("KPX A V\n").kernPairs.begin()->second, 0) << "no number is 0";
}

TEST(AfmSections, FieldsOfAMetricLine) {
  const struct {
    const char* fields;
    int width, height;
    const char* name;
    std::array<int, 4> box;
  } rows[] = {{"WX 1 ; WY 2 ; N a ; B 1 2 3 4 ;", 1, 2, "a", {1, 2, 3, 4}},
              {"W 1 ;", 1, 0, "", {}},
              {"WY 2", 0, 2, "", {}},
              {"WYX 2 ;", 0, 0, "", {}},
              {"wx 2 ;", 0, 0, "", {}},
              {"N ;", 0, 0, "", {}},
              {"NA a ;", 0, 0, "", {}},
              {"B 1 2 ;", 0, 0, "", {1, 2, 0, 0}},
              {"B 1.5 2 3 4 ;", 0, 0, "", {1, 0, 0, 0}},
              {"BX 1 2 3 4 ;", 0, 0, "", {}},
              {"W0X 5 ; W1X 6 ; VV 1 2 ; L a b ;", 0, 0, "", {}},
              {"WX 7 ; WX 8 ;", 8, 0, "", {}},
              {"   ;  WX\t9  ;", 9, 0, "", {}}};
  for (const auto& row : rows) {
    const AfmMetrics metrics =
        metricsOf(std::string("StartCharMetrics 1\nC 65 ; ") + row.fields + "\n");
    ASSERT_EQ(metrics.charCount(), 1);
    const AFMCharMetric& metric = metrics.charMetrics[0];
    EXPECT_EQ(metric.code, 65) << row.fields;
    EXPECT_EQ(metric.width, row.width) << row.fields;
    EXPECT_EQ(metric.height, row.height) << row.fields;
    EXPECT_EQ(metric.name, row.name) << row.fields;
    EXPECT_EQ(metric.box, row.box) << row.fields;
  }
}

TEST(AfmSections, Codes) {
  const struct {
    const char* line;
    int code;
  } rows[] = {{"C", 0},           {"C x ;", 0},      {"C -1 ;", -1},     {"C 010 ;", 10},
              {"C -2 ;", -2},     {"CH ;", 0},       {"CH <fF> ;", 255}, {"CH <141 ;", 0x141},
              {"CH 41> ;", 0x41}, {"CH <-1> ;", -1}, {"CH < 41 > ;", 65}};
  for (const auto& row : rows) {
    const AfmMetrics metrics = metricsOf(std::string("StartCharMetrics 1\n") + row.line + "\n");
    ASSERT_EQ(metrics.charCount(), 1) << row.line;
    EXPECT_EQ(metrics.charMetrics[0].code, row.code) << row.line;
  }
}

TEST(AfmSections, ABoxHasFourNumbersApartByAnyBlanks) {
  EXPECT_EQ(metricsOf("FontBBox\t-1  2.5\t3 4e2 \r\n").fontBBox,
            (std::array<float, 4>{-1, 2.5F, 3, 400}));
  EXPECT_EQ(metricsOf("FontBBox a b c d\n").fontBBox, (std::array<float, 4>{}))
      << "as much of each as is a number";
  EXPECT_EQ(failureOf("FontBBox 1,2,3,4\n"), "in line #1 : FontBBox");
}

}  // namespace
}  // namespace QXFontService_NS::type1
