#include "embed/charstring/type1_charstrings.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "embed/cff_subset_fixture.h"
#include "embed/charstring/token_text.h"
#include "support/truncation.h"

namespace QXFontService_NS::charstring {
namespace {

using embed::cidKeyedFont;
using embed::nameKeyedFont;
using embed::OpenedCff;
using qxtest::CffBuilder;
using qxtest::CharStringBuilder;
using Gids = std::vector<std::uint16_t>;

std::vector<std::string> convertedGlyphs(CffBuilder& builder, const Gids& gids) {
  OpenedCff font(builder);
  Type1CharStrings out;
  std::vector<std::string> texts;
  if (!makeType1CharStrings(font.source, gids, out)) return {"false"};
  for (const FS_CharStringTokens& glyph : out.charStrings) texts.push_back(textOf(glyph));
  return texts;
}

std::string moved(int number, int width = 500) {
  return "0 " + std::to_string(width) + " hsbw " + std::to_string(number) + " hmoveto endchar";
}

TEST(Type1CharStrings, GlyphZeroThenTheCallersOrder) {
  CffBuilder builder = nameKeyedFont(8);
  EXPECT_EQ(convertedGlyphs(builder, {5, 0, 2, 0xFFFF, 5}),
            (std::vector<std::string>{moved(0), moved(5), moved(2), moved(5)}));
  EXPECT_EQ(convertedGlyphs(builder, {}), std::vector<std::string>{moved(0)});
}

TEST(Type1CharStrings, NameKeyedFontHasOnePrivateMap) {
  CffBuilder builder = nameKeyedFont(4);
  OpenedCff font(builder);
  Type1CharStrings out;
  ASSERT_TRUE(makeType1CharStrings(font.source, {1, 2}, out));
  EXPECT_EQ(out.privates.size(), 1u);
  EXPECT_EQ(out.fdIndexes, (std::vector<unsigned char>{0, 0, 0}));
  EXPECT_EQ(out.subrs.size(), 4u);
}

TEST(Type1CharStrings, FontWithoutPrivateHasAnEmptyMap) {
  CffBuilder builder = nameKeyedFont(4);
  builder.privates.clear();
  EXPECT_EQ(convertedGlyphs(builder, {1}), (std::vector<std::string>{moved(0, 0), moved(1, 0)}));
}

TEST(Type1CharStrings, CidKeyedFontTakesWidthAndSubrsOfTheFontDict) {
  CffBuilder builder = cidKeyedFont(8);
  builder.privates[1].subrs = {CharStringBuilder().number(77).op(22).op(14).str()};
  builder.glyphs[5] = CharStringBuilder().call(10, 0, 1).str();
  OpenedCff font(builder);
  Type1CharStrings out;
  ASSERT_TRUE(makeType1CharStrings(font.source, {5, 3}, out));
  EXPECT_EQ(out.fdIndexes, (std::vector<unsigned char>{0, 1, 0}));
  EXPECT_EQ(textOf(out.charStrings[1]), moved(77, 501));
  EXPECT_EQ(textOf(out.charStrings[2]), moved(3, 500));
  EXPECT_EQ(out.privates.size(), 2u);
}

TEST(Type1CharStrings, AllGlyphsShareOneListOfSubrs) {
  CffBuilder builder = nameKeyedFont(3);
  for (std::size_t i : {1u, 2u})
    builder.glyphs[i] = CharStringBuilder()
                            .numbers({1, static_cast<int>(i)})
                            .op(18)
                            .op(19)
                            .raw("\x80")
                            .op(14)
                            .str();
  OpenedCff font(builder);
  Type1CharStrings out;
  ASSERT_TRUE(makeType1CharStrings(font.source, {2, 1, 2}, out));
  ASSERT_EQ(out.subrs.size(), 7u);
  EXPECT_EQ(textOf(out.subrs[4]), "1 2 hstem return");
  EXPECT_EQ(textOf(out.subrs[5]), "1 1 hstem return");
  EXPECT_NE(textOf(out.charStrings[3]).find("6 1 3 callothersubr"), std::string::npos);
}

TEST(Type1CharStrings, GlyphPastTheEndAndBadGlyphsAreRefused) {
  CffBuilder builder = nameKeyedFont(4);
  EXPECT_EQ(convertedGlyphs(builder, {4}), std::vector<std::string>{"false"});
  builder.glyphs[2] = "\x0E";  // a bare endchar
  EXPECT_EQ(convertedGlyphs(builder, {2}), std::vector<std::string>{"false"});
  EXPECT_EQ(convertedGlyphs(builder, {1}).size(), 2u);
  builder.glyphs[0] = "\x0E";  // of glyph 0: nothing can be converted
  EXPECT_EQ(convertedGlyphs(builder, {1}), std::vector<std::string>{"false"});
}

TEST(Type1CharStrings, UnreadableStructuresAreRefused) {
  CffBuilder noSelect = cidKeyedFont(4);
  noSelect.fdSelect.clear();
  EXPECT_EQ(convertedGlyphs(noSelect, {1}), std::vector<std::string>{"false"});
  CffBuilder badPrivate = nameKeyedFont(4);
  badPrivate.privates[0] = {};  // size 0
  EXPECT_EQ(convertedGlyphs(badPrivate, {1}), std::vector<std::string>{"false"});
}

// FDSelect format 0 leaves the last glyph without a Font DICT: required.
TEST(Type1CharStrings, GlyphWithoutAFontDictIsOutOfRange) {
  CffBuilder builder = cidKeyedFont(4);
  builder.fdSelect = CffBuilder::fdSelect0({0, 1, 0, 1});
  EXPECT_EQ(convertedGlyphs(builder, {1, 2}).size(), 3u);
  EXPECT_THROW(convertedGlyphs(builder, {3}), std::out_of_range);
}

// Three bytes and tokens a glyph; what comes out has six tokens a glyph.
TEST(Type1CharStrings, WholeCallHasOneBudget) {
  CffBuilder builder = nameKeyedFont(2);
  OpenedCff font(builder);
  const auto makes = [&font](std::uint64_t mostTokens) {
    Type1CharStrings out;
    CharStringContext context;
    context.mostTokens = mostTokens;
    return makeType1CharStrings(font.source, Gids(99, 1), out, context);
  };
  EXPECT_FALSE(makes(299));
  EXPECT_FALSE(makes(599));
  EXPECT_TRUE(makes(600));
}

TEST(Type1CharStrings, SurvivesDamage) {
  for (CffBuilder builder : {nameKeyedFont(4), cidKeyedFont(4)}) {
    int complete = 0;
    int refused = 0;
    qxtest::forEachDamage(builder.build(), [&](const std::string& bytes) {
      OpenedCff font(bytes);
      if (!font.loaded) return;
      Type1CharStrings out;
      try {
        const bool made = makeType1CharStrings(font.source, {1, 2}, out);
        EXPECT_TRUE(!made || out.charStrings.size() == 3);
        ++(made ? complete : refused);
      } catch (const std::out_of_range&) {
        ++refused;  // a Font DICT that is not there
      }
    });
    EXPECT_GT(complete, 0);
    EXPECT_GT(refused, 0);
  }
}

}  // namespace
}  // namespace QXFontService_NS::charstring
