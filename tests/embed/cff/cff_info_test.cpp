#include "embed/cff/cff_info.h"

#include <gtest/gtest.h>

#include <sstream>

#include "embed/cff/operands.h"
#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

using embed::itemOf;
using embed::Keyword;
using qxtest::bytesOf;
using qxtest::CffBuilder;
using qxtest::cffIndex;
using qxtest::DictBuilder;

// A name-keyed font of four glyphs, with strings, a custom encoding and format 0.
CffBuilder nameKeyed() {
  CffBuilder font;
  font.strings = {"one", "two"};
  font.glyphs = {"\x0E", "\x0E", "\x0E", "\x0E"};
  font.charset = CffBuilder::charsetFormat0({34, 391, 1});
  font.privates.resize(1);
  return font;
}

bool read(const std::string& table, FS_CFFInfo& info, std::size_t offset = 0) {
  std::istringstream stream(std::string(offset, '?') + table);
  return info.readCFF(stream, static_cast<unsigned>(offset));
}

TEST(CffInfo, ReadsANameKeyedFont) {
  CffBuilder font = nameKeyed();
  font.encoding = bytesOf({0, 3, 65, 66, 67});
  font.top.numbers({-10, -20, 1000, 900}).op(5);
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info, 7));
  EXPECT_FALSE(info.isCID);
  EXPECT_EQ(info.strings, (std::vector<std::string>{"one", "two"}));
  EXPECT_EQ(info.encodingCodes, (std::vector<unsigned char>{65, 66, 67}));
  EXPECT_EQ(info.charsetSIDs, (std::vector<unsigned short>{34, 391, 1}));
  EXPECT_EQ(FS_Operand(itemOf(info.topDict, Keyword::kFontBBox), 4).getIntegerValue(), 900);
  EXPECT_EQ(info.topInteger(Keyword::kCharStrings), static_cast<int>(font.at("CharStrings")));
  EXPECT_EQ(info.topInteger(Keyword::kFDArray), 0);
}

TEST(CffInfo, MapsGlyphsOfACharsetOfFormatZero) {
  CffBuilder font = nameKeyed();
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.getCIDFromGID(0), 0);
  EXPECT_EQ(info.getCIDFromGID(1), 34);
  EXPECT_EQ(info.getCIDFromGID(3), 1);  // equal to the size is inside
  EXPECT_EQ(info.getCIDFromGID(4), 0);
  EXPECT_EQ(info.getGIDFromCID(391), 2);
  EXPECT_EQ(info.getGIDFromCID(2), 0xFFFF);
}

// Glyph 0 stands in no charset; hosts know that CID 0 leads nowhere.
TEST(CffInfo, CidZeroHasNoGlyph) {
  CffBuilder font = nameKeyed();
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.getGIDFromCID(0), 0xFFFF);
}

TEST(CffInfo, MapsGlyphsOfRanges) {
  CffBuilder font = nameKeyed();
  font.charset = CffBuilder::charsetRanges(1, {{500, 1}, {20, 0}});
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.getCIDFromGID(1), 500);
  EXPECT_EQ(info.getCIDFromGID(2), 501);
  EXPECT_EQ(info.getCIDFromGID(3), 20);
  EXPECT_EQ(info.getCIDFromGID(4), 0);
  EXPECT_EQ(info.getGIDFromCID(501), 2);
  EXPECT_EQ(info.getGIDFromCID(20), 3);
  EXPECT_EQ(info.getGIDFromCID(502), 0xFFFF);
}

TEST(CffInfo, ReadsRosOfACidKeyedFont) {
  CffBuilder font = nameKeyed();
  font.cid = true;
  font.fdSelect = CffBuilder::fdSelect3({{0, 0}}, 4);
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_TRUE(info.isCID);
  EXPECT_EQ(info.registrySID, 391);
  EXPECT_EQ(info.orderingSID, 392);
  EXPECT_EQ(info.supplement, 0u);
  std::string text;
  ASSERT_TRUE(info.getSIDString(info.registrySID, text));
  EXPECT_EQ(text, "one");
}

