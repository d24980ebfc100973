#include "font/directory/table_window.h"

#include <gtest/gtest.h>

#include <sstream>

namespace QXFontService_NS::sfnt {
namespace {

std::string textOf(const std::optional<ByteView>& view) {
  if (!view) return "none";
  std::string text;
  for (std::size_t i = 0; i < view->size(); ++i) text.push_back(static_cast<char>(view->u8(i)));
  return text;
}

TEST(TableWindow, GivesWhatTheFileHoldsInAndBehindTheTable) {
  std::istringstream file("..abcdefgh");
  TableWindow window(file, 2, 4);
  EXPECT_EQ(textOf(window.read(0, 4)), "abcd");
  EXPECT_EQ(textOf(window.read(1, 2)), "bc");
  EXPECT_EQ(textOf(window.read(3, 3)), "def");
  EXPECT_EQ(textOf(window.read(6, 2)), "gh");
  EXPECT_EQ(textOf(window.read(7, 2)), "none");
  EXPECT_EQ(textOf(window.read(100, 1)), "none");
}

TEST(TableWindow, NothingIsNeverShort) {
  std::istringstream file("ab");
  TableWindow window(file, 900, 4);
  EXPECT_EQ(textOf(window.read(4000000000, 0)), "");
  EXPECT_EQ(textOf(window.read(0, 1)), "none");
}

}  // namespace
}  // namespace QXFontService_NS::sfnt
