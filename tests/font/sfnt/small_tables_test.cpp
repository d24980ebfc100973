#include <gtest/gtest.h>

#include "font/sfnt/head.h"
#include "font/sfnt/hhea.h"
#include "font/sfnt/post.h"
#include "font/sfnt/vhea.h"
#include "support/table_builders.h"

namespace QXFontService_NS::sfnt {
namespace {

ByteView viewOf(const std::string& bytes) {
  return ByteView(bytes.data(), bytes.size());
}

TEST(Head, DecodesItsFields) {
  const std::string bytes = qxtest::HeadBuilder{.unitsPerEm = 40000,
                                                .xMin = -1,
                                                .yMin = -2,
                                                .xMax = 3,
                                                .yMax = 4,
                                                .macStyle = 2,
                                                .indexToLocFormat = 1}
                                .build();
  const Head head = Head::decode(viewOf(bytes));
  EXPECT_EQ(head.unitsPerEm, 40000);
  EXPECT_EQ(head.xMin, -1);
  EXPECT_EQ(head.yMin, -2);
  EXPECT_EQ(head.xMax, 3);
  EXPECT_EQ(head.yMax, 4);
  EXPECT_EQ(head.macStyle, 2);
  EXPECT_EQ(head.indexToLocFormat, 1u);
}

TEST(Head, LocFormatIsUnsigned) {
  const std::string bytes = qxtest::HeadBuilder{.indexToLocFormat = -1}.build();
  EXPECT_EQ(Head::decode(viewOf(bytes)).indexToLocFormat, 0xFFFFu);
}

TEST(Hhea, DecodesItsFields) {
  const std::string bytes =
      qxtest::HheaBuilder{
          .ascender = 700, .descender = -300, .lineGap = -5, .numberOfMetrics = 0xFFFF}
          .build();
  const Hhea hhea = Hhea::decode(viewOf(bytes));
  EXPECT_EQ(hhea.ascender, 700);
  EXPECT_EQ(hhea.descender, -300);
  EXPECT_EQ(hhea.lineGap, -5);
  EXPECT_EQ(hhea.numberOfHMetrics, 0xFFFFu);
}

TEST(Vhea, DecodesItsFields) {
  const std::string bytes =
      qxtest::HheaBuilder{.ascender = 500, .descender = -500, .lineGap = 7, .numberOfMetrics = 3}
          .build();
  const Vhea vhea = Vhea::decode(viewOf(bytes));
  EXPECT_EQ(vhea.vertAscender, 500);
  EXPECT_EQ(vhea.vertDescender, -500);
  EXPECT_EQ(vhea.vertLineGap, 7);
  EXPECT_EQ(Vhea::numOfLongVerMetrics(viewOf(bytes)), 3);
}

TEST(Post, KeepsTheAngleAsItsRawNumber) {
  const std::string bytes = qxtest::PostBuilder{.italicAngle = -12 * 65536}.build();
  EXPECT_EQ(Post::decode(viewOf(bytes)).italicAngle, -786432.0f);
}

TEST(Post, DecodesItsFields) {
  const std::string bytes =
      qxtest::PostBuilder{
          .underlinePosition = -75, .underlineThickness = 25, .isFixedPitch = 0x00010000}
          .build();
  const Post post = Post::decode(viewOf(bytes));
  EXPECT_EQ(post.underlinePosition, -75);
  EXPECT_EQ(post.underlineThickness, 25);
  EXPECT_TRUE(post.isFixedPitch);
  EXPECT_FALSE(Post::decode(viewOf(qxtest::PostBuilder().build())).isFixedPitch);
}

}  // namespace
}  // namespace QXFontService_NS::sfnt
