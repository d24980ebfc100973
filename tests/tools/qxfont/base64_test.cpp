#include "qxfont/html/base64.h"

#include <gtest/gtest.h>

namespace qxfont {
namespace {

TEST(Base64, theExamplesOfTheStandard) {
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"f", "Zg=="},
      {"fo", "Zm8="},
      {"foo", "Zm9v"},
      {"foob", "Zm9vYg=="},
      {"fooba", "Zm9vYmE="},
      {"foobar", "Zm9vYmFy"},
  };
  for (const auto& [bytes, text] : rows) EXPECT_EQ(base64(bytes), text) << bytes;
}

TEST(Base64, allBits) {
  EXPECT_EQ(base64(std::string("\x00\x00\x00\xFF\xFF\xFF\xFB\xF0\x00", 9)), "AAAA////+/AA");
  EXPECT_EQ(base64("\xFF"), "/w==");
}

}  // namespace
}  // namespace qxfont
