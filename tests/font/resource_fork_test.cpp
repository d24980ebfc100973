#include "font/resource_fork.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/be_bytes.h"
#include "support/dfont_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

using qxtest::BeBytes;
using qxtest::DfontBuilder;
using Offsets = std::vector<std::int64_t>;

const TableResult kCutShort = TableFailure{1921, ""};
const TableResult kNoFonts = TableFailure{1928, ""};

struct Reading {
  TableResult failure;
  Offsets offsets;
};

Reading read(const std::string& bytes) {
  std::istringstream stream(bytes);
  Reading reading;
  reading.failure = readFontResources(stream, reading.offsets);
  return reading;
}

/// Two fonts among other resources; data begin at 256, the fonts' behind 4, 12 and 20 bytes.
DfontBuilder mixed() {
  return DfontBuilder().resource("sfnt", "one.").resource("FOND", "info").resource("sfnt", "two.");
}

TEST(ResourceFork, GivesTheDataOfEachFontBehindItsLength) {
  const Reading reading = read(mixed().build());
  EXPECT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.offsets, (Offsets{260, 276}));
}

TEST(ResourceFork, TheLengthOfAResourceIsNotLookedAt) {
  for (const std::uint32_t length : {0U, 3U, 0xFFFFFFFFU}) {
    DfontBuilder builder = mixed();
    EXPECT_EQ(read(builder.statedLength(length).build()).offsets, (Offsets{260, 276})) << length;
  }
}

TEST(ResourceFork, FontsMayBeTheLastTypeOfTheList) {
  DfontBuilder builder;
  builder.resource("FOND", "info").resource("NFNT", "bits").resource("sfnt", "one.");
  EXPECT_EQ(read(builder.build()).offsets, (Offsets{276}));
}

TEST(ResourceFork, TheSearchStopsAtTheCountOfTypes) {
  DfontBuilder builder;
  builder.resource("FOND", "info").resource("NFNT", "bits").resource("sfnt", "one.");
  BeBytes file = builder.bytes();
  EXPECT_EQ(read(file.patchU16("numTypes", 1).str()).failure, kNoFonts);
  EXPECT_EQ(read(file.patchU16("numTypes", 2).str()).failure, std::nullopt);
}

TEST(ResourceFork, AForkWithoutFontsHasNone) {
  EXPECT_EQ(read(DfontBuilder().resource("FOND", "info").build()).failure, kNoFonts);
  EXPECT_EQ(read(DfontBuilder().resource("SFNT", "one.").build()).failure, kNoFonts);
}

TEST(ResourceFork, ATypeCountOfMinusOneIsNoTypesAndNotACutList) {
  BeBytes file = mixed().bytes();
  EXPECT_EQ(read(file.patchU16("numTypes", 0xFFFF).str()).failure, kNoFonts);
  EXPECT_EQ(read(DfontBuilder().bytes().str()).failure, kNoFonts);
}

TEST(ResourceFork, TheFirstEntryOfTheTypeCounts) {
  DfontBuilder builder;
  builder.resource("sfnt", "one.").resource("sfnX", "two.");
  std::string bytes = builder.build();
  bytes.replace(builder.bytes().at("sfnX"), 4, "sfnt");
  EXPECT_EQ(read(bytes).offsets, (Offsets{260}));
}

TEST(ResourceFork, AListThatIsCutBehindTheFontsDoesNoHarm) {
  DfontBuilder builder;
  BeBytes file = builder.resource("sfnt", "one.").bytes();
  EXPECT_EQ(read(file.patchU16("numTypes", 99).str()).offsets, (Offsets{260}));
}

TEST(ResourceFork, AListThatIsCutBeforeTheFontsIsShort) {
  DfontBuilder builder;
  BeBytes file = builder.resource("FOND", "info").bytes();
  EXPECT_EQ(read(file.patchU16("numTypes", 99).str()).failure, kCutShort);
}

TEST(ResourceFork, ShortHeadersMapsAndReferencesAreShort) {
  const BeBytes file = mixed().bytes();
  const std::string bytes = file.str();
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{15}, std::size_t{16}, file.at("map"), file.at("map") + 29,
        file.at("map") + 30, file.at("sfnt") + 7, file.at("ref0"), file.at("ref1") + 11})
    EXPECT_EQ(read(bytes.substr(0, size)).failure, kCutShort) << size;
  EXPECT_EQ(read(bytes.substr(0, file.at("ref1") + 12)).offsets, (Offsets{260, 276}));
}

TEST(ResourceFork, ListsMayStandAnywhere) {
  BeBytes file = mixed().bytes();
  const std::size_t list = file.size() - file.at("map");
  file.u16(0).text("sfnt").u16(0).u16(10);  // a second type list behind the map
  file.u16(1).u16(2).u8(3).u24(7).u32(4);
  file.patchU16("typeListOffset", static_cast<unsigned>(list));
  EXPECT_EQ(read(file.str()).offsets, (Offsets{256 + 7 + 4}));
}

/// The count of types is always that behind the map's fixed part, as old suitcases rely on.
TEST(ResourceFork, TheCountOfTypesStandsInTheMapWhereverTheListIs) {
  BeBytes file = mixed().bytes();
  const std::size_t list = file.size() - file.at("map");
  file.u16(0).text("FOND").u16(0).u16(10).text("sfnt").u16(0).u16(10).zeros(12);
  file.patchU16("typeListOffset", static_cast<unsigned>(list));
  EXPECT_EQ(read(file.str()).failure, std::nullopt);
  EXPECT_EQ(read(file.patchU16("numTypes", 0).str()).failure, kNoFonts);
}

TEST(ResourceFork, OffsetsAddUpInMoreThan32Bits) {
  BeBytes file = mixed().bytes();
  EXPECT_EQ(read(file.patchU32("dataOffset", 0xFFFFFFFF).str()).offsets,
            (Offsets{0x100000003, 0x100000013}));
  EXPECT_EQ(read(file.patchU32("mapOffset", 0xFFFFFFFF).str()).failure, kCutShort);
}

TEST(ResourceFork, OffsetsOfReferencesHave24Bits) {
  BeBytes file = mixed().bytes();
  std::string bytes = file.str();
  bytes.replace(file.at("ref0") + 4, 8, "\x7F\xFF\xFF\xFF\x7F\x7F\x7F\x7F");
  EXPECT_EQ(read(bytes).offsets, (Offsets{256 + 0xFFFFFF + 4, 276}));
}

TEST(ResourceFork, MoreFontsThanAFaceNumberCountsAreRefused) {
  BeBytes file = mixed().bytes();
  EXPECT_EQ(read(file.patchU16("sfnt.count", 32767).str()).failure, kNoFonts);
  EXPECT_EQ(read(file.patchU16("sfnt.count", 0xFFFF).str()).failure, kNoFonts);
  EXPECT_EQ(read(file.patchU16("sfnt.count", 32766).str()).failure, kCutShort);
  EXPECT_EQ(read(file.zeros(32767 * 12).str()).offsets.size(), 32767U);
}

TEST(ResourceFork, SurvivesAnyDamage) {
  qxtest::forEachDamage(mixed().build(), [](const std::string& bytes) { read(bytes); });
}

}  // namespace
}  // namespace QXFontService_NS
