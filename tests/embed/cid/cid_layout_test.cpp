#include "embed/cid/cid_layout.h"

#include <gtest/gtest.h>

#include "embed/charstring/token_text.h"
#include "support/byte_text.h"

namespace QXFontService_NS::cid {
namespace {

using charstring::tokensOf;
using qxtest::bytesOf;

TEST(CidLayout, FdBytesFollowTheNumberOfFontDicts) {
  EXPECT_EQ(fdBytesFor(0), 0u);
  EXPECT_EQ(fdBytesFor(1), 1u);
  EXPECT_EQ(fdBytesFor(256), 1u);
  EXPECT_EQ(fdBytesFor(257), 2u);
}

// Two bytes end at 4096 and not at 65,536: kept.
TEST(CidLayout, GdBytesStepUpAt4096) {
  EXPECT_EQ(gdBytesFor(4096 - 3 * 2, 1, 1), 2u);
  EXPECT_EQ(gdBytesFor(4096 - 3 * 2 + 1, 1, 1), 3u);
  EXPECT_EQ(gdBytesFor(4000, 1, 200), 3u);
  EXPECT_EQ(gdBytesFor(0x1000001 - 4 * 2 - 1, 1, 1), 3u);
  EXPECT_EQ(gdBytesFor(0x1000001 - 4 * 2, 1, 1), 4u);
  EXPECT_EQ(gdBytesFor(4096 - 2 * 2, 0, 1), 2u);
  EXPECT_EQ(gdBytesFor(4096 - 2 * 2 + 1, 0, 1), 3u);
}

TEST(CidLayout, SdBytesStepUpAt64K) {
  EXPECT_EQ(sdBytesFor(0x10000 - 2 - 8 - 100, 100, 4), 2u);
  EXPECT_EQ(sdBytesFor(0x10000 - 2 - 8 - 100 + 1, 100, 4), 3u);
  EXPECT_EQ(sdBytesFor(0x1000001 - 3 - 12 - 100 - 1, 100, 4), 3u);
  EXPECT_EQ(sdBytesFor(0x1000001 - 3 - 12 - 100, 100, 4), 4u);
}

TEST(CidLayout, PacksCharstringsBackToBack) {
  const PackedCharStrings packed =
      packCharStrings({tokensOf("endchar"), {}, tokensOf("1 endchar"), tokensOf("endchar")});
  EXPECT_EQ(packed.starts, (std::vector<std::uint64_t>{0, 1, 1, 3, 4}));
  EXPECT_EQ(packed.bytes.front(), 0x1E);
  EXPECT_EQ(packed.bytes.back(), 0x1E);
}

TEST(CidLayout, BlockHasAbsoluteOffsetsAndClosingEntries) {
  PackedCharStrings charStrings{"abc", {0, 1, 3}};
  PackedCharStrings subrs{"wxyz", {0, 4}};
  const CidLayout layout = layOut(charStrings, subrs, 2);
  EXPECT_EQ(layout.cidMapSize, 9u);
  EXPECT_EQ(layout.subrMapOffset(), 12u);
  EXPECT_EQ(layout.subrOffset(), 16u);
  EXPECT_EQ(layout.size(), 20u);
  EXPECT_EQ(cidBlock(layout, charStrings, subrs, {1, 0}),
            bytesOf({1, 0, 9, 0, 0, 10, 0, 0, 12}) + "abc" + bytesOf({0, 16, 0, 20}) + "wxyz");
}

// Two bytes of a Font DICT index, three of a charstring offset, three of a Subr offset.
TEST(CidLayout, WideFieldsAreBigEndian) {
  PackedCharStrings charStrings{std::string(5000, 'c'), {0, 4999, 5000}};
  PackedCharStrings subrs{std::string(70000, 's'), {0, 70000}};
  const CidLayout layout = layOut(charStrings, subrs, 257);
  EXPECT_EQ(layout.fdBytes, 2u);
  EXPECT_EQ(layout.gdBytes, 3u);
  EXPECT_EQ(layout.sdBytes, 3u);
  const std::string block = cidBlock(layout, charStrings, subrs, {255, 1});
  // 15 bytes of map, 5,000 of charstrings, 6 of map, 70,000 of Subrs.
  EXPECT_EQ(block.substr(0, 15),
            bytesOf({0, 255, 0, 0, 15, 0, 1, 0, 0x13, 0x96, 0, 0, 0, 0x13, 0x97}));
  EXPECT_EQ(block.substr(15, 5000), charStrings.bytes);
  EXPECT_EQ(block.substr(5015, 6), bytesOf({0, 0x13, 0x9D, 1, 0x25, 0x0D}));
  EXPECT_EQ(block.substr(5021), subrs.bytes);
}

TEST(CidLayout, HexBreaksEvery32Bytes) {
  EXPECT_EQ(hexLines(""), "");
  EXPECT_EQ(hexLines(bytesOf({0x00, 0xAB, 0xFF})), "00abff");
  std::string line;
  for (int i = 0; i < 32; ++i) line += "61";
  EXPECT_EQ(hexLines(std::string(32, 'a')), line + "\n");
  EXPECT_EQ(hexLines(std::string(33, 'a')), line + "\n61");
  EXPECT_EQ(hexLines(std::string(64, 'a')), line + "\n" + line + "\n");
}

}  // namespace
}  // namespace QXFontService_NS::cid
