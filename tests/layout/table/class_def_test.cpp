#include "layout/table/class_def.h"

#include <gtest/gtest.h>

#include "layout/table/graph_reader.h"
#include "layout/test_font.h"
#include "support/class_def_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::classDef;
using qxtest::classDefOfRanges;

struct Read {
  std::unique_ptr<const TTI_ClassDef> table;
  bool error = false;
};

Read read(const std::string& bytes, unsigned offset = 2, unsigned glyphs = 100) {
  const qxtest::TestFont font(glyphs);
  const std::string table = "\xEE\xEE" + bytes;
  GraphReader reader(font, qxtest::viewOf(table));
  Read result;
  result.table = readClassDef(reader, 0, offset, &result.error);
  return result;
}

TEST(ClassDef, NamesConsecutiveGlyphs) {
  const Read result = read(classDef(5, {1, 0, 3}));
  EXPECT_FALSE(result.error);
  EXPECT_EQ(result.table->classOf(5), 1);
  EXPECT_EQ(result.table->classOf(6), 0);
  EXPECT_EQ(result.table->classOf(7), 3);
}

TEST(ClassDef, GlyphListedNowhereHasClassMinusOneNotZero) {
  for (const std::string& bytes : {classDef(5, {1, 2, 3}), classDefOfRanges({{5, 7, 1}})}) {
    const Read result = read(bytes);
    for (const unsigned short glyph : qxtest::GlyphIds{0, 4, 8, 0xFFFF})
      EXPECT_EQ(result.table->classOf(glyph), -1) << glyph;
  }
}

TEST(ClassDef, NamesRanges) {
  const Read result = read(classDefOfRanges({{5, 7, 2}, {8, 8, 0}, {20, 0xFFFF, 0xFFFF}}));
  EXPECT_EQ(result.table->classOf(5), 2);
  EXPECT_EQ(result.table->classOf(7), 2);
  EXPECT_EQ(result.table->classOf(8), 0);
  EXPECT_EQ(result.table->classOf(0xFFFF), 0xFFFF);
  EXPECT_EQ(result.table->classOf(9), -1);
}

TEST(ClassDef, HalvingDecidesWhatUnsortedRangesName) {
  const Read result = read(classDefOfRanges({{20, 30, 1}, {1, 9, 2}, {25, 40, 3}}));
  EXPECT_EQ(result.table->classOf(5), 2);
  EXPECT_EQ(result.table->classOf(25), 3);
  EXPECT_EQ(result.table->classOf(20), -1);
}

TEST(ClassDef, OffsetZeroIsNoTableAndNoError) {
  const Read result = read(classDef(5, {1}), 0);
  EXPECT_EQ(result.table, nullptr);
  EXPECT_FALSE(result.error);
}

TEST(ClassDef, UnknownFormatIsAnError) {
  for (const char format : {'\0', '\3'}) {
    std::string bytes = classDef(5, {1});
    bytes[1] = format;
    const Read result = read(bytes);
    EXPECT_EQ(result.table, nullptr);
    EXPECT_TRUE(result.error);
  }
}

TEST(ClassDef, PastTheFontsGlyphsLosesAllItsClasses) {
  const struct {
    unsigned start;
    std::size_t count;
    bool error;
  } cases[] = {{97, 3, false},  {98, 3, true},   {100, 1, true},   {99, 1, false},
               {100, 0, false}, {200, 0, false}, {0xFFFF, 3, true}};
  for (const auto& c : cases) {
    const Read result = read(classDef(c.start, std::vector<unsigned>(c.count, 7)));
    ASSERT_NE(result.table, nullptr);
    EXPECT_EQ(result.error, c.error) << c.start;
    const int want = c.error || c.count == 0 ? -1 : 7;
    EXPECT_EQ(result.table->classOf(static_cast<unsigned short>(c.start)), want) << c.start;
  }
}

TEST(ClassDef, WithoutGlyphsEveryFormatOneIsAnError) {
  EXPECT_TRUE(read(classDef(0, {1}), 2, 0).error);
  EXPECT_FALSE(read(classDefOfRanges({{0, 5, 1}}), 2, 0).error);
}

TEST(ClassDef, IsQuietWithoutAnErrorFlagAndSharedByPlace) {
  const qxtest::TestFont font(100);
  const std::string table = "\xEE\xEE" + classDef(99, {7, 7});
  GraphReader reader(font, qxtest::viewOf(table));
  const ClassDefPtr shared = sharedClassDef(reader, 0, 2);
  EXPECT_EQ(shared->classOf(99), -1);
  EXPECT_EQ(shared, sharedClassDef(reader, 1, 1));
  EXPECT_EQ(sharedClassDef(reader, 5, 0), nullptr);
  EXPECT_NE(readClassDef(reader, 0, 2), nullptr);
}

TEST(ClassDef, SurvivesDamage) {
  for (const std::string& bytes : {classDef(5, {1, 2}), classDefOfRanges({{5, 7, 2}, {9, 9, 1}})})
    qxtest::forEachDamage(bytes, [](const std::string& damaged) {
      const Read result = read(damaged);
      for (const unsigned short glyph : qxtest::GlyphIds{0, 5, 0xFFFF})
        if (result.table) {
          EXPECT_LE(result.table->classOf(glyph), 0xFFFF);
        }
    });
}

}  // namespace
}  // namespace QXFontService_NS::layout
