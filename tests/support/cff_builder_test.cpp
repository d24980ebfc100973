#include "support/cff_builder.h"

#include <gtest/gtest.h>

#include "support/byte_text.h"

namespace qxtest {
namespace {

TEST(CffIndex, IsItsCountAloneWhenEmpty) {
  EXPECT_EQ(cffIndex({}), bytesOf({0, 0}));
}

TEST(CffIndex, HasOffsetsFromOneInTheSmallestSizeOrTheOneAskedFor) {
  EXPECT_EQ(cffIndex({"ab", "", "c"}), bytesOf({0, 3, 1, 1, 3, 3, 4, 'a', 'b', 'c'}));
  EXPECT_EQ(cffIndex({"x"}, 3), bytesOf({0, 1, 3, 0, 0, 1, 0, 0, 2, 'x'}));
  EXPECT_EQ(cffIndex({std::string(254, 'x')})[2], 1);
  EXPECT_EQ(cffIndex({std::string(255, 'x')})[2], 2);
  EXPECT_EQ(cffIndex({std::string(65535, 'x')})[2], 3);
}

TEST(DictBuilder, WritesEveryNumberForm) {
  EXPECT_EQ(DictBuilder().numbers({-107, 0, 107}).str(), bytesOf({32, 139, 246}));
  EXPECT_EQ(DictBuilder().numbers({108, 1131}).str(), bytesOf({247, 0, 250, 255}));
  EXPECT_EQ(DictBuilder().numbers({-108, -1131}).str(), bytesOf({251, 0, 254, 255}));
  EXPECT_EQ(DictBuilder().numbers({1132, -1132}).str(), bytesOf({28, 4, 108, 28, 251, 148}));
  EXPECT_EQ(DictBuilder().number(100000).str(), bytesOf({29, 0, 1, 134, 160}));
  EXPECT_EQ(DictBuilder().number(1, DictForm::twoBytes).str(), bytesOf({28, 0, 1}));
  EXPECT_EQ(DictBuilder().number(-1, DictForm::fourBytes).str(), bytesOf({29, 255, 255, 255, 255}));
}

TEST(DictBuilder, WritesRealsNibbleByNibble) {
  EXPECT_EQ(DictBuilder().real("-2.25").str(), bytesOf({30, 0xE2, 0xA2, 0x5F}));
  EXPECT_EQ(DictBuilder().real("0.140541E-3").str(),
            bytesOf({30, 0x0A, 0x14, 0x05, 0x41, 0xC3, 0xFF}));
  EXPECT_EQ(DictBuilder().real("1E5").str(), bytesOf({30, 0x1B, 0x5F}));
}

TEST(DictBuilder, WritesOperatorsOfOneAndTwoBytes) {
  EXPECT_EQ(DictBuilder().entry(17, 5).op(0x0C1E).str(), bytesOf({144, 17, 12, 30}));
}

TEST(CharStringBuilder, WritesNumbersCallsAndOperators) {
  EXPECT_EQ(CharStringBuilder().numbers({-107, 1131, 2000}).op(14).str(),
            bytesOf({32, 250, 255, 28, 7, 208, 14}));
  EXPECT_EQ(CharStringBuilder().fixed(0x00018000).op(0x0C23).str(),
            bytesOf({255, 0, 1, 128, 0, 12, 35}));
  EXPECT_EQ(CharStringBuilder().call(10, 0, 1).str(), bytesOf({32, 10}));
  EXPECT_EQ(CharStringBuilder().call(29, 1131, 1240).str(), bytesOf({139, 29}));
}

TEST(CffBuilder, LaysOutANameKeyedFontAndPatchesItsOffsets) {
  CffBuilder font;
  font.glyphs = {"\x0E", "\x0E"};
  font.charset = CffBuilder::charsetFormat0({34});
  font.privates.resize(1);
  font.privates[0].subrs = {"\x0B"};
  const std::string table = font.build();
  EXPECT_EQ(table.substr(0, 4), bytesOf({1, 0, 4, 4}));
  EXPECT_EQ(table.substr(4, 9), bytesOf({0, 1, 1, 1, 5, 'T', 'e', 's', 't'}));
  EXPECT_EQ(table.substr(font.at("charset"), 3), bytesOf({0, 0, 34}));
  EXPECT_EQ(table.substr(font.at("CharStrings"), 8), bytesOf({0, 2, 1, 1, 2, 3, 14, 14}));
  EXPECT_EQ(table.substr(font.at("Private"), 6), bytesOf({29, 0, 0, 0, 6, 19}));
  EXPECT_EQ(font.at("Subrs0"), font.at("Private") + 6);
  EXPECT_EQ(table.size(), font.at("End"));
  const auto low = static_cast<char>(font.at("charset"));
  EXPECT_EQ(table.substr(font.at("TopDict"), 6), bytesOf({29, 0, 0, 0, low, 15}));
}

TEST(CffBuilder, SettlesShortestOffsets) {
  CffBuilder font;
  font.offsetForm = font.privateOffsetForm = DictForm::shortest;
  font.glyphs = {std::string(300, '\x0E')};
  font.charset = CffBuilder::charsetFormat0({});
  font.privates.resize(1);
  const std::string table = font.build();
  const int at = static_cast<int>(font.at("CharStrings"));
  EXPECT_NE(table.find(DictBuilder().entry(17, at).str()), std::string::npos);
  EXPECT_NE(
      table.find(DictBuilder().number(0).entry(18, static_cast<int>(font.at("Private"))).str()),
      std::string::npos);
}

TEST(CffBuilder, LaysOutACidKeyedFont) {
  CffBuilder font;
  font.cid = true;
  font.strings = {"Adobe", "Identity"};
  font.glyphs = {"\x0E", "\x0E"};
  font.charset = CffBuilder::charsetRanges(2, {{1, 0}});
  font.fdSelect = CffBuilder::fdSelect3({{0, 0}, {1, 1}}, 2);
  font.privates.resize(2);
  font.privates[1].dict.entry(20, 500);
  const std::string table = font.build();
  EXPECT_EQ(table.substr(font.at("charset"), 5), bytesOf({2, 0, 1, 0, 0}));
  EXPECT_EQ(table.substr(font.at("FDSelect"), 11), bytesOf({3, 0, 2, 0, 0, 0, 0, 1, 1, 0, 2}));
  EXPECT_EQ(table.substr(font.at("Private1"), 3), bytesOf({248, 136, 20}));
  EXPECT_EQ(table.substr(font.at("FDArray"), 3), bytesOf({0, 2, 1}));
  EXPECT_EQ(font.at("Private1"), font.at("Private0"));
}

}  // namespace
}  // namespace qxtest
