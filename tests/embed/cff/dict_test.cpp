#include "embed/cff/dict.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/byte_text.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::cff {
namespace {

using qxtest::bytesOf;
using qxtest::DictBuilder;
using Kind = DictScanner::Kind;

DictScanner scannerOf(const std::string& bytes) {
  return DictScanner(QXCommonNS::bytes::ByteView(bytes.data(), bytes.size()));
}

TEST(DictScanner, DecodesEveryIntegerForm) {
  const std::vector<int> values = {
      -107, 0,     107,   108,    363,   364,    1131,   -108,       -363,           -1131,
      1132, -1132, 32767, -32768, 32768, -32769, 100000, 0x7FFFFFFF, -0x7FFFFFFF - 1};
  const std::string bytes = DictBuilder().numbers(values).str();
  DictScanner scanner = scannerOf(bytes);
  for (int value : values) {
    ASSERT_EQ(scanner.next(), Kind::number);
    EXPECT_FALSE(scanner.number().isReal);
    EXPECT_EQ(scanner.number().integer, value);
  }
  EXPECT_EQ(scanner.next(), Kind::end);
  EXPECT_EQ(scanner.next(), Kind::end);
}

TEST(DictScanner, FiveByteIntegerKeepsItsBits) {
  const std::string bytes = bytesOf({29, 0x80, 0, 0, 0});
  DictScanner scanner = scannerOf(bytes);
  ASSERT_EQ(scanner.next(), Kind::number);
  EXPECT_EQ(scanner.number().integer, -0x7FFFFFFF - 1);
}

struct RealCase {
  std::string bytes;
  const char* text;
};

TEST(DictScanner, SpellsRealsNibbleByNibble) {
  const std::vector<RealCase> cases = {
      {bytesOf({30, 0xE2, 0xA2, 0x5F}), "-2.25"},
      {bytesOf({30, 0x0A, 0x14, 0x05, 0x41, 0xC3, 0xFF}), "0.140541E-3"},
      {bytesOf({30, 0x12, 0x34, 0x56, 0x78, 0x9B, 0x1F}), "123456789E1"},
      {bytesOf({30, 0xA0, 0x39, 0x62, 0x5F}), ".039625"},
      {bytesOf({30, 0x1D, 0xD2, 0xFF}), "12"},  // 0xD is passed over
      {bytesOf({30, 0x5F}), "5"},
      {bytesOf({30, 0xF5}), ""},  // the end inside a byte drops the other half
  };
  for (const RealCase& real : cases) {
    DictScanner scanner = scannerOf(real.bytes);
    ASSERT_EQ(scanner.next(), Kind::number) << real.text;
    EXPECT_TRUE(scanner.number().isReal);
    EXPECT_EQ(scanner.number().text, real.text);
    EXPECT_EQ(scanner.end(), real.bytes.size());
  }
}

TEST(DictScanner, TellsOperatorsAndWhereItemsStand) {
  const std::string bytes = DictBuilder().number(5).op(17).number(1000).op(0x0C24).str();
  DictScanner scanner = scannerOf(bytes);
  ASSERT_EQ(scanner.next(), Kind::number);
  ASSERT_EQ(scanner.next(), Kind::op);
  EXPECT_EQ(scanner.op(), unsigned{kOpCharStrings});
  ASSERT_EQ(scanner.next(), Kind::number);
  EXPECT_EQ(scanner.begin(), 2u);
  EXPECT_EQ(scanner.end(), 4u);
  ASSERT_EQ(scanner.next(), Kind::op);
  EXPECT_EQ(scanner.op(), unsigned{kOpFDArray});
  EXPECT_EQ(scanner.begin(), 4u);
  EXPECT_EQ(scanner.end(), 6u);
}

TEST(DictScanner, AllBytesBelow28AreOperators) {
  for (int byte = 0; byte < 28; ++byte) {
    const std::string bytes = bytesOf({byte, 99});
    DictScanner scanner = scannerOf(bytes);
    ASSERT_EQ(scanner.next(), Kind::op) << byte;
    EXPECT_EQ(scanner.op(), byte == 12 ? 0x0C63u : static_cast<unsigned>(byte));
  }
}

TEST(DictScanner, ReservedBytesStandForNothing) {
  const std::string bytes = bytesOf({31, 255, 140});
  DictScanner scanner = scannerOf(bytes);
  EXPECT_EQ(scanner.next(), Kind::reserved);
  EXPECT_EQ(scanner.next(), Kind::reserved);
  ASSERT_EQ(scanner.next(), Kind::number);
  EXPECT_EQ(scanner.number().integer, 1);
}

TEST(DictScanner, EndsWhereAnItemIsCutShort) {
  const std::vector<std::string> cases = {
      bytesOf({}),         bytesOf({28, 1}), bytesOf({29, 1, 2, 3}), bytesOf({30}),
      bytesOf({30, 0x12}), bytesOf({247}),   bytesOf({254}),         bytesOf({12}),
  };
  for (const std::string& bytes : cases) {
    DictScanner scanner = scannerOf(bytes);
    EXPECT_EQ(scanner.next(), Kind::end);
    EXPECT_EQ(scanner.next(), Kind::end);
  }
}

}  // namespace
}  // namespace QXFontService_NS::cff
