#include "common/stream/source_stream.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "support/memory_platform.h"

namespace QXCommonNS::stream {
namespace {

class SourceStreamTest : public testing::Test {
 protected:
  SourceStreamTest() {
    for (std::size_t i = 0; i < 20000; ++i) bytes_.push_back(static_cast<char>(i * 7 % 251));
    world_.file("/a", bytes_);
    stream_ = world_.openFile("/a");
  }
  std::string read(std::size_t offset, std::size_t count) {
    stream_->clear();
    stream_->seekg(static_cast<std::streamoff>(offset));
    return readOn(count);
  }
  std::string readOn(std::size_t count) {
    std::string text(count, '\0');
    stream_->read(text.data(), static_cast<std::streamsize>(count));
    text.resize(static_cast<std::size_t>(stream_->gcount()));
    return text;
  }

  std::string bytes_;
  qxtest::MemoryPlatform world_;
  std::unique_ptr<std::istream> stream_;
};

TEST_F(SourceStreamTest, AReadBehindASeekAsksForLittleMoreThanItsOwnBytes) {
  EXPECT_EQ(read(5000, 54), bytes_.substr(5000, 54));
  EXPECT_EQ(read(19000, 36), bytes_.substr(19000, 36));
  EXPECT_EQ(read(100, 9000), bytes_.substr(100, 9000));
  EXPECT_EQ(world_.counts().reads, 3u);
  EXPECT_EQ(world_.counts().bytesRead, 54u + 40 + 36 + 40 + 9000);
}

TEST_F(SourceStreamTest, SignatureAndDirectoryComeWithOneCall) {
  EXPECT_EQ(read(0, 4), bytes_.substr(0, 4));
  EXPECT_EQ(read(0, 12), bytes_.substr(0, 12));
  EXPECT_EQ(readOn(320), bytes_.substr(12, 320));
  EXPECT_EQ(read(332, 54), bytes_.substr(332, 54));
  EXPECT_EQ(world_.counts().reads, 1u);
  EXPECT_EQ(world_.counts().bytesRead, 576u);
}

TEST_F(SourceStreamTest, AReadLargerThanTheHeadIsNotWidened) {
  EXPECT_EQ(read(0, 600), bytes_.substr(0, 600));
  EXPECT_EQ(world_.counts().bytesRead, 600u);
}

TEST_F(SourceStreamTest, ASmallTableBehindAnotherComesWithItsRead) {
  EXPECT_EQ(read(4000, 3000), bytes_.substr(4000, 3000));
  EXPECT_EQ(read(7003, 36), bytes_.substr(7003, 36));
  EXPECT_EQ(world_.counts().reads, 1u);
  EXPECT_EQ(world_.counts().bytesRead, 3000u + 40);
}

TEST_F(SourceStreamTest, ASmallTableBehindALargeOneAsksForLittleMore) {
  EXPECT_EQ(read(4000, 4060), bytes_.substr(4000, 4060));
  EXPECT_EQ(read(8060, 32), bytes_.substr(8060, 32));
  EXPECT_EQ(world_.counts().bytesRead, 4060u + 64);
}

TEST_F(SourceStreamTest, AReadThatFillsTheWindowWithWhatIsBehindItGoesThroughIt) {
  EXPECT_EQ(read(4000, 4056), bytes_.substr(4000, 4056));
  EXPECT_EQ(read(8056, 40), bytes_.substr(8056, 40));
  EXPECT_EQ(world_.counts().bytesRead, 4096u);
}

TEST_F(SourceStreamTest, SmallFieldsInARowCostFewCallsAndAtMostTwiceTheirBytes) {
  stream_->seekg(1000);
  for (std::size_t at = 1000; at < 3000; at += 2) EXPECT_EQ(readOn(2), bytes_.substr(at, 2));
  EXPECT_LE(world_.counts().reads, 13u);
  EXPECT_LE(world_.counts().bytesRead, 4000u);
}

TEST_F(SourceStreamTest, SingleBytesAndLinesWorkLikeBlocks) {
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*stream_), {}), bytes_);
  EXPECT_LE(world_.counts().reads, 20u);
  EXPECT_EQ(world_.counts().bytesRead, bytes_.size());
}

TEST_F(SourceStreamTest, MixedReadsGiveTheBytesOfTheirPlaces) {
  std::size_t at = 0;
  for (std::size_t step = 1; at + 2000 < bytes_.size(); step = step * 5 % 1999 + 1) {
    EXPECT_EQ(read(at, step % 97 + 1), bytes_.substr(at, step % 97 + 1));
    EXPECT_EQ(readOn(3), bytes_.substr(at + step % 97 + 1, 3));
    EXPECT_EQ(stream_->get(), static_cast<unsigned char>(bytes_[at + step % 97 + 4]));
    at += step;
  }
}

TEST_F(SourceStreamTest, PeekingKeepsThePosition) {
  EXPECT_EQ(stream_->peek(), static_cast<unsigned char>(bytes_[0]));
  EXPECT_EQ(stream_->tellg(), 0);
  EXPECT_EQ(readOn(5), bytes_.substr(0, 5));
  EXPECT_EQ(stream_->tellg(), 5);
}

TEST_F(SourceStreamTest, SeeksFromAllThreeSides) {
  EXPECT_EQ(stream_->seekg(0, std::ios::end).tellg(), 20000);
  EXPECT_EQ(stream_->seekg(-10, std::ios::end).tellg(), 19990);
  EXPECT_EQ(readOn(4), bytes_.substr(19990, 4));
  EXPECT_EQ(stream_->seekg(-2, std::ios::cur).tellg(), 19992);
  EXPECT_EQ(readOn(100), bytes_.substr(19992));
  EXPECT_TRUE(stream_->eof());
  EXPECT_EQ(world_.counts().bytesRead, 10u);
}

TEST_F(SourceStreamTest, PositionsOutsideGiveNothing) {
  EXPECT_EQ(read(20000, 1), "");
  EXPECT_EQ(read(std::size_t{1} << 62, 1), "");
  stream_->clear();
  EXPECT_TRUE(stream_->seekg(-1).fail());
  stream_->clear();
  EXPECT_TRUE(stream_->seekg(-20001, std::ios::end).fail());
  EXPECT_EQ(read(19999, 5), bytes_.substr(19999));
}

TEST_F(SourceStreamTest, AnEmptySourceEndsAtOnce) {
  world_.file("/e", "");
  const auto stream = world_.openFile("/e");
  EXPECT_EQ(stream->get(), std::char_traits<char>::eof());
  EXPECT_EQ(world_.counts().reads, 0u);
}

}  // namespace
}  // namespace QXCommonNS::stream
