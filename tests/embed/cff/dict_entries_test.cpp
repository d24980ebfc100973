#include "embed/cff/dict_entries.h"

#include <gtest/gtest.h>

#include "support/cff_builder.h"

namespace QXFontService_NS::cff {
namespace {

using embed::itemOf;
using embed::Keyword;
using embed::keywordOf;
using QXCommonNS::QXValue;
using qxtest::DictBuilder;

QXValue parse(const DictBuilder& dict, std::span<const DictEntry> entries) {
  return parseDict({dict.str().data(), dict.str().size()}, entries);
}

struct Expected {
  unsigned op;
  Keyword keyword;
  StoredAs form;
};

constexpr Expected kTop[] = {
    {0, Keyword::kVersion, StoredAs::integer},
    {1, Keyword::kNotice, StoredAs::integer},
    {2, Keyword::kFullName, StoredAs::integer},
    {3, Keyword::kFamilyName, StoredAs::integer},
    {4, Keyword::kWeight, StoredAs::integer},
    {5, Keyword::kFontBBox, StoredAs::map},
    {13, Keyword::kUniqueID, StoredAs::integer},
    {14, Keyword::kXUID, StoredAs::integer},
    {15, Keyword::kCharset, StoredAs::integer},
    {16, Keyword::kEncoding, StoredAs::integer},
    {17, Keyword::kCharStrings, StoredAs::integer},
    {18, Keyword::kPrivate, StoredAs::map},
    {0x0C00, Keyword::kCopyright, StoredAs::integer},
    {0x0C01, Keyword::kIsFixedPitch, StoredAs::truth},
    {0x0C02, Keyword::kItalicAngle, StoredAs::integer},
    {0x0C03, Keyword::kUnderlinePosition, StoredAs::integer},
    {0x0C04, Keyword::kUnderlineThickness, StoredAs::integer},
    {0x0C05, Keyword::kPaintType, StoredAs::integer},
    {0x0C06, Keyword::kCharstringType, StoredAs::integer},
    {0x0C07, Keyword::kFontMatrix, StoredAs::map},
    {0x0C08, Keyword::kStrokeWidth, StoredAs::integer},
    {0x0C14, Keyword::kSyntheticBase, StoredAs::integer},
    {0x0C15, Keyword::kPostScript, StoredAs::integer},
    {0x0C16, Keyword::kBaseFontName, StoredAs::integer},
    {0x0C17, Keyword::kBaseFontBlend, StoredAs::map},
    {0x0C1E, Keyword::kROS, StoredAs::map},
    {0x0C1F, Keyword::kCIDFontVersion, StoredAs::integer},
    {0x0C20, Keyword::kCIDFontRevision, StoredAs::integer},
    {0x0C21, Keyword::kCIDFontType, StoredAs::integer},
    {0x0C22, Keyword::kCIDCount, StoredAs::integer},
    {0x0C23, Keyword::kUIDBase, StoredAs::integer},
    {0x0C24, Keyword::kFDArray, StoredAs::integer},
    {0x0C25, Keyword::kFDSelect, StoredAs::integer},
    {0x0C26, Keyword::kFontName, StoredAs::integer},
};

constexpr Expected kPrivate[] = {
    {6, Keyword::kBlueValues, StoredAs::map},
    {7, Keyword::kOtherBlues, StoredAs::map},
    {8, Keyword::kFamilyBlues, StoredAs::map},
    {9, Keyword::kFamilyOtherBlues, StoredAs::map},
    {10, Keyword::kStdHW, StoredAs::number},
    {11, Keyword::kStdVW, StoredAs::number},
    {19, Keyword::kSubrs, StoredAs::number},
    {20, Keyword::kDefaultWidthX, StoredAs::number},
    {21, Keyword::kNominalWidthX, StoredAs::number},
    {0x0C09, Keyword::kBlueScale, StoredAs::number},
    {0x0C0A, Keyword::kBlueShift, StoredAs::number},
    {0x0C0B, Keyword::kBlueFuzz, StoredAs::number},
    {0x0C0C, Keyword::kStemSnapH, StoredAs::map},
    {0x0C0D, Keyword::kStemSnapV, StoredAs::map},
    {0x0C0E, Keyword::kForceBold, StoredAs::truth},
    {0x0C11, Keyword::kLanguageGroup, StoredAs::number},
    {0x0C12, Keyword::kExpansionFactor, StoredAs::number},
    {0x0C13, Keyword::kInitialRandomSeed, StoredAs::number},
};

constexpr Expected kFont[] = {
    {18, Keyword::kPrivate, StoredAs::map},
    {0x0C26, Keyword::kFontName, StoredAs::number},
};

const Expected* find(std::span<const Expected> rows, unsigned op) {
  for (const Expected& row : rows)
    if (row.op == op) return &row;
  return nullptr;
}

// What `-2.75 7.5` before the operator is kept as.
void expectStored(const QXValue& dict, const Expected& row) {
  const QXValue& item = itemOf(dict, row.keyword);
  switch (row.form) {
    case StoredAs::integer:
      EXPECT_TRUE(item.isInteger());
      EXPECT_EQ(item.getIntegerValue(), 7);
      break;
    case StoredAs::number:
      EXPECT_DOUBLE_EQ(item.getDoubleValue(), 7.5);
      break;
    case StoredAs::map:
      EXPECT_DOUBLE_EQ(FS_Operand(item, 1).getDoubleValue(), -2.75);
      EXPECT_DOUBLE_EQ(FS_Operand(item, 2).getDoubleValue(), 7.5);
      break;
    case StoredAs::truth:
      EXPECT_EQ(keywordOf(item), Keyword::kTrue);
      break;
  }
}

// Every operator there is, one at a time: stored as the table has it, or passed over.
void checkEveryOperator(std::span<const DictEntry> entries, std::span<const Expected> rows) {
  ASSERT_EQ(entries.size(), rows.size());
  for (unsigned code = 0; code < 28 + 256; ++code) {
    const unsigned op = code < 28 ? code : 0x0C00 + (code - 28);
    if (op == 12) continue;
    const QXValue dict =
        parse(DictBuilder().real("-2.75").real("7.5").op(op).entry(0x0C26, 1), entries);
    const Expected* row = find(rows, op);
    for (const Expected& other : rows) {
      if (&other == row || other.keyword == Keyword::kFontName) continue;
      EXPECT_TRUE(itemOf(dict, other.keyword).isNull()) << op;
    }
    if (row != nullptr && op != 0x0C26) {
      SCOPED_TRACE(op);
      expectStored(dict, *row);
    }
  }
}

TEST(TopDictEntries, StoreEveryRowOfTheTableAndNothingElse) {
  checkEveryOperator(kTopDictEntries, kTop);
}

TEST(PrivateDictEntries, StoreEveryRowOfTheTableAndNothingElse) {
  checkEveryOperator(kPrivateDictEntries, kPrivate);
}

// The FontMatrix of a Font DICT is dropped: hosts correct the matrix of the whole font.
TEST(FontDictEntries, StoreNameAndPrivateAndNothingElse) {
  checkEveryOperator(kFontDictEntries, kFont);
  EXPECT_TRUE(itemOf(parse(DictBuilder().entry(0x0C07, 1), kFontDictEntries), Keyword::kFontMatrix)
                  .isNull());
}

TEST(DictEntries, OperatorsWithoutOperandsStoreOnlyMaps) {
  const auto check = [](std::span<const DictEntry> entries, std::span<const Expected> rows) {
    for (const Expected& row : rows) {
      const QXValue dict = parse(DictBuilder().op(row.op), entries);
      EXPECT_EQ(itemOf(dict, row.keyword).isNull(), row.form != StoredAs::map) << row.op;
      EXPECT_TRUE(FS_Operand(itemOf(dict, row.keyword), 1).isNull());
    }
  };
  check(kTopDictEntries, kTop);
  check(kPrivateDictEntries, kPrivate);
}

TEST(DictEntries, RealAngleIsCutTowardZero) {
  const QXValue dict = parse(DictBuilder().real("-12.5").op(0x0C02), kTopDictEntries);
  EXPECT_EQ(itemOf(dict, Keyword::kItalicAngle).getIntegerValue(), -12);
}

TEST(DictEntries, TruthIsAWord) {
  const auto wordOf = [](const DictBuilder& dict) {
    return keywordOf(itemOf(parse(dict, kPrivateDictEntries), Keyword::kForceBold));
  };
  EXPECT_EQ(wordOf(DictBuilder().entry(0x0C0E, 0)), Keyword::kFalse);
  EXPECT_EQ(wordOf(DictBuilder().entry(0x0C0E, 1)), Keyword::kTrue);
  EXPECT_EQ(wordOf(DictBuilder().entry(0x0C0E, -3)), Keyword::kTrue);
  EXPECT_EQ(wordOf(DictBuilder().real("0.0").op(0x0C0E)), Keyword::kFalse);
  EXPECT_EQ(wordOf(DictBuilder().real("0.5").op(0x0C0E)), Keyword::kTrue);
  EXPECT_EQ(wordOf(DictBuilder().number(1).number(0).op(0x0C0E)), Keyword::kFalse);
  EXPECT_EQ(keywordOf(itemOf(parse(DictBuilder().entry(0x0C01, 0), kTopDictEntries),
                             Keyword::kIsFixedPitch)),
            Keyword::kFalse);
}

TEST(DictEntries, RepeatedOperatorReplacesTheWholeValue) {
  const QXValue dict =
      parse(DictBuilder().numbers({1, 2, 3}).op(6).numbers({9}).op(6).entry(20, 1).entry(20, 2),
            kPrivateDictEntries);
  const QXValue& blues = itemOf(dict, Keyword::kBlueValues);
  EXPECT_EQ(FS_Operand(blues, 1).getIntegerValue(), 9);
  EXPECT_TRUE(FS_Operand(blues, 2).isNull());
  EXPECT_EQ(itemOf(dict, Keyword::kDefaultWidthX).getIntegerValue(), 2);
}

TEST(DictEntries, UnknownOperatorDropsItsOperands) {
  const QXValue dict =
      parse(DictBuilder().numbers({1, 2}).op(0x0C18).number(3).op(5), kTopDictEntries);
  EXPECT_EQ(FS_Operand(itemOf(dict, Keyword::kFontBBox), 1).getIntegerValue(), 3);
  EXPECT_TRUE(FS_Operand(itemOf(dict, Keyword::kFontBBox), 2).isNull());
}

TEST(DictEntries, DefaultsAreNotEntered) {
  const QXValue dict = parse(DictBuilder(), kTopDictEntries);
  EXPECT_FALSE(dict.isNull());
  for (const Expected& row : kTop) EXPECT_TRUE(itemOf(dict, row.keyword).isNull());
}

}  // namespace
}  // namespace QXFontService_NS::cff
