#include "embed/cff_subset_embed.h"

#include <gtest/gtest.h>

#include "embed/cff/operands.h"
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

std::string embedFrom(const std::string& table, const Gids& gids) {
  OpenedCff font(table);
  return written([&](auto& out) { return makeCFFEmbedFont(font.source, gids, out); });
}

std::string embedFrom(CffBuilder& font, const Gids& gids) {
  return embedFrom(font.build(), gids);
}

FS_CFFStrings charStringsOf(OpenedCff& font) {
  FS_CFFIndexHeader header;
  FS_CFFStrings entries;
  EXPECT_TRUE(cff::readCFFIndexHeader(font.source.table,
                                      font.info.topInteger(Keyword::kCharStrings), header));
  EXPECT_TRUE(cff::readIndexEntries(header, font.stream, entries));
  return entries;
}

TEST(CffEmbedFont, GoldenBytesOfASmallFont) {
  CffBuilder font = nameKeyedFont(4);
  font.top.entry(0, 391).entry(2, 391);
  const std::string out = embedFrom(font, {3, 1});
  const std::string privateDict = font.privates[0].dict.str() + bytesOf({29, 0, 0, 0, 9, 19});
  const auto offset = [](int at, int op) {
    return DictBuilder().number(at, DictForm::fourBytes).op(static_cast<unsigned>(op)).str();
  };
  const int start = 4 + 9 + 5 + 22 + 8 + 2;  // header, names, Top DICT, strings, Global Subrs
  const std::string charset = CffBuilder::charsetRanges(1, {{1, 0}, {3, 0}});
  const std::string charStrings = cffIndex({glyphOf(0), glyphOf(1), glyphOf(3)});
  const int atCharStrings = start + static_cast<int>(charset.size());
  const int atPrivate = atCharStrings + static_cast<int>(charStrings.size());
  const std::string top = DictBuilder().entry(2, 391).str() + offset(start, 15) +
                          offset(atCharStrings, 17) + DictBuilder().number(9).str() +
                          offset(atPrivate, 18);
  const std::string expected = bytesOf({1, 0, 4, 3}) + cffIndex({"Test"}) + cffIndex({top}) +
                               cffIndex({"own"}) + cffIndex({}) + charset + charStrings +
                               privateDict + cffIndex({"\x0B"});
  ASSERT_EQ(top.size(), 22u);
  EXPECT_EQ(out, expected);
}

TEST(CffEmbedFont, KeepsNamesAndCharstringsOfANameKeyedFont) {
  CffBuilder builder = nameKeyedFont(10);
  builder.globalSubrs = {"\x0B", "\x0B\x0B"};
  const std::string bytes = embedFrom(builder, {7, 2, 9, 2});
  OpenedCff font(bytes);
  ASSERT_TRUE(font.loaded);
  EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), glyphOf(2), glyphOf(7), glyphOf(9)}));
  EXPECT_EQ(font.info.getCIDFromGID(2), 7);
  EXPECT_EQ(font.info.strings, std::vector<std::string>{"own"});
  FS_CFFStrings subrs;
  ASSERT_TRUE(cff::readGlobalSubrs(font.source.table, subrs));
  EXPECT_EQ(subrs, builder.globalSubrs);
  QXCommonNS::QXValue privateMap;
  cff::LocalSubrs locals;
  ASSERT_TRUE(cff::readLocalSubrs(font.source.table, font.info.topDict, privateMap, locals));
  EXPECT_EQ(itemOf(privateMap, Keyword::kDefaultWidthX).getIntegerValue(), 500);
  EXPECT_EQ(cff::stringsOf(locals), FS_CFFStrings{"\x0B"});
}

TEST(CffEmbedFont, CidsOfACidKeyedFontAreTheSourceGlyphIds) {
  CffBuilder builder = cidKeyedFont(20);
  OpenedCff font(embedFrom(builder, {15, 3, 12}));
  ASSERT_TRUE(font.loaded);
  EXPECT_TRUE(font.info.isCID);
  EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), glyphOf(3), glyphOf(12), glyphOf(15)}));
  EXPECT_EQ(font.info.getCIDFromGID(1), 3);
  EXPECT_EQ(font.info.getCIDFromGID(3), 15);
  std::vector<FS_FDRange> ranges;
  ASSERT_TRUE(cff::readFDSelect(font.source.table, font.info, ranges));
  ASSERT_EQ(ranges.size(), 2u);
  EXPECT_EQ(ranges[1].first, 2);
  EXPECT_EQ(ranges[1].last, 3);
  cff::FontDicts dicts;
  ASSERT_TRUE(cff::readFDArray(font.source.table, font.info, dicts));
  EXPECT_EQ(itemOf(dicts.privates[1], Keyword::kDefaultWidthX).getIntegerValue(), 501);
  EXPECT_EQ(cff::stringsOf(dicts.subrs[1]), FS_CFFStrings{"\x0C"});
}

