#include "font/metrics/hmtx.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/table_builders.h"
#include "support/truncation.h"

namespace QXFontService_NS::metrics {
namespace {

constexpr std::uint32_t kStart = 5;

TableResult read(const std::string& bytes, std::uint32_t count, HMetrics& out) {
  std::istringstream stream(std::string(kStart, '\x55') + bytes);
  return readHmtx(stream, TableRange{kStart, 0}, count, out);
}

HMetrics withAdvances(const std::vector<std::uint16_t>& advances) {
  std::vector<HMetric> pairs;
  for (const std::uint16_t advance : advances) pairs.push_back({advance, 0});
  return HMetrics(pairs);
}

TEST(HMetrics, ReadsTheLongMetricsOnly) {
  const qxtest::MetricsBuilder table{{{500, -3}, {600, 4}}, {5, 6}};
  HMetrics metrics;
  ASSERT_EQ(read(table.build(), 2, metrics), std::nullopt);
  ASSERT_EQ(metrics.pairs().size(), 2u);
  EXPECT_EQ(metrics.pairs()[0].advanceWidth, 500);
  EXPECT_EQ(metrics.pairs()[0].lsb, 0xFFFD);
  EXPECT_EQ(metrics.pairs()[1].advanceWidth, 600);
}

TEST(HMetrics, GlyphsBehindTheLastMetricShareIt) {
  const HMetrics metrics = withAdvances({500, 600, 700});
  EXPECT_EQ(metrics.advanceOf(0), 500);
  EXPECT_EQ(metrics.advanceOf(2), 700);
  EXPECT_EQ(metrics.advanceOf(3), 700);
  EXPECT_EQ(metrics.advanceOf(0xFFFE), 700);
}

TEST(HMetrics, NoGlyphHasNoWidth) {
  EXPECT_EQ(withAdvances({500}).advanceOf(kNoGlyph), 0);
  EXPECT_EQ(HMetrics().advanceOf(0), 0);
}

TEST(HMetrics, TheDefaultWidthIsTheMostCommonOne) {
  EXPECT_EQ(withAdvances({1, 2, 2, 3}).defaultCharWidth(), 2);
  EXPECT_EQ(withAdvances({7}).defaultCharWidth(), 7);
  EXPECT_EQ(HMetrics().defaultCharWidth(), 0);
}

TEST(HMetrics, OfEquallyCommonWidthsTheFirstToReachTheCountWins) {
  EXPECT_EQ(withAdvances({5, 6}).defaultCharWidth(), 5);
  EXPECT_EQ(withAdvances({5, 6, 6, 5}).defaultCharWidth(), 6);
  EXPECT_EQ(withAdvances({5, 6, 6, 5, 5, 6}).defaultCharWidth(), 5);
}

TEST(HMetrics, WithoutMetricsTheTableIsNotLookedFor) {
  std::istringstream stream;
  HMetrics metrics;
  EXPECT_EQ(readHmtx(stream, std::nullopt, 0, metrics), std::nullopt);
  EXPECT_TRUE(metrics.empty());
}

TEST(HMetrics, ATableThatIsAbsentIsReported) {
  std::istringstream stream;
  HMetrics metrics;
  EXPECT_EQ(readHmtx(stream, std::nullopt, 1, metrics), formatFailure("'hmtx' table not found"));
}

TEST(HMetrics, ACutTableLeavesNoMetrics) {
  const qxtest::MetricsBuilder table{{{500, 1}, {600, 2}}, {}};
  qxtest::forEachPrefix(table.build(), [](const std::string& cut) {
    HMetrics metrics;
    EXPECT_EQ(read(cut, 2, metrics), readFailure("'hmtx' table metric read error")) << cut.size();
    EXPECT_TRUE(metrics.empty());
    EXPECT_EQ(metrics.defaultCharWidth(), 0);
  });
}

}  // namespace
}  // namespace QXFontService_NS::metrics
