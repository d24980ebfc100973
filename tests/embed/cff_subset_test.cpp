#include "embed/cff_subset.h"

#include <gtest/gtest.h>

#include "embed/cff_subset_fixture.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::bytesOf;
using qxtest::CffBuilder;
using qxtest::cffIndex;
using qxtest::CharStringBuilder;
using qxtest::DictBuilder;
using qxtest::DictForm;
using Gids = std::vector<std::uint16_t>;

std::string subsetFrom(CffBuilder& builder, const Gids& gids, std::uint16_t space = 1) {
  OpenedCff font(builder);
  font.source.spaceGlyph = space;
  return written([&](auto& out) { return makeCFFSubsetFont(font.source, gids, out); });
}

FS_CFFStrings charStringsOf(OpenedCff& font) {
  FS_CFFIndexHeader header;
  FS_CFFStrings entries;
  EXPECT_TRUE(cff::readCFFIndexHeader(font.source.table,
                                      font.info.topInteger(Keyword::kCharStrings), header));
  EXPECT_TRUE(cff::readIndexEntries(header, font.stream, entries));
  return entries;
}

FS_CFFStrings subsetGlyphs(CffBuilder& builder, const Gids& gids, std::uint16_t space = 1) {
  OpenedCff font(subsetFrom(builder, gids, space));
  return charStringsOf(font);
}

TEST(CffSubsetFont, KeepsIdsAndFillsTheGapsWithTheSpace) {
  CffBuilder builder = nameKeyedFont(8);
  EXPECT_EQ(subsetGlyphs(builder, {5, 3}), (FS_CFFStrings{glyphOf(0), glyphOf(1), glyphOf(1),
                                                          glyphOf(3), glyphOf(1), glyphOf(5)}));
}

const std::string kHeader = bytesOf({1, 0, 4, 3});  // whatever the source has

void replaceOnce(std::string& text, const std::string& before, const std::string& after) {
  const std::size_t at = text.find(before);
  ASSERT_NE(at, std::string::npos);
  ASSERT_EQ(text.find(before, at + 1), std::string::npos);
  text.replace(at, before.size(), after);
}

std::string offsetOperator(std::size_t offset, unsigned op) {
  return DictBuilder().number(static_cast<int>(offset), DictForm::fourBytes).op(op).str();
}

TEST(CffSubsetFont, GoldenBytesOfANameKeyedFont) {
  CffBuilder builder = nameKeyedFont(8);
  builder.header = kHeader;
  const std::string source = builder.build();
  const std::size_t charStrings = builder.at("CharStrings");
  const std::string index = cffIndex({glyphOf(0), glyphOf(1), glyphOf(1), glyphOf(3)});
  std::string expected =
      source.substr(0, charStrings) + index + source.substr(builder.at("Private"));
  replaceOnce(expected, offsetOperator(builder.at("Private"), 18),
              offsetOperator(charStrings + index.size(), 18));
  EXPECT_EQ(subsetFrom(builder, {3}), expected);
}

TEST(CffSubsetFont, GoldenBytesOfACidKeyedFont) {
  CffBuilder builder = cidKeyedFont(8);
  builder.header = kHeader;
  const std::string source = builder.build();
  const std::size_t charStrings = builder.at("CharStrings");
  const std::size_t fdArray = builder.at("FDArray");
  const std::string index = cffIndex({glyphOf(0), glyphOf(1), glyphOf(2)});
  const std::size_t moved = charStrings + index.size();
  std::string expected = source.substr(0, charStrings) + index + source.substr(fdArray);
  replaceOnce(expected, offsetOperator(fdArray, 0x0C24), offsetOperator(moved, 0x0C24));
  for (const char* name : {"Private0", "Private1"})
    replaceOnce(expected, offsetOperator(builder.at(name), 18),
                offsetOperator(builder.at(name) - fdArray + moved, 18));
  EXPECT_EQ(subsetFrom(builder, {2, 1}), expected);
}

