#include "type1/maps/type1_cmap.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

namespace QXFontService_NS {
namespace {

class Pages : public Type1CMap {
 public:
  using Type1CMap::advanceCode;
  using Type1CMap::assignNewCode;
  using Type1CMap::codesByCharacter_;
  using Type1CMap::codesByGlyph_;
  using Type1CMap::glyphsByCode_;
  using Type1CMap::nextCode_;
  using Type1CMap::registerPageEntry;
  using Type1CMap::remember;
  using Type1CMap::type1CodeLimit_;

  unsigned short give(int character, const std::string& name = "name") {
    QXMutex guard(&lock_);
    advanceCode(type1CodeLimit_);
    return assignNewCode(character, name);
  }
  unsigned short giveGlyph(unsigned short glyph) {
    advanceCode();
    return assignNewGlyphCode(glyph, "glyph");
  }
  std::string nameOf(unsigned char page, unsigned char code) const {
    std::string name = "untouched";
    return getType1GlyphName(page, code, name) ? name : "false " + name;
  }
};

TEST(Type1CMap, BeginsAt127AndMovesOnBeforeEachCode) {
  Pages pages;
  EXPECT_EQ(pages.nextCode_, 127);
  EXPECT_EQ(pages.type1CodeLimit_, 0);
  EXPECT_EQ(pages.give('x'), 0x0080);
  EXPECT_EQ(pages.give('y'), 0x0081);
  EXPECT_EQ(pages.nextCode_, 129);
  EXPECT_EQ(pages.codesByCharacter_, (std::map<int, unsigned short>{{'x', 0x80}, {'y', 0x81}}));
}

TEST(Type1CMap, ANewPageLeaves33CodesFree) {
  Pages pages;
  pages.nextCode_ = 252;
  EXPECT_EQ(pages.give(1), 0x00FD);
  EXPECT_EQ(pages.give(2), 0x0121);  // 254 + 33 is page 1, code 33
  EXPECT_EQ(pages.nextCode_, 287);
  EXPECT_EQ(pages.give(3), 0x0122);
  pages.nextCode_ = 2 * 254 - 1;
  EXPECT_EQ(pages.give(4), 0x0221);
}

TEST(Type1CMap, TheFreeCodesAreOnlyLeftByNumbersThatRunOnToThem) {
  Pages pages;
  pages.type1CodeLimit_ = 0xFE;
  EXPECT_EQ(pages.give(1), 0x0101);  // 255 is code 1 of page 1: kept
  EXPECT_EQ(pages.give(2), 0x0102);
}

TEST(Type1CMap, NeverGives254And255) {
  Pages pages;
  std::set<int> codes;
  std::set<int> all;
  for (int i = 0; i < 1000; ++i) {
    const unsigned short code = pages.give(i);
    codes.insert(code & 0xFF);
    EXPECT_TRUE(all.insert(code).second) << code;
  }
  EXPECT_EQ(*codes.begin(), 33);
  EXPECT_EQ(*codes.rbegin(), 253);
}

TEST(Type1CMap, WithAllPagesFullThereIsNoCode) {
  Pages pages;
  pages.nextCode_ = 256 * 254 - 2;
  EXPECT_EQ(pages.give(1), 0xFFFD);
  for (int i = 2; i < 50; ++i) EXPECT_EQ(pages.give(i), 0) << i;
  EXPECT_EQ(pages.giveGlyph(1), 0);
  EXPECT_EQ(pages.codesByCharacter_.size(), 1u);
  EXPECT_TRUE(pages.codesByGlyph_.empty());
  EXPECT_EQ(pages.getType1CMapArray(255)->size(), 1u);
  EXPECT_EQ(pages.getType1CMapArray(0), nullptr);
  EXPECT_LT(pages.nextCode_, 257 * 254);
}

TEST(Type1CMap, AGlyphAndItsCodeLeadToEachOther) {
  Pages pages;
  EXPECT_EQ(pages.giveGlyph(700), 0x80);
  EXPECT_EQ(pages.codesByGlyph_.at(700), 0x80);
  EXPECT_EQ(pages.glyphsByCode_.at(0x80), 700);
  EXPECT_TRUE(pages.codesByCharacter_.empty());
}

TEST(Type1CMap, AFreshPageZeroHasTheStandardEncoding) {
  const Pages pages;
  EXPECT_EQ(pages.nameOf(0, 65), "A");
  EXPECT_EQ(pages.nameOf(0, 39), "quoteright");
  EXPECT_EQ(pages.nameOf(0, 0), ".notdef");
  EXPECT_EQ(pages.nameOf(0, 255), ".notdef");
  EXPECT_EQ(pages.nameOf(1, 65), "false untouched");
  EXPECT_EQ(pages.nameOf(255, 0), "false untouched");
  EXPECT_EQ(pages.getType1CMapArray(0), nullptr);
}

TEST(Type1CMap, AGivenNameGoesBeforeTheStandardEncoding) {
  Pages pages;
  pages.registerPageEntry(0, 65, "Aacute");
  pages.registerPageEntry(2, 65, "Alpha");
  EXPECT_EQ(pages.nameOf(0, 65), "Aacute");
  EXPECT_EQ(pages.nameOf(0, 66), "B");
  EXPECT_EQ(pages.nameOf(2, 65), "Alpha");
  EXPECT_EQ(pages.nameOf(2, 66), "false untouched");
}

TEST(Type1CMap, AnEntryKeepsItsFirstNameButIsListedAgain) {
  Pages pages;
  pages.registerPageEntry(1, 65, "first");
  pages.registerPageEntry(1, 65, "second");
  EXPECT_EQ(pages.nameOf(1, 65), "first");
  EXPECT_EQ(*pages.getType1CMapArray(1), (Type1CMapArray{{65, "first"}, {65, "second"}}));
}

TEST(Type1CMap, RememberTouchesNoPage) {
  Pages pages;
  EXPECT_EQ(pages.remember('A', 65), 65);
  EXPECT_EQ(pages.codesByCharacter_.at('A'), 65);
  EXPECT_EQ(pages.getType1CMapArray(0), nullptr);
  EXPECT_EQ(pages.nameOf(0, 65), "A");
}

TEST(Type1CMap, PairsAreCountedFromZeroInTheirOrder) {
  Pages pages;
  pages.registerPageEntry(3, 70, "b");
  pages.registerPageEntry(3, 60, "a");
  unsigned char code = 1;
  std::string name = "untouched";
  for (const auto& [page, index] : std::vector<std::pair<int, int>>{{3, -1}, {3, 2}, {2, 0}}) {
    EXPECT_FALSE(pages.getType1CMapPair(static_cast<unsigned char>(page), index, code, name));
  }
  EXPECT_EQ(code, 1);
  EXPECT_EQ(name, "untouched");
  ASSERT_TRUE(pages.getType1CMapPair(3, 0, code, name));
  EXPECT_EQ(code, 70);
  EXPECT_EQ(name, "b");
  ASSERT_TRUE(pages.getType1CMapPair(3, 1, code, name));
  EXPECT_EQ(code, 60);
}

TEST(Type1CMap, AnArrayStaysWhereItIsWhenPagesAppear) {
  Pages pages;
  pages.registerPageEntry(9, 40, "a");
  const Type1CMapArray* array = pages.getType1CMapArray(9);
  for (int page = 0; page < 256; ++page)
    pages.registerPageEntry(static_cast<unsigned char>(page), 41, "b");
  EXPECT_EQ(pages.getType1CMapArray(9), array);
  EXPECT_EQ(array->size(), 2u);
}

TEST(Type1CMap, TwoThreadsNeverGetOneCode) {
  Pages pages;
  std::vector<unsigned short> first;
  std::vector<unsigned short> second;
  const auto run = [&](std::vector<unsigned short>& codes, int from) {
    for (int i = 0; i < 500; ++i) codes.push_back(pages.give(from + i));
  };
  std::thread other(run, std::ref(second), 1000);
  run(first, 0);
  other.join();
  std::set<unsigned short> all(first.begin(), first.end());
  all.insert(second.begin(), second.end());
  EXPECT_EQ(all.size(), 1000u);
}

}  // namespace
}  // namespace QXFontService_NS
