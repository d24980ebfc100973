#include "support/be_bytes.h"

#include <gtest/gtest.h>

namespace qxtest {
namespace {

TEST(BeBytes, WritesBigEndianAndPatchesByLabel) {
  BeBytes b;
  b.label("length").u16(0).label("offset").u32(0).tag("CFF").i16(-2).u24(0x010203);
  b.patchU16("length", 0x1122).patchU32("offset", 0x33445566);
  EXPECT_EQ(b.str(), std::string("\x11\x22\x33\x44\x55\x66"
                                 "CFF \xFF\xFE\x01\x02\x03",
                                 15));
  EXPECT_EQ(b.at("offset"), 2u);
}

TEST(BeBytes, AlignsAndWritesUtf16) {
  BeBytes b;
  b.utf16(u"A").u8(1).align(4);
  EXPECT_EQ(b.str(), std::string("\0A\1\0", 4));
  EXPECT_THROW(b.patchU16("none", 1), std::out_of_range);
}

}  // namespace
}  // namespace qxtest
