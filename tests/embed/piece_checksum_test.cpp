#include "embed/piece_checksum.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"

namespace QXFontService_NS::embed {
namespace {

TEST(PieceChecksum, OfNothingIsZero) {
  PieceChecksum sum;
  sum.add({});
  EXPECT_EQ(sum.value(), 0u);
}

TEST(PieceChecksum, AShortLastWordIsFilledWithZeros) {
  PieceChecksum sum;
  sum.add(viewOf("\x01\x02\x03\x04\x05"));
  EXPECT_EQ(sum.value(), 0x01020304u + 0x05000000u);
}

TEST(PieceChecksum, IsThatOfTheWholeHoweverItIsCut) {
  std::string whole;
  for (int i = 0; i < 23; ++i) whole += static_cast<char>(i * 37 + 200);
  const std::uint32_t expected = qxtest::tableChecksum(whole);
  for (std::size_t a = 0; a <= whole.size(); ++a) {
    for (std::size_t b = a; b <= whole.size(); ++b) {
      PieceChecksum sum;
      sum.add(viewOf(whole).slice(0, a));
      sum.add(viewOf(whole).slice(a, b - a));
      sum.add(viewOf(whole).from(b));
      ASSERT_EQ(sum.value(), expected) << a << " " << b;
    }
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
