#include "embed/cff/subrs.h"

#include <gtest/gtest.h>

#include <sstream>

#include "embed/cff/cff_info.h"
#include "embed/cff/operands.h"
#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cff {
namespace {

using embed::itemOf;
using embed::Keyword;
using QXCommonNS::QXValue;
using qxtest::bytesOf;
using qxtest::CffBuilder;
using qxtest::CffPrivate;
using qxtest::DictBuilder;

CffPrivate privateOf(int width, FS_CFFStrings subrs) {
  CffPrivate made;
  made.dict.entry(20, width);
  made.subrs = std::move(subrs);
  return made;
}

/// A font in a stream, three bytes behind its start.
struct Opened {
  explicit Opened(CffBuilder& font) : stream("???" + font.build()) {
    table = {&stream, 3, static_cast<std::uint32_t>(font.at("End"))};
    loaded = info.readCFF(stream, 3);
  }
  std::istringstream stream;
  CffTable table;
  FS_CFFInfo info;
  bool loaded = false;
};

CffBuilder fontWith(FS_CFFStrings strings, FS_CFFStrings globalSubrs) {
  CffBuilder font;
  font.strings = std::move(strings);
  font.globalSubrs = std::move(globalSubrs);
  font.glyphs = {"\x0E"};
  return font;
}

TEST(GlobalSubrs, AreReadBehindThreeIndexes) {
  CffBuilder font = fontWith({"s"}, {"a", "", "bc"});
  Opened opened(font);
  FS_CFFStrings subrs;
  ASSERT_TRUE(readGlobalSubrs(opened.table, subrs));
  EXPECT_EQ(subrs, (FS_CFFStrings{"a", "", "bc"}));
}

TEST(GlobalSubrs, AreFoundBehindAnEmptyStringIndex) {
  CffBuilder font = fontWith({}, {"a"});
  Opened opened(font);
  FS_CFFStrings subrs;
  ASSERT_TRUE(readGlobalSubrs(opened.table, subrs));
  EXPECT_EQ(subrs, FS_CFFStrings{"a"});
}

TEST(GlobalSubrs, MayBeEmptyAndAtTheVeryEnd) {
  CffBuilder font = fontWith({"s"}, {});
  font.writeCharStrings = false;
  Opened opened(font);
  FS_CFFStrings subrs{"old"};
  ASSERT_TRUE(readGlobalSubrs(opened.table, subrs));
  EXPECT_TRUE(subrs.empty());
}

TEST(GlobalSubrs, NeedATable) {
  FS_CFFStrings subrs;
  EXPECT_FALSE(readGlobalSubrs({}, subrs));
}

TEST(GlobalSubrs, EveryCutIsRefused) {
  CffBuilder font = fontWith({"s"}, {"abc", "d"});
  font.writeCharStrings = false;
  qxtest::forEachPrefix(font.build(), [](const std::string& bytes) {
    std::istringstream stream(bytes);
    FS_CFFStrings subrs;
    EXPECT_FALSE(readGlobalSubrs({&stream, 0, 0}, subrs));
  });
}

TEST(PrivateDict, KeepsDeltasAsTheFileHasThem) {
  const std::string dict =
      DictBuilder().numbers({-20, 20, 500, 15}).op(6).real("0.05").op(0x0C09).str();
  std::istringstream stream("?" + dict);
  QXValue map;
  ASSERT_TRUE(readPrivateDict({&stream, 0, 0}, 1, static_cast<int>(dict.size()), map));
  const QXValue& blues = itemOf(map, Keyword::kBlueValues);
  EXPECT_EQ(FS_Operand(blues, 3).getIntegerValue(), 500);
  EXPECT_EQ(FS_Operand(blues, 4).getIntegerValue(), 15);
  EXPECT_DOUBLE_EQ(itemOf(map, Keyword::kBlueScale).getDoubleValue(), 0.05);
}

TEST(PrivateDict, RefusesNoTableNoSizeAndShortReads) {
  std::istringstream stream("??");
  QXValue map;
  EXPECT_FALSE(readPrivateDict({}, 1, 1, map));
  EXPECT_FALSE(readPrivateDict({&stream, 0, 0}, 0, 0, map));
  EXPECT_FALSE(readPrivateDict({&stream, 0, 0}, 0, -1, map));
  EXPECT_FALSE(readPrivateDict({&stream, 0, 0}, -1, 1, map));
  EXPECT_FALSE(readPrivateDict({&stream, 0, 0}, 0, 3, map));
  EXPECT_FALSE(readPrivateDict({&stream, 0, 0}, 0, 0x7FFFFFFF, map));
  EXPECT_TRUE(readPrivateDict({&stream, 0, 0}, 0, 2, map));
}

TEST(PrivateDict, NegativeOffsetIsNoPlaceBeforeTheTable) {
  std::istringstream stream("\x8B\x0A" + std::string("rest"));
  QXValue map;
  EXPECT_FALSE(readPrivateDict({&stream, 2, 4}, -2, 2, map));
  EXPECT_TRUE(readPrivateDict({&stream, 0, 6}, 0, 2, map));
}

TEST(LocalSubrsOf, AreReadAtTheirOffsetFromThePrivateDict) {
  CffBuilder font = fontWith({"s"}, {});
  font.privates = {privateOf(500, {"ab", "c"})};
  Opened opened(font);
  QXValue map;
  LocalSubrs subrs;
  ASSERT_TRUE(readLocalSubrs(opened.table, opened.info.topDict, map, subrs));
  EXPECT_EQ(stringsOf(subrs), (FS_CFFStrings{"ab", "c"}));
  EXPECT_EQ(itemOf(map, Keyword::kDefaultWidthX).getIntegerValue(), 500);
}

TEST(LocalSubrsOf, NoPrivateNoSubrsAndSubrsZeroAreSuccess) {
  CffBuilder none = fontWith({"s"}, {});
  Opened opened(none);
  QXValue map;
  LocalSubrs subrs;
  EXPECT_TRUE(readLocalSubrs(opened.table, opened.info.topDict, map, subrs));
  EXPECT_FALSE(map.isNull());
  EXPECT_TRUE(itemOf(map, Keyword::kDefaultWidthX).isNull());
  EXPECT_TRUE(stringsOf(subrs).empty());
  CffBuilder zero = fontWith({"s"}, {});
  zero.privates = {privateOf(1, {})};
  zero.privates[0].dict.entry(19, 0);
  Opened second(zero);
  EXPECT_TRUE(readLocalSubrs(second.table, second.info.topDict, map, subrs));
  EXPECT_TRUE(stringsOf(subrs).empty());
}

TEST(LocalSubrsOf, PrivateOfSizeZeroFails) {
  CffBuilder font = fontWith({"s"}, {});
  font.privates.resize(1);
  Opened opened(font);
  QXValue map;
  LocalSubrs subrs;
  EXPECT_FALSE(readLocalSubrs(opened.table, opened.info.topDict, map, subrs));
}

TEST(LocalSubrsOf, PrivateWithOneOperandBeginsAtZero) {
  CffBuilder font = fontWith({"s"}, {});
  font.top.entry(18, 4);  // a size; the offset is missing and counts as 0
  Opened opened(font);
  QXValue map;
  LocalSubrs subrs;
  EXPECT_TRUE(readLocalSubrs(opened.table, opened.info.topDict, map, subrs));
}

TEST(LocalSubrsOf, SubrsOutsideTheStreamFail) {
  for (int offset : {-1000, 100000}) {
    CffBuilder font = fontWith({"s"}, {});
    font.privates = {privateOf(1, {})};
    font.privates[0].dict.number(offset).op(19);
    Opened opened(font);
    QXValue map;
    LocalSubrs subrs;
    EXPECT_FALSE(readLocalSubrs(opened.table, opened.info.topDict, map, subrs)) << offset;
  }
}

CffBuilder cidKeyed(std::vector<CffPrivate> privates) {
  CffBuilder font = fontWith({"Adobe", "Identity"}, {});
  font.cid = true;
  font.fdSelect = CffBuilder::fdSelect3({{0, 0}}, 1);
  font.privates = std::move(privates);
  return font;
}

TEST(FDArray, KeepsThreeListsInStep) {
  CffBuilder font = cidKeyed({privateOf(1, {"a"}), privateOf(2, {}), privateOf(3, {"b", "c"})});
  font.privates[1].fontDict.entry(0x0C26, 391).numbers({1, 0, 0, 1, 0, 0}).op(0x0C07);
  Opened opened(font);
  ASSERT_TRUE(opened.loaded);
  FontDicts dicts;
  ASSERT_TRUE(readFDArray(opened.table, opened.info, dicts));
  ASSERT_EQ(dicts.dicts.size(), 3u);
  ASSERT_EQ(dicts.privates.size(), 3u);
  ASSERT_EQ(dicts.subrs.size(), 3u);
  EXPECT_EQ(itemOf(dicts.privates[2], Keyword::kDefaultWidthX).getIntegerValue(), 3);
  EXPECT_EQ(stringsOf(dicts.subrs[0]), FS_CFFStrings{"a"});
  EXPECT_TRUE(stringsOf(dicts.subrs[1]).empty());
  EXPECT_EQ(stringsOf(dicts.subrs[2]), (FS_CFFStrings{"b", "c"}));
  EXPECT_EQ(itemOf(dicts.dicts[1], Keyword::kFontName).getIntegerValue(), 391);
  EXPECT_TRUE(itemOf(dicts.dicts[1], Keyword::kFontMatrix).isNull());
}

TEST(FDArray, FontDictWithoutPrivateHasAnEmptyMapAndNoSubrs) {
  const std::string dicts = qxtest::cffIndex({DictBuilder().entry(0x0C26, 391).str(), ""});
  std::istringstream stream("?" + dicts);
  FontDicts read;
  ASSERT_TRUE(readFDArray({&stream, 0, 0}, 1, read));
  ASSERT_EQ(read.privates.size(), 2u);
  EXPECT_FALSE(read.privates[0].isNull());
  EXPECT_TRUE(stringsOf(read.subrs[1]).empty());
}

TEST(FDArray, ZeroNegativeAndOutsideFail) {
  std::istringstream stream("????");
  FontDicts dicts;
  for (std::int64_t offset : {0, -1, 100})
    EXPECT_FALSE(readFDArray({&stream, 0, 0}, offset, dicts));
  EXPECT_FALSE(readFDArray({}, 1, dicts));
}

TEST(FDArray, OneUnreadablePrivateFailsAll) {
  CffBuilder font = cidKeyed({privateOf(1, {}), CffPrivate{}});  // the second has size 0
  Opened opened(font);
  FontDicts dicts;
  EXPECT_FALSE(readFDArray(opened.table, opened.info, dicts));
}

// Thousands of Font DICTs over one large Private DICT and its Subrs: read once, held once.
TEST(FDArray, SharesWhatFontDictsNameTwice) {
  const std::string subrs = qxtest::cffIndex({std::string(60000, 'x')});
  const std::string dict = DictBuilder().entry(19, 2).str();
  ASSERT_EQ(dict.size(), 2u);
  const std::string fontDict = DictBuilder().number(2).number(1).op(18).str();
  const std::string start = "?" + dict + subrs;
  std::istringstream stream(start + qxtest::cffIndex(std::vector<std::string>(5000, fontDict)));
  FontDicts dicts;
  ASSERT_TRUE(readFDArray({&stream, 0, 0}, static_cast<int>(start.size()), dicts));
  ASSERT_EQ(dicts.subrs.size(), 5000u);
  EXPECT_EQ(dicts.subrs[4999], dicts.subrs[0]);
}

// Private DICTs that overlap in ever other ways would make the same bytes count again and again.
TEST(FDArray, RefusesMorePrivateBytesThanAnyFontHas) {
  std::vector<std::string> dicts;
  for (int i = 0; i < 40; ++i)
    dicts.push_back(DictBuilder().number(32000).number(1 + i).op(18).str());
  const std::string start = std::string(33000, '\x8B');
  std::istringstream stream(start + qxtest::cffIndex(dicts));
  FontDicts read;
  EXPECT_FALSE(readFDArray({&stream, 0, 0}, static_cast<int>(start.size()), read));
}

TEST(FDArray, SurvivesDamage) {
  CffBuilder font = cidKeyed({privateOf(1, {"a"}), privateOf(2, {"b"})});
  qxtest::forEachDamage(font.build(), [](const std::string& bytes) {
    std::istringstream stream(bytes);
    FS_CFFInfo info;
    if (!info.readCFF(stream, 0)) return;
    const CffTable table{&stream, 0, static_cast<std::uint32_t>(bytes.size())};
    FontDicts dicts;
    FS_CFFStrings subrs;
    std::vector<FS_FDRange> ranges;
    const bool read = readFDArray(table, info, dicts);
    EXPECT_TRUE(!read || dicts.privates.size() == dicts.subrs.size());
    static_cast<void>(readGlobalSubrs(table, subrs));
    static_cast<void>(readFDSelect(table, info, ranges));
  });
}

}  // namespace
}  // namespace QXFontService_NS::cff
