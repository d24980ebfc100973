#include "embed/conforming/cff_conforming.h"

#include <gtest/gtest.h>

#include "embed/cff/operands.h"
#include "embed/cff_subset_fixture.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::bytesOf;
using qxtest::CffBuilder;
using qxtest::cffIndex;
using qxtest::CharStringBuilder;
using qxtest::DictBuilder;
using qxtest::DictForm;
using Gids = std::vector<std::uint16_t>;

const std::string kEmpty = "\x0E";

std::string conformingFrom(const std::string& table, const Gids& gids, unsigned glyphCount = 0) {
  OpenedCff font(table);
  std::vector<std::byte> out;
  if (!makeConformingCff(font.source, gids, glyphCount, out)) return "false";
  return {static_cast<const char*>(static_cast<const void*>(out.data())), out.size()};
}

std::string conformingFrom(CffBuilder& builder, const Gids& gids, unsigned glyphCount = 0) {
  return conformingFrom(builder.build(), gids, glyphCount);
}

FS_CFFStrings charStringsOf(OpenedCff& font) {
  FS_CFFIndexHeader header;
  FS_CFFStrings entries;
  EXPECT_TRUE(cff::readCFFIndexHeader(font.source.table,
                                      font.info.topInteger(Keyword::kCharStrings), header));
  EXPECT_TRUE(cff::readIndexEntries(header, font.stream, entries));
  return entries;
}

TEST(ConformingCff, KeepsIdsAndWritesEveryGlyph) {
  CffBuilder builder = nameKeyedFont(6);
  OpenedCff font(conformingFrom(builder, {4, 2, 4, 0, 0xFFFF}, 6));
  ASSERT_TRUE(font.loaded);
  EXPECT_EQ(charStringsOf(font),
            (FS_CFFStrings{glyphOf(0), kEmpty, glyphOf(2), kEmpty, glyphOf(4), kEmpty}));
  EXPECT_EQ(font.info.getCIDFromGID(4), 4);
  EXPECT_EQ(font.info.strings, std::vector<std::string>{"own"});
}

TEST(ConformingCff, GoldenBytesOfASmallFont) {
  CffBuilder builder = nameKeyedFont(4);
  builder.offsetForm = builder.privateOffsetForm = DictForm::shortest;
  const auto place = [](std::size_t value) {
    return DictBuilder().number(static_cast<int>(value), DictForm::fourBytes).str();
  };
  const std::string charStrings = cffIndex({glyphOf(0), kEmpty, glyphOf(2), kEmpty});
  const std::string privateDict =
      builder.privates[0].dict.str() + place(9) + bytesOf({19});  // its subroutines lie behind it
  const std::size_t top = 5 + 1 + 5 + 1 + 10 + 1;                 // charset, CharStrings, Private
  const std::size_t charset = 4 + 9 + 5 + top + 8 + 2;            // names, Top DICT, strings, none
  const std::size_t atCharStrings = charset + builder.charset.size();
  const std::string dict = place(charset) + bytesOf({15}) + place(atCharStrings) + bytesOf({17}) +
                           place(privateDict.size()) + place(atCharStrings + charStrings.size()) +
                           bytesOf({18});
  EXPECT_EQ(conformingFrom(builder, {2}, 4),
            bytesOf({1, 0, 4, 4}) + cffIndex({"Test"}) + cffIndex({dict}) + cffIndex({"own"}) +
                cffIndex({}) + builder.charset + charStrings + privateDict + cffIndex({"\x0B"}));
}

TEST(ConformingCff, WritesAsManyGlyphsAsMaxpSays) {
  CffBuilder builder = nameKeyedFont(6);
  OpenedCff fewer(conformingFrom(builder, {2}, 4));
  EXPECT_EQ(charStringsOf(fewer).size(), 4u);
  OpenedCff unknown(conformingFrom(builder, {2}, 0));
  EXPECT_EQ(charStringsOf(unknown).size(), 6u);
  EXPECT_EQ(conformingFrom(builder, {2}, 7), "false");
  EXPECT_EQ(conformingFrom(builder, {4}, 4), "false");
  EXPECT_EQ(conformingFrom(builder, {6}, 0), "false");
}

