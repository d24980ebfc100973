#include "qxfontservice/ext/type1_segments.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>

#include "support/type1_builder.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::Type1Builder;
using qxtest::type1Segment;

const std::string kEnd("\x80\x03", 2);

class Type1Segments : public ::testing::Test {
 protected:
  bool remove(const std::string& program) {
    std::istringstream in(program);
    QXCommonNS::QXMemStream out(nullptr, 64, false, true);
    const bool done = removeType1Segments(in, out, lengths[0], lengths[1], lengths[2]);
    out.clear();
    out.seekg(0);
    bytes.assign(std::istreambuf_iterator<char>(out), std::istreambuf_iterator<char>());
    return done;
  }
  void expectRefused(const std::string& program) {
    lengths[0] = lengths[1] = lengths[2] = 7;
    EXPECT_FALSE(remove(program));
    EXPECT_EQ(bytes, "");
    for (const int length : lengths) EXPECT_EQ(length, 7);
  }

  std::string bytes;
  int lengths[3] = {-1, -1, -1};
};

TEST_F(Type1Segments, PartsStandOneBehindTheOther) {
  const Type1Builder font = Type1Builder().glyph(".notdef", qxtest::type1Box(250, 10));
  ASSERT_TRUE(remove(font.pfb()));
  EXPECT_EQ(bytes, font.clearText() +
                       qxtest::type1Encrypted(font.privatePart(), qxtest::kEexecKey) +
                       font.trailer());
  EXPECT_EQ(lengths[0], static_cast<int>(font.clearText().size()));
  EXPECT_EQ(lengths[1], static_cast<int>(font.privatePart().size()));
  EXPECT_EQ(lengths[2], static_cast<int>(font.trailer().size()));
}

TEST_F(Type1Segments, NeighboursOfOneKindAreOnePart) {
  ASSERT_TRUE(remove(type1Segment(1, "ab") + type1Segment(1, "c") + type1Segment(2, "12") +
                     type1Segment(2, "") + type1Segment(2, "3") + type1Segment(1, "x") +
                     type1Segment(1, "yz!") + kEnd));
  EXPECT_EQ(bytes, "abc123xyz!");
  EXPECT_EQ(lengths[0], 3);
  EXPECT_EQ(lengths[1], 3);
  EXPECT_EQ(lengths[2], 4);
}

TEST_F(Type1Segments, ATrailerMayBeEmptyOrMissing) {
  for (const std::string& trailer : {type1Segment(1, ""), std::string()}) {
    ASSERT_TRUE(remove(type1Segment(1, "ab") + type1Segment(2, "1") + trailer + kEnd));
    EXPECT_EQ(bytes, "ab1");
    EXPECT_EQ(lengths[2], 0);
  }
}

TEST_F(Type1Segments, WhatIsBehindTheEndMarkDoesNotCount) {
  ASSERT_TRUE(remove(type1Segment(1, "ab") + type1Segment(2, "1") + kEnd + "more"));
  EXPECT_EQ(bytes, "ab1");
}

TEST_F(Type1Segments, OtherOrdersAreRefused) {
  expectRefused("");
  expectRefused(kEnd);
  expectRefused("%!PS-AdobeFont-1.0: Made");
  expectRefused(type1Segment(1, "ab") + kEnd);
  expectRefused(type1Segment(2, "1") + kEnd);
  expectRefused(type1Segment(1, "ab") + type1Segment(2, "1") + type1Segment(1, "x") +
                type1Segment(2, "2") + kEnd);
  expectRefused(type1Segment(1, "ab") + type1Segment(4, "1") + kEnd);
  expectRefused(type1Segment(1, "ab") + type1Segment(2, "1"));
}

TEST_F(Type1Segments, AProgramCutAnywhereIsRefused) {
  const std::string whole =
      type1Segment(1, "ab") + type1Segment(2, "123") + type1Segment(1, "xy") + kEnd;
  for (std::size_t size = 0; size < whole.size(); ++size) expectRefused(whole.substr(0, size));
}

TEST_F(Type1Segments, ALengthPastTheEndIsRefused) {
  std::string program = type1Segment(1, "ab") + type1Segment(2, "123") + kEnd;
  for (const std::size_t header : {0U, 8U}) {
    std::string damaged = program;
    for (std::size_t i = 2; i < 6; ++i) damaged[header + i] = '\xFF';
    expectRefused(damaged);
  }
}

}  // namespace
}  // namespace QXFontService_NS::ext
