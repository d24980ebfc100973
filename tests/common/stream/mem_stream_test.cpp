#include "qxcommon/mem_stream.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include "common/stream/otf_checksum.h"
#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

constexpr std::size_t kBlock = 1024;

std::string numbered(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(i * 11 % 253));
  return bytes;
}

std::string readAt(std::istream& stream, std::int64_t offset, std::size_t count) {
  std::string text(count, '\0');
  stream.clear();
  stream.seekg(offset);
  stream.read(text.data(), static_cast<std::streamsize>(count));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

std::string all(QXMemStream& stream) {
  return readAt(stream, 0, stream.length());
}

/// A source that cannot seek, like a network connection.
class OneWayBuf final : public std::stringbuf {
 public:
  explicit OneWayBuf(const std::string& text) : std::stringbuf(text, std::ios::in) {}

 protected:
  pos_type seekoff(off_type, std::ios::seekdir, std::ios::openmode) override {
    return pos_type(off_type(-1));
  }
  pos_type seekpos(pos_type, std::ios::openmode) override { return pos_type(off_type(-1)); }
};

class OneWayStream final : public std::istream {
 public:
  explicit OneWayStream(const std::string& text) : std::istream(nullptr), buffer_(text) {
    rdbuf(&buffer_);
  }

 private:
  OneWayBuf buffer_;
};

TEST(MemStream, IsBornEmpty) {
  QXMemStream stream(nullptr, 8192, false, true);
  EXPECT_EQ(stream.length(), 0u);
  EXPECT_EQ(stream.tellg(), 0);
  EXPECT_EQ(stream.tellp(), 0);
  EXPECT_EQ(stream.get(), std::char_traits<char>::eof());
  EXPECT_EQ(stream.getMemStreamBuf(), stream.rdbuf());
}

TEST(MemStream, GivesBackWhatWasWrittenAtAnyBlockBorder) {
  for (const std::size_t size : {1u, 1023u, 1024u, 1025u, 2048u, 5000u}) {
    const std::string bytes = numbered(size);
    QXMemStream whole(nullptr, kBlock, false, true);
    whole.write(bytes.data(), static_cast<std::streamsize>(size));
    EXPECT_EQ(whole.length(), size);
    EXPECT_EQ(all(whole), bytes);
    QXMemStream single(nullptr, kBlock, false, true);
    for (const char c : bytes) single.put(c);
    EXPECT_EQ(all(single), bytes);
  }
}

TEST(MemStream, ABlockSizeOfAnyKindServes) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{1000},
                                 std::numeric_limits<std::size_t>::max()}) {
    QXMemStream stream(nullptr, size, false, true);
    stream += numbered(3000);
    EXPECT_EQ(all(stream), numbered(3000));
  }
}

TEST(MemStream, GetAndPutPositionAreTwo) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.write("abcdef", 6);
  EXPECT_EQ(stream.tellg(), 0);
  EXPECT_EQ(stream.tellp(), 6);
  EXPECT_EQ(stream.get(), 'a');
  stream.seekp(1);
  stream.write("XY", 2);
  EXPECT_EQ(stream.tellg(), 1);
  EXPECT_EQ(stream.tellp(), 3);
  EXPECT_EQ(stream.get(), 'X');
  EXPECT_EQ(stream.length(), 6u);
  EXPECT_EQ(all(stream), "aXYdef");
}

TEST(MemStream, WritingBeyondTheEndFillsTheGapWithZeros) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.write("abc", 3);
  stream.seekp(5000);
  EXPECT_EQ(stream.length(), 3u);
  stream.put('x');
  EXPECT_EQ(stream.length(), 5001u);
  EXPECT_EQ(all(stream), "abc" + std::string(4997, '\0') + "x");
  stream.seekp(4);
  stream.put('y');
  EXPECT_EQ(readAt(stream, 3, 3), std::string("\0y\0", 3));
}

