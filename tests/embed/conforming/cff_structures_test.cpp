#include "embed/conforming/cff_structures.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::bytesOf;
using qxtest::CffBuilder;
using Read = std::function<bool(const cff::CffTable&, std::int64_t, std::string&)>;

std::string readFrom(const std::string& bytes, const Read& read) {
  std::istringstream stream("??" + bytes);
  std::string out;
  return read({&stream, 1, 0}, 1, out) ? out : "false";
}

/// `whole` is read to its end and no further, and no part of it is taken for it.
void expectWhole(const std::string& whole, const Read& read) {
  EXPECT_EQ(readFrom(whole + "rest", read), whole);
  qxtest::forEachPrefix(whole,
                        [&](const std::string& cut) { EXPECT_EQ(readFrom(cut, read), "false"); });
}

Read charsetOf(unsigned glyphs) {
  return [glyphs](const auto& table, std::int64_t offset, std::string& out) {
    return readCharsetBytes(table, offset, glyphs, out);
  };
}

Read fdSelectOf(unsigned glyphs) {
  return [glyphs](const auto& table, std::int64_t offset, std::string& out) {
    return readFDSelectBytes(table, offset, glyphs, out);
  };
}

TEST(CffStructures, CharsetsEndWithTheGlyphs) {
  expectWhole(CffBuilder::charsetFormat0({5, 6, 7}), charsetOf(4));
  expectWhole(CffBuilder::charsetRanges(1, {{5, 1}, {9, 0}}), charsetOf(4));
  expectWhole(CffBuilder::charsetRanges(2, {{5, 1}, {9, 300}}), charsetOf(4));
  expectWhole(bytesOf({0}), charsetOf(1));
  expectWhole(bytesOf({0}), charsetOf(0));
  expectWhole(bytesOf({1}), charsetOf(1));
  EXPECT_EQ(readFrom(bytesOf({3, 0, 0, 0, 0}), charsetOf(2)), "false");
}

TEST(CffStructures, EncodingsEndWithTheirSupplement) {
  const Read read = readEncodingBytes;
  expectWhole(bytesOf({0, 2, 65, 66}), read);
  expectWhole(bytesOf({1, 2, 65, 1, 90, 0}), read);
  expectWhole(bytesOf({0x80, 1, 65, 2, 70, 0, 5, 71, 0, 6}), read);
  expectWhole(bytesOf({0x81, 1, 65, 9, 0}), read);
  EXPECT_EQ(readFrom(bytesOf({2, 0, 0, 0}), read), "false");
}

TEST(CffStructures, FDSelectsEndWithGlyphsOrSentinel) {
  expectWhole(CffBuilder::fdSelect0({1, 0, 1}), fdSelectOf(3));
  expectWhole(CffBuilder::fdSelect3({{0, 1}, {5, 0}}, 9), fdSelectOf(9));
  EXPECT_EQ(readFrom(bytesOf({1, 0, 0, 0}), fdSelectOf(2)), "false");
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