TEST(CffEmbedFont, StructuresMayStandInAnyOrder) {
  const std::vector<std::vector<std::string>> orders = {
      {"FDArray", "CharStrings", "FDSelect", "charset"},
      {"charset", "FDArray", "FDSelect", "CharStrings"},
      {"CharStrings", "FDArray", "charset", "FDSelect"},
  };
  for (const auto& order : orders) {
    CffBuilder builder = cidKeyedFont(20);
    builder.order = order;
    OpenedCff font(embedFrom(builder, {3, 15}));
    ASSERT_TRUE(font.loaded) << order[0];
    EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), glyphOf(3), glyphOf(15)}));
    cff::FontDicts dicts;
    ASSERT_TRUE(cff::readFDArray(font.source.table, font.info, dicts)) << order[0];
    EXPECT_EQ(itemOf(dicts.privates[0], Keyword::kDefaultWidthX).getIntegerValue(), 500);
    EXPECT_EQ(cff::stringsOf(dicts.subrs[1]), FS_CFFStrings{"\x0C"});
  }
}

TEST(CffEmbedFont, TopPrivateOfACidKeyedFontGoesInItsPlace) {
  for (const bool before : {true, false}) {
    CffBuilder builder = cidKeyedWithTopPrivate(before);
    const std::string bytes = embedFrom(builder, {1, 6});
    OpenedCff font(bytes);
    ASSERT_TRUE(font.loaded) << before;
    const auto& place = itemOf(font.info.topDict, Keyword::kPrivate);
    EXPECT_EQ(FS_Operand(place, 1).getIntegerValue(), 3);
    const auto offset = static_cast<std::size_t>(FS_Operand(place, 2).getIntegerValue());
    EXPECT_EQ(bytes.substr(offset, 3), kTopPrivate) << before;
    cff::FontDicts dicts;
    ASSERT_TRUE(cff::readFDArray(font.source.table, font.info, dicts)) << before;
    EXPECT_EQ(itemOf(dicts.privates[1], Keyword::kDefaultWidthX).getIntegerValue(), 501);
    EXPECT_EQ(cff::stringsOf(dicts.subrs[1]), FS_CFFStrings{"\x0C"});
  }
}

// An FDSelect behind all other structures ends the copying: what follows it is lost. Kept.
TEST(CffEmbedFont, TailEndsWhereTheSourceHasItsFDSelect) {
  CffBuilder builder = cidKeyedFont(8);
  builder.order = {"charset", "CharStrings", "FDArray", "FDSelect"};
  builder.trailer = "trailer";
  const std::string bytes = embedFrom(builder, {1, 6});
  OpenedCff font(bytes);
  ASSERT_TRUE(font.loaded);
  EXPECT_EQ(bytes.find("trailer"), std::string::npos);
  cff::FontDicts dicts;
  ASSERT_TRUE(cff::readFDArray(font.source.table, font.info, dicts));
  EXPECT_EQ(cff::stringsOf(dicts.subrs[1]), FS_CFFStrings{"\x0C"});
  builder.order = {"charset", "FDSelect", "CharStrings", "FDArray"};
  const std::string whole = embedFrom(builder, {1, 6});
  EXPECT_EQ(whole.substr(whole.size() - 7), "trailer");
}

// With the Private DICT before CharStrings the local subroutines are lost: kept.
TEST(CffEmbedFont, LosesLocalSubrsThatStandBeforeCharStrings) {
  CffBuilder builder = nameKeyedFont(4);
  builder.order = {"charset", "Private", "CharStrings"};
  builder.privates[0].subrs = {"\x0B\x0B\x0B\x0B\x0B"};
  const std::string bytes = embedFrom(builder, {1});
  ASSERT_NE(bytes, "false");
  EXPECT_EQ(bytes.find("\x0B\x0B\x0B\x0B\x0B"), std::string::npos);
}

