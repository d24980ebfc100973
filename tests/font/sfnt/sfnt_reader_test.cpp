#include "font/sfnt/sfnt_reader.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/be_bytes.h"
#include "support/name_builder.h"
#include "support/sample_font.h"
#include "support/table_builders.h"
#include "support/truncation.h"

namespace QXFontService_NS::sfnt {
namespace {

using qxtest::BeBytes;
using qxtest::HeadBuilder;
using qxtest::HheaBuilder;
using qxtest::MetricsBuilder;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::PostBuilder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

const TableResult kNoFailure = std::nullopt;
const TableResult kSilence = TableFailure{kSilent, ""};

struct Reading {
  SfntRecords records;
  TableResult failure;
};

Reading readBytes(const std::string& bytes, FS_FontFileType type = FS_FILETYPE_TRUETYPE,
                  std::streamoff start = 0) {
  std::istringstream stream(bytes);
  stream.seekg(start);
  Reading reading;
  reading.failure = readSfntRecords(stream, type, reading.records);
  return reading;
}

Reading read(const SfntBuilder& font, FS_FontFileType type = FS_FILETYPE_TRUETYPE) {
  return readBytes(font.build(), type);
}

/// The sample font with `tag` at the end of a file that is `missing` bytes short.
std::string cutIn(const char* tag, std::size_t missing) {
  SfntBuilder font = sampleFont();
  const std::string bytes = font.bytesOf(tag);
  const std::string file = font.without(tag).table(tag, bytes).build();
  return file.substr(0, font.offsetOf(tag) + bytes.size() - missing);
}

TEST(SfntReader, KeepsTheDecodedTables) {
  const Reading reading = read(sampleFont());
  ASSERT_EQ(reading.failure, kNoFailure);
  const SfntRecords& records = reading.records;
  EXPECT_EQ(records.directory.size(), 10u);
  EXPECT_EQ(records.image.records().size(), 10u);
  EXPECT_EQ(records.head.unitsPerEm, 1000);
  EXPECT_EQ(records.hhea.numberOfHMetrics, 4u);
  EXPECT_TRUE(records.hasOS2);
  EXPECT_EQ(records.os2.usWinAscent, 900);
  EXPECT_EQ(records.post.underlinePosition, -100);
  EXPECT_FALSE(records.isMacStyle);
  EXPECT_FALSE(records.isSymbolic);
  EXPECT_FALSE(records.psNameDiffers);
  EXPECT_EQ(records.names.get(0, 0), UnicodeString("QX Sample"));
}

TEST(SfntReader, EachAbsentTableHasItsReport) {
  struct Row {
    const char* tag;
    const char* text;
  };
  for (const Row& row :
       {Row{"glyf", "'glyf' or 'CFF' table not found"}, Row{"head", "'head' table not found"},
        Row{"hhea", "'hhea' table not found"}, Row{"name", "'name' table not found"},
        Row{"post", "'post' table not found"}})
    EXPECT_EQ(read(sampleFont().without(row.tag)).failure, formatFailure(row.text)) << row.tag;
}

TEST(SfntReader, EachShortTableHasItsReport) {
  struct Row {
    const char* tag;
    const char* text;
  };
  for (const Row& row :
       {Row{"head", "'head' table read error"}, Row{"hhea", "'hhea' table read error"},
        Row{"OS/2", "'OS/2' table read error"}, Row{"post", "'post' table read error"}})
    EXPECT_EQ(readBytes(cutIn(row.tag, 1)).failure, readFailure(row.text)) << row.tag;
  EXPECT_EQ(readBytes(cutIn("name", 1)).failure, readFailure("'name' #4 read error"));
}

TEST(SfntReader, TheOffsetTableComesFirst) {
  EXPECT_EQ(readBytes("").failure, readFailure("Offset table read error"));
  EXPECT_EQ(readBytes(std::string(4, '\0')).failure, readFailure("Offset table read error"));
  EXPECT_EQ(readBytes(std::string(11, 'x')).failure, readFailure("Offset table read error"));
}

TEST(SfntReader, NoTablesAreReportedBeforeTheVersion) {
  EXPECT_EQ(readBytes(std::string(12, '\0')).failure, formatFailure("OffsetTable.numTables = 0"));
}

TEST(SfntReader, AShortDirectoryIsReportedBeforeTheVersion) {
  const std::string font = sampleFont().version(1).build();
  EXPECT_EQ(readBytes(font.substr(0, 12 + 159)).failure, readFailure("Table directory read error"));
  EXPECT_EQ(readBytes(font.substr(0, 12 + 160)).failure, kSilence);
}

TEST(SfntReader, EachFileTypeTakesItsVersions) {
  const std::uint32_t trueType[] = {0x00010000, 0x74727565, 0x74797031};
  const FS_FontFileType others[] = {FS_FILETYPE_TRUETYPE, FS_FILETYPE_TTC, FS_FILETYPE_DFONT};
  const FS_FontFileType openTypes[] = {FS_FILETYPE_OPENTYPE, FS_FILETYPE_OPENTYPE_CID};
  for (const std::uint32_t version : trueType) {
    const SfntBuilder font = sampleFont().version(version);
    for (const auto type : others) EXPECT_EQ(read(font, type).failure, kNoFailure) << version;
    for (const auto type : openTypes) EXPECT_EQ(read(font, type).failure, kSilence) << version;
  }
  const SfntBuilder otto = sampleFont().version(SfntBuilder::kOpenType);
  for (const auto type : others) EXPECT_EQ(read(otto, type).failure, kSilence) << type;
  for (const auto type : openTypes) EXPECT_EQ(read(otto, type).failure, kNoFailure) << type;
  for (const std::uint32_t version : {0x00020000u, 0x00010001u, 0x774F4646u, 0u})
    EXPECT_EQ(read(sampleFont().version(version)).failure, kSilence) << version;
}

TEST(SfntReader, AMissingVersionIsSilentBeforeMissingOutlines) {
  EXPECT_EQ(read(sampleFont().version(0).without("glyf")).failure, kSilence);
}

TEST(SfntReader, AppleFontsNeedThreeTablesOrAreNoneOfOurs) {
  for (const char* tag : {"head", "hhea", "hmtx"}) {
    const SfntBuilder font = sampleFont().version(SfntBuilder::kApple).without(tag);
    EXPECT_EQ(read(font).failure, kSilence) << tag;
    EXPECT_EQ(read(font, FS_FILETYPE_DFONT).failure, kSilence) << tag;
  }
  EXPECT_EQ(read(sampleFont().without("hmtx")).failure, kNoFailure);
}

TEST(SfntReader, OutlinesAreGlyfOrCffWhateverTheVersion) {
  SfntBuilder cffOnly = sampleFont().without("glyf").table("CFF", "x");
  EXPECT_EQ(read(cffOnly).failure, kNoFailure);
  cffOnly.version(SfntBuilder::kOpenType);
  EXPECT_EQ(read(cffOnly, FS_FILETYPE_OPENTYPE).failure, kNoFailure);
  const SfntBuilder cff2Only =
      sampleFont().version(SfntBuilder::kOpenType).without("glyf").table("CFF2", "x");
  EXPECT_EQ(read(cff2Only, FS_FILETYPE_OPENTYPE).failure,
            formatFailure("'glyf' or 'CFF' table not found"));
}

TEST(SfntReader, TheOrderOfStepsDecidesTheReport) {
  SfntBuilder font = sampleFont();
  struct Row {
    const char* tag;
    const char* text;
  };
  // Each row takes one more table away from the back: the report moves to the front.
  const Row rows[] = {{"post", "'post' table not found"},
                      {"name", "'name' table not found"},
                      {"hhea", "'hhea' table not found"},
                      {"head", "'head' table not found"},
                      {"glyf", "'glyf' or 'CFF' table not found"}};
  for (const Row& row : rows)
    EXPECT_EQ(read(font.without(row.tag)).failure, formatFailure(row.text)) << row.tag;
}

TEST(SfntReader, Os2IsReadBeforeNameAndNameBeforePost) {
  SfntBuilder font = sampleFont();
  const std::string os2 = font.bytesOf("OS/2");
  font.without("name").without("OS/2").table("OS/2", os2);
  EXPECT_EQ(readBytes(font.build().substr(0, font.offsetOf("OS/2") + 10)).failure,
            readFailure("'OS/2' table read error"));
  EXPECT_EQ(read(sampleFont().without("name").without("post")).failure,
            formatFailure("'name' table not found"));
}

TEST(SfntReader, FixedSizesAreReadWhateverTheDirectorySays) {
  SfntBuilder font = sampleFont();
  for (const char* tag : {"head", "hhea", "post"}) font.statedLength(tag, 1);
  const Reading reading = read(font);
  ASSERT_EQ(reading.failure, kNoFailure);
  EXPECT_EQ(reading.records.head.unitsPerEm, 1000);
  EXPECT_EQ(reading.records.hhea.numberOfHMetrics, 4u);
}

TEST(SfntReader, AShortOs2IsTakenAsFarAsItsLengthGoes) {
  SfntBuilder font = sampleFont();
  font.table("OS/2", Os2Builder{.version = 0, .usWeightClass = 300}.build().substr(0, 68));
  const Reading reading = read(font);
  ASSERT_EQ(reading.failure, kNoFailure);
  EXPECT_EQ(reading.records.os2.usWeightClass, 300u);
  EXPECT_EQ(reading.records.os2.ulCodePageRange[0], 1u);
  EXPECT_EQ(reading.records.os2.sCapHeight, 0);
  EXPECT_EQ(reading.records.os2.usWinAscent, 800);  // from hhea
}

TEST(SfntReader, OnlyAHundredBytesOfOs2AreNeeded) {
  SfntBuilder font = sampleFont();
  const std::string os2 = font.bytesOf("OS/2") + std::string(4, 'x');
  font.without("OS/2").table("OS/2", os2).statedLength("OS/2", 0xFFFFFFFF);
  EXPECT_EQ(read(font).failure, kNoFailure);
  EXPECT_EQ(readBytes(font.build().substr(0, font.offsetOf("OS/2") + 99)).failure,
            readFailure("'OS/2' table read error"));
}

TEST(SfntReader, AnEmptyOs2IsThereAndAllZero) {
  const Reading reading = read(sampleFont().statedLength("OS/2", 0));
  ASSERT_EQ(reading.failure, kNoFailure);
  EXPECT_TRUE(reading.records.hasOS2);
  EXPECT_EQ(reading.records.os2.usWeightClass, 0u);
  EXPECT_EQ(reading.records.os2.usWinDescent, 200);
}

TEST(SfntReader, FourKindsOfFilesMayLackOs2) {
  const std::pair<FS_FontFileType, std::uint32_t> kinds[] = {
      {FS_FILETYPE_TRUETYPE, SfntBuilder::kTrueType},
      {FS_FILETYPE_TTC, SfntBuilder::kTrueType},
      {FS_FILETYPE_OPENTYPE, SfntBuilder::kOpenType},
      {FS_FILETYPE_DFONT, SfntBuilder::kTrueType}};
  for (const auto& [type, version] : kinds) {
    const Reading reading = read(sampleFont().version(version).without("OS/2"), type);
    ASSERT_EQ(reading.failure, kNoFailure) << type;
    EXPECT_FALSE(reading.records.hasOS2);
    EXPECT_TRUE(reading.records.isMacStyle);
    EXPECT_EQ(reading.records.os2.usWeightClass, 400u);
    EXPECT_EQ(reading.records.os2.usWinAscent, 800);
    EXPECT_EQ(reading.records.os2.usWinDescent, 200);
  }
  EXPECT_EQ(
      read(sampleFont().version(SfntBuilder::kOpenType).without("OS/2"), FS_FILETYPE_OPENTYPE_CID)
          .failure,
      formatFailure("'OS/2' table not found"));
  EXPECT_EQ(read(sampleFont().without("OS/2"), FS_FILETYPE_TYPE1_PFB).failure,
            formatFailure("'OS/2' table not found"));
}

TEST(SfntReader, ResourceForksAreReadTheMacintoshWayWithOs2Too) {
  EXPECT_TRUE(read(sampleFont(), FS_FILETYPE_DFONT).records.isMacStyle);
  EXPECT_FALSE(read(sampleFont(), FS_FILETYPE_TTC).records.isMacStyle);
}

TEST(SfntReader, WithoutOs2AllMacintoshNamesCount) {
  SfntBuilder font = sampleFont();
  NameBuilder names;
  names.macintosh(1, "Mac").macintosh(4, "Mac Full");
  font.table("name", names.build());
  EXPECT_TRUE(read(font).records.names.get(0, 3).isEmpty());
  EXPECT_EQ(read(font.without("OS/2")).records.names.get(0, 3), UnicodeString("Mac Full"));
}

TEST(SfntReader, FixedPitchIsPanoseWithOs2AndPostWithout) {
  struct Row {
    unsigned family, proportion;
    std::uint32_t post;
    bool withOs2, withoutOs2;
  };
  for (const Row& row :
       {Row{2, 9, 0, true, false}, Row{2, 9, 1, true, true}, Row{2, 3, 1, false, true},
        Row{0, 9, 1, false, true}, Row{0, 0, 0, false, false}}) {
    Os2Builder os2;
    os2.panose[0] = row.family;
    os2.panose[3] = row.proportion;
    SfntBuilder font = sampleFont();
    font.table("OS/2", os2.build());
    font.table("post", PostBuilder{.isFixedPitch = row.post}.build());
    EXPECT_EQ(read(font).records.isFixedPitch, row.withOs2) << row.family << row.proportion;
    EXPECT_EQ(read(font.without("OS/2")).records.isFixedPitch, row.withoutOs2) << row.post;
  }
}

SfntBuilder verticalFont(unsigned stated, std::size_t present) {
  SfntBuilder font = sampleFont();
  font.table("vhea", HheaBuilder{.ascender = 500, .numberOfMetrics = stated}.build());
  MetricsBuilder metrics;
  metrics.metrics.assign(present, {1000, 100});
  return font.table("vmtx", metrics.build());
}

TEST(SfntReader, VerticalMetricsAreCounted) {
  const Reading reading = read(verticalFont(2, 3));
  ASSERT_EQ(reading.failure, kNoFailure);
  EXPECT_EQ(reading.records.vhea.vertAscender, 500);
  EXPECT_EQ(reading.records.numOfLongVerMetrics, 2);
  EXPECT_EQ(read(sampleFont()).records.numOfLongVerMetrics, 0);
}

TEST(SfntReader, VmtxWithoutVheaOrCountIsNotRead) {
  EXPECT_EQ(read(verticalFont(5, 5).without("vhea")).records.numOfLongVerMetrics, 0);
  EXPECT_EQ(read(verticalFont(0, 0)).failure, kNoFailure);
}

TEST(SfntReader, AnAbsentVmtxIsNoError) {
  const Reading reading = read(verticalFont(5, 5).without("vmtx"));
  EXPECT_EQ(reading.failure, kNoFailure);
  EXPECT_EQ(reading.records.numOfLongVerMetrics, 0);
  EXPECT_EQ(reading.records.vhea.vertAscender, 500);
}

TEST(SfntReader, ShortVerticalTablesFailTheFont) {
  const SfntBuilder font = verticalFont(5, 5);
  const std::string bytes = font.build();
  EXPECT_EQ(readBytes(bytes.substr(0, font.offsetOf("vhea") + 35)).failure,
            readFailure("'vhea' table read error"));
  EXPECT_EQ(readBytes(bytes.substr(0, bytes.size() - 1)).failure,
            readFailure("'vmtx' table metric read error"));
  EXPECT_EQ(read(verticalFont(0xFFFF, 5)).failure, readFailure("'vmtx' table metric read error"));
}

TEST(SfntReader, ACollectionMemberKeepsAbsoluteOffsets) {
  const std::string file = std::string(100, 'x') + sampleFont().build(100);
  const Reading reading = readBytes(file, FS_FILETYPE_TTC, 100);
  ASSERT_EQ(reading.failure, kNoFailure);
  EXPECT_EQ(reading.records.names.get(0, 0), UnicodeString("QX Sample"));
  EXPECT_TRUE(
      readBytes(std::string(100, 'x') + sampleFont().build(), FS_FILETYPE_TTC, 100).failure);
}

TEST(SfntReader, AResourceCountsOffsetsFromItself) {
  const std::string file = std::string(100, 'x') + sampleFont().build();
  const Reading reading = readBytes(file, FS_FILETYPE_DFONT, 100);
  ASSERT_EQ(reading.failure, kNoFailure);
  const std::uint32_t offset = static_cast<std::uint32_t>(sampleFont().offsetOf("glyf")) + 100;
  EXPECT_EQ(reading.records.directory.find(tagOf("glyf"))->offset, offset);
  EXPECT_EQ(reading.records.image.find(tagOf("glyf"))->offset(), offset);
}

TEST(SfntReader, AResourceOffsetWrapsInThirtyTwoBits) {
  SfntBuilder font = sampleFont();
  font.rawEntry("wrap", 0xFFFFFFFF, 1);
  const Reading reading = readBytes(std::string(100, 'x') + font.build(), FS_FILETYPE_DFONT, 100);
  EXPECT_EQ(reading.records.directory.find(tagOf("wrap"))->offset, 99u);
  EXPECT_EQ(reading.records.image.find(tagOf("wrap"))->offset(), 99u);
}

TEST(SfntReader, ATagMetTwiceKeepsItsFirstTable) {
  SfntBuilder font = sampleFont();
  font.rawEntry("head", 0, 0).rawEntry("name", 0, 0);
  const Reading reading = read(font);
  ASSERT_EQ(reading.failure, kNoFailure);
  EXPECT_EQ(reading.records.directory.size(), 10u);
  EXPECT_NE(reading.records.image.find(tagOf("head"))->offset(), 0u);
}

TEST(SfntReader, AStreamAtItsEndIsReadAllTheSame) {
  std::istringstream stream(sampleFont().build());
  std::string all;
  while (std::getline(stream, all)) {
  }
  ASSERT_TRUE(stream.eof());
  stream.clear();
  stream.seekg(0);
  stream.setstate(std::ios::failbit);
  SfntRecords records;
  EXPECT_EQ(readSfntRecords(stream, FS_FILETYPE_TRUETYPE, records), kNoFailure);
}

/// What the first table that a cut takes something from makes the reader tell; tables are read in
/// this order, wherever they stand.
std::string textOfCut(const SfntBuilder& font, std::size_t size) {
  constexpr std::size_t kDirectoryEnd = 12 + 10 * 16;
  if (size < 12) return "Offset table read error";
  if (size < kDirectoryEnd) return "Table directory read error";
  const auto lacks = [&](const char* tag, std::size_t bytes) {
    return size < font.offsetOf(tag) + bytes;
  };
  const std::size_t names = font.offsetOf("name");
  const std::size_t records = static_cast<unsigned char>(font.bytesOf("name")[3]);
  if (lacks("head", 54)) return "'head' table read error";
  if (lacks("hhea", 36)) return "'hhea' table read error";
  if (lacks("OS/2", font.bytesOf("OS/2").size())) return "'OS/2' table read error";
  if (size < names + 6) return "'name' table read error";
  if (size < names + 6 + 12 * records) return "nameRecord read error";
  if (lacks("name", font.bytesOf("name").size())) return "'name' #";
  return "'post' table read error";
}

TEST(SfntReader, CutAtEveryByteTheFontFailsOrIsWhole) {
  // Bytes of glyf, hmtx, loca and maxp are not asked for: post stands last, so that every cut
  // takes something that is.
  const SfntBuilder font = sampleFont();
  qxtest::forEachPrefix(font.build(), [&](const std::string& cut) {
    const TableResult failure = readBytes(cut).failure;
    ASSERT_TRUE(failure.has_value()) << cut.size();
    EXPECT_EQ(failure->code, TableFailure::kRead) << cut.size();
    const std::string text = textOfCut(font, cut.size());
    EXPECT_EQ(failure->detail.substr(0, text.size()), text) << cut.size();
  });
}

TEST(SfntReader, DamageIsSurvived) {
  int failures = 0;
  qxtest::forEachDamage(verticalFont(2, 2).build(), [&](const std::string& damaged) {
    for (const auto type : {FS_FILETYPE_TRUETYPE, FS_FILETYPE_DFONT})
      if (readBytes(damaged, type).failure) ++failures;
  });
  EXPECT_GT(failures, 1000);
}

/// Counts what is asked of a string.
class CountingBuf : public std::stringbuf {
 public:
  using std::stringbuf::stringbuf;
  std::size_t asked = 0;
  int reads = 0;

 protected:
  std::streamsize xsgetn(char* out, std::streamsize count) override {
    asked += static_cast<std::size_t>(count);
    ++reads;
    return std::stringbuf::xsgetn(out, count);
  }
};

TEST(SfntReader, AsksForTheSmallTablesOnlyAndOnce) {
  const SfntBuilder font = verticalFont(2, 2);
  CountingBuf buffer(font.build());
  std::istream stream(&buffer);
  SfntRecords records;
  ASSERT_EQ(readSfntRecords(stream, FS_FILETYPE_TRUETYPE, records), kNoFailure);
  std::size_t tables = 12 + 16 * 12;
  for (const char* tag : {"head", "hhea", "OS/2", "name", "post", "vhea", "vmtx"})
    tables += font.bytesOf(tag).size();
  EXPECT_LE(buffer.asked, tables);
  EXPECT_EQ(buffer.reads, 9);
}

}  // namespace
}  // namespace QXFontService_NS::sfnt