TEST(CffInfo, RosWithFewerOperandsIsZeroFilledButStillCid) {
  CffBuilder font = nameKeyed();
  font.top.number(391).op(0x0C1E);
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_TRUE(info.isCID);
  EXPECT_EQ(info.registrySID, 391);
  EXPECT_EQ(info.orderingSID, 0);
  CffBuilder bare = nameKeyed();
  bare.top.op(0x0C1E);
  FS_CFFInfo empty;
  ASSERT_TRUE(read(bare.build(), empty));
  EXPECT_TRUE(empty.isCID);
  EXPECT_EQ(empty.registrySID, 0);
}

TEST(CffInfo, NamesStandardAndOwnStrings) {
  CffBuilder font = nameKeyed();
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  std::string text;
  EXPECT_TRUE(info.getSIDString(0, text));
  EXPECT_EQ(text, ".notdef");
  EXPECT_TRUE(info.getSIDString(390, text));
  EXPECT_EQ(text, "Semibold");
  EXPECT_TRUE(info.getSIDString(392, text));
  EXPECT_EQ(text, "two");
  EXPECT_FALSE(info.getSIDString(393, text));
  EXPECT_FALSE(info.getSIDString(0xFFFF, text));
}

// Fonts whose names are all standard have no strings, and must load.
TEST(CffInfo, EmptyStringIndexIsHarmless) {
  CffBuilder font = nameKeyed();
  font.strings.clear();
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_TRUE(info.strings.empty());
  EXPECT_EQ(info.charsetSIDs.size(), 3u);
}

TEST(CffInfo, EmptyStringIndexAtTheVeryEndIsAShortRead) {
  const std::string head = bytesOf({1, 0, 4, 4}) + cffIndex({"N"}) + cffIndex({""});
  FS_CFFInfo info;
  EXPECT_FALSE(read(head + cffIndex({}), info));
  FS_CFFInfo whole;
  EXPECT_TRUE(read(head + cffIndex({}) + "x", whole));
}

TEST(CffInfo, EmptyNameOrTopDictIndexIsNotSupported) {
  CffBuilder font = nameKeyed();
  font.names.clear();
  FS_CFFInfo info;
  EXPECT_FALSE(read(font.build(), info));
  const std::string noTop =
      bytesOf({1, 0, 4, 4}) + cffIndex({"N"}) + cffIndex({}) + cffIndex({"s"}) + "more bytes";
  EXPECT_FALSE(read(noTop, info));
}

// The header is four bytes whatever it says of its own size.
TEST(CffInfo, HeaderSizeIsNotLookedAt) {
  CffBuilder font = nameKeyed();
  font.header = bytesOf({1, 0, 99, 4});
  FS_CFFInfo info;
  EXPECT_TRUE(read(font.build(), info));
  CffBuilder longer = nameKeyed();
  longer.header = bytesOf({1, 0, 5, 4, 0});
  FS_CFFInfo other;
  EXPECT_FALSE(read(longer.build(), other));
}

// With two Top DICTs the bytes of the second are taken for the String INDEX.
TEST(CffInfo, OnlyTheFirstTopDictIsRead) {
  const std::string first = DictBuilder().entry(2, 5).str();
  const std::string second = cffIndex({"fake"});
  const std::string table =
      bytesOf({1, 0, 4, 4}) + cffIndex({"N"}) + cffIndex({first, second}) + cffIndex({"real"});
  FS_CFFInfo info;
  ASSERT_TRUE(read(table, info));
  EXPECT_EQ(info.topInteger(Keyword::kFullName), 5);
  EXPECT_EQ(info.strings, std::vector<std::string>{"fake"});
}

TEST(CffInfo, EncodingZeroOrAbsentGivesNoCodes) {
  CffBuilder font = nameKeyed();
  font.top.entry(16, 0);
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_TRUE(info.encodingCodes.empty());
}

// The predefined Expert encoding is read as an offset of 1: minor version, header size and the
// bytes behind it. Hosts have seen such fonts as font-specific ever since.
TEST(CffInfo, EncodingOneIsAnOffset) {
  CffBuilder font = nameKeyed();
  font.top.entry(16, 1);
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.encodingCodes, (std::vector<unsigned char>{4, 0, 1, 1}));
}