TEST(CffSubsetFont, TopPrivateBeforeTheFDArrayGoesOutBeforeIt) {
  CffBuilder builder = cidKeyedWithTopPrivate(true);
  builder.header = kHeader;
  const std::string source = builder.build();
  const std::size_t charStrings = builder.at("CharStrings");
  const std::size_t fdArray = builder.at("FDArray");
  const std::string index = cffIndex({glyphOf(0), glyphOf(1), glyphOf(2)});
  const std::size_t moved = charStrings + index.size() + kTopPrivate.size();
  std::string expected =
      source.substr(0, charStrings) + index + kTopPrivate + source.substr(fdArray);
  replaceOnce(expected, offsetOperator(builder.at("Encoding"), 18),
              offsetOperator(charStrings + index.size(), 18));
  replaceOnce(expected, offsetOperator(fdArray, 0x0C24), offsetOperator(moved, 0x0C24));
  for (const char* name : {"Private0", "Private1"})
    replaceOnce(expected, offsetOperator(builder.at(name), 18),
                offsetOperator(builder.at(name) - fdArray + moved, 18));
  EXPECT_EQ(subsetFrom(builder, {2, 1}), expected);
}

// What stands between the two, the Private DICTs of the Font DICTs, is not copied: kept.
TEST(CffSubsetFont, TopPrivateBehindTheFDArrayFollowsItsFontDicts) {
  CffBuilder builder = cidKeyedWithTopPrivate(false);
  builder.header = kHeader;
  const std::string source = builder.build();
  const std::size_t charStrings = builder.at("CharStrings");
  const std::size_t fdArray = builder.at("FDArray");
  const std::string index = cffIndex({glyphOf(0), glyphOf(1), glyphOf(2)});
  const std::size_t moved = charStrings + index.size();
  const std::size_t fdArraySize = builder.at("Private0") - fdArray;
  std::string expected =
      source.substr(0, charStrings) + index + source.substr(fdArray, fdArraySize) + kTopPrivate;
  replaceOnce(expected, offsetOperator(builder.at("End"), 18),
              offsetOperator(moved + fdArraySize, 18));
  replaceOnce(expected, offsetOperator(fdArray, 0x0C24), offsetOperator(moved, 0x0C24));
  for (const char* name : {"Private0", "Private1"})
    replaceOnce(expected, offsetOperator(builder.at(name), 18),
                offsetOperator(builder.at(name) - fdArray + moved, 18));
  EXPECT_EQ(subsetFrom(builder, {2, 1}), expected);
}

// The count ends at the highest id, whatever `maxp` says: kept.
TEST(CffSubsetFont, NothingIsWrittenBehindTheHighestGlyph) {
  CffBuilder builder = nameKeyedFont(8);
  EXPECT_EQ(subsetGlyphs(builder, {1}).size(), 2u);
  EXPECT_EQ(subsetGlyphs(builder, {7}).size(), 8u);
}

TEST(CffSubsetFont, ZeroRepeatsAndNoGlyphAddNothing) {
  CffBuilder builder = nameKeyedFont(8);
  EXPECT_EQ(subsetGlyphs(builder, {0}), FS_CFFStrings{glyphOf(0)});
  EXPECT_EQ(subsetGlyphs(builder, {0xFFFF}), FS_CFFStrings{glyphOf(0)});
  EXPECT_EQ(subsetGlyphs(builder, {2, 0, 2, 0xFFFF, 1}),
            (FS_CFFStrings{glyphOf(0), glyphOf(1), glyphOf(2)}));
}

TEST(CffSubsetFont, WithoutASpaceGlyphZeroFills) {
  CffBuilder builder = nameKeyedFont(8);
  for (std::uint16_t space : {std::uint16_t{0xFFFF}, std::uint16_t{8}, std::uint16_t{0}})
    EXPECT_EQ(subsetGlyphs(builder, {2}, space),
              (FS_CFFStrings{glyphOf(0), glyphOf(0), glyphOf(2)}));
}

