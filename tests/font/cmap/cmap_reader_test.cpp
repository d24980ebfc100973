#include "font/cmap/cmap_reader.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/be_bytes.h"
#include "support/cmap_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using qxtest::BeBytes;
using qxtest::CmapBuilder;

constexpr std::uint32_t kStart = 5;  // the table does not begin its file

CmapReading readBytes(const std::string& bytes, bool isMacStyle = false) {
  std::istringstream stream(std::string(kStart, '\x55') + bytes);
  return readCmap(stream, TableRange{kStart, static_cast<std::uint32_t>(bytes.size())}, isMacStyle);
}

CmapReading read(const CmapBuilder& table, bool isMacStyle = false) {
  return readBytes(table.build(), isMacStyle);
}

/// Subtables that are told apart by what they count: one segment or group of `chars` codes.
std::string format4(unsigned chars) {
  return CmapBuilder::format4({{1, chars, 0}, {0xFFFF, 0xFFFF, 1}});
}
std::string format12(unsigned chars) {
  return CmapBuilder::format12({{1, chars, 1}});
}
std::string format2(unsigned chars) {
  return CmapBuilder::format2({{{}, 0, 0, std::vector<unsigned>(chars, 1)}});
}
std::string format0() {
  return CmapBuilder::format0({{65, 1}});  // counts 2
}
std::string format14() {
  return CmapBuilder::format14({{0xFE00, {{0x30, 0}}, {}}});
}
std::string format6() {
  return CmapBuilder::format6(65, {1});
}

std::string ids(std::uint16_t platform, std::uint16_t encoding) {
  return std::to_string(platform) + "," + std::to_string(encoding);
}

/// What is held, as "format:platform,encoding" in the order of the formats.
std::string held(const CmapReading& reading) {
  std::string text;
  const auto add = [&text](int format, const auto& subtable) {
    if (!subtable) return;
    text += (text.empty() ? "" : " ") + std::to_string(format) + ":" +
            ids(subtable->platformID, subtable->encodingID);
  };
  add(0, reading.subtables.format0);
  add(2, reading.subtables.format2);
  add(4, reading.subtables.format4);
  add(12, reading.subtables.format12);
  add(14, reading.subtables.format14);
  return text;
}

// What takes part in which pass.

struct PassCase {
  const char* name;
  CmapBuilder table;
  bool isMacStyle;
  const char* held;
  bool isMacStyleAfter;
  std::uint32_t maxCharCount;
};

class CmapPasses : public testing::TestWithParam<PassCase> {};

TEST_P(CmapPasses, HoldWhatTheyShould) {
  const CmapReading reading = read(GetParam().table, GetParam().isMacStyle);
  EXPECT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(held(reading), GetParam().held);
  EXPECT_EQ(reading.isMacStyle, GetParam().isMacStyleAfter);
  EXPECT_EQ(reading.subtables.maxCharCount, GetParam().maxCharCount);
}

