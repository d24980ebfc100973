#include "embed/woff.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"
#include "support/sample_font.h"
#include "support/sfnt_builder.h"
#include "support/woff_builder.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXMemStream;
using qxtest::BeBytes;
using qxtest::SfntBuilder;
using qxtest::zlibBytes;

std::string bytesIn(QXMemStream& stream) {
  std::string bytes(stream.length(), '\0');
  stream.clear();
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

using Writer = bool (*)(QXMemStream&, QXMemStream&);

std::string pack(const std::string& font, Writer write = writeWOFF) {
  QXMemStream sfnt(nullptr, 8192, false, true);
  QXMemStream out(nullptr, 8192, false, true);
  sfnt += font;
  EXPECT_TRUE(write(out, sfnt));
  return bytesIn(out);
}

/// A header as both writers write it.
BeBytes header(std::uint32_t length, unsigned count, std::uint32_t sfntSize) {
  BeBytes out;
  out.text("wOFF").u32(0x00010000).u32(length).u16(count).u16(0).u32(sfntSize);
  return out.u16(1).u16(0).zeros(20);
}

std::uint32_t longAt(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
  return value;
}

TEST(WriteWoff, WritesHeaderDirectoryAndTablesByteForByte) {
  const std::string text(100, 'x');
  const std::string packed = zlibBytes(text);
  const std::string font = SfntBuilder().table("aaaa", "12345").table("bbbb", text).build();
  const auto size = static_cast<std::uint32_t>(packed.size());
  BeBytes expected = header(89 + size, 2, 152);
  expected.text("aaaa").u32(84).u32(5).u32(5).u32(longAt(font, 16));
  expected.text("bbbb").u32(89).u32(size).u32(100).u32(longAt(font, 32));
  expected.text("12345").text(packed);
  EXPECT_EQ(pack(font), expected.str());
}

TEST(WriteWoff, OfAFontWithoutTablesTheHeaderGoesOut) {
  EXPECT_EQ(pack(SfntBuilder().build().substr(0, 12)), header(44, 0, 12).str());
}

/// Kept: files already made have their tables on any byte, and end with the last one.
TEST(WriteWoff, TablesFollowOneAnotherWithoutPadding) {
  const std::string file =
      pack(SfntBuilder().table("aaaa", "1").table("bbbb", "22").table("cccc", "333").build());
  EXPECT_EQ(longAt(file, 44 + 4), 104U);
  EXPECT_EQ(longAt(file, 64 + 4), 105U);
  EXPECT_EQ(longAt(file, 84 + 4), 107U);
  EXPECT_EQ(file.substr(104), "122333");
  EXPECT_EQ(longAt(file, 8), file.size());
}

/// Kept: the length of the font as it stands, which may be no multiple of 4.
TEST(WriteWoff, TheTotalSizeIsTheLengthOfTheFont) {
  const std::string font = SfntBuilder().table("aaaa", "1").build();
  EXPECT_EQ(longAt(pack(font), 16), 32U);
  EXPECT_EQ(longAt(pack(font.substr(0, 29)), 16), 29U);
}

TEST(WriteWoff, TheFlavorIsTheVersionOfTheFontAsItStands) {
  for (const std::uint32_t version : {0x00010000U, 0x4F54544FU, 0x74727565U, 0xFFFFFFFFU})
    EXPECT_EQ(longAt(pack(SfntBuilder(version).table("a", "1").build()), 4), version);
}

/// Kept: checksums are those of the directory, right or wrong.
TEST(WriteWoff, ChecksumsAreCopied) {
  std::string font = SfntBuilder().table("aaaa", "1").build();
  font.replace(16, 4, BeBytes().u32(0xDEADBEEF).str());
  EXPECT_EQ(longAt(pack(font), 44 + 16), 0xDEADBEEFU);
}

TEST(WriteWoff, AnEmptyTableTakesNoBytes) {
  const std::string file = pack(SfntBuilder().table("aaaa", "").table("bbbb", "1").build());
  EXPECT_EQ(file.substr(44, 16), BeBytes().text("aaaa").u32(84).u32(0).u32(0).str());
  EXPECT_EQ(file.substr(64, 16), BeBytes().text("bbbb").u32(84).u32(1).u32(1).str());
  EXPECT_EQ(file.size(), 85U);
}

TEST(WriteWoff, WhatDeflatingDoesNotShortenGoesOutAsItIs) {
  // "aaaaaaaaa" deflates to 11 bytes; 12 letters to 11; 11 letters to as many as they are.
  for (const std::size_t size : {9U, 10U, 11U, 12U, 13U}) {
    const std::string table(size, 'a');
    const std::string packed = zlibBytes(table);
    const std::string file = pack(SfntBuilder().table("aaaa", table).build());
    const bool shorter = packed.size() < size;
    EXPECT_EQ(file.substr(64), shorter ? packed : table) << size;
    EXPECT_EQ(longAt(file, 52), shorter ? packed.size() : size);
    EXPECT_EQ(longAt(file, 56), size);
  }
  EXPECT_EQ(zlibBytes(std::string(11, 'a')).size(), 11U);
}

/// Bytes that cannot be shortened.
std::string noise(std::size_t size, unsigned seed) {
  std::string bytes;
  std::uint32_t state = seed;
  for (std::size_t i = 0; i < size; ++i) {
    state = state * 1664525U + 1013904223U;
    bytes += static_cast<char>(state >> 24);
  }
  return bytes;
}

TEST(WriteWoff, TablesOfAllSizesAroundTheBufferAreWhole) {
  SfntBuilder font;
  const std::string tags[] = {"aaaa", "bbbb", "cccc", "dddd", "eeee"};
  const std::size_t sizes[] = {1024, 1025, 3, 9000, 1024};
  std::string expected;
  for (std::size_t i = 0; i < 5; ++i) {
    font.table(tags[i], noise(sizes[i], static_cast<unsigned>(i) + 1));
    expected += font.bytesOf(tags[i]);
  }
  EXPECT_EQ(pack(font.build()).substr(44 + 100), expected);
}

TEST(WriteWoff, OfATableGoesOutWhatTheFontHolds) {
  // A damaged record may state any length: memory follows what is there.
  for (const std::uint32_t length : {6000U, 0x7FFFFFF0U, 0xFFFFFFFFU}) {
    const std::string damaged =
        SfntBuilder().table("aaaa", std::string(5000, 'x')).statedLength("aaaa", length).build();
    const std::string packed = zlibBytes(std::string(5000, 'x'));
    const std::string file = pack(damaged);
    EXPECT_EQ(file.size(), 64 + packed.size());
    EXPECT_EQ(file.substr(64), packed);
    EXPECT_EQ(longAt(file, 56), length);
  }
}

TEST(WriteWoff, OfATableThatIsCutTheRestGoesOutAsItIs) {
  const std::string font = SfntBuilder().table("aaaa", "1234").build();
  const std::string file = pack(font.substr(0, 30));
  EXPECT_EQ(file.substr(52, 8), BeBytes().u32(2).u32(4).str());
  EXPECT_EQ(file.substr(64), "12");
  EXPECT_EQ(longAt(file, 8), file.size());
}

TEST(WriteWoff, KeepsTheOrderOfTheDirectory) {
  const std::string file = pack(SfntBuilder().table("zzzz", "1").table("aaaa", "2").build());
  EXPECT_EQ(file.substr(44, 4), "zzzz");
  EXPECT_EQ(file.substr(84), "12");
}

TEST(WriteWoff, TwoRunsGiveTheSameBytes) {
  const std::string font = qxtest::sampleFont().build();
  EXPECT_EQ(pack(font), pack(font));
  EXPECT_EQ(pack(font, writeConformingWoff), pack(font, writeConformingWoff));
}

TEST(WriteConformingWoff, PadsEachTableToFourBytes) {
  const std::string font = SfntBuilder().table("aaaa", "12345").table("bbbb", "6").build();
  BeBytes expected = header(96, 2, 44 + 8 + 4);
  expected.text("aaaa").u32(84).u32(5).u32(5).u32(longAt(font, 16));
  expected.text("bbbb").u32(92).u32(1).u32(1).u32(longAt(font, 32));
  expected.text("12345").zeros(3).text("6").zeros(3);
  EXPECT_EQ(pack(font, writeConformingWoff), expected.str());
}

TEST(WriteConformingWoff, TellsTheSizeThatTheFormatAsksFor) {
  const std::string font = SfntBuilder().table("aaaa", "1").build();
  EXPECT_EQ(longAt(pack(font.substr(0, 29), writeConformingWoff), 16), 32U);
}

TEST(WriteConformingWoff, IsWhatTheBuilderWritesOfTheSameFont) {
  const auto font = qxtest::sampleFont();
  EXPECT_EQ(pack(font.build(), writeConformingWoff), qxtest::WoffBuilder::of(font).build());
}

}  // namespace
}  // namespace QXFontService_NS::embed