TEST(CffSubsetFont, RefusesNoGlyphsNoTableAndGlyphsPastTheEnd) {
  CffBuilder builder = nameKeyedFont(8);
  EXPECT_EQ(subsetFrom(builder, {}), "false");
  EXPECT_EQ(subsetFrom(builder, {8}), "false");
  const CffSubsetSource none;
  EXPECT_EQ(written([&](auto& out) { return makeCFFSubsetFont(none, {1}, out); }), "false");
}

TEST(CffSubsetFont, KeepsAllThatStandsBeforeCharStrings) {
  CffBuilder builder = nameKeyedFont(8);
  builder.top.entry(0, 391);
  builder.encoding = bytesOf({0, 1, 65});
  const std::string source = builder.build();
  const std::string out = subsetFrom(builder, {5});
  // Header and the operand of Private apart, byte for byte.
  std::string expected = source.substr(0, builder.at("CharStrings"));
  expected.replace(0, 4, bytesOf({1, 0, 4, 3}));
  const std::size_t operand = builder.at("Strings") - 5;
  expected.replace(operand, 4, out.substr(operand, 4));
  EXPECT_EQ(out.substr(0, expected.size()), expected);
}

TEST(CffSubsetFont, KeepsPrivateSubrsAndCharsetOfANameKeyedFont) {
  CffBuilder builder = nameKeyedFont(8);
  OpenedCff font(subsetFrom(builder, {5}));
  ASSERT_TRUE(font.loaded);
  QXCommonNS::QXValue privateMap;
  cff::LocalSubrs subrs;
  ASSERT_TRUE(cff::readLocalSubrs(font.source.table, font.info.topDict, privateMap, subrs));
  EXPECT_EQ(itemOf(privateMap, Keyword::kDefaultWidthX).getIntegerValue(), 500);
  EXPECT_EQ(cff::stringsOf(subrs), FS_CFFStrings{"\x0B"});
  EXPECT_EQ(font.info.getCIDFromGID(5), 5);
}

TEST(CffSubsetFont, MovesTheFontDictsOfACidKeyedFont) {
  CffBuilder builder = cidKeyedFont(20);
  OpenedCff font(subsetFrom(builder, {15, 3}));
  ASSERT_TRUE(font.loaded);
  EXPECT_EQ(charStringsOf(font).size(), 16u);
  cff::FontDicts dicts;
  ASSERT_TRUE(cff::readFDArray(font.source.table, font.info, dicts));
  EXPECT_EQ(itemOf(dicts.privates[1], Keyword::kDefaultWidthX).getIntegerValue(), 501);
  EXPECT_EQ(cff::stringsOf(dicts.subrs[0]), FS_CFFStrings{"\x0B"});
  EXPECT_EQ(cff::stringsOf(dicts.subrs[1]), FS_CFFStrings{"\x0C"});
}

TEST(CffSubsetFont, StructuresBeforeCharStringsStayWhereTheyAre) {
  CffBuilder builder = cidKeyedFont(20);
  builder.order = {"charset", "FDSelect", "FDArray", "CharStrings"};
  const std::string out = subsetFrom(builder, {3});
  EXPECT_EQ(out.substr(4, builder.at("CharStrings") - 4),
            builder.build().substr(4, builder.at("CharStrings") - 4));
}

TEST(CffSubsetFont, NeedsNoCharset) {
  CffBuilder builder = nameKeyedFont(8);
  builder.charset.clear();
  EXPECT_EQ(subsetGlyphs(builder, {2}).size(), 3u);
}

TEST(CffSubsetFont, NeedsCharStringsBehindTheTopDict) {
  CffBuilder none = nameKeyedFont(8);
  none.charset.clear();
  none.writeCharStrings = false;
  EXPECT_EQ(subsetFrom(none, {1}), "false");
  none.top.entry(17, 6);
  EXPECT_EQ(subsetFrom(none, {1}), "false");
}