const PassCase kPassCases[] = {
    {"UnicodeBeforeWindowsIsPutOff", CmapBuilder().add(0, 3, format4(10)).add(3, 1, format4(20)),
     false, "4:3,1", false, 20},
    {"UnicodeBehindWindowsIsTooLate", CmapBuilder().add(3, 1, format4(20)).add(0, 3, format4(30)),
     false, "4:3,1", false, 20},
    {"UnicodeAloneIsReadTheMacintoshWay", CmapBuilder().add(0, 3, format4(10)), false, "4:0,1",
     true, 10},
    {"UnicodeBesideFormat0AddsItsFormat", CmapBuilder().add(0, 3, format4(10)).add(1, 0, format0()),
     false, "0:1,0 4:0,1", false, 10},
    {"UnicodeBesideFormat14OnlyNeedsThePassOfItsOwn",
     CmapBuilder().add(0, 3, format4(10)).add(0, 5, format14()), false, "4:0,1 14:0,1", true, 10},
    {"UnicodeFormat12DisplacesFormat4OfTheSamePass",
     CmapBuilder().add(0, 3, format12(5)).add(3, 1, format4(20)), false, "12:0,1", false, 20},
    {"TheFirstOfTwoPutOffWins",
     CmapBuilder().add(0, 3, format4(10)).add(0, 3, format4(30)).add(1, 0, format0()), false,
     "0:1,0 4:0,1", false, 10},
    {"NothingIsPutOffTheMacintoshWay", CmapBuilder().add(0, 3, format4(10)).add(3, 1, format4(20)),
     true, "4:0,1", true, 10},
    {"UnicodeFourAndAboveTakePartInFileOrder",
     CmapBuilder().add(0, 4, format12(10)).add(3, 10, format12(20)), false, "12:0,1", false, 10},
    {"WindowsInFrontOfUnicodeFour", CmapBuilder().add(3, 10, format12(20)).add(0, 4, format12(30)),
     false, "12:3,10", false, 20},
    {"UnicodeZeroToTwoAreSkippedInTheFirstPass",
     CmapBuilder()
         .add(0, 0, format4(10))
         .add(0, 1, format4(11))
         .add(0, 2, format4(12))
         .add(1, 0, format0()),
     false, "0:1,0", false, 2},
    {"UnicodeZeroToTwoComeInWithTheSecond",
     CmapBuilder().add(0, 1, format4(10)).add(0, 2, format4(20)), false, "4:0,1", true, 10},
    {"UnicodeZeroTakesPartAtOnceTheMacintoshWay",
     CmapBuilder().add(0, 0, format4(10)).add(3, 1, format4(20)), true, "4:0,1", true, 10},
    {"OtherPlatformsAreSkipped",
     CmapBuilder().add(2, 1, format4(10)).add(4, 1, format4(11)).add(3, 1, format4(20)), false,
     "4:3,1", false, 20},
    {"TheFirstOfAFormatWins", CmapBuilder().add(3, 0, format4(10)).add(3, 1, format4(20)), false,
     "4:3,0", false, 10},
    {"OneOfEachFormat",
     CmapBuilder()
         .add(1, 0, format0())
         .add(1, 25, format2(7))
         .add(3, 1, format4(20))
         .add(0, 5, format14()),
     false, "0:1,0 2:1,25 4:3,1 14:0,1", false, 20},
    {"AFormat2OfOnePlatformShadowsTheOther",
     CmapBuilder().add(1, 25, format2(7)).add(3, 3, format2(9)), false, "2:1,25", false, 7},
    {"Format12FreesFormat4AndKeepsItsCount",
     CmapBuilder().add(3, 1, format4(20)).add(3, 10, format12(5)), false, "12:3,10", false, 20},
    {"Format12InFrontOfFormat4", CmapBuilder().add(3, 10, format12(5)).add(3, 1, format4(20)),
     false, "12:3,10", false, 20},
    {"Format12LeavesTheOtherFormats",
     CmapBuilder().add(1, 0, format0()).add(3, 3, format2(7)).add(3, 10, format12(5)), false,
     "0:1,0 2:3,3 12:3,10", false, 7},
    {"RecordsMayShareASubtable", CmapBuilder().add(0, 3, format4(10)).share(3, 1, 0), false,
     "4:3,1", false, 10},
    {"MacintoshEncodings0", CmapBuilder().add(1, 0, format4(9)), false, "4:1,0", false, 9},
    {"MacintoshEncodings1", CmapBuilder().add(1, 1, format4(9)), false, "4:1,1", false, 9},
    {"MacintoshEncodings2", CmapBuilder().add(1, 2, format4(9)), false, "4:1,2", false, 9},
    {"MacintoshEncodings3", CmapBuilder().add(1, 3, format4(9)), false, "4:1,3", false, 9},
    {"MacintoshEncodings25", CmapBuilder().add(1, 25, format4(9)), false, "4:1,25", false, 9},
    {"WindowsEncodings0", CmapBuilder().add(3, 0, format4(9)), false, "4:3,0", false, 9},
    {"WindowsEncodings1", CmapBuilder().add(3, 1, format4(9)), false, "4:3,1", false, 9},
    {"WindowsEncodings2", CmapBuilder().add(3, 2, format4(9)), false, "4:3,2", false, 9},
    {"WindowsEncodings3", CmapBuilder().add(3, 3, format4(9)), false, "4:3,3", false, 9},
    {"WindowsEncodings4", CmapBuilder().add(3, 4, format4(9)), false, "4:3,4", false, 9},
    {"WindowsEncodings5", CmapBuilder().add(3, 5, format4(9)), false, "4:3,5", false, 9},
    {"WindowsEncodings10", CmapBuilder().add(3, 10, format4(9)), false, "4:3,10", false, 9},
    {"UnsupportedFormatsBesideAGoodOne", CmapBuilder().add(1, 0, format6()).add(3, 1, format4(9)),
     false, "4:3,1", false, 9},
};