TEST(MemStream, SeekingFarBehindTheEndCostsNothingBeforeAWrite) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.seekp(std::int64_t{1} << 62);
  EXPECT_EQ(stream.length(), 0u);
  stream.put('x');  // beyond what a stream may hold
  EXPECT_TRUE(stream.bad());
  EXPECT_EQ(stream.length(), 0u);
  stream.clear();
  EXPECT_EQ(readAt(stream, std::int64_t{1} << 62, 1), "");
}

// What appends stands behind all content, wherever the put position is.
TEST(MemStream, AppendingIgnoresThePutPositionAndLeavesItAtTheEnd) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.write("abc", 3);
  std::istringstream from("DEFG");
  stream.seekp(1);
  EXPECT_EQ(stream.copyStream(from, 3), 3u);
  EXPECT_EQ(stream.tellp(), 6);
  stream.seekp(0);
  EXPECT_EQ(&stream.writeStr("hi"), &stream);
  stream.seekp(2);
  stream += std::string("j\0k", 3);
  EXPECT_EQ(stream.tellp(), 11);
  EXPECT_EQ(stream.tellg(), 0);
  EXPECT_EQ(all(stream), std::string("abcDEFhij\0k", 11));
  EXPECT_EQ(from.get(), 'G');
}

TEST(MemStream, AppendingIsNoBusinessOfTheStateBits) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.get();
  ASSERT_TRUE(stream.fail());
  stream.writeStr("abc");
  EXPECT_EQ(stream.length(), 3u);
}

TEST(MemStream, CopyStreamIsClippedToWhatTheSourceHas) {
  QXMemStream stream(nullptr, kBlock, false, true);
  std::istringstream from(numbered(3000));
  EXPECT_EQ(stream.copyStream(from, std::numeric_limits<std::size_t>::max()), 3000u);
  EXPECT_EQ(stream.copyStream(from, 5), 0u);
  from.clear();
  from.seekg(2990);
  EXPECT_EQ(stream.copyStream(from, 10), 10u);
  EXPECT_EQ(all(stream), numbered(3000) + numbered(3000).substr(2990));
  EXPECT_EQ(stream.copyStream(from, 0), 0u);
}

TEST(MemStream, CopyStreamTakesFromItselfToo) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream += numbered(2500);
  stream.seekg(500);
  EXPECT_EQ(stream.copyStream(stream, 2000), 2000u);
  EXPECT_EQ(all(stream), numbered(2500) + numbered(2500).substr(500));
}

TEST(MemStream, ReadsOfASourceAskForTheirPartsOnly) {
  constexpr std::size_t kBehindARead = 40;  // what a file gives besides
  qxtest::MemoryPlatform world;
  world.file("/a", numbered(100000));
  QXMemStream stream(world.openFile("/a").release(), kBlock, true, true);
  EXPECT_EQ(stream.length(), 100000u);
  EXPECT_EQ(world.counts().bytesRead, 0u);
  EXPECT_EQ(readAt(stream, 50000, 10), numbered(100000).substr(50000, 10));
  EXPECT_LE(world.counts().bytesRead, kBlock + kBehindARead);
  EXPECT_EQ(readAt(stream, 50001, 20), numbered(100000).substr(50001, 20));
  EXPECT_LE(world.counts().bytesRead, kBlock + kBehindARead);
  EXPECT_EQ(readAt(stream, 3, 30000), numbered(100000).substr(3, 30000));
  EXPECT_LE(world.counts().bytesRead, 30000 + kBlock + kBehindARead);
  EXPECT_EQ(all(stream), numbered(100000));
}

TEST(MemStream, OwnsItsSourceOnlyWhenTold) {
  qxtest::MemoryPlatform world;
  world.file("/a", "abc");
  const auto borrowed = world.openFile("/a");
  {
    QXMemStream owner(world.openFile("/a").release(), 8192, true, true);
    QXMemStream borrower(borrowed.get(), 8192, false, true);
    EXPECT_EQ(world.openStreams(), 2u);
    EXPECT_EQ(all(borrower), "abc");
  }
  EXPECT_EQ(world.openStreams(), 1u);
}

