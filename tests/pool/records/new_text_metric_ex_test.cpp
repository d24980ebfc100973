#include "qxfontservice/new_text_metric_ex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <vector>

#include "qxcommon/value.h"

#include "font/contract/font_file_options.h"
#include "pool/records/unicode_ranges_data.h"

namespace QXFontService_NS {
namespace {

constexpr int kNone = -1;

/// A record with one Unicode subset bit and one code page bit; kNone for none.
FS_NewTextMetricEx metricOf(int subset, int codePage = kNone) {
  unsigned int words[4] = {0, 0, 0, 0};
  if (subset != kNone) words[subset / 32] = 1U << (subset % 32);
  FS_NewTextMetricEx metric;
  metric.setUnicodeSubsetBits(words[0], words[1], words[2], words[3]);
  if (codePage != kNone) metric.setCodePageBits0(1U << codePage);
  return metric;
}

FS_NewTextMetricEx metricOfAll(const std::vector<int>& subsets, unsigned int codePages) {
  unsigned int words[4] = {0, 0, 0, 0};
  for (const int bit : subsets) words[bit / 32] |= 1U << (bit % 32);
  FS_NewTextMetricEx metric;
  metric.setUnicodeSubsetBits(words[0], words[1], words[2], words[3]);
  metric.setCodePageBits0(codePages);
  return metric;
}

using Test = bool (*)(const FS_NewTextMetricEx&);

struct ScriptRow {
  const char* name;
  Test test;
  std::vector<int> subsets;
  int codePage;
};

std::ostream& operator<<(std::ostream& out, const ScriptRow& row) {
  return out << row.name;
}

#define QX_SCRIPT(member) #member, [](const FS_NewTextMetricEx& m) { return m.member; }

const ScriptRow kScripts[] = {
    {QX_SCRIPT(isLatin1()), {0}, 0},
    {QX_SCRIPT(isGreek()), {7}, 3},
    {QX_SCRIPT(isCyrillic()), {9}, 2},
    {QX_SCRIPT(isArmenian()), {10}, kNone},
    {QX_SCRIPT(isHebrew()), {11}, 5},
    {QX_SCRIPT(isArabic()), {13}, 6},
    {QX_SCRIPT(isDevanagari()), {15}, kNone},
    {QX_SCRIPT(isBengali()), {16}, kNone},
    {QX_SCRIPT(isGurmukhi()), {17}, kNone},
    {QX_SCRIPT(isGujarati()), {18}, kNone},
    {QX_SCRIPT(isOriya()), {19}, kNone},
    {QX_SCRIPT(isTamil()), {20}, kNone},
    {QX_SCRIPT(isTelugu()), {21}, kNone},
    {QX_SCRIPT(isKannada()), {22}, kNone},
    {QX_SCRIPT(isMalayalam()), {23}, kNone},
    {QX_SCRIPT(isThai()), {24}, 16},
    {QX_SCRIPT(isLao()), {25}, kNone},
    {QX_SCRIPT(isGeorgian()), {26}, kNone},
    {QX_SCRIPT(isMathOperator()), {38, 89}, kNone},
    {QX_SCRIPT(isTibetan()), {70}, kNone},
    {QX_SCRIPT(isSyriac()), {71}, kNone},
    {QX_SCRIPT(isSinhala()), {73}, kNone},
    {QX_SCRIPT(isMyanmar()), {74}, kNone},
    {QX_SCRIPT(isEthiopic()), {75}, kNone},
    {QX_SCRIPT(isKhmer()), {80}, kNone},
    {QX_SCRIPT(isHiragana(false)), {49}, 17},
    {QX_SCRIPT(isHiragana(true)), {49}, 17},
    {QX_SCRIPT(isKatakana(false)), {50}, 17},
    {QX_SCRIPT(isKatakana(true)), {50}, 17},
    {QX_SCRIPT(isKorean()), {56}, 19},
    // With `any` the East Asian tests look at the subset bits alone.
    {QX_SCRIPT(isChineseSimp(true)), {59, 55, 48}, kNone},
    {QX_SCRIPT(isChineseTrad(true)), {59, 55, 48}, kNone},
    {QX_SCRIPT(isJapanese(true)), {49, 50, 59, 55, 48, 65}, kNone},
};

class ScriptTest : public testing::TestWithParam<ScriptRow> {};

TEST_P(ScriptTest, IsTrueForEachOfItsSubsetBitsAndNoOther) {
  const ScriptRow& row = GetParam();
  for (int bit = 0; bit < 128; ++bit) {
    const bool own = std::find(row.subsets.begin(), row.subsets.end(), bit) != row.subsets.end();
    EXPECT_EQ(row.test(metricOf(bit)), own) << bit;
  }
}

TEST_P(ScriptTest, IsTrueForItsCodePageAloneAndNoOther) {
  for (int bit = 0; bit < 32; ++bit)
    EXPECT_EQ(GetParam().test(metricOf(kNone, bit)), bit == GetParam().codePage) << bit;
}

INSTANTIATE_TEST_SUITE_P(Rows, ScriptTest, testing::ValuesIn(kScripts));

struct EastAsianRow {
  const char* name;
  Test test;
  Test encoding;
  int codePage;
  std::vector<int> subsets;
};

std::ostream& operator<<(std::ostream& out, const EastAsianRow& row) {
  return out << row.name;
}

#define QX_ENCODING(member) [](const FS_NewTextMetricEx& m) { return m.member; }

const EastAsianRow kEastAsian[] = {
    {QX_SCRIPT(isChineseSimp(false)), QX_ENCODING(isChineseSimpEncoding()), 18, {59, 55, 48}},
    {QX_SCRIPT(isChineseTrad(false)), QX_ENCODING(isChineseTradEncoding()), 20, {59, 55, 48}},
    {QX_SCRIPT(isJapanese(false)), QX_ENCODING(isJapaneseEncoding()), 17, {49, 50, 59, 55, 48, 65}},
};

class EastAsianTest : public testing::TestWithParam<EastAsianRow> {};

TEST_P(EastAsianTest, NeedsItsCodePageAndOneOfItsSubsetBits) {
  const EastAsianRow& row = GetParam();
  for (int bit = 0; bit < 128; ++bit) {
    const bool own = std::find(row.subsets.begin(), row.subsets.end(), bit) != row.subsets.end();
    EXPECT_EQ(row.test(metricOf(bit, row.codePage)), own) << bit;
    EXPECT_FALSE(row.test(metricOf(bit))) << bit;
  }
  for (int page = 0; page < 32; ++page)
    EXPECT_EQ(row.test(metricOf(row.subsets[0], page)), page == row.codePage) << page;
}

TEST_P(EastAsianTest, ItsEncodingToleratesNoOtherCodePage) {
  const EastAsianRow& row = GetParam();
  const unsigned int own = 1U << row.codePage;
  for (const int subset : row.subsets)
    EXPECT_TRUE(row.encoding(metricOfAll({subset}, own))) << subset;
  for (int page = 0; page < 32; ++page)
    EXPECT_EQ(row.encoding(metricOfAll({row.subsets[0]}, own | 1U << page)), page == row.codePage);
  EXPECT_FALSE(row.encoding(metricOfAll({row.subsets[0]}, 0)));
  EXPECT_FALSE(row.encoding(metricOfAll({}, own)));
}

INSTANTIATE_TEST_SUITE_P(Rows, EastAsianTest, testing::ValuesIn(kEastAsian));

TEST(NewTextMetricEx, KoreanEncodingNeedsNoCodePageAtAll) {
  EXPECT_TRUE(metricOfAll({56}, 0).isKoreanEncoding());
  EXPECT_TRUE(metricOfAll({56}, 1U << 19).isKoreanEncoding());
  EXPECT_TRUE(metricOfAll({}, 1U << 19).isKoreanEncoding());
  EXPECT_FALSE(metricOfAll({56}, 1U << 18).isKoreanEncoding());
  EXPECT_FALSE(metricOfAll({56}, 3U << 19).isKoreanEncoding());
  EXPECT_FALSE(metricOfAll({}, 0).isKoreanEncoding());
}

TEST(NewTextMetricEx, ByDefaultIsEmptyAndOfVariablePitch) {
  const FS_NewTextMetricEx metric;
  EXPECT_FALSE(metric.hasValue());
  EXPECT_FALSE(metric.hasTypoInfo());
  EXPECT_FALSE(metric.hasVertTypoInfo());
  EXPECT_FALSE(metric.isItalic());
  EXPECT_EQ(metric.getPitchAndFamily(), 1U);
  EXPECT_FALSE(metric.isFixedPitch());
  EXPECT_FALSE(metric.isSerifLike());
  EXPECT_FALSE(metric.isScriptLike());
  EXPECT_FALSE(metric.isSymbol());
  EXPECT_EQ(metric.getCodePageBits0(), 0U);
  EXPECT_EQ(metric.getCodePageBits1(), 0U);
  for (int word = -1; word <= 4; ++word) EXPECT_EQ(metric.getUnicodeSubsetBits(word), 0U);
  EXPECT_EQ(metric.getFileOptions(), nullptr);
}

struct LengthField {
  void (FS_NewTextMetricEx::*set)(float);
  float (FS_NewTextMetricEx::*get)() const;
};

#define QX_LENGTH(name) \
  { &FS_NewTextMetricEx::set##name, &FS_NewTextMetricEx::get##name }

const LengthField kLengths[] = {
    QX_LENGTH(Ascent),           QX_LENGTH(Descent),
    QX_LENGTH(CapHeight),        QX_LENGTH(InternalLeadingA),
    QX_LENGTH(InternalLeadingD), QX_LENGTH(TypoAscender),
    QX_LENGTH(TypoDescender),    QX_LENGTH(TypoLineGap),
    QX_LENGTH(VertTypoAscender), QX_LENGTH(VertTypoDescender),
    QX_LENGTH(VertTypoLineGap),  QX_LENGTH(ExternalLeading),
    QX_LENGTH(AveCharWidth),     QX_LENGTH(MaxCharWidth),
    QX_LENGTH(ItalicAngle),
};

TEST(NewTextMetricEx, EachLengthHasAFieldOfItsOwn) {
  FS_NewTextMetricEx metric;
  float value = 1;
  for (const LengthField& field : kLengths) {
    EXPECT_EQ((metric.*field.get)(), 0.0F);
    (metric.*field.set)(value++);
  }
  const FS_NewTextMetricEx copy = metric;
  value = 1;
  for (const LengthField& field : kLengths) EXPECT_EQ((copy.*field.get)(), value++);
}

TEST(NewTextMetricEx, TestsWithoutAScriptLookAtTheirField) {
  FS_NewTextMetricEx metric;
  metric.setAscent(1);
  metric.setTypoAscender(1);
  metric.setVertTypoAscender(1);
  metric.setItalicAngle(-786432.0F);
  EXPECT_TRUE(metric.hasValue());
  EXPECT_TRUE(metric.hasTypoInfo());
  EXPECT_TRUE(metric.hasVertTypoInfo());
  EXPECT_TRUE(metric.isItalic());
  metric.setBBox(1, 2, 3, 4);
  EXPECT_EQ(metric.getBBoxLeft(), 1.0F);
  EXPECT_EQ(metric.getBBoxBottom(), 2.0F);
  EXPECT_EQ(metric.getBBoxRight(), 3.0F);
  EXPECT_EQ(metric.getBBoxTop(), 4.0F);
  metric.setSymbol(true);
  EXPECT_TRUE(metric.isSymbol());
}

TEST(NewTextMetricEx, FixedPitchIsTheClearBit) {
  FS_NewTextMetricEx metric;
  metric.setPitchAndFamily(0x50);
  EXPECT_TRUE(metric.isFixedPitch());
  EXPECT_FALSE(metric.isSerifLike());
  EXPECT_FALSE(metric.isScriptLike());
  metric.setPitchAndFamily(0x11);
  EXPECT_FALSE(metric.isFixedPitch());
  EXPECT_TRUE(metric.isSerifLike());
  metric.setPitchAndFamily(0x41);
  EXPECT_TRUE(metric.isScriptLike());
}

TEST(NewTextMetricEx, SerifAndScriptAreWholeFamiliesNotBits) {
  for (unsigned int bits = 0; bits <= 0xFF; ++bits) {
    FS_NewTextMetricEx metric;
    metric.setPitchAndFamily(bits);
    EXPECT_EQ(metric.isSerifLike(), (bits & 0x70) == 0x10) << bits;
    EXPECT_EQ(metric.isScriptLike(), (bits & 0x70) == 0x40) << bits;
    EXPECT_EQ(metric.isFixedPitch(), bits % 2 == 0) << bits;
  }
}

TEST(NewTextMetricEx, CopiesWhatIsNoLengthToo) {
  FS_FontFileOptions options;
  FS_NewTextMetricEx metric;
  metric.setPitchAndFamily(0x41);
  metric.setSymbol(true);
  metric.setUnicodeSubsetBits(1, 2, 3, 4);
  metric.setCodePageBits(5, 6);
  metric.setBBox(1, 2, 3, 4);
  metric.setFileOptions(&options);
  FS_NewTextMetricEx copy;
  copy.setCodePageBits0(0xFF00);
  copy = metric;
  EXPECT_EQ(copy.getPitchAndFamily(), 0x41U);
  EXPECT_TRUE(copy.isSymbol());
  for (int word = 0; word < 4; ++word)
    EXPECT_EQ(copy.getUnicodeSubsetBits(word), static_cast<unsigned int>(word) + 1);
  EXPECT_EQ(copy.getCodePageBits0(), 5U);
  EXPECT_EQ(copy.getCodePageBits1(), 6U);
  EXPECT_EQ(copy.getBBoxTop(), 4.0F);
  EXPECT_EQ(copy.getFileOptions(), &options);
}

TEST(NewTextMetricEx, SettingTheFirstCodePageWordAddsBits) {
  FS_NewTextMetricEx metric;
  metric.setCodePageBits0(1);
  metric.setCodePageBits0(6);
  metric.setCodePageBits0(0);
  EXPECT_EQ(metric.getCodePageBits0(), 7U);
  metric.setCodePageBits(8, 9);
  EXPECT_EQ(metric.getCodePageBits0(), 8U);
  EXPECT_EQ(metric.getCodePageBits1(), 9U);
  EXPECT_TRUE(metric.checkFSCharSet(12));
  EXPECT_FALSE(metric.checkFSCharSet(7));
}

TEST(NewTextMetricEx, ChecksEachSubsetBit) {
  for (int bit = 0; bit < 128; ++bit) {
    const FS_NewTextMetricEx metric = metricOf(bit);
    for (int other = 0; other < 128; ++other)
      EXPECT_EQ(metric.checkUSB(static_cast<UnicodeSubsetBitFields>(other)), bit == other);
  }
}

TEST(NewTextMetricEx, SubsetBitsOutside0To127AreNotSet) {
  FS_NewTextMetricEx metric;
  metric.setUnicodeSubsetBits(~0U, ~0U, ~0U, ~0U);
  for (const int bit : {-2147483647 - 1, -32, -1, 128, 160, 2147483647})
    EXPECT_FALSE(metric.checkUSB(static_cast<UnicodeSubsetBitFields>(bit))) << bit;
}

FS_NewTextMetricEx allSubsets() {
  FS_NewTextMetricEx metric;
  metric.setUnicodeSubsetBits(~0U, ~0U, ~0U, ~0U);
  return metric;
}

TEST(NewTextMetricEx, TheRangesAreSortedAndApart) {
  const auto ranges = pool::unicodeSubsetRanges();
  ASSERT_EQ(ranges.size(), 153U);
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    EXPECT_LE(ranges[i].first, ranges[i].last) << i;
    if (i > 0) {
      EXPECT_LT(ranges[i - 1].last, ranges[i].first) << i;
    }
  }
}

TEST(NewTextMetricEx, TheRangesAreThePublishedOnes) {
  // Made from the table of OpenType `OS/2`, ulUnicodeRange, with touching ranges of a bit joined.
  unsigned int sum = 0;
  for (const pool::UnicodeSubsetRange& row : pool::unicodeSubsetRanges())
    for (const int value : {int{row.bit}, int{row.first}, int{row.last}})
      sum = sum * 31 + static_cast<unsigned int>(value);
  EXPECT_EQ(sum, 0x0D7C7B3CU);
}

TEST(NewTextMetricEx, EachRangeAnswersByItsBitToItsVeryEnds) {
  for (const pool::UnicodeSubsetRange& row : pool::unicodeSubsetRanges()) {
    const FS_NewTextMetricEx own = metricOf(row.bit);
    const FS_NewTextMetricEx other = metricOf((row.bit + 1) % 128);
    EXPECT_TRUE(own.isInUSB(row.first)) << row.first;
    EXPECT_FALSE(other.isInUSB(row.first)) << row.first;
    EXPECT_EQ(own.isInUSB(row.last), row.last != 0xFFFF) << row.last;
  }
}

TEST(NewTextMetricEx, HasTheTellingRanges) {
  EXPECT_TRUE(metricOf(0).isInUSB(0x0000));
  EXPECT_TRUE(metricOf(0).isInUSB(0x007F));
  EXPECT_FALSE(metricOf(0).isInUSB(0x0080));
  EXPECT_TRUE(metricOf(38).isInUSB(0x2200));
  EXPECT_TRUE(metricOf(38).isInUSB(0x22FF));
  EXPECT_TRUE(metricOf(57).isInUSB(0xD800));
  EXPECT_TRUE(metricOf(57).isInUSB(0xDFFF));
  EXPECT_TRUE(metricOf(59).isInUSB(0x4E00));
  EXPECT_TRUE(metricOf(59).isInUSB(0x9FFF));
  EXPECT_TRUE(metricOf(90).isInUSB(0xF0000));
  EXPECT_TRUE(metricOf(90).isInUSB(0xFFFFD));
  EXPECT_TRUE(metricOf(90).isInUSB(0x100000));
  EXPECT_TRUE(metricOf(90).isInUSB(0x10FFFD));
}

TEST(NewTextMetricEx, CodePointsOfNoRangeAreInNone) {
  for (const int code :
       {-1,      0x0800,  0x08FF,  0x18B0,  0x18FF,   0x1A20,   0x1AFF,   0x1BC0,    0x1BFF,
        0x2FE0,  0x2FEF,  0xA4D0,  0xA4FF,  0xA830,   0xA83F,   0xD7B0,   0xD7FF,    0x1F0A0,
        0x1FFFF, 0x2A6E0, 0x2F7FF, 0xFFFFE, 0x10FFFE, 0x10FFFF, 0x110000, 2147483647})
    EXPECT_FALSE(allSubsets().isInUSB(code)) << code;
}

TEST(NewTextMetricEx, U_FFFFIsInNoSubsetThoughItsRowHoldsIt) {
  EXPECT_FALSE(metricOf(69).isInUSB(0xFFFF));
  EXPECT_TRUE(metricOf(69).isInUSB(0xFFFE));
}

TEST(NewTextMetricEx, WithoutAConfiguredRangeAllCodePointsAreInIt) {
  FS_FontFileOptions options;
  FS_NewTextMetricEx metric;
  EXPECT_TRUE(metric.isInUnicodeRange(0x41));
  metric.setFileOptions(&options);
  EXPECT_TRUE(metric.isInUnicodeRange(0x41));
  EXPECT_TRUE(metric.isInUnicodeRange(-1));
}

TEST(NewTextMetricEx, AConfiguredRangeDecides) {
  FS_FontFileOptions options;
  options.range = std::make_unique<QXUnicodeRange>();
  ASSERT_TRUE(options.range->parseUnicodeRange(QXValue(u"U+0041-0043", QXCommonNS::QXUNIT_NONE)));
  FS_NewTextMetricEx metric;
  metric.setFileOptions(&options);
  EXPECT_FALSE(metric.isInUnicodeRange(0x40));
  EXPECT_TRUE(metric.isInUnicodeRange(0x41));
  EXPECT_TRUE(metric.isInUnicodeRange(0x43));
  EXPECT_FALSE(metric.isInUnicodeRange(0x44));
}

}  // namespace
}  // namespace QXFontService_NS