INSTANTIATE_TEST_SUITE_P(Tables, CmapPasses, testing::ValuesIn(kPassCases),
                         [](const auto& test) { return test.param.name; });

TEST(CmapReader, APutOffSubtableThatIsNotReadReportsNothing) {
  std::string broken = format4(10);
  broken[3] = 1;  // an odd length
  const CmapReading reading = read(CmapBuilder().add(0, 3, broken).add(3, 1, format4(20)));
  EXPECT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(held(reading), "4:3,1");
}

TEST(CmapReader, APutOffSubtableThatIsReadReports) {
  std::string broken = format4(10);
  broken[3] = 1;
  const CmapReading reading = read(CmapBuilder().add(0, 3, broken).add(1, 0, format0()));
  EXPECT_EQ(reading.failure, formatFailure("'cmap' table format length error"));
  EXPECT_EQ(held(reading), "0:1,0");
}

TEST(CmapReader, TheFormatOfAPutOffSubtableIsReadInItsTurn) {
  const CmapReading reading = read(CmapBuilder().addOffset(0, 3, 0xFFFFFF).add(3, 1, format4(20)));
  EXPECT_EQ(reading.failure, readFailure("'cmap' table format read error"));
  EXPECT_EQ(held(reading), "");
}

TEST(CmapReader, UnsupportedEncodingsAreLeft) {
  for (const unsigned encoding : {4u, 5u, 24u, 26u}) {
    EXPECT_EQ(held(read(CmapBuilder().add(1, encoding, format4(9)))), "") << encoding;
  }
  for (const unsigned encoding : {6u, 7u, 9u, 11u}) {
    const CmapReading reading = read(CmapBuilder().add(3, encoding, format4(9)));
    EXPECT_EQ(held(reading), "") << encoding;
    EXPECT_EQ(reading.failure, formatFailure("'cmap' table has no valid record error"));
  }
}

TEST(CmapReader, Format14AloneMapsNoCodes) {
  const CmapReading reading = read(CmapBuilder().add(0, 5, format14()));
  EXPECT_EQ(reading.failure, formatFailure("'cmap' table has no valid record error"));
  EXPECT_EQ(held(reading), "14:0,1");
  EXPECT_TRUE(reading.isMacStyle);
  EXPECT_FALSE(reading.subtables.mapCodes());
}

// Failures.

TEST(CmapReader, ATableThatIsAbsentIsReported) {
  std::istringstream stream;
  const CmapReading reading = readCmap(stream, std::nullopt, false);
  EXPECT_EQ(reading.failure, formatFailure("'cmap' table not found"));
  EXPECT_FALSE(reading.isMacStyle);
}

TEST(CmapReader, ATableWithoutRecordsIsReported) {
  EXPECT_EQ(read(CmapBuilder()).failure, formatFailure("'cmap' table has no record error"));
}

TEST(CmapReader, OnlySkippedRecordsAreNoValidRecord) {
  const CmapReading reading = read(CmapBuilder().add(2, 0, format4(9)));
  EXPECT_EQ(reading.failure, formatFailure("'cmap' table has no valid record error"));
  EXPECT_TRUE(reading.isMacStyle);
}

TEST(CmapReader, TheLastUnsupportedFormatIsNamed) {
  const std::string format8 = BeBytes().u16(8).zeros(20).str();
  EXPECT_EQ(read(CmapBuilder().add(1, 0, format8).add(3, 1, format6())).failure,
            formatFailure("'cmap' table format 6 unsupported"));
  EXPECT_EQ(read(CmapBuilder().add(3, 1, format6()).add(1, 0, format8)).failure,
            formatFailure("'cmap' table format 8 unsupported"));
}

TEST(CmapReader, AnUnsupportedFormatIsNamedWhateverItsEncoding) {
  EXPECT_EQ(read(CmapBuilder().add(3, 7, format6())).failure,
            formatFailure("'cmap' table format 6 unsupported"));
}