TEST(MemStream, SetSourceMakesTheSourceTheContent) {
  qxtest::MemoryPlatform world;
  world.file("/a", "first").file("/b", "second");
  QXMemStream stream(nullptr, 8192, false, true);
  stream.writeStr("held before");
  const auto moved = world.openFile("/a");
  moved->seekg(3);
  stream.getMemStreamBuf()->setSource(moved.get(), false);
  EXPECT_EQ(stream.length(), 5u);
  EXPECT_EQ(all(stream), "first");
  stream.getMemStreamBuf()->setSource(world.openFile("/b").release(), true);
  EXPECT_EQ(all(stream), "second");
  stream.getMemStreamBuf()->setSource(nullptr, false);
  EXPECT_EQ(stream.length(), 0u);
  EXPECT_EQ(world.openStreams(), 1u);
}

TEST(MemStream, WritesGoOverWhatTheSourceGives) {
  qxtest::MemoryPlatform world;
  world.file("/a", numbered(3000));
  QXMemStream stream(world.openFile("/a").release(), kBlock, true, true);
  EXPECT_EQ(stream.tellp(), 3000);
  stream.writeStr("end");
  stream.seekp(1020);
  stream.write("12345678", 8);
  std::string expected = numbered(3000) + "end";
  expected.replace(1020, 8, "12345678");
  EXPECT_EQ(all(stream), expected);
  stream.getMemStreamBuf()->setKeepMemory(false);
  EXPECT_EQ(all(stream), expected);
}

TEST(MemStream, WithoutKeepingItStillReadsEverything) {
  qxtest::MemoryPlatform world;
  world.file("/a", numbered(10000));
  QXMemStream stream(world.openFile("/a").release(), kBlock, true, false);
  std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  EXPECT_EQ(bytes, numbered(10000));
  EXPECT_EQ(world.counts().bytesRead, 10000u);
  EXPECT_EQ(readAt(stream, 10, 10), numbered(10000).substr(10, 10));
  EXPECT_GT(world.counts().bytesRead, 10000u);  // the block had been freed
  stream.getMemStreamBuf()->setKeepMemory(true);
  EXPECT_EQ(readAt(stream, 5000, 4000), numbered(10000).substr(5000, 4000));
}

TEST(MemStream, ASourceThatShrinksGivesAShortRead) {
  for (const std::size_t left : {0u, 10u, 1024u, 1500u}) {
    qxtest::MemoryPlatform world;
    world.file("/a", numbered(5000));
    QXMemStream stream(world.openFile("/a").release(), kBlock, true, true);
    EXPECT_EQ(stream.length(), 5000u);
    world.cut("/a", left);
    EXPECT_EQ(readAt(stream, 0, 5000), numbered(left));
    QXMemStream single(world.openFile("/a").release(), kBlock, true, true);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(single), {}), numbered(left));
  }
}

TEST(MemStream, ASourceThatCannotSeekIsKeptAsItComes) {
  OneWayStream source(numbered(5000));
  QXMemStream stream(&source, kBlock, false, false);
  EXPECT_EQ(stream.get(), static_cast<unsigned char>(numbered(5000)[0]));
  EXPECT_EQ(readAt(stream, 3000, 10), numbered(5000).substr(3000, 10));
  EXPECT_EQ(readAt(stream, 10, 10), numbered(5000).substr(10, 10));
  EXPECT_EQ(stream.length(), 5000u);
  EXPECT_EQ(all(stream), numbered(5000));
}

TEST(MemStream, WritingToASourceThatCannotSeekStandsBehindIt) {
  OneWayStream source(numbered(2000));
  QXMemStream stream(&source, kBlock, false, true);
  stream.seekp(5);
  stream.put('!');
  stream.writeStr("end");
  EXPECT_EQ(all(stream), numbered(2000).replace(5, 1, "!") + "end");
}

