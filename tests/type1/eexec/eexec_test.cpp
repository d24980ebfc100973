#include "type1/eexec/eexec.h"

#include <gtest/gtest.h>

namespace QXFontService_NS::type1 {
namespace {

TEST(Eexec, goldenBytes) {
  // The first byte is what it is XOR 0xD9, the key's high byte; the key runs on with the cipher.
  std::string bytes("\0\0\0\0", 4);
  encryptEexec(bytes);
  EXPECT_EQ(bytes, std::string("\xD9\xD6\x6F\x63", 4));
  decryptEexec(bytes);
  EXPECT_EQ(bytes, std::string("\0\0\0\0", 4));
}

TEST(Eexec, charStringsHaveAKeyOfTheirOwn) {
  std::string bytes("\x10\xBF\x31\x70", 4);
  decryptCharString(bytes);
  EXPECT_EQ(bytes, std::string("\0\0\0\0", 4));
}

TEST(Eexec, roundTripOfAllBytes) {
  std::string plain;
  for (int i = 0; i < 1024; ++i) plain.push_back(static_cast<char>(i * 7));
  std::string bytes = plain;
  encryptEexec(bytes);
  EXPECT_NE(bytes, plain);
  decryptEexec(bytes);
  EXPECT_EQ(bytes, plain);
  std::string none;
  encryptEexec(none);
  EXPECT_EQ(none, "");
}

}  // namespace
}  // namespace QXFontService_NS::type1
