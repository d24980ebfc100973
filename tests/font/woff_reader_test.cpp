#include "font/woff_reader.h"

#include <gtest/gtest.h>

#include <sstream>

#include "common/limits.h"
#include "support/be_bytes.h"
#include "support/sample_font.h"
#include "support/truncation.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::BeBytes;
using qxtest::WoffBuilder;
using qxtest::zlibBytes;

const TableResult kCutShort = TableFailure{1921, ""};
const TableResult kInvalidHeader = TableFailure{1928, "Invalid WOFF header."};
const TableResult kUncompress = TableFailure{1928, "Uncompress error."};

struct Unpacking {
  TableResult failure;
  std::string font;
};

Unpacking unpack(const std::string& bytes) {
  std::istringstream stream(bytes);
  std::shared_ptr<UnpackedSfnt> sfnt;
  Unpacking result;
  result.failure = unpackWoff(stream, sfnt);
  if (sfnt != nullptr) {
    const auto cursor = UnpackedSfnt::cursor(sfnt);
    result.font = {std::istreambuf_iterator<char>(*cursor), std::istreambuf_iterator<char>()};
  }
  return result;
}
Unpacking unpack(const WoffBuilder& builder) {
  return unpack(builder.build());
}

/// The offset table and directory of a font with these records.
BeBytes header(unsigned count, unsigned range, unsigned selector, unsigned shift) {
  return BeBytes().u32(0x00010000).u16(count).u16(range).u16(selector).u16(shift);
}

TEST(WoffReader, UnpacksToTheFontThatWasPacked) {
  const auto font = qxtest::sampleFont();
  const Unpacking result = unpack(WoffBuilder::of(font));
  EXPECT_EQ(result.failure, std::nullopt);
  EXPECT_EQ(result.font, font.build());
}

TEST(WoffReader, KeepsTheOrderOfTheDirectoryWhateverTheOffsets) {
  for (const std::size_t unit : {std::size_t{1}, std::size_t{4}, std::size_t{64}}) {
    WoffBuilder builder;
    builder.raw("zzzz", "12345", 7).raw("aaaa", "678", 8).aligned(unit).reversed();
    BeBytes expected = header(2, 32, 1, 0);
    expected.text("zzzz").u32(7).u32(44).u32(5).text("aaaa").u32(8).u32(52).u32(3);
    expected.text("12345").align(4).text("678").align(4);
    EXPECT_EQ(unpack(builder).font, expected.str()) << unit;
  }
}

TEST(WoffReader, ComputesTheSearchFields) {
  struct Case {
    unsigned count, range, selector, shift;
  };
  for (const Case& c : {Case{0, 0, 0, 0}, Case{1, 16, 0, 0}, Case{2, 32, 1, 0}, Case{3, 32, 1, 16},
                        Case{4, 64, 2, 0}, Case{9, 128, 3, 16}, Case{17, 256, 4, 16}}) {
    WoffBuilder builder;
    for (unsigned i = 0; i < c.count; ++i) builder.raw("aaaa", "");
    EXPECT_EQ(unpack(builder).font.substr(0, 12),
              header(c.count, c.range, c.selector, c.shift).str());
  }
}

TEST(WoffReader, TheFlavorBecomesTheVersion) {
  for (const std::uint32_t flavor : {0U, 0x4F54544FU, 0x74727565U, 0xFFFFFFFFU}) {
    WoffBuilder builder;
    EXPECT_EQ(unpack(builder.flavor(flavor)).font.substr(0, 4), BeBytes().u32(flavor).str());
  }
}

TEST(WoffReader, ShortHeadersAreShort) {
  const std::string bytes = WoffBuilder().build();
  for (const std::size_t size : {0U, 1U, 43U})
    EXPECT_EQ(unpack(bytes.substr(0, size)).failure, kCutShort) << size;
  EXPECT_EQ(unpack(bytes).failure, std::nullopt);
}

TEST(WoffReader, OtherSignaturesAreInvalid) {
  std::string bytes = WoffBuilder::of(qxtest::sampleFont()).build();
  for (const char* signature : {"wOF2", "WOFF", "OTTO"})
    EXPECT_EQ(unpack(bytes.replace(0, 4, signature)).failure, kInvalidHeader) << signature;
}