TEST(MemStream, RemoveDropsContentAndSource) {
  qxtest::MemoryPlatform world;
  world.file("/a", "abc");
  QXMemStream stream(world.openFile("/a").release(), kBlock, true, true);
  stream.writeStr("def");
  stream.seekg(10);
  stream.get();
  stream.remove();
  EXPECT_EQ(world.openStreams(), 0u);
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(stream.length(), 0u);
  EXPECT_EQ(stream.tellg(), 0);
  EXPECT_EQ(stream.tellp(), 0);
  stream.writeStr("new");
  EXPECT_EQ(all(stream), "new");
}

TEST(MemStream, AbandonedMemoryLeavesWhatTheSourceCanGive) {
  qxtest::MemoryPlatform world;
  world.file("/a", "abc");
  QXMemStream stream(world.openFile("/a").release(), kBlock, true, true);
  stream.writeStr("def");
  stream.getMemStreamBuf()->abandonBuffer();
  EXPECT_EQ(all(stream), "abc");
  QXMemStream bare(nullptr, kBlock, false, true);
  bare.writeStr("abc");
  bare.getMemStreamBuf()->abandonBuffer();
  EXPECT_EQ(bare.length(), 0u);
}

TEST(MemStream, SeeksRefuseWhatCannotBe) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.writeStr("abc");
  EXPECT_TRUE(stream.seekg(-1).fail());
  stream.clear();
  EXPECT_TRUE(stream.seekp(-4, std::ios::end).fail());
  stream.clear();
  EXPECT_EQ(stream.seekp(-1, std::ios::end).tellp(), 2);
  EXPECT_EQ(stream.seekg(-1, std::ios::end).tellg(), 2);
  EXPECT_EQ(stream.rdbuf()->pubseekoff(0, std::ios::cur), -1);  // of which position?
  EXPECT_EQ(stream.rdbuf()->pubseekoff(1, std::ios::beg), 1);
  EXPECT_EQ(stream.tellg(), 1);
  EXPECT_EQ(stream.tellp(), 1);
}

TEST(MemStream, BytesCanBePutBackOverABlockBorder) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream += numbered(2000);
  stream.seekg(1025);
  for (int i = 0; i < 3; ++i) stream.unget();
  EXPECT_EQ(stream.tellg(), 1022);
  EXPECT_EQ(stream.get(), static_cast<unsigned char>(numbered(2000)[1022]));
  stream.seekg(0);
  EXPECT_TRUE(stream.unget().bad());
  stream.clear();
  stream.seekg(1024);
  EXPECT_TRUE(stream.putback(static_cast<char>(numbered(2000)[1023] + 1)).bad());
  stream.clear();
  EXPECT_EQ(stream.tellg(), 1024);
}

class MemStreamSearch : public testing::Test {
 protected:
  void fill(const std::string& text) { stream_ += text; }
  QXMemStreamBuf& buffer() { return *stream_.getMemStreamBuf(); }
  QXMemStream stream_{nullptr, kBlock, false, true};
};

TEST_F(MemStreamSearch, FindsFromThePositionOnAndStandsOnTheHit) {
  fill("abcabcabd");
  EXPECT_TRUE(buffer().searchSeek("abc", 0));
  EXPECT_EQ(stream_.tellg(), 0);
  EXPECT_TRUE(buffer().searchSeek("abd", 0));
  EXPECT_EQ(stream_.tellg(), 6);
  EXPECT_FALSE(buffer().searchSeek("abc", 0));
  EXPECT_EQ(stream_.tellg(), 6);
  EXPECT_TRUE(buffer().searchSeek("bdX", 2));
  EXPECT_EQ(stream_.tellg(), 7);
  EXPECT_TRUE(buffer().searchSeek("", 0));
  EXPECT_EQ(stream_.tellg(), 7);
}

TEST_F(MemStreamSearch, FindsOverBlockBordersAndOverlaps) {
  for (const std::size_t at : {1021u, 1022u, 1023u, 1024u, 2047u}) {
    stream_.remove();
    fill(std::string(at, 'e') + "eexec" + std::string(500, 'x'));
    ASSERT_TRUE(buffer().searchSeek("eexec", 0));
    EXPECT_EQ(stream_.tellg(), static_cast<std::streamoff>(at));
  }
}