TEST(CmapReader, AnUnsupportedFormatOfTheFirstPassIsRememberedInTheSecond) {
  const std::string format13 = BeBytes().u16(13).zeros(20).str();
  EXPECT_EQ(read(CmapBuilder().add(0, 0, format13).add(3, 1, format6())).failure,
            formatFailure("'cmap' table format 6 unsupported"));
  EXPECT_EQ(read(CmapBuilder().add(3, 1, format6()).add(0, 0, format13)).failure,
            formatFailure("'cmap' table format 13 unsupported"));
  const std::string highest = BeBytes().u16(0xFFFF).str();
  EXPECT_EQ(read(CmapBuilder().add(3, 1, highest)).failure,
            formatFailure("'cmap' table format 65535 unsupported"));
}

TEST(CmapReader, AFormatWordIsReadEvenWhereTheEncodingIsLeft) {
  EXPECT_EQ(read(CmapBuilder().add(3, 1, format4(9)).addOffset(3, 7, 0xFFFF)).failure,
            readFailure("'cmap' table format read error"));
}

TEST(CmapReader, OffsetsDoNotWrap) {
  // In 32 bits the table's start plus this offset would be the table's start.
  EXPECT_EQ(read(CmapBuilder().addOffset(3, 1, 0U - kStart)).failure,
            readFailure("'cmap' table format read error"));
}

TEST(CmapReader, AFailedSubtableEndsTheLoadAndLeavesTheEarlierOnes) {
  const std::string cut = format12(9).substr(0, 20);
  const CmapReading reading =
      read(CmapBuilder().add(3, 1, format4(20)).add(1, 0, format0()).add(3, 10, cut));
  EXPECT_EQ(reading.failure, readFailure("'cmap' table group read error"));
  EXPECT_EQ(held(reading), "0:1,0 4:3,1");
  EXPECT_EQ(reading.subtables.maxCharCount, 20u);
  EXPECT_FALSE(reading.isMacStyle);
}

TEST(CmapReader, AFailedSubtableEndsTheLoadAlthoughBetterOnesFollow) {
  std::string broken = format4(20);
  broken[3] = 1;
  const CmapReading reading = read(CmapBuilder().add(3, 1, broken).add(3, 10, format12(5)));
  EXPECT_EQ(reading.failure, formatFailure("'cmap' table format length error"));
  EXPECT_EQ(held(reading), "");
}

TEST(CmapReader, Format4IsNotFreedByAPassThatFailed) {
  const CmapReading reading =
      read(CmapBuilder().add(3, 1, format4(20)).add(3, 10, format12(5)).addOffset(1, 0, 0xFFFFFF));
  EXPECT_EQ(reading.failure, readFailure("'cmap' table format read error"));
  EXPECT_EQ(held(reading), "4:3,1 12:3,10");
}

TEST(CmapReader, ACutTableNamesThePart) {
  const std::string bytes = CmapBuilder().add(3, 1, format4(9)).build();
  qxtest::forEachPrefix(bytes, [](const std::string& cut) {
    const CmapReading reading = readBytes(cut);
    ASSERT_TRUE(reading.failure.has_value());
    const std::string part = cut.size() < 4    ? "'cmap' table read error"
                             : cut.size() < 12 ? "'cmap' table record read error"
                             : cut.size() < 14 ? "'cmap' table format read error"
                             : cut.size() < 26 ? "'cmap' table format 4 read error"
                                               : "'cmap' table segment read error";
    EXPECT_EQ(*reading.failure, readFailure(part)) << cut.size();
  });
}

TEST(CmapReader, ManyRecordsOfOneSubtableAreCheap) {
  CmapBuilder table;
  table.add(3, 1, format4(9));
  for (int i = 1; i < 0xFFFF; ++i) table.share(3, 1, 0);
  EXPECT_EQ(held(read(table)), "4:3,1");
}

TEST(CmapReader, ExtremeFieldsAreHarmless) {
  const std::string bytes = CmapBuilder()
                                .add(0, 3, format4(9))
                                .add(0, 5, format14())
                                .add(1, 0, format0())
                                .add(3, 10, format12(9))
                                .build();
  qxtest::forEachDamage(bytes, [](const std::string& changed) {
    const CmapReading reading = readBytes(changed);
    if (!reading.failure) {
      EXPECT_TRUE(reading.subtables.mapCodes());
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::cmap
