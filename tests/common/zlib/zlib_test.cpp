#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "qxcommon/util.h"

#include "common/zlib/deflate.h"
#include "common/zlib/inflate.h"

namespace QXCommonNS::zlib {
namespace {

const unsigned char* asBytes(const std::string& text) {
  return static_cast<const unsigned char*>(static_cast<const void*>(text.data()));
}

std::string deflated(const std::string& text) {
  std::ostringstream out;
  EXPECT_TRUE(QXUtil::deflate(out, asBytes(text), static_cast<unsigned>(text.size())));
  return out.str();
}

std::string mixedBytes(std::size_t size) {
  std::string text(size, '\0');
  std::uint32_t state = 1;
  for (char& c : text) c = static_cast<char>((state = state * 1664525u + 1013904223u) >> 27);
  return text;
}

TEST(Zlib, RoundTripsAtEverySizeThatMatters) {
  for (const std::size_t size : {0u, 1u, 2u, 16383u, 16384u, 16385u, 300000u}) {
    const std::string text = mixedBytes(size);
    const std::string packed = deflated(text);
    std::ostringstream out;
    EXPECT_TRUE(QXUtil::inflate(out, asBytes(packed), static_cast<unsigned>(packed.size())));
    EXPECT_EQ(out.str(), text) << size;
  }
}

// The 8 bytes that a table without bytes packs to: a web font then stores it as it is.
TEST(Zlib, NothingDeflatesToEightBytesOfLevelSix) {
  EXPECT_EQ(deflated(""), std::string("\x78\x9C\x03\x00\x00\x00\x00\x01", 8));
}

TEST(Zlib, DeflatesTheSameEachTime) {
  const std::string text = mixedBytes(50000);
  EXPECT_EQ(deflated(text), deflated(text));
}

TEST(Zlib, AnyCutIsAFailure) {
  const std::string packed = deflated(mixedBytes(500));
  for (std::size_t size = 0; size < packed.size(); ++size) {
    std::ostringstream out;
    EXPECT_FALSE(QXUtil::inflate(out, asBytes(packed), static_cast<unsigned>(size))) << size;
    EXPECT_LE(out.str().size(), 500u);
  }
}

TEST(Zlib, DamageIsAFailure) {
  std::string packed = deflated(mixedBytes(500));
  packed.back() = static_cast<char>(packed.back() ^ 1);  // the checksum
  std::ostringstream out;
  EXPECT_FALSE(QXUtil::inflate(out, asBytes(packed), static_cast<unsigned>(packed.size())));
  EXPECT_FALSE(QXUtil::inflate(out, asBytes("no zlib data"), 12));
}

TEST(Zlib, BytesBehindTheEndAreIgnored) {
  const std::string packed = deflated("abc") + "trailing";
  std::ostringstream out;
  EXPECT_TRUE(QXUtil::inflate(out, asBytes(packed), static_cast<unsigned>(packed.size())));
  EXPECT_EQ(out.str(), "abc");
}

TEST(Zlib, InflatingStopsAtItsLimit) {
  const std::string packed = deflated(std::string(100000, 'x'));
  for (const std::uint64_t most : {std::uint64_t{0}, std::uint64_t{16384}, std::uint64_t{99999}}) {
    std::ostringstream out;
    EXPECT_FALSE(inflateBounded(out, asBytes(packed), packed.size(), most)) << most;
    EXPECT_LE(out.str().size(), most);
  }
  std::ostringstream out;
  EXPECT_TRUE(inflateBounded(out, asBytes(packed), packed.size(), 100000));
  EXPECT_EQ(out.str().size(), 100000u);
}

TEST(Zlib, AFailedStreamIsAFailure) {
  std::ostringstream closed;
  closed.setstate(std::ios::badbit);
  EXPECT_FALSE(QXUtil::deflate(closed, asBytes("abc"), 3));
  const std::string packed = deflated("abc");
  EXPECT_FALSE(QXUtil::inflate(closed, asBytes(packed), static_cast<unsigned>(packed.size())));
}

TEST(Deflater, PiecesMakeTheSameDataAsTheWhole) {
  const std::string text = mixedBytes(40000);
  std::ostringstream out;
  Deflater deflater(out);
  for (std::size_t at = 0; at < text.size(); at += 777)
    EXPECT_TRUE(deflater.write(bytes::ByteView(text.data(), text.size()).slice(at, 777)));
  EXPECT_TRUE(deflater.finish());
  EXPECT_EQ(out.str(), deflated(text));
}

TEST(Inflater, TakesPiecesOfAnySize) {
  const std::string text = mixedBytes(40000);
  const std::string packed = deflated(text);
  for (const std::size_t step : {1u, 7u, 5000u}) {
    std::ostringstream out;
    Inflater inflater(out, text.size());
    for (std::size_t at = 0; at < packed.size(); at += step) {
      EXPECT_FALSE(inflater.finished());
      ASSERT_TRUE(inflater.write(bytes::ByteView(packed.data(), packed.size()).slice(at, step)));
    }
    EXPECT_TRUE(inflater.finished());
    EXPECT_EQ(inflater.written(), text.size());
    EXPECT_EQ(out.str(), text);
  }
}

}  // namespace
}  // namespace QXCommonNS::zlib