TEST(CffInfo, EncodingOutsideTheStreamFails) {
  for (int offset : {-1, 100000}) {
    CffBuilder font = nameKeyed();
    font.top.number(offset).op(16);
    FS_CFFInfo info;
    EXPECT_FALSE(read(font.build(), info)) << offset;
  }
}

// Bytes that would read as an encoding stand before the table; an offset leads nowhere else.
TEST(CffInfo, NegativeEncodingOffsetIsNoPlaceBeforeTheTable) {
  CffBuilder font = nameKeyed();
  font.top.number(-4).op(16);
  std::istringstream stream(bytesOf({0, 1, 65, 0}) + font.build());
  FS_CFFInfo info;
  EXPECT_FALSE(info.readCFF(stream, 4));
  EXPECT_TRUE(info.encodingCodes.empty());
}

// The Top DICT value keeps the last operand of `Encoding`, while the codes are found by the first.
TEST(CffInfo, EncodingIsFoundByTheFirstOperand) {
  CffBuilder font = nameKeyed();
  font.top.number(1).number(0).op(16);
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.topInteger(Keyword::kEncoding), 0);
  EXPECT_EQ(info.encodingCodes, (std::vector<unsigned char>{4, 0, 1, 1}));
}

TEST(CffInfo, EncodingOfCountZeroGivesNoCodes) {
  CffBuilder font = nameKeyed();
  font.encoding = bytesOf({0, 0});
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_TRUE(info.encodingCodes.empty());
  EXPECT_EQ(info.topInteger(Keyword::kEncoding), static_cast<int>(font.at("Encoding")));
}

TEST(CffInfo, PredefinedCharsetsLeaveTheMapsEmpty) {
  for (int charset : {0, 1, 2}) {
    CffBuilder font = nameKeyed();
    font.charset.clear();
    font.predefinedCharset = charset;
    FS_CFFInfo info;
    ASSERT_TRUE(read(font.build(), info)) << charset;
    EXPECT_EQ(info.getCIDFromGID(1), 0);
    EXPECT_EQ(info.getGIDFromCID(0), 0xFFFF);
    EXPECT_EQ(info.getGIDFromCID(34), 0xFFFF);
  }
}

// Three is the first charset number that is an offset: here the last byte of the header is a
// format, and the Name INDEX gives the SIDs.
TEST(CffInfo, CharsetThreeIsAnOffset) {
  CffBuilder font = nameKeyed();
  font.charset.clear();
  font.predefinedCharset = 3;
  font.header = bytesOf({1, 0, 4, 0});
  FS_CFFInfo info;
  ASSERT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.charsetSIDs, (std::vector<unsigned short>{0x0001, 0x0101, 0x0554}));
  font.header = bytesOf({1, 0, 4, 3});
  FS_CFFInfo other;
  EXPECT_FALSE(read(font.build(), other));
}

TEST(CffInfo, NegativeCharsetOffsetIsNoPlaceBeforeTheTable) {
  CffBuilder font = nameKeyed();
  font.charset.clear();
  font.top.number(-8).op(15);
  std::istringstream stream(bytesOf({0, 0, 34, 0, 35, 0, 36, 0}) + font.build());
  FS_CFFInfo info;
  EXPECT_FALSE(info.readCFF(stream, 8));
  EXPECT_TRUE(info.charsetSIDs.empty());
}

// Three bytes are read for the glyph count as for the head of any INDEX, though two would do.
TEST(CffInfo, GlyphCountNeedsAThirdByte) {
  CffBuilder font = nameKeyed();
  font.writeCharStrings = false;
  const auto end = static_cast<int>(nameKeyed().build().size() + 40);
  font.top.number(end, qxtest::DictForm::fourBytes).op(17);
  std::string table = font.build();
  table.resize(static_cast<std::size_t>(end), '\0');
  table += bytesOf({0, 4});
  FS_CFFInfo info;
  EXPECT_FALSE(read(table, info));
  FS_CFFInfo whole;
  ASSERT_TRUE(read(table + '\1', whole));
  EXPECT_EQ(whole.charsetSIDs.size(), 3u);
}