TEST_F(MemStreamSearch, AMissClearsTheStateAndKeepsThePosition) {
  fill("abc");
  std::string word;
  stream_ >> word;
  ASSERT_TRUE(stream_.eof());
  EXPECT_FALSE(buffer().searchSeek("x", 0));
  EXPECT_TRUE(stream_.good());
  EXPECT_EQ(stream_.tellg(), 3);
  EXPECT_FALSE(buffer().searchSeek("abcd", 0));
}

TEST_F(MemStreamSearch, SkipPassesOverOrStays) {
  fill(std::string(1022, ' ') + "%!PS-AdobeFont");
  stream_.seekg(1022);
  EXPECT_TRUE(buffer().skipSeek("%!PS", 0));
  EXPECT_EQ(stream_.tellg(), 1026);
  EXPECT_FALSE(buffer().skipSeek("-Adobf", 0));
  EXPECT_EQ(stream_.tellg(), 1026);
  EXPECT_TRUE(buffer().skipSeek("-Adobf", 5));
  EXPECT_FALSE(buffer().skipSeek("Font and more", 0));
  EXPECT_EQ(stream_.tellg(), 1031);
}

TEST_F(MemStreamSearch, LineEndsAreCrLfAndBoth) {
  fill("a\rb\nc\r\nd\n\re" + std::string(1024 - 13, 'x') + "\r\nf");
  for (const std::streamoff next : {2, 4, 7, 9, 10}) {
    buffer().seekEOL();
    EXPECT_EQ(stream_.tellg(), next);
  }
  buffer().seekEOL();
  EXPECT_EQ(stream_.get(), 'f');
  buffer().seekEOL();
  EXPECT_EQ(stream_.tellg(), static_cast<std::streamoff>(stream_.length()));
}

TEST_F(MemStreamSearch, ACrAtABlockBorderTakesItsLf) {
  fill(std::string(1023, 'x') + "\r\nf");
  buffer().seekEOL();
  EXPECT_EQ(stream_.tellg(), 1025);
}

TEST(MemStreamChecksum, TheLastWordIsFilledUpWithZeros) {
  QXMemStream stream(nullptr, kBlock, false, true);
  EXPECT_EQ(stream.getMemStreamBuf()->calcOTFTableChecksum(), 0u);
  stream += std::string("\x01\x02\x03\x04\xFF", 5);
  EXPECT_EQ(stream.getMemStreamBuf()->calcOTFTableChecksum(), 0x01020304u + 0xFF000000u);
  stream += "\x01";
  EXPECT_EQ(stream.getMemStreamBuf()->calcOTFTableChecksum(), 0x01020304u + 0xFF010000u);
}

TEST(MemStreamChecksum, IsThatOfTheWholeWhereverThePositionsStand) {
  const std::string bytes = numbered(3001);
  qxtest::MemoryPlatform world;
  world.file("/a", bytes);
  QXMemStream written(nullptr, kBlock, false, true);
  written += bytes;
  QXMemStream source(world.openFile("/a").release(), kBlock, true, true);
  OneWayStream oneWay(bytes);
  QXMemStream pulled(&oneWay, kBlock, false, true);
  for (QXMemStream* stream : {&written, &source, &pulled}) {
    stream->seekg(1500);
    stream->seekp(7);
    EXPECT_EQ(stream->getMemStreamBuf()->calcOTFTableChecksum(), stream::otfChecksum(bytes));
    EXPECT_EQ(stream->tellg(), 1500);
    EXPECT_EQ(stream->tellp(), 7);
  }
}

TEST(MemStreamChecksum, GapsAreZeroAndTheSumWraps) {
  QXMemStream stream(nullptr, kBlock, false, true);
  stream.write("\xFF\xFF\xFF\xFF", 4);
  stream.seekp(8000);
  stream.write("\x00\x00\x00\x02", 4);
  EXPECT_EQ(stream.getMemStreamBuf()->calcOTFTableChecksum(), 1u);
}

}  // namespace
}  // namespace QXCommonNS