TEST(ConformingCff, KeepsPrivateDictAndSubrs) {
  for (DictForm form : {DictForm::shortest, DictForm::twoBytes, DictForm::fourBytes}) {
    CffBuilder builder = nameKeyedFont(6);
    builder.offsetForm = builder.privateOffsetForm = form;
    builder.globalSubrs = {"\x0B"};
    OpenedCff font(conformingFrom(builder, {2}));
    ASSERT_TRUE(font.loaded);
    QXCommonNS::QXValue privateMap;
    cff::LocalSubrs subrs;
    FS_CFFStrings globalSubrs;
    ASSERT_TRUE(cff::readLocalSubrs(font.source.table, font.info.topDict, privateMap, subrs));
    ASSERT_TRUE(cff::readGlobalSubrs(font.source.table, globalSubrs));
    EXPECT_EQ(itemOf(privateMap, Keyword::kDefaultWidthX).getIntegerValue(), 500);
    EXPECT_EQ(cff::stringsOf(subrs), FS_CFFStrings{"\x0B"});
    EXPECT_EQ(globalSubrs, FS_CFFStrings{"\x0B"});
  }
}

TEST(ConformingCff, TakesAPrivateDictOfNoBytes) {
  CffBuilder builder = nameKeyedFont(4);
  builder.privates = {qxtest::CffPrivate()};
  OpenedCff font(conformingFrom(builder, {2}, 4));
  ASSERT_TRUE(font.loaded);
  EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), kEmpty, glyphOf(2), kEmpty}));
  EXPECT_EQ(FS_Operand(itemOf(font.info.topDict, Keyword::kPrivate), 1).getIntegerValue(), 0);
}

TEST(ConformingCff, KeepsFontDictsInAnyOrderOfTheSource) {
  for (const std::vector<std::string>& order :
       {std::vector<std::string>{"charset", "FDSelect", "CharStrings", "FDArray"},
        std::vector<std::string>{"FDArray", "CharStrings", "FDSelect", "charset"}}) {
    CffBuilder builder = cidKeyedFont(20);
    builder.order = order;
    builder.privates[0].form = DictForm::twoBytes;
    builder.privates[1].fontDict.entry(0x0C26, 391);
    OpenedCff font(conformingFrom(builder, {3, 15}, 20));
    ASSERT_TRUE(font.loaded);
    EXPECT_EQ(charStringsOf(font).size(), 20u);
    EXPECT_EQ(font.info.getCIDFromGID(15), 115);
    std::vector<FS_FDRange> ranges;
    cff::FontDicts dicts;
    ASSERT_TRUE(cff::readFDSelect(font.source.table, font.info, ranges));
    ASSERT_TRUE(cff::readFDArray(font.source.table, font.info, dicts));
    EXPECT_EQ(ranges.size(), 2u);
    EXPECT_EQ(itemOf(dicts.privates[0], Keyword::kDefaultWidthX).getIntegerValue(), 500);
    EXPECT_EQ(itemOf(dicts.privates[1], Keyword::kDefaultWidthX).getIntegerValue(), 501);
    EXPECT_EQ(cff::stringsOf(dicts.subrs[0]), FS_CFFStrings{"\x0B"});
    EXPECT_EQ(cff::stringsOf(dicts.subrs[1]), FS_CFFStrings{"\x0C"});
    EXPECT_EQ(itemOf(dicts.dicts[1], Keyword::kFontName).getIntegerValue(), 391);
  }
}

TEST(ConformingCff, KeepsFDSelectOfFormatZeroWhole) {
  CffBuilder builder = cidKeyedFont(4);
  builder.fdSelect = CffBuilder::fdSelect0({0, 1, 0, 1});
  const std::string bytes = conformingFrom(builder, {3}, 4);
  EXPECT_NE(bytes.find(builder.fdSelect), std::string::npos);
}

TEST(ConformingCff, KeepsEncodingWithItsSupplement) {
  CffBuilder builder = nameKeyedFont(4);
  builder.encoding = bytesOf({0x80, 1, 65, 1, 70, 0, 2});
  const std::string bytes = conformingFrom(builder, {1});
  OpenedCff font(bytes);
  ASSERT_TRUE(font.loaded);
  const auto at = static_cast<std::size_t>(font.info.topInteger(Keyword::kEncoding));
  EXPECT_EQ(bytes.substr(at, builder.encoding.size()), builder.encoding);
}

