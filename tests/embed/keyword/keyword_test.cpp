#include "embed/keyword/keyword.h"

#include <gtest/gtest.h>

#include "font/contract/keywords.h"

namespace QXFontService_NS::embed {
namespace {

struct Row {
  Keyword keyword;
  const char* word;
};

constexpr Row kRows[] = {
    {Keyword::kBaseFontBlend, "BaseFontBlend"},
    {Keyword::kBaseFontName, "BaseFontName"},
    {Keyword::kBlueFuzz, "BlueFuzz"},
    {Keyword::kBlueScale, "BlueScale"},
    {Keyword::kBlueShift, "BlueShift"},
    {Keyword::kBlueValues, "BlueValues"},
    {Keyword::kCIDCount, "CIDCount"},
    {Keyword::kCIDFontRevision, "CIDFontRevision"},
    {Keyword::kCIDFontType, "CIDFontType"},
    {Keyword::kCIDFontVersion, "CIDFontVersion"},
    {Keyword::kCharStrings, "CharStrings"},
    {Keyword::kCharstringType, "CharstringType"},
    {Keyword::kCopyright, "Copyright"},
    {Keyword::kEncoding, "Encoding"},
    {Keyword::kExpansionFactor, "ExpansionFactor"},
    {Keyword::kFDArray, "FDArray"},
    {Keyword::kFDSelect, "FDSelect"},
    {Keyword::kFamilyBlues, "FamilyBlues"},
    {Keyword::kFamilyName, "FamilyName"},
    {Keyword::kFamilyOtherBlues, "FamilyOtherBlues"},
    {Keyword::kFontBBox, "FontBBox"},
    {Keyword::kFontMatrix, "FontMatrix"},
    {Keyword::kFontName, "FontName"},
    {Keyword::kForceBold, "ForceBold"},
    {Keyword::kFullName, "FullName"},
    {Keyword::kItalicAngle, "ItalicAngle"},
    {Keyword::kLanguageGroup, "LanguageGroup"},
    {Keyword::kNotice, "Notice"},
    {Keyword::kOtherBlues, "OtherBlues"},
    {Keyword::kPaintType, "PaintType"},
    {Keyword::kPostScript, "PostScript"},
    {Keyword::kPrivate, "Private"},
    {Keyword::kROS, "ROS"},
    {Keyword::kStdHW, "StdHW"},
    {Keyword::kStdVW, "StdVW"},
    {Keyword::kStemSnapH, "StemSnapH"},
    {Keyword::kStemSnapV, "StemSnapV"},
    {Keyword::kStrokeWidth, "StrokeWidth"},
    {Keyword::kSubrs, "Subrs"},
    {Keyword::kSyntheticBase, "SyntheticBase"},
    {Keyword::kUIDBase, "UIDBase"},
    {Keyword::kUnderlinePosition, "UnderlinePosition"},
    {Keyword::kUnderlineThickness, "UnderlineThickness"},
    {Keyword::kUniqueID, "UniqueID"},
    {Keyword::kWeight, "Weight"},
    {Keyword::kXUID, "XUID"},
    {Keyword::kAbs, "abs"},
    {Keyword::kAdd, "add"},
    {Keyword::kAnd, "and"},
    {Keyword::kBlend, "blend"},
    {Keyword::kCallgsubr, "callgsubr"},
    {Keyword::kCallothersubr, "callothersubr"},
    {Keyword::kCallsubr, "callsubr"},
    {Keyword::kCharset, "charset"},
    {Keyword::kClosepath, "closepath"},
    {Keyword::kCntrmask, "cntrmask"},
    {Keyword::kDefaultWidthX, "defaultWidthX"},
    {Keyword::kDiv, "div"},
    {Keyword::kDotsection, "dotsection"},
    {Keyword::kDrop, "drop"},
    {Keyword::kDup, "dup"},
    {Keyword::kEndchar, "endchar"},
    {Keyword::kEq, "eq"},
    {Keyword::kExch, "exch"},
    {Keyword::kFalse, "false"},
    {Keyword::kFlex, "flex"},
    {Keyword::kFlex1, "flex1"},
    {Keyword::kGet, "get"},
    {Keyword::kHflex, "hflex"},
    {Keyword::kHflex1, "hflex1"},
    {Keyword::kHhcurveto, "hhcurveto"},
    {Keyword::kHintmask, "hintmask"},
    {Keyword::kHlineto, "hlineto"},
    {Keyword::kHmoveto, "hmoveto"},
    {Keyword::kHsbw, "hsbw"},
    {Keyword::kHstem, "hstem"},
    {Keyword::kHstem3, "hstem3"},
    {Keyword::kHstemhm, "hstemhm"},
    {Keyword::kHvcurveto, "hvcurveto"},
    {Keyword::kIfelse, "ifelse"},
    {Keyword::kIndex, "index"},
    {Keyword::kInitialRandomSeed, "initialRandomSeed"},
    {Keyword::kIsFixedPitch, "isFixedPitch"},
    {Keyword::kLoad, "load"},
    {Keyword::kMul, "mul"},
    {Keyword::kNeg, "neg"},
    {Keyword::kNominalWidthX, "nominalWidthX"},
    {Keyword::kNot, "not"},
    {Keyword::kOr, "or"},
    {Keyword::kPop, "pop"},
    {Keyword::kPut, "put"},
    {Keyword::kRandom, "random"},
    {Keyword::kRcurveline, "rcurveline"},
    {Keyword::kReturn, "return"},
    {Keyword::kRlinecurve, "rlinecurve"},
    {Keyword::kRlineto, "rlineto"},
    {Keyword::kRmoveto, "rmoveto"},
    {Keyword::kRoll, "roll"},
    {Keyword::kRrcurveto, "rrcurveto"},
    {Keyword::kSbw, "sbw"},
    {Keyword::kSeac, "seac"},
    {Keyword::kSetcurrentpoint, "setcurrentpoint"},
    {Keyword::kSqrt, "sqrt"},
    {Keyword::kStore, "store"},
    {Keyword::kSub, "sub"},
    {Keyword::kTrue, "true"},
    {Keyword::kVersion, "version"},
    {Keyword::kVhcurveto, "vhcurveto"},
    {Keyword::kVlineto, "vlineto"},
    {Keyword::kVmoveto, "vmoveto"},
    {Keyword::kVstem, "vstem"},
    {Keyword::kVstem3, "vstem3"},
    {Keyword::kVstemhm, "vstemhm"},
    {Keyword::kVvcurveto, "vvcurveto"},
};

TEST(Keyword, NumbersAreThoseOfTheKeywordTable) {
  for (const Row& row : kRows) {
    EXPECT_EQ(FS_KeywordText(static_cast<int>(row.keyword)), icu::UnicodeString(row.word))
        << row.word;
  }
  EXPECT_TRUE(FS_KeywordText(static_cast<int>(Keyword::kNone)).isEmpty());
}

TEST(Keyword, ValuesAreNamesAndLeadBack) {
  for (const Row& row : kRows) {
    const QXCommonNS::QXValue value = keywordValue(row.keyword);
    EXPECT_TRUE(value.isName());
    EXPECT_EQ(value.toString(), icu::UnicodeString(row.word));
    EXPECT_EQ(keywordOf(value), row.keyword);
  }
}

TEST(Keyword, WhatIsNoKeywordIsNone) {
  using QXCommonNS::QXName;
  using QXCommonNS::QXValue;
  EXPECT_EQ(keywordOf(QXValue()), Keyword::kNone);
  EXPECT_EQ(keywordOf(QXValue(103)), Keyword::kNone);
  EXPECT_EQ(keywordOf(QXValue(1.5)), Keyword::kNone);
  EXPECT_EQ(keywordOf(keywordValue(Keyword::kNone)), Keyword::kNone);
  const QXName other(icu::UnicodeString("certainly-no-keyword"));
  EXPECT_EQ(keywordOf(QXValue(other.getNameEnum())), Keyword::kNone);
}

TEST(Keyword, FindsItemsOfADictionary) {
  QXCommonNS::QXValue dictionary;
  dictionary.setNamedItem(keywordName(Keyword::kCharStrings), QXCommonNS::QXValue(17));
  EXPECT_EQ(itemOf(dictionary, Keyword::kCharStrings).getIntegerValue(), 17);
  EXPECT_TRUE(itemOf(dictionary, Keyword::kCharset).isNull());
}

}  // namespace
}  // namespace QXFontService_NS::embed
