#include "font/unpacked_sfnt.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace QXFontService_NS {
namespace {

std::shared_ptr<UnpackedSfnt> unpacked(const std::string& bytes) {
  auto font = std::make_shared<UnpackedSfnt>(bytes.size());
  font->content() += bytes;
  return font;
}

/// 10,000 bytes that tell where they stand.
std::string counted() {
  std::string bytes;
  for (unsigned i = 0; i < 10'000; ++i) bytes += static_cast<char>(i % 251);
  return bytes;
}

std::string readAll(std::istream& stream) {
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

TEST(UnpackedSfnt, ACursorReadsItFromTheStart) {
  const auto cursor = UnpackedSfnt::cursor(unpacked(counted()));
  EXPECT_EQ(readAll(*cursor), counted());
}

TEST(UnpackedSfnt, CursorsHavePositionsOfTheirOwn) {
  const auto font = unpacked("abcdef");
  const auto one = UnpackedSfnt::cursor(font);
  const auto two = UnpackedSfnt::cursor(font);
  EXPECT_EQ(one->get(), 'a');
  EXPECT_EQ(one->get(), 'b');
  EXPECT_EQ(two->get(), 'a');
  EXPECT_EQ(one->tellg(), 2);
  EXPECT_EQ(two->tellg(), 1);
}

TEST(UnpackedSfnt, ACursorKeepsItAlive) {
  auto font = unpacked("abc");
  const auto cursor = UnpackedSfnt::cursor(font);
  font.reset();
  EXPECT_EQ(readAll(*cursor), "abc");
}

TEST(UnpackedSfnt, ReadsOfEverySizeGiveWhatStandsThere) {
  const std::string bytes = counted();
  const auto cursor = UnpackedSfnt::cursor(unpacked(bytes));
  std::size_t at = 0;
  for (const std::size_t size : {1U, 4095U, 4096U, 3U, 1000U, 2U, 5000U}) {
    std::string read(size, '\0');
    cursor->read(read.data(), static_cast<std::streamsize>(size));
    const auto came = static_cast<std::size_t>(cursor->gcount());
    EXPECT_EQ(read.substr(0, came), bytes.substr(at, size)) << at;
    at += came;
  }
  EXPECT_EQ(at, bytes.size());
  EXPECT_TRUE(cursor->eof());
}

TEST(UnpackedSfnt, SeeksWithinAndBeyondWhatItHolds) {
  const std::string bytes = counted();
  const auto cursor = UnpackedSfnt::cursor(unpacked(bytes));
  for (const std::size_t at : {9'999U, 0U, 10U, 5U, 4'096U, 4'095U, 8'000U}) {
    cursor->seekg(static_cast<std::streamoff>(at));
    EXPECT_EQ(cursor->tellg(), static_cast<std::streamoff>(at));
    EXPECT_EQ(cursor->get(), static_cast<unsigned char>(bytes[at])) << at;
  }
  cursor->seekg(-1, std::ios::end);
  EXPECT_EQ(cursor->get(), static_cast<unsigned char>(bytes.back()));
  cursor->seekg(-2, std::ios::cur);
  EXPECT_EQ(cursor->tellg(), 9'998);
}

TEST(UnpackedSfnt, BehindTheEndThereIsNothing) {
  const auto cursor = UnpackedSfnt::cursor(unpacked("abc"));
  cursor->seekg(100);
  EXPECT_EQ(cursor->get(), std::char_traits<char>::eof());
  cursor->clear();
  cursor->seekg(-1);
  EXPECT_TRUE(cursor->fail());
  cursor->clear();
  cursor->seekg(1);
  EXPECT_EQ(cursor->get(), 'b');
}

TEST(UnpackedSfnt, AnEmptyOneHasNothing) {
  EXPECT_EQ(readAll(*UnpackedSfnt::cursor(unpacked(""))), "");
}

TEST(UnpackedSfnt, APromisedSizeTakesNoMemory) {
  UnpackedSfnt font(std::size_t{1} << 40);
  font.content() += "abc";
  EXPECT_EQ(font.length(), 3U);
}

TEST(UnpackedSfnt, CursorsReadOnManyThreads) {
  const auto font = unpacked(counted());
  std::vector<std::thread> threads;
  std::vector<int> good(4);
  for (std::size_t i = 0; i < good.size(); ++i)
    threads.emplace_back([&, i] {
      for (int run = 0; run < 20; ++run)
        good[i] += readAll(*UnpackedSfnt::cursor(font)) == counted();
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(good, std::vector<int>(4, 20));
}

}  // namespace
}  // namespace QXFontService_NS
