#include "embed/stream_copy.h"

#include <gtest/gtest.h>

#include <sstream>

#include "embed/subset_fixture.h"

namespace QXFontService_NS::embed {
namespace {

TEST(StreamCopy, TellsTheLengthOfAStreamAndClearsIt) {
  std::istringstream stream("12345");
  stream.setstate(std::ios::failbit);
  EXPECT_EQ(streamLength(stream), 5u);
  EXPECT_TRUE(stream.good());
  std::istringstream empty;
  EXPECT_EQ(streamLength(empty), 0u);
}

struct RangeCase {
  const char* name;
  std::uint64_t offset, count;
  const char* came;
};

TEST(StreamCopy, CopiesTheBytesThatAreThere) {
  const RangeCase cases[] = {
      {"inside", 1, 3, "234"},
      {"all", 0, 5, "12345"},
      {"nothing", 2, 0, ""},
      {"over the end", 3, 9, "45"},
      {"at the end", 5, 1, ""},
      {"behind it", 99, 1, ""},
      {"a length of 4 GiB", 0, 0xFFFFFFFF, "12345"},
  };
  for (const RangeCase& c : cases) {
    std::istringstream stream("12345");
    stream.setstate(std::ios::eofbit | std::ios::failbit);
    QXMemStream out(nullptr, 8192, false, true);
    appendBytes(out, viewOf("<"));
    EXPECT_EQ(copyRange(stream, c.offset, c.count, out), std::string(c.came).size()) << c.name;
    EXPECT_EQ(bytesIn(out), std::string("<") + c.came) << c.name;
    EXPECT_TRUE(stream.good()) << c.name;
  }
}

TEST(StreamCopy, PadsToAMultipleOfFour) {
  const std::string texts[] = {"", "1", "12", "123", "1234", "12345"};
  const std::size_t sizes[] = {0, 4, 4, 4, 4, 8};
  for (std::size_t i = 0; i < 6; ++i) {
    QXMemStream out(nullptr, 8192, false, true);
    appendBytes(out, viewOf(texts[i]));
    padToLong(out);
    EXPECT_EQ(bytesIn(out), texts[i] + std::string(sizes[i] - texts[i].size(), '\0'));
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
