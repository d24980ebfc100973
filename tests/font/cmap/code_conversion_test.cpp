#include "font/cmap/code_conversion.h"

#include <gtest/gtest.h>

#include <climits>

namespace QXFontService_NS::cmap {
namespace {

TEST(CodeConversion, OthersLeaveCodesAsTheyAre) {
  for (const auto& [platform, encoding] : {std::pair(0, 1), {1, 0}, {3, 10}}) {
    const CodeConversion conversion(static_cast<std::uint16_t>(platform),
                                    static_cast<std::uint16_t>(encoding), true);
    EXPECT_EQ(conversion.convert(0x41), 0x41) << platform << ' ' << encoding;
    EXPECT_EQ(conversion.convert(0x10041), 0x10041);
    EXPECT_FALSE(conversion.usesCodePage());
  }
  EXPECT_EQ(CodeConversion().convert(0x41), 0x41);
}

TEST(CodeConversion, TheSymbolRuleLiftsCodesIntoThePrivateRange) {
  for (const std::uint16_t encoding : {std::uint16_t{0}, std::uint16_t{1}}) {
    const CodeConversion conversion(3, encoding, true);
    EXPECT_EQ(conversion.convert(0x41), 0xF041);
    EXPECT_EQ(conversion.convert(0xFFF), 0xFFFF);
    EXPECT_EQ(conversion.convert(0xF041), 0xF041);
    EXPECT_EQ(conversion.convert(0x1000), 0x1000);
    EXPECT_EQ(conversion.convert(0x4E00), 0x4E00);
  }
}

TEST(CodeConversion, TheSymbolRuleLooksAtTheWholeCode) {
  EXPECT_EQ(CodeConversion(3, 1, true).convert(0x10041), 0x1F041);
}

TEST(CodeConversion, TheSymbolRuleNeedsASubtableInThePrivateRange) {
  EXPECT_EQ(CodeConversion(3, 0, false).convert(0x41), 0x41);
  EXPECT_EQ(CodeConversion(3, 1, false).convert(0x41), 0x41);
}

TEST(CodeConversion, NegativeCodesStayNegative) {
  for (const int code : {-1, INT_MIN, INT_MIN + 0x41}) {
    EXPECT_LT(CodeConversion(3, 0, true).convert(code), 0) << code;
    EXPECT_LT(CodeConversion(3, 2, false).convert(code), 0) << code;
    EXPECT_EQ(CodeConversion().convert(code), code);
  }
}

TEST(CodeConversion, LegacyEncodingsGoThroughTheirCodePage) {
  const CodeConversion conversion(3, 2, false);
  EXPECT_TRUE(conversion.usesCodePage());
  EXPECT_EQ(conversion.convert(0x4E9C), 0x889F);
  EXPECT_EQ(conversion.convert(0x20000), CodeConversion::kNoCode);
}

TEST(CodeConversion, LegacyEncodingsDoNotFollowTheSymbolRule) {
  EXPECT_EQ(CodeConversion(3, 2, true).convert(0x41), 0x41);
}

TEST(CodeConversion, BlocksMoveAsTheirCodesDo) {
  const CodeConversion symbol(3, 0, true);
  for (std::uint32_t block = 0; block < 0x1100; ++block) {
    const auto moved = static_cast<std::uint32_t>(symbol.convert(static_cast<int>(block << 8)));
    ASSERT_EQ(symbol.blockAfterSymbolRule(block), moved >> 8) << block;
    ASSERT_EQ(CodeConversion().blockAfterSymbolRule(block), block);
  }
}

}  // namespace
}  // namespace QXFontService_NS::cmap