TEST(ConformingCff, PredefinedCharsetAndEncodingStay) {
  for (int charset : {0, 1, 2}) {
    CffBuilder builder = nameKeyedFont(4);
    builder.charset.clear();
    builder.predefinedCharset = charset;
    builder.top.entry(16, 1);
    OpenedCff font(conformingFrom(builder, {1}));
    ASSERT_TRUE(font.loaded);
    EXPECT_EQ(font.info.topInteger(Keyword::kCharset), charset);
    EXPECT_EQ(font.info.topInteger(Keyword::kEncoding), 1);
  }
}

std::string composite(int base, int accent) {
  return CharStringBuilder().numbers({10, 20, base, accent}).op(14).str();
}

TEST(ConformingCff, ClosesCompositesOverAllLevels) {
  CffBuilder builder = nameKeyedFont(6);
  builder.charset = CffBuilder::charsetFormat0({34, 125, 171, 35, 36});  // A, acute, Aacute, B, C
  builder.encoding = bytesOf({0, 1, 65});                                // custom: no matter
  builder.glyphs[3] = composite(65, 194);
  builder.glyphs[2] = composite(66, 194);  // acute of B and itself
  OpenedCff font(conformingFrom(builder, {3}));
  EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), glyphOf(1), builder.glyphs[2],
                                                builder.glyphs[3], glyphOf(4), kEmpty}));
}

// In the predefined charset glyph ids are SIDs.
TEST(ConformingCff, FindsPartsInTheIsoAdobeCharset) {
  CffBuilder builder = nameKeyedFont(127);
  builder.charset.clear();
  builder.glyphs[1] = composite(65, 194);
  OpenedCff font(conformingFrom(builder, {1}));
  const FS_CFFStrings glyphs = charStringsOf(font);
  EXPECT_EQ(glyphs[34], glyphOf(34));
  EXPECT_EQ(glyphs[125], glyphOf(125));
  EXPECT_EQ(glyphs[35], kEmpty);
}

TEST(ConformingCff, PartsPastTheEndAreLeftOut) {
  CffBuilder builder = nameKeyedFont(30);
  builder.charset.clear();
  builder.glyphs[1] = composite(65, 194);
  EXPECT_NE(conformingFrom(builder, {1}), "false");
}

TEST(ConformingCff, WhatCannotBeReadIsRefused) {
  CffBuilder noCharStrings = nameKeyedFont(4);
  noCharStrings.charset.clear();
  noCharStrings.writeCharStrings = false;
  EXPECT_EQ(conformingFrom(noCharStrings, {1}), "false");
  CffBuilder badSubrs = nameKeyedFont(4);
  badSubrs.privates[0].subrs.clear();
  badSubrs.privates[0].dict.entry(19, 10000);
  EXPECT_EQ(conformingFrom(badSubrs, {1}), "false");
  std::vector<std::byte> out;
  EXPECT_FALSE(makeConformingCff({}, {1}, 0, out));
}

TEST(ConformingCff, TwoRunsGiveTheSameBytes) {
  CffBuilder builder = cidKeyedFont(20);
  EXPECT_EQ(conformingFrom(builder, {3, 15}), conformingFrom(builder, {15, 3, 3}));
}

// Written again from what was written, nothing changes.
TEST(ConformingCff, IsItsOwnConformingForm) {
  CffBuilder builder = cidKeyedFont(20);
  const std::string once = conformingFrom(builder, {3, 15});
  EXPECT_EQ(conformingFrom(once, {3, 15}), once);
}

TEST(ConformingCff, SurvivesDamage) {
  CffBuilder encoded = nameKeyedFont(5);
  encoded.encoding = bytesOf({0x80, 1, 65, 1, 70, 0, 2});
  for (CffBuilder builder : {encoded, cidKeyedFont(5)}) {
    qxtest::forEachDamage(builder.build(), [](const std::string& bytes) {
      OpenedCff font(bytes);
      if (!font.loaded) return;
      std::vector<std::byte> out;
      const bool made = makeConformingCff(font.source, {1, 3}, 5, out);
      EXPECT_TRUE(!made || out.size() <= 70000 + 4 * bytes.size());
    });
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
