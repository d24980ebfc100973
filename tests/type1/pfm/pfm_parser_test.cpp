#include "type1/pfm/pfm_parser.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/pfm_builder.h"
#include "type1/pfm/char_set.h"

namespace QXFontService_NS::type1 {
namespace {

using qxtest::PfmBuilder;

/// What could not be read, or "-".
std::string failureOf(const std::string& bytes, PfmMetrics& metrics, bool correctsRange = true) {
  std::istringstream stream(bytes);
  return readPfm(stream, correctsRange, metrics).value_or("-");
}

PfmMetrics metricsOf(const PfmBuilder& file, bool correctsRange = true) {
  PfmMetrics metrics;
  EXPECT_EQ(failureOf(file.build(), metrics, correctsRange), "-");
  return metrics;
}

TEST(PfmParser, fields) {
  PfmBuilder file;
  file.italic = true;
  file.kernPairs = {{{32, 33}, -40}, {{33, 34}, 25}, {{32, 33}, 7}};
  const PfmMetrics metrics = metricsOf(file);
  EXPECT_EQ(metrics.copyright, "(c) Nobody");
  EXPECT_EQ(metrics.ascent, 750);
  EXPECT_EQ(metrics.internalLeading, 100);
  EXPECT_TRUE(metrics.italic);
  EXPECT_EQ(metrics.weight, 400);
  EXPECT_EQ(metrics.pitchAndFamily, 0x11);
  EXPECT_EQ(metrics.avgWidth, 500);
  EXPECT_EQ(metrics.maxWidth, 900);
  EXPECT_EQ(metrics.deviceName, "PostScript");
  EXPECT_EQ(metrics.faceName, "Made");
  EXPECT_EQ(metrics.fontName, "Made-Roman");
  EXPECT_EQ(metrics.xHeightRatio, 0.45F);
  EXPECT_EQ(metrics.widths, (std::vector<std::uint16_t>{250, 333, 408}));
  ASSERT_EQ(metrics.kernPairs.size(), 2u);  // the first of a pair stays
  EXPECT_EQ(metrics.kernPairs.at({32, 33}), -40);
}

TEST(PfmParser, aCopyrightOfSixtyBytesHasNoEnd) {
  PfmBuilder file;
  file.copyright = std::string(60, 'c');
  EXPECT_EQ(metricsOf(file).copyright.size(), 60u);
}

TEST(PfmParser, wrongRangesAreCorrectedSilently) {
  const struct {
    const char* what;
    unsigned first, last, fixedFirst, fixedLast;
  } rows[] = {{"sound", 32, 255, 32, 255},
              {"first 33 is read as 32", 33, 34, 32, 34},
              {"last not above first as read", 32, 32, 32, 255},
              {"both", 40, 33, 32, 255},
              {"last is compared with the first as read", 200, 100, 32, 255}};
  for (const auto& row : rows) {
    PfmBuilder file;
    file.firstChar = row.first;
    file.lastChar = row.last;
    file.widths.assign(row.fixedLast - row.fixedFirst + 1, 500);
    const PfmMetrics metrics = metricsOf(file);
    EXPECT_EQ(metrics.firstChar, row.fixedFirst) << row.what;
    EXPECT_EQ(metrics.lastChar, row.fixedLast) << row.what;
    EXPECT_EQ(metrics.widths.size(), row.fixedLast - row.fixedFirst + 1) << row.what;
  }
}

TEST(PfmParser, rangesStayWhereAReportWasMadeBefore) {
  PfmBuilder file;
  file.firstChar = 40;
  file.lastChar = 20;
  const PfmMetrics metrics = metricsOf(file, false);
  EXPECT_EQ(metrics.firstChar, 40);
  EXPECT_TRUE(metrics.widths.empty());
}

TEST(PfmParser, tablesThatAreNotThere) {
  PfmBuilder file;
  file.hasTextMetrics = file.hasDevice = file.hasWidths = false;
  file.kernPairs = {{{32, 33}, -40}};
  const PfmMetrics metrics = metricsOf(file);
  EXPECT_TRUE(metrics.kernPairs.empty());  // their number stands in the text metrics
  EXPECT_TRUE(metrics.widths.empty());
  EXPECT_EQ(metrics.fontName, "");
  EXPECT_EQ(metrics.xHeightRatio, 0);
}

TEST(PfmParser, noMasterHeightIsNoRatio) {
  PfmBuilder file;
  file.masterHeight = 0;
  EXPECT_EQ(metricsOf(file).xHeightRatio, 0);
}

TEST(PfmParser, cutAtEveryByte) {
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -40}};
  const std::string bytes = file.build();
  const std::size_t textMetrics = 147, device = textMetrics + 52;
  const std::size_t widths = device + file.device.size() + file.face.size() + file.font.size() + 3;
  const std::size_t pairs = widths + 6;
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    PfmMetrics metrics;
    const char* expected = size < 117           ? ""
                           : size < textMetrics ? "Extension read error"
                           : size < device      ? "Extension Text Metrics read error"
                           : size < widths      ? "PostScript Information read error"
                           : size < pairs       ? "Extent Table read error"
                                                : "Pair Kerning Table read error";
    EXPECT_EQ(failureOf(bytes.substr(0, size), metrics), expected) << size;
  }
}

TEST(CharSet, converters) {
  const struct {
    int charSet;
    const char* converter;
  } rows[] = {{161, "cp1253"}, {162, "cp1254"}, {163, "cp1258"}, {177, "cp1255"},
              {178, "cp1256"}, {186, "cp1257"}, {204, "cp1251"}, {222, "cp874"},
              {238, "cp1250"}, {0, "cp1252"},   {2, "cp1252"},   {128, "cp1252"}};
  for (const auto& row : rows) {
    EXPECT_STREQ(converterOfCharSet(static_cast<std::uint8_t>(row.charSet)), row.converter);
    EXPECT_TRUE(CharSetEncoder(static_cast<std::uint8_t>(row.charSet)).isOpen());
  }
}

TEST(CharSet, characters) {
  CharSetEncoder russian(204);
  EXPECT_EQ(russian.encode(0x0410), 0xC0);
  EXPECT_EQ(russian.encode('A'), 'A');
  EXPECT_EQ(russian.encode(0x3042), std::nullopt);
  EXPECT_EQ(russian.encode(0x20000), std::nullopt);
  EXPECT_EQ(decodeCharSet(204, "\xC0"), UnicodeString(u"\u0410"));
}

}  // namespace
}  // namespace QXFontService_NS::type1