TEST(WoffReader, ATotalSizeBelowTwelveIsInvalidAndAnyOtherIsAHint) {
  const auto font = qxtest::sampleFont();
  for (const std::uint32_t size : {0U, 11U})
    EXPECT_EQ(unpack(WoffBuilder::of(font).totalSfntSize(size)).failure, kInvalidHeader) << size;
  for (const std::uint32_t size : {12U, 100U, 0x7FFFFFFFU, 0xFFFFFFFFU})
    EXPECT_EQ(unpack(WoffBuilder::of(font).totalSfntSize(size)).font, font.build()) << size;
}

TEST(WoffReader, LengthVersionsMetadataAndPrivateDataAreNotLookedAt) {
  std::string bytes = WoffBuilder::of(qxtest::sampleFont()).build();
  bytes.replace(8, 4, 4, '\xFF');
  bytes.replace(14, 2, 2, '\xFF');
  bytes.replace(20, 24, 24, '\xFF');
  EXPECT_EQ(unpack(bytes).font, qxtest::sampleFont().build());
}

TEST(WoffReader, ChecksumsAreCarriedOver) {
  WoffBuilder builder;
  builder.raw("aaaa", "1234", 0xDEADBEEF).deflated("bbbb", std::string(100, 'x'), 0xCAFEBABE);
  const std::string font = unpack(builder).font;
  EXPECT_EQ(font.substr(16, 4), BeBytes().u32(0xDEADBEEF).str());
  EXPECT_EQ(font.substr(32, 4), BeBytes().u32(0xCAFEBABE).str());
}

TEST(WoffReader, ATableOfItsOwnLengthIsNeverInflated) {
  const std::string packed = zlibBytes("abc");
  WoffBuilder builder;
  EXPECT_EQ(unpack(builder.raw("aaaa", packed)).font.substr(28, packed.size()), packed);
}

TEST(WoffReader, AnyOtherLengthIsThatOfCompressedBytesALargerOneToo) {
  const std::string packed = zlibBytes("abc");
  ASSERT_GT(packed.size(), 3U);
  WoffBuilder builder;
  EXPECT_EQ(unpack(builder.packed("aaaa", packed, 3)).font.substr(28), std::string("abc\0", 4));
  EXPECT_EQ(unpack(WoffBuilder().packed("aaaa", "abcd", 3)).failure, kUncompress);
  EXPECT_EQ(unpack(WoffBuilder().packed("aaaa", "", 3)).failure, kUncompress);
  EXPECT_EQ(unpack(WoffBuilder().packed("aaaa", packed.substr(0, packed.size() - 1), 99)).failure,
            kUncompress);
}

TEST(WoffReader, EmptyTablesAreTaken) {
  WoffBuilder builder;
  builder.raw("aaaa", "").raw("bbbb", "x");
  BeBytes expected = header(2, 32, 1, 0);
  expected.text("aaaa").u32(0).u32(44).u32(0).text("bbbb").u32(0).u32(44).u32(1);
  EXPECT_EQ(unpack(builder).font, expected.text("x").align(4).str());
}

/// Kept: the padding counts from what came out, and the next table from what was promised.
TEST(WoffReader, TheInflatedSizeIsNotHeldAgainstTheOriginalLength) {
  WoffBuilder more;  // 10 bytes come out of 4 promised ones; the padding is 2
  more.packed("aaaa", zlibBytes("0123456789"), 4).raw("bbbb", "XY");
  BeBytes expected = header(2, 32, 1, 0);
  expected.text("aaaa").u32(0).u32(44).u32(4).text("bbbb").u32(0).u32(50).u32(2);
  EXPECT_EQ(unpack(more).font, expected.text("012345XY89").zeros(2).str());
  WoffBuilder less;  // 3 bytes come out of 9 promised ones; the padding is 1
  less.packed("aaaa", zlibBytes("012"), 9).raw("bbbb", "XY");
  BeBytes gap = header(2, 32, 1, 0);
  gap.text("aaaa").u32(0).u32(44).u32(9).text("bbbb").u32(0).u32(54).u32(2);
  EXPECT_EQ(unpack(less).font, gap.text("012").zeros(7).text("XY").str());
}

