#include "font/cmap/code_page.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <climits>
#include <string>
#include <thread>
#include <vector>

namespace QXFontService_NS::cmap {
namespace {

struct Row {
  std::uint16_t platform;
  std::uint16_t encoding;
  const char* converter;
  int unit;  ///< a character of the encoding
  int code;
};

const Row kRows[] = {
    {1, 1, "cp932", 0x3042, 0x82A0},    {1, 2, "cp950", 0x4E00, 0xA440},
    {1, 3, "cp949", 0xAC00, 0xB0A1},    {1, 25, "cp936", 0x4E00, 0xD2BB},
    {3, 2, "ShiftJIS", 0x4E9C, 0x889F}, {3, 3, "GB2312", 0x4E00, 0xD2BB},
    {3, 4, "Big5", 0x4E00, 0xA440},     {3, 5, "cp949", 0xAC00, 0xB0A1},
};

std::string nameOf(const testing::TestParamInfo<Row>& info) {
  return std::to_string(info.param.platform) + "_" + std::to_string(info.param.encoding) + "_" +
         info.param.converter;
}

/// What a converter opened for this one conversion gives, with the rules for its answer.
int byOpenedConverter(UConverter* converter, char16_t unit) {
  char bytes[4] = {};
  UErrorCode status = U_ZERO_ERROR;
  const int count = ucnv_fromUChars(converter, bytes, 4, &unit, 1, &status);
  if (U_FAILURE(status) || count < 1 || count > 2) return CodePage::kNoCode;
  const int first = static_cast<unsigned char>(bytes[0]);
  if (count == 2) return first * 256 + static_cast<unsigned char>(bytes[1]);
  return first == 0x3F && unit != u'?' ? CodePage::kNoCode : first;
}

class CodePages : public testing::TestWithParam<Row> {
 protected:
  const CodePage* page_ = CodePage::find(GetParam().platform, GetParam().encoding);
};

INSTANTIATE_TEST_SUITE_P(Rows, CodePages, testing::ValuesIn(kRows), nameOf);

TEST_P(CodePages, ConvertsItsOwnCharacters) {
  ASSERT_NE(page_, nullptr);
  EXPECT_EQ(page_->convert('A'), 'A');
  EXPECT_EQ(page_->convert('?'), '?');
  EXPECT_EQ(page_->convert(GetParam().unit), GetParam().code);
}

TEST_P(CodePages, CodesOutsideTheBasicPlaneHaveNoConversion) {
  for (const int code : {-1, INT_MIN, 0x10000, 0x10041, 0x20000, INT_MAX}) {
    EXPECT_EQ(page_->convert(code), CodePage::kNoCode) << code;
  }
}

TEST_P(CodePages, EachUnitConvertsAsByAConverterOfItsOwn) {
  const bool hasFixedCodes = GetParam().platform == 3 && GetParam().encoding == 3;
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    if (hasFixedCodes && (unit == 0xB7 || unit == 0x2014)) continue;
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(GetParam().converter, &status);
    ASSERT_TRUE(U_SUCCESS(status));
    const int expected = byOpenedConverter(converter, static_cast<char16_t>(unit));
    ucnv_close(converter);
    ASSERT_EQ(page_->convert(unit), expected) << unit;
  }
}

TEST(CodePage, TheMiddleDotAndTheDashAreFixedForThreeThreeOnly) {
  EXPECT_EQ(CodePage::find(3, 3)->convert(0xB7), 0xA1A4);
  EXPECT_EQ(CodePage::find(3, 3)->convert(0x2014), 0xA1AA);
  EXPECT_NE(CodePage::find(1, 3)->convert(0xB7), 0xA1A4);
}

TEST(CodePage, OtherSubtablesHaveNone) {
  for (const auto& [platform, encoding] :
       {std::pair(0, 1), {1, 0}, {1, 4}, {1, 24}, {3, 0}, {3, 1}, {3, 6}, {3, 10}, {3, 25}}) {
    EXPECT_EQ(
        CodePage::find(static_cast<std::uint16_t>(platform), static_cast<std::uint16_t>(encoding)),
        nullptr)
        << platform << ' ' << encoding;
  }
}

TEST(CodePage, ManyThreadsGetTheSameCodes) {
  const CodePage* page = CodePage::find(3, 4);
  std::vector<std::vector<int>> answers(4);
  std::vector<std::thread> threads;
  for (auto& own : answers) {
    threads.emplace_back([page, &own] {
      for (int unit = 0x4E00; unit < 0x9FA6; ++unit) own.push_back(page->convert(unit));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const auto& own : answers) EXPECT_EQ(own, answers.front());
}

}  // namespace
}  // namespace QXFontService_NS::cmap
