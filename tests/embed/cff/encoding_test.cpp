#include "embed/cff/encoding.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/byte_text.h"
#include "support/truncation.h"

namespace QXFontService_NS::cff {
namespace {

using qxtest::bytesOf;
using Codes = std::vector<unsigned char>;

bool read(const std::string& bytes, Codes& codes, std::int64_t position = 0) {
  std::istringstream stream(bytes);
  return readEncoding(stream, position, codes);
}

TEST(CffEncoding, FormatZeroListsCodesEvenAndOdd) {
  Codes codes;
  ASSERT_TRUE(read(bytesOf({0, 2, 65, 66}), codes));
  EXPECT_EQ(codes, (Codes{65, 66}));
  codes.clear();
  ASSERT_TRUE(read(bytesOf({9, 0, 3, 65, 66, 200}), codes, 1));
  EXPECT_EQ(codes, (Codes{65, 66, 200}));
}

TEST(CffEncoding, FormatOneListsRangesThatWrapAtEightBits) {
  Codes codes;
  ASSERT_TRUE(read(bytesOf({1, 2, 65, 0, 254, 2}), codes));
  EXPECT_EQ(codes, (Codes{65, 254, 255, 0}));
}

// Required: only an exact 0 is the list, so a list with a supplement is read as ranges.
TEST(CffEncoding, SupplementBitMakesAListReadAsRanges) {
  Codes codes;
  ASSERT_TRUE(read(bytesOf({0x80, 1, 65, 1, 1, 70, 0, 7}), codes));
  EXPECT_EQ(codes, (Codes{65, 66}));
  codes.clear();
  ASSERT_TRUE(read(bytesOf({0x81, 1, 65, 1}), codes));
  EXPECT_EQ(codes, (Codes{65, 66}));
}

TEST(CffEncoding, CountZeroGivesNoCodes) {
  Codes codes;
  EXPECT_TRUE(read(bytesOf({0, 0}), codes));
  EXPECT_TRUE(read(bytesOf({1, 0}), codes));
  EXPECT_TRUE(codes.empty());
}

TEST(CffEncoding, EveryCutIsRefused) {
  for (const std::string& whole : {bytesOf({0, 3, 1, 2, 3}), bytesOf({1, 2, 65, 3, 90, 1})}) {
    qxtest::forEachPrefix(whole, [](const std::string& bytes) {
      Codes codes;
      EXPECT_FALSE(read(bytes, codes));
    });
  }
}

TEST(CffEncoding, PositionOutsideTheStreamIsRefused) {
  Codes codes;
  EXPECT_FALSE(read(bytesOf({0, 0}), codes, 2));
  EXPECT_FALSE(read(bytesOf({0, 0}), codes, -1));
}

}  // namespace
}  // namespace QXFontService_NS::cff