TEST(WoffReader, ACutDirectoryIsToldAtTheEntryThatIsMissing) {
  WoffBuilder builder;
  builder.raw("aaaa", "abc");
  EXPECT_EQ(unpack(builder.statedCount(2)).failure, kCutShort);
  EXPECT_EQ(unpack(builder.build().substr(0, 63)).failure, kCutShort);
  WoffBuilder broken;
  broken.packed("aaaa", "not packed", 3).statedCount(9);
  EXPECT_EQ(unpack(broken).failure, kUncompress);
}

TEST(WoffReader, DataBehindTheEndAreShort) {
  BeBytes file = WoffBuilder().raw("aaaa", "abc").bytes();
  for (const std::uint32_t offset : {62U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    std::string bytes = file.str();
    bytes.replace(file.at("0") + 4, 4, BeBytes().u32(offset).str());
    EXPECT_EQ(unpack(bytes).failure, offset == 62 ? std::nullopt : kCutShort) << offset;
  }
  for (const std::uint32_t length : {5U, 0x7FFFFFFFU}) {
    std::string bytes = file.str();
    bytes.replace(file.at("0") + 8, 4, BeBytes().u32(length).str());
    EXPECT_EQ(unpack(bytes).failure, kCutShort) << length;
  }
}

TEST(WoffReader, PromisesBeyondEveryFontAreRefusedBeforeAnythingIsInflated) {
  const auto tooMuch = static_cast<std::uint32_t>(QXCommonNS::limits::kMostWoffTableBytes + 1);
  const auto most = tooMuch - 1;
  const std::string packed = zlibBytes("abc");
  EXPECT_EQ(unpack(WoffBuilder().packed("aaaa", packed, tooMuch)).failure, kUncompress);
  EXPECT_EQ(unpack(WoffBuilder().packed("aaaa", packed, 0xFFFFFFFF)).failure, kUncompress);
  WoffBuilder builder;
  builder.packed("aaaa", packed, most).packed("bbbb", packed, most);
  EXPECT_EQ(unpack(builder.packed("cccc", packed, 1)).failure, kUncompress);
}

TEST(WoffReader, ATableThatBlowsUpIsStopped) {
  // 150 MiB and one byte of zeros pack into some 150 KB.
  const std::string bomb =
      zlibBytes(std::string(QXCommonNS::limits::kMostWoffTableBytes + 1, '\0'));
  EXPECT_LT(bomb.size(), 200'000U);
  std::istringstream stream(WoffBuilder().packed("aaaa", bomb, 100).build());
  std::shared_ptr<UnpackedSfnt> sfnt;
  EXPECT_EQ(unpackWoff(stream, sfnt), kUncompress);
  EXPECT_LE(sfnt->length(), QXCommonNS::limits::kMostWoffTableBytes + 100);
}

/// A file of `count` tables that all name the same packed bytes, a mebibyte of which one comes out.
std::string fileOfTablesFromTheSameBytes(unsigned count) {
  constexpr std::uint32_t kLength = 1U << 20;
  WoffBuilder builder;
  for (unsigned i = 1; i < count; ++i) builder.packed("aaaa", "", 1);
  std::string packed = zlibBytes("x");
  packed.resize(kLength);
  BeBytes file = builder.packed("bbbb", packed, 1).bytes();
  std::string bytes = file.str();
  const std::string place = bytes.substr(file.at(std::to_string(count - 1)) + 4, 8);
  for (unsigned i = 1; i < count; ++i) bytes.replace(file.at(std::to_string(i - 1)) + 4, 8, place);
  return bytes;
}

TEST(WoffReader, TablesThatShareTheirBytesAreStoppedWhereTheyAreMoreThanAFont) {
  const std::string most = fileOfTablesFromTheSameBytes(300);
  EXPECT_EQ(unpack(most).failure, std::nullopt);
  EXPECT_EQ(unpack(fileOfTablesFromTheSameBytes(301)).failure, kUncompress);
}

TEST(WoffReader, SurvivesAnyDamage) {
  WoffBuilder builder;
  builder.raw("aaaa", "abc").deflated("bbbb", std::string(40, 'x')).raw("cccc", "");
  qxtest::forEachDamage(builder.build(), [](const std::string& bytes) { unpack(bytes); });
}

}  // namespace
}  // namespace QXFontService_NS