// Shorter operands are patched as if they had five bytes, over what follows: kept.
TEST(CffSubsetFont, ShortPrivateOperandIsOverwrittenPastItsEnd) {
  CffBuilder builder = nameKeyedFont(8);
  builder.privateOffsetForm = DictForm::twoBytes;
  const std::string source = builder.build();
  const std::string out = subsetFrom(builder, {5});
  const std::size_t operand = builder.at("Strings") - 4;  // 28, two bytes, 18
  ASSERT_EQ(source[operand], 28);
  EXPECT_EQ(out[operand], 28);
  EXPECT_EQ(out.substr(operand + 1, 2), std::string(2, '\0'));
  EXPECT_NE(out[operand + 3], 18);  // the operator is gone
}

TEST(CffSubsetFont, ShortPrivateDictFailsTheCall) {
  CffBuilder builder = nameKeyedFont(8);
  builder.privates[0].subrs.clear();
  const std::string table = builder.build();
  const auto run = [](const std::string& bytes) {
    OpenedCff font(bytes);
    return written([&](auto& out) { return makeCFFSubsetFont(font.source, {2}, out); });
  };
  EXPECT_NE(run(table), "false");
  EXPECT_EQ(run(table.substr(0, table.size() - 1)), "false");
}

TEST(CffSubsetFont, TailThatIsNotThereIsLeftOut) {
  CffBuilder builder = cidKeyedFont(8);
  OpenedCff font(builder);
  font.source.spaceGlyph = 1;
  font.source.table.length += 1000;
  EXPECT_EQ(written([&](auto& out) {
              return makeCFFSubsetFont(font.source, {2, 6}, out);
            }),
            subsetFrom(builder, {2, 6}));
}

TEST(CffSubsetFont, CompositesGetNoParts) {
  CffBuilder builder = nameKeyedFont(6);
  builder.glyphs[5] = CharStringBuilder().numbers({10, 20, 65, 194}).op(14).str();
  EXPECT_EQ(subsetGlyphs(builder, {5}), (FS_CFFStrings{glyphOf(0), glyphOf(1), glyphOf(1),
                                                       glyphOf(1), glyphOf(1), builder.glyphs[5]}));
}

TEST(CffSubsetFont, OffSizeFollowsTheData) {
  for (const auto& [size, offSize] : {std::pair<int, int>{254 - 3, 1}, {255 - 3, 2}}) {
    CffBuilder builder = nameKeyedFont(4);
    builder.glyphs[1] = std::string(static_cast<std::size_t>(size), '\x0E');
    ASSERT_EQ(glyphOf(0).size(), 3u);
    const std::string out = subsetFrom(builder, {1});
    EXPECT_EQ(out[builder.at("CharStrings") + 2], offSize) << size;
  }
}

TEST(CffSubsetFont, TopDictIndexKeepsItsOffSize) {
  CffBuilder builder = nameKeyedFont(4);
  const std::string source = builder.build();
  EXPECT_EQ(subsetFrom(builder, {1}).substr(13, 5), source.substr(13, 5));
  CffBuilder longer = nameKeyedFont(4);
  for (int i = 0; i < 60; ++i) longer.top.entry(13, 100000 + i);
  const std::string longSource = longer.build();
  ASSERT_EQ(longSource[15], 2);
  EXPECT_EQ(subsetFrom(longer, {1}).substr(13, 7), longSource.substr(13, 7));
}

TEST(CffSubsetFont, TwoRunsGiveTheSameBytes) {
  CffBuilder builder = cidKeyedFont(20);
  EXPECT_EQ(subsetFrom(builder, {3, 15}), subsetFrom(builder, {15, 3}));
}

TEST(CffSubsetFont, SurvivesDamage) {
  for (CffBuilder builder : {nameKeyedFont(5), cidKeyedFont(5)}) {
    qxtest::forEachDamage(builder.build(), [](const std::string& bytes) {
      OpenedCff font(bytes);
      if (!font.loaded) return;
      const std::string out = written([&](auto& stream) {
        return makeCFFSubsetFont(font.source, {1, 3}, stream);
      });
      EXPECT_LE(out.size(), 6 * bytes.size() + 200);
    });
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