TEST(CffInfo, CharsetAbsentOrPredefinedNeedsNoCharStrings) {
  CffBuilder font = nameKeyed();
  font.charset.clear();
  font.writeCharStrings = false;
  FS_CFFInfo info;
  EXPECT_TRUE(read(font.build(), info));
}

TEST(CffInfo, CharsetWithoutCharStringsFails) {
  CffBuilder font = nameKeyed();
  font.writeCharStrings = false;
  FS_CFFInfo info;
  EXPECT_FALSE(read(font.build(), info));
}

TEST(CffInfo, CharsetOfAnotherFormatFails) {
  CffBuilder font = nameKeyed();
  font.charset = bytesOf({3, 0, 1, 0, 2, 0, 3});
  FS_CFFInfo info;
  EXPECT_FALSE(read(font.build(), info));
}

TEST(CffInfo, CharsetOutsideTheStreamFails) {
  for (int offset : {-1, 100000}) {
    CffBuilder font = nameKeyed();
    font.charset.clear();
    font.top.number(offset).op(15);
    FS_CFFInfo info;
    EXPECT_FALSE(read(font.build(), info)) << offset;
  }
}

// The Top DICT value keeps the last operand, while the structures are found by the first.
TEST(CffInfo, StructuresAreFoundByTheFirstOperand) {
  CffBuilder font = nameKeyed();
  const std::size_t size = font.build().size();
  const auto charset = static_cast<int>(font.at("charset"));
  const auto charStrings = static_cast<int>(font.at("CharStrings"));
  // The same font with both operators by hand, each with a second operand.
  CffBuilder other = nameKeyed();
  const std::string body = other.charset;
  other.charset.clear();
  other.writeCharStrings = false;
  other.privates.clear();
  const int gap = 100;
  other.top.number(charset + gap, qxtest::DictForm::fourBytes).number(7).op(15);
  other.top.number(charStrings + gap, qxtest::DictForm::fourBytes).number(8).op(17);
  std::string table = other.build();
  table.resize(static_cast<std::size_t>(charset + gap), '\0');
  table += body;
  table.resize(static_cast<std::size_t>(charStrings + gap), '\0');
  table += cffIndex(font.glyphs);
  FS_CFFInfo info;
  ASSERT_TRUE(read(table, info)) << size;
  EXPECT_EQ(info.topInteger(Keyword::kCharset), 7);
  EXPECT_EQ(info.topInteger(Keyword::kCharStrings), 8);
  EXPECT_EQ(info.charsetSIDs, (std::vector<unsigned short>{34, 391, 1}));
}

TEST(CffInfo, ReservedOperatorsParseOn) {
  CffBuilder font = nameKeyed();
  font.top.numbers({1, 2, 3}).op(0x0C18).op(22).op(27);
  FS_CFFInfo info;
  EXPECT_TRUE(read(font.build(), info));
  EXPECT_EQ(info.charsetSIDs.size(), 3u);
}

TEST(CffInfo, EveryCutBeforeTheEndOfTheCharsetIsRefused) {
  CffBuilder font = nameKeyed();
  font.order = {"CharStrings", "Private", "Encoding", "charset"};
  font.encoding = bytesOf({1, 1, 65, 2});
  qxtest::forEachPrefix(font.build(), [](const std::string& table) {
    FS_CFFInfo info;
    EXPECT_FALSE(read(table, info)) << table.size();
  });
}

TEST(CffInfo, SurvivesDamage) {
  CffBuilder font = nameKeyed();
  font.encoding = bytesOf({1, 1, 65, 2});
  font.charset = CffBuilder::charsetRanges(2, {{34, 1}, {391, 0}});
  qxtest::forEachDamage(font.build(), [](const std::string& table) {
    FS_CFFInfo info;
    read(table, info);
    EXPECT_LE(info.charsetSIDs.size(), 65535u);
    static_cast<void>(info.getCIDFromGID(3));
    static_cast<void>(info.getGIDFromCID(3));
  });
}

}  // namespace
}  // namespace QXFontService_NS