TEST(CffEmbedFont, ZeroAmongTheGlyphsWritesNotdefTwice) {
  CffBuilder builder = nameKeyedFont(4);
  OpenedCff font(embedFrom(builder, {0}));
  EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), glyphOf(0)}));
  CffBuilder cid = cidKeyedFont(8);
  OpenedCff other(embedFrom(cid, {5, 0}));
  EXPECT_EQ(charStringsOf(other), (FS_CFFStrings{glyphOf(0), glyphOf(0), glyphOf(5)}));
}

TEST(CffEmbedFont, NoGlyphIsPassedOver) {
  CffBuilder builder = nameKeyedFont(4);
  const std::string bytes = embedFrom(builder, {0xFFFF});
  OpenedCff font(bytes);
  EXPECT_EQ(charStringsOf(font), FS_CFFStrings{glyphOf(0)});
  OpenedCff other(embedFrom(builder, {0xFFFF, 2}));
  EXPECT_EQ(charStringsOf(other), (FS_CFFStrings{glyphOf(0), glyphOf(2)}));
}

TEST(CffEmbedFont, RefusesNoGlyphsNoTableAndGlyphsPastTheEnd) {
  CffBuilder builder = nameKeyedFont(4);
  EXPECT_EQ(embedFrom(builder, {}), "false");
  EXPECT_EQ(embedFrom(builder, {4}), "false");
  EXPECT_EQ(embedFrom(builder, {0xFFFE}), "false");
  EXPECT_NE(embedFrom(builder, {3}), "false");
  const CffSubsetSource none;
  EXPECT_EQ(written([&](auto& out) { return makeCFFEmbedFont(none, {1}, out); }), "false");
}

TEST(CffEmbedFont, NeedsACharsetOperator) {
  CffBuilder builder = nameKeyedFont(4);
  builder.charset.clear();
  EXPECT_EQ(embedFrom(builder, {1}), "false");
  builder.predefinedCharset = 0;
  OpenedCff font(embedFrom(builder, {3, 1}));
  EXPECT_EQ(charStringsOf(font), (FS_CFFStrings{glyphOf(0), glyphOf(3)}));  // all keys are 0
}

TEST(CffEmbedFont, HeaderOfTheSourceIsNotCopied) {
  CffBuilder builder = nameKeyedFont(4);
  builder.header = bytesOf({9, 9, 9, 9});
  EXPECT_EQ(embedFrom(builder, {1}).substr(0, 4), bytesOf({1, 0, 4, 3}));
}

TEST(CffEmbedFont, TopDictOffSizeFollowsItsLength) {
  CffBuilder builder = nameKeyedFont(4);
  for (int i = 0; i < 60; ++i) builder.top.entry(13, 100000 + i);
  const std::string bytes = embedFrom(builder, {1});
  EXPECT_EQ(bytes[4 + 9 + 2], 2);
  OpenedCff font(bytes);
  EXPECT_TRUE(font.loaded);
}

// An accented glyph: `adx ady bchar achar endchar`, A and acute in StandardEncoding.
CffBuilder compositeFont() {
  CffBuilder font = nameKeyedFont(1);
  font.charset = CffBuilder::charsetFormat0({34, 125, 171, 35});  // A, acute, Aacute, B
  font.glyphs = {glyphOf(0), glyphOf(1), glyphOf(2),
                 CharStringBuilder().numbers({10, 20, 65, 194}).op(14).str(), glyphOf(4)};
  return font;
}

TEST(CffEmbedFont, AddsTheTwoPartsOfAComposite) {
  CffBuilder builder = compositeFont();
  OpenedCff font(embedFrom(builder, {3}));
  EXPECT_EQ(charStringsOf(font),
            (FS_CFFStrings{glyphOf(0), glyphOf(1), glyphOf(2), builder.glyphs[3]}));
}

TEST(CffEmbedFont, FindsCompositesBehindAWidthAndInSubroutines) {
  CffBuilder builder = compositeFont();
  builder.privates[0].subrs = {CharStringBuilder().numbers({65, 194}).op(11).str(),
                               CharStringBuilder().op(14).str()};
  builder.globalSubrs = {CharStringBuilder().numbers({10, 20}).call(10, 0, 2).op(11).str()};
  builder.glyphs[3] = CharStringBuilder().number(500).call(29, 0, 1).call(10, 1, 2).str();
  OpenedCff font(embedFrom(builder, {3}));
  EXPECT_EQ(charStringsOf(font).size(), 4u);
}

