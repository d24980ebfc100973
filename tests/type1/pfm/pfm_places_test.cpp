#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/pfm_builder.h"
#include "type1/pfm/char_set.h"
#include "type1/pfm/pfm_parser.h"

namespace QXFontService_NS::type1 {
namespace {

using qxtest::PfmBuilder;

PfmMetrics metricsOf(const std::string& bytes) {
  PfmMetrics metrics;
  std::istringstream stream(bytes);
  EXPECT_EQ(readPfm(stream, true, metrics).value_or("-"), std::string("-"));
  return metrics;
}

TEST(PfmPlaces, FieldsStandWhereTheFormatHasThem) {
  std::string bytes(147, '\0');
  for (std::size_t i = 66; i < 101; ++i) bytes[i] = static_cast<char>(i);
  bytes[95] = 32;
  bytes[96] = 120;
  const PfmMetrics metrics = metricsOf(bytes);
  EXPECT_EQ(metrics.copyright, "");
  EXPECT_EQ(metrics.ascent, 75 * 256 + 74);
  EXPECT_EQ(metrics.internalLeading, 77 * 256 + 76);
  EXPECT_TRUE(metrics.italic);
  EXPECT_EQ(metrics.weight, 84 * 256 + 83);
  EXPECT_EQ(metrics.charSet, 85);
  EXPECT_EQ(metrics.pixWidth, 87 * 256 + 86);
  EXPECT_EQ(metrics.pixHeight, 89 * 256 + 88);
  EXPECT_EQ(metrics.pitchAndFamily, 90);
  EXPECT_EQ(metrics.avgWidth, 92 * 256 + 91);
  EXPECT_EQ(metrics.maxWidth, 94 * 256 + 93);
  EXPECT_EQ(metrics.firstChar, 32);
  EXPECT_EQ(metrics.lastChar, 120);
  EXPECT_EQ(metrics.breakChar, 98);
}

TEST(PfmPlaces, TheCopyrightEndsAtItsZeroOrBefore66) {
  std::string bytes(147, 'x');
  bytes.replace(95, 2, "\x20\xFF");
  bytes.replace(101, 4, std::string(4, '\0'));
  bytes.replace(117, 30, std::string(30, '\0'));
  EXPECT_EQ(metricsOf(bytes).copyright, std::string(60, 'x'));
  bytes[9] = 0;
  EXPECT_EQ(metricsOf(bytes).copyright, "xxx");
}

TEST(PfmPlaces, PairsWithoutAPlaceStandAtTheBeginning) {
  // Kept: their place is not tested, only their number.
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -40}};
  std::string bytes = file.build();
  bytes.replace(117 + 14, 4, std::string(4, '\0'));
  const PfmMetrics metrics = metricsOf(bytes);
  ASSERT_EQ(metrics.kernPairs.size(), 1u);
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  EXPECT_EQ(metrics.kernPairs.begin()->first, std::pair(byte(2), byte(3)));
}

TEST(PfmPlaces, TheCountAheadOfThePairsIsSkipped) {
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -40}, {{33, 32}, 32767}, {{0, 255}, -32768}};
  std::string bytes = file.build();
  bytes[bytes.size() - 14] = 1;
  const PfmMetrics metrics = metricsOf(bytes);
  EXPECT_EQ(metrics.kernPairs.at({32, 33}), -40);
  EXPECT_EQ(metrics.kernPairs.at({33, 32}), 32767);
  EXPECT_EQ(metrics.kernPairs.at({0, 255}), -32768);
}

TEST(PfmPlaces, PlacesAtExtremesCannotBeRead) {
  const struct {
    std::size_t at;
    const char* failure;
  } rows[] = {{101, "PostScript Information read error"},
              {117 + 2, "Extension Text Metrics read error"},
              {117 + 6, "Extent Table read error"},
              {117 + 14, "Pair Kerning Table read error"}};
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -40}};
  for (const auto& row : rows) {
    for (const char* place : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F"}) {
      std::string bytes = file.build();
      bytes.replace(row.at, 4, place);
      PfmMetrics metrics;
      std::istringstream stream(bytes);
      EXPECT_EQ(readPfm(stream, true, metrics).value_or("-"), std::string(row.failure));
    }
  }
}

TEST(CharSet, eachHasTheCodesOfItsCodePage) {
  const struct {
    int charSet, character, code;
  } rows[] = {{161, 0x0391, 0xC1}, {162, 0x011E, 0xD0}, {163, 0x20AB, 0xFE}, {177, 0x05D0, 0xE0},
              {178, 0x0627, 0xC7}, {186, 0x0100, 0xC2}, {204, 0x0416, 0xC6}, {222, 0x0E01, 0xA1},
              {238, 0x0141, 0xA3}, {0, 0x20AC, 0x80},   {2, 0x00E9, 0xE9},   {128, 0x0152, 0x8C},
              {255, 0x0153, 0x9C}};
  for (const auto& row : rows) {
    const auto charSet = static_cast<std::uint8_t>(row.charSet);
    EXPECT_EQ(CharSetEncoder(charSet).encode(row.character), row.code) << row.charSet;
    const std::string byte(1, static_cast<char>(row.code));
    EXPECT_EQ(decodeCharSet(charSet, byte), UnicodeString(static_cast<UChar32>(row.character)))
        << row.charSet;
  }
}

}  // namespace
}  // namespace QXFontService_NS::type1
