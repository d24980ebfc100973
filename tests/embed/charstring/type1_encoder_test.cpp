#include "embed/charstring/type1_encoder.h"

#include <gtest/gtest.h>

#include <sstream>

#include "embed/charstring/token_text.h"
#include "embed/charstring/type1_charstrings.h"
#include "support/byte_text.h"

namespace QXFontService_NS::charstring {
namespace {

using qxtest::bytesOf;

struct EncodingCase {
  const char* tokens;
  std::string bytes;
};

TEST(Type1Encoder, WritesNumbersInTheirShortestForm) {
  const std::vector<EncodingCase> cases = {
      {"-107", bytesOf({32})},
      {"0", bytesOf({139})},
      {"107", bytesOf({246})},
      {"108", bytesOf({247, 0})},
      {"1131", bytesOf({0xFA, 0xFF})},
      {"-108", bytesOf({0xFB, 0x00})},
      {"-1131", bytesOf({254, 255})},
      {"1132", bytesOf({0xFF, 0, 0, 4, 0x6C})},
      {"-1132", bytesOf({0xFF, 255, 255, 251, 148})},
      {"2147483647", bytesOf({0xFF, 127, 255, 255, 255})},
      {"-2147483648", bytesOf({0xFF, 128, 0, 0, 0})},
  };
  for (const EncodingCase& test : cases)
    EXPECT_EQ(type1Bytes(tokensOf(test.tokens)), test.bytes) << test.tokens;
}

TEST(Type1Encoder, CutsReals) {
  EXPECT_EQ(type1Bytes(tokensOf("1.5")), bytesOf({140}));
  EXPECT_EQ(type1Bytes(tokensOf("-1.9")), bytesOf({138}));
  FS_CharStringTokens nearly;
  nearly.emplace_back(1000 + 65535 / 65536.0);
  EXPECT_EQ(type1Bytes(nearly), type1Bytes(tokensOf("1000")));
}

TEST(Type1Encoder, WritesEveryOperatorOfTheTable) {
  const std::vector<EncodingCase> cases = {
      {"callothersubr", bytesOf({12, 16})},
      {"callsubr", bytesOf({10})},
      {"closepath", bytesOf({9})},
      {"div", bytesOf({12, 12})},
      {"dotsection", bytesOf({12, 0})},
      {"endchar", bytesOf({14})},
      {"hlineto", bytesOf({6})},
      {"hmoveto", bytesOf({22})},
      {"hsbw", bytesOf({13})},
      {"hstem", bytesOf({1})},
      {"hstem3", bytesOf({12, 2})},
      {"hvcurveto", bytesOf({31})},
      {"pop", bytesOf({12, 17})},
      {"return", bytesOf({11})},
      {"rlineto", bytesOf({5})},
      {"rmoveto", bytesOf({21})},
      {"rrcurveto", bytesOf({8})},
      {"sbw", bytesOf({12, 7})},
      {"seac", bytesOf({12, 6})},
      {"setcurrentpoint", bytesOf({12, 33})},
      {"vhcurveto", bytesOf({30})},
      {"vlineto", bytesOf({7})},
      {"vmoveto", bytesOf({4})},
      {"vstem", bytesOf({3})},
      {"vstem3", bytesOf({12, 1})},
  };
  for (const EncodingCase& test : cases)
    EXPECT_EQ(type1Bytes(tokensOf(test.tokens)), test.bytes) << test.tokens;
  std::size_t written = 0;
  for (int i = 0; i < kKeywordCount; ++i) {
    const FS_CharStringTokens token{embed::keywordValue(static_cast<embed::Keyword>(i))};
    written += type1Bytes(token).empty() ? 0U : 1U;
  }
  EXPECT_EQ(written, cases.size());  // any other keyword, the reserved one too, writes nothing
}

TEST(Type1Encoder, EncryptsWithoutRandomBytes) {
  std::string bytes = bytesOf({14});
  encryptCharString(bytes);
  EXPECT_EQ(bytes, bytesOf({0x1E}));
  // Decrypted by the rule of the Type 1 book.
  std::string longer = "some longer charstring, every byte of it";
  const std::string plain = longer;
  encryptCharString(longer);
  unsigned r = 4330;
  for (char& byte : longer) {
    const auto cipher = static_cast<unsigned char>(byte);
    byte = static_cast<char>(cipher ^ (r >> 8));
    r = ((cipher + r) * 52845 + 22719) & 0xFFFF;
  }
  EXPECT_EQ(longer, plain);
}

TEST(Type1Encoder, CipherBeginsAnewForEachCharstring) {
  std::ostringstream out;
  encodeCharString(tokensOf("endchar"), out);
  encodeCharString(tokensOf("endchar"), out);
  encodeCharString({}, out);
  EXPECT_EQ(out.str(), bytesOf({0x1E, 0x1E}));
}

TEST(Type1Encoder, FixedSubrsAreThoseOfEveryType1Font) {
  const std::vector<FS_CharStringTokens> subrs = fixedSubrs();
  ASSERT_EQ(subrs.size(), 4u);
  EXPECT_EQ(textOf(subrs[0]), "3 0 callothersubr pop pop setcurrentpoint return");
  EXPECT_EQ(type1Bytes(subrs[0]), bytesOf({0x8E, 0x8B, 12, 16, 12, 17, 12, 17, 12, 33, 11}));
  EXPECT_EQ(type1Bytes(subrs[1]), bytesOf({0x8B, 0x8C, 0x0C, 0x10, 0x0B}));
  EXPECT_EQ(type1Bytes(subrs[2]), bytesOf({0x8B, 0x8D, 0x0C, 0x10, 0x0B}));
  EXPECT_EQ(type1Bytes(subrs[3]), bytesOf({0x0B}));
}

}  // namespace
}  // namespace QXFontService_NS::charstring