TEST(CffEmbedFont, FollowsOneLevelOfComposites) {
  CffBuilder builder = compositeFont();
  // Glyph 2 (acute) is itself a composite of B and B.
  builder.glyphs[2] = CharStringBuilder().numbers({0, 0, 66, 66}).op(14).str();
  OpenedCff font(embedFrom(builder, {3}));
  EXPECT_EQ(charStringsOf(font),
            (FS_CFFStrings{glyphOf(0), glyphOf(1), builder.glyphs[2], builder.glyphs[3]}));
}

struct NoComposite {
  const char* what;
  std::vector<int> operands;
};

TEST(CffEmbedFont, CodesThatNameNoGlyphAddNone) {
  const std::vector<NoComposite> cases = {
      {"three operands", {20, 65, 194}},       {"codes 0", {10, 20, 0, 0}},
      {"codes above 255", {10, 20, 256, 300}}, {"negative codes", {10, 20, -1, -65}},
      {"not encoded", {10, 20, 10, 127}},      {"not in the font", {10, 20, 67, 68}},
  };
  for (const NoComposite& test : cases) {
    CffBuilder builder = compositeFont();
    builder.glyphs[3] = CharStringBuilder().numbers(test.operands).op(14).str();
    OpenedCff font(embedFrom(builder, {3}));
    EXPECT_EQ(charStringsOf(font).size(), 2u) << test.what;
  }
}

TEST(CffEmbedFont, CompositesOfOtherFontsLoseTheirParts) {
  CffBuilder encoded = compositeFont();
  encoded.encoding = bytesOf({0, 1, 65});
  OpenedCff font(embedFrom(encoded, {3}));
  EXPECT_EQ(charStringsOf(font).size(), 2u);
  CffBuilder typeOne = compositeFont();
  typeOne.top.entry(0x0C06, 1);
  OpenedCff other(embedFrom(typeOne, {3}));
  EXPECT_EQ(charStringsOf(other).size(), 2u);
  CffBuilder cid = cidKeyedFont(8);
  cid.glyphs[3] = CharStringBuilder().numbers({10, 20, 65, 194}).op(14).str();
  OpenedCff third(embedFrom(cid, {3}));
  EXPECT_EQ(charStringsOf(third).size(), 2u);
}

TEST(CffEmbedFont, FailingClosureFailsTheCall) {
  CffBuilder builder = compositeFont();
  builder.privates[0].dict = DictBuilder().entry(19, 10000);  // Subrs outside the stream
  builder.privates[0].subrs.clear();
  EXPECT_EQ(embedFrom(builder, {3}), "false");
  CffBuilder endless = compositeFont();
  endless.privates[0].subrs = {CharStringBuilder().call(10, 0, 1).str()};
  endless.glyphs[3] = CharStringBuilder().call(10, 0, 1).str();
  EXPECT_EQ(embedFrom(endless, {3}), "false");
}

TEST(CffEmbedFont, ShortPrivateDictFailsTheCall) {
  CffBuilder builder = nameKeyedFont(4);
  builder.encoding = bytesOf({0, 1, 65});  // so that the closure does not read it
  builder.privates[0].subrs.clear();
  const std::string table = builder.build();
  EXPECT_NE(embedFrom(table, {1}), "false");
  EXPECT_EQ(embedFrom(table.substr(0, table.size() - 1), {1}), "false");
}

// Only what is behind the last structure may be missing: nobody asks whether it came.
TEST(CffEmbedFont, TailThatIsNotThereIsLeftOut) {
  CffBuilder builder = cidKeyedFont(8);
  const std::string table = builder.build();
  OpenedCff font(table);
  font.source.table.length += 1000;
  EXPECT_EQ(written([&](auto& out) {
              return makeCFFEmbedFont(font.source, {1, 6}, out);
            }),
            embedFrom(table, {1, 6}));
}

TEST(CffEmbedFont, TwoRunsGiveTheSameBytes) {
  CffBuilder builder = cidKeyedFont(20);
  OpenedCff font(builder);
  const auto run = [&] {
    return written([&](auto& out) { return makeCFFEmbedFont(font.source, {3, 15}, out); });
  };
  EXPECT_EQ(run(), run());
}

TEST(CffEmbedFont, SurvivesDamage) {
  for (CffBuilder builder : {compositeFont(), cidKeyedFont(4)}) {
    qxtest::forEachDamage(builder.build(), [](const std::string& bytes) {
      OpenedCff font(bytes);
      if (!font.loaded) return;
      const std::string out = written([&](auto& stream) {
        return makeCFFEmbedFont(font.source, {1, 3}, stream);
      });
      EXPECT_LE(out.size(), 4 * bytes.size() + 200);
    });
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
