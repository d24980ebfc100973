#include "embed/cff_subset_charset.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteWriter;
using qxtest::bytesOf;
using qxtest::CffBuilder;

std::string text(const ByteWriter& out) {
  return {static_cast<const char*>(static_cast<const void*>(out.view().data())), out.size()};
}

KeyedGlyphs identity(std::initializer_list<int> glyphs) {
  KeyedGlyphs keyed;
  for (int glyph : glyphs)
    keyed[static_cast<std::uint16_t>(glyph)] = static_cast<std::uint16_t>(glyph);
  return keyed;
}

std::string charsetOf(const KeyedGlyphs& glyphs) {
  ByteWriter out;
  writeCharset(glyphs, out);
  return text(out);
}

TEST(KeyGlyphs, CidKeyedFontsKeyByGlyphId) {
  FS_CFFInfo info;
  info.isCID = true;
  info.charsetSIDs = {500, 501, 502};
  EXPECT_EQ(keyGlyphs(info, {3, 1, 0xFFFF, 1}), identity({1, 3}));
}

TEST(KeyGlyphs, NameKeyedFontsKeyBySidAndTheFirstGlyphStays) {
  FS_CFFInfo info;
  info.charsetSIDs = {40, 30, 40};
  const KeyedGlyphs keyed = keyGlyphs(info, {3, 2, 1, 0xFFFF});
  EXPECT_EQ(keyed, (KeyedGlyphs{{30, 2}, {40, 3}}));
}

// All keys of a font with a predefined charset are 0, so one glyph survives: kept.
TEST(KeyGlyphs, PredefinedCharsetLeavesOneGlyph) {
  FS_CFFInfo info;
  EXPECT_EQ(keyGlyphs(info, {5, 6, 7}), (KeyedGlyphs{{0, 5}}));
}

TEST(WriteCharset, WritesOneRangeForEachRun) {
  EXPECT_EQ(charsetOf(identity({1, 2, 3, 7, 9, 10})),
            CffBuilder::charsetRanges(1, {{1, 2}, {7, 0}, {9, 1}}));
  EXPECT_EQ(charsetOf(identity({0, 1})), CffBuilder::charsetRanges(1, {{0, 1}}));
  EXPECT_EQ(charsetOf({}), bytesOf({1}));
}

KeyedGlyphs run(int first, int count) {
  KeyedGlyphs keyed;
  for (int i = 0; i < count; ++i)
    keyed[static_cast<std::uint16_t>(first + i)] = static_cast<std::uint16_t>(first + i);
  return keyed;
}

TEST(WriteCharset, TakesFormatTwoOnlyForALongRun) {
  EXPECT_EQ(charsetOf(run(10, 256)), CffBuilder::charsetRanges(1, {{10, 255}}));
  EXPECT_EQ(charsetOf(run(10, 257)), CffBuilder::charsetRanges(2, {{10, 256}}));
  KeyedGlyphs gaps = run(10, 256);
  gaps[1000] = 1000;
  EXPECT_EQ(charsetOf(gaps), CffBuilder::charsetRanges(1, {{10, 255}, {1000, 0}}));
  KeyedGlyphs both = run(10, 300);
  both[1000] = 1000;
  EXPECT_EQ(charsetOf(both), CffBuilder::charsetRanges(2, {{10, 299}, {1000, 0}}));
}

std::string fdSelectOf(const std::string& source, const KeyedGlyphs& glyphs) {
  std::istringstream stream("??" + source);
  ByteWriter out;
  if (!writeFDSelect({&stream, 1, 0}, 1, glyphs, out)) return "false";
  return text(out);
}

TEST(WriteFDSelect, RenumbersTheRanges) {
  const std::string source = CffBuilder::fdSelect3({{0, 2}, {5, 0}, {8, 1}}, 20);
  EXPECT_EQ(fdSelectOf(source, identity({1, 4, 6, 7, 8, 15})),
            CffBuilder::fdSelect3({{0, 2}, {3, 0}, {5, 1}}, 7));
  EXPECT_EQ(fdSelectOf(source, identity({9, 15})), CffBuilder::fdSelect3({{0, 2}, {1, 1}}, 3));
  EXPECT_EQ(fdSelectOf(source, {}), CffBuilder::fdSelect3({{0, 2}}, 1));
}

TEST(WriteFDSelect, SkipsRangesWithoutGlyphsAndJoinsEqualOnes) {
  const std::string source = CffBuilder::fdSelect3({{0, 0}, {5, 1}, {6, 0}, {9, 0}}, 20);
  EXPECT_EQ(fdSelectOf(source, identity({1, 7, 12})), CffBuilder::fdSelect3({{0, 0}}, 4));
}

// The walk goes forward only: a glyph below the one before keeps that one's Font DICT. Kept.
TEST(WriteFDSelect, NeverGoesBack) {
  const std::string source = CffBuilder::fdSelect3({{0, 0}, {5, 1}, {8, 2}}, 20);
  EXPECT_EQ(fdSelectOf(source, {{10, 6}, {11, 1}, {12, 7}}),
            CffBuilder::fdSelect3({{0, 0}, {1, 1}}, 4));
  EXPECT_EQ(fdSelectOf(source, {{10, 9}, {11, 1}}), CffBuilder::fdSelect3({{0, 0}, {1, 2}}, 3));
}

// The last range counts before the walk: a glyph at or past it has its Font DICT, also where a
// range before it begins higher.
TEST(WriteFDSelect, LastRangeComesFirst) {
  const std::string source = CffBuilder::fdSelect3({{0, 0}, {8, 1}, {5, 2}}, 20);
  EXPECT_EQ(fdSelectOf(source, identity({6})), CffBuilder::fdSelect3({{0, 0}, {1, 2}}, 2));
}

// Format 0 is read as if it were 3: `0, fd, fd, ...` gives a count of fd, fd.
TEST(WriteFDSelect, DoesNotLookAtTheFormat) {
  EXPECT_EQ(fdSelectOf(bytesOf({0, 0, 1, 0, 3, 1, 0, 0, 0}), identity({1, 5})),
            CffBuilder::fdSelect3({{3, 1}}, 3));
  EXPECT_EQ(fdSelectOf(bytesOf({0, 0, 0, 1, 1, 1}), identity({1})), "false");
}

TEST(WriteFDSelect, EveryCutOfTheRangesIsRefused) {
  const std::string source = CffBuilder::fdSelect3({{0, 2}, {5, 0}}, 20);
  const std::string withoutSentinel = source.substr(0, source.size() - 2);
  qxtest::forEachPrefix(withoutSentinel, [](const std::string& bytes) {
    EXPECT_EQ(fdSelectOf(bytes, identity({1})), "false");
  });
  EXPECT_NE(fdSelectOf(withoutSentinel, identity({1})), "false");
}

}  // namespace
}  // namespace QXFontService_NS::embed
