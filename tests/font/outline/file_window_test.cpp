#include "font/outline/file_window.h"

#include <gtest/gtest.h>

#include "font/outline/outline_source.h"

namespace QXFontService_NS::outline {
namespace {

std::string countedBytes(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i % 251);
  return bytes;
}

constexpr std::uint64_t kSize = FileWindow::kSize;

TEST(FileWindow, OpensTheFontOnceForWhatStandsTogether) {
  qxtest::OpenedBytes font(countedBytes(3 * kSize));
  const OpenFont open = font.opener();
  FileWindow window;
  EXPECT_EQ(window.read(1000, 10, open).u8(0), 1000 % 251);
  EXPECT_EQ(window.read(1000 + kSize - 10, 10, open).u8(9), (1000 + kSize - 1) % 251);
  EXPECT_EQ(font.opened, 1);
  EXPECT_EQ(window.read(1000 + kSize - 9, 10, open).u8(9), (1000 + kSize) % 251);
  EXPECT_EQ(font.opened, 2);
  EXPECT_EQ(window.read(999, 1, open).u8(0), 999 % 251);
  EXPECT_EQ(font.opened, 3);
}

TEST(FileWindow, ReadsMoreThanItKeepsWhereMoreIsAskedFor) {
  qxtest::OpenedBytes font(countedBytes(3 * kSize));
  FileWindow window;
  EXPECT_EQ(window.read(5, 2 * kSize, font.opener()).size(), 2 * kSize);
}

TEST(FileWindow, IsShortAtTheEndAndEmptyBehindIt) {
  qxtest::OpenedBytes font(countedBytes(100));
  const OpenFont open = font.opener();
  FileWindow window;
  EXPECT_EQ(window.read(90, 20, open).size(), 10U);
  EXPECT_EQ(window.read(90, 20, open).size(), 10U);
  EXPECT_EQ(font.opened, 1) << "what is not there is not asked for again";
  EXPECT_EQ(window.read(100, 1, open).size(), 0U);
  EXPECT_EQ(window.read(UINT64_C(1) << 40, 0xFFFFFFFF, open).size(), 0U);
  EXPECT_EQ(window.read(0, 0, open).size(), 0U);
}

TEST(FileWindow, IsEmptyWhereTheFontCannotBeOpened) {
  FileWindow window;
  EXPECT_EQ(window.read(0, 10, [] { return embed::FontStream(); }).size(), 0U);
}

}  // namespace
}  // namespace QXFontService_NS::outline
