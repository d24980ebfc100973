#include "embed/cff_subset_index.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteWriter;
using qxtest::bytesOf;
using qxtest::cffIndex;

std::string text(const ByteWriter& out) {
  return {static_cast<const char*>(static_cast<const void*>(out.view().data())), out.size()};
}

TEST(CffSubsetIndex, TopDictOffSizeStepsUpEarly) {
  EXPECT_EQ(topDictOffSize(2), 1u);
  EXPECT_EQ(topDictOffSize(255), 1u);
  EXPECT_EQ(topDictOffSize(256), 2u);
  EXPECT_EQ(topDictOffSize(65534), 2u);
  EXPECT_EQ(topDictOffSize(65535), 3u);
  EXPECT_EQ(topDictOffSize(0xFFFFFE), 3u);
  EXPECT_EQ(topDictOffSize(0xFFFFFF), 4u);
}

TEST(CffSubsetIndex, CharStringsOffSizeStepsUpEarly) {
  EXPECT_EQ(charStringsOffSize(0), 1u);
  EXPECT_EQ(charStringsOffSize(254), 1u);
  EXPECT_EQ(charStringsOffSize(255), 2u);
  EXPECT_EQ(charStringsOffSize(65534), 2u);
  EXPECT_EQ(charStringsOffSize(65535), 3u);
  EXPECT_EQ(charStringsOffSize(0xFFFFFE), 3u);
  EXPECT_EQ(charStringsOffSize(0xFFFFFF), 4u);
}

TEST(CffSubsetIndex, CopiesAnIndexByteForByte) {
  const std::string index = cffIndex({"ab", "", "c"}, 2);
  std::istringstream stream("??" + index + "rest");
  std::int64_t position = 2;
  ByteWriter out;
  ASSERT_TRUE(copyCFFIndex(stream, position, out));
  EXPECT_EQ(text(out), index);
  EXPECT_EQ(position, 2 + static_cast<std::int64_t>(index.size()));
}

TEST(CffSubsetIndex, EmptyIndexIsTwoBytes) {
  std::istringstream stream(std::string("\0\0", 2));
  std::int64_t position = 0;
  ByteWriter out;
  ASSERT_TRUE(copyCFFIndex(stream, position, out));
  EXPECT_EQ(text(out), std::string("\0\0", 2));
  EXPECT_EQ(position, 2);
}

TEST(CffSubsetIndex, EveryCutOfAnIndexIsRefused) {
  qxtest::forEachPrefix(cffIndex({"ab", "c"}), [](const std::string& bytes) {
    std::istringstream stream(bytes);
    std::int64_t position = 0;
    ByteWriter out;
    EXPECT_FALSE(copyCFFIndex(stream, position, out));
  });
  std::istringstream zero(bytesOf({0, 1, 1, 1, 0}));  // the last offset is 0
  std::int64_t position = 0;
  ByteWriter out;
  EXPECT_FALSE(copyCFFIndex(zero, position, out));
}

TEST(CffSubsetIndex, CopiesWhatIsThere) {
  std::string source;
  for (int i = 0; i < 200000; ++i) source += static_cast<char>(i * 7);
  std::istringstream stream(source);
  ByteWriter out;
  EXPECT_EQ(copyBytes(stream, 5, 199000, out), 199000);
  EXPECT_EQ(text(out), source.substr(5, 199000));
  EXPECT_EQ(copyBytes(stream, 199990, 100, out), 10);
  EXPECT_EQ(copyBytes(stream, 200000, 1, out), 0);
  EXPECT_EQ(copyBytes(stream, -1, 1, out), 0);
  EXPECT_EQ(copyBytes(stream, 0, -5, out), 0);
  EXPECT_EQ(copyBytes(stream, 0, INT64_MAX, out), 200000);
  EXPECT_FALSE(copyExactly(stream, 199990, 11, out));
  EXPECT_FALSE(copyExactly(stream, 0, -1, out));
  EXPECT_TRUE(copyExactly(stream, 0, 0, out));
}

struct Source {
  explicit Source(const std::vector<std::string>& entries) : stream(cffIndex(entries)) {
    EXPECT_TRUE(cff::readIndexHeader(stream, 0, header));
  }
  std::istringstream stream;
  FS_CFFIndexHeader header;
};

TEST(CharStringsBuilder, WritesAnIndexOfPickedEntries) {
  Source source({"aa", "b", "", "cccc"});
  CharStringsBuilder builder(source.stream, source.header, 100);
  ASSERT_TRUE(builder.add(3));
  ASSERT_TRUE(builder.add(0));
  builder.repeat(0);
  ASSERT_TRUE(builder.addFiller("xy", 2));
  ASSERT_TRUE(builder.add(2));
  builder.repeat(1);
  EXPECT_EQ(builder.count(), 7u);
  ByteWriter out;
  builder.write(out);
  EXPECT_EQ(text(out), cffIndex({"cccc", "aa", "cccc", "xy", "xy", "", "aa"}));
}

TEST(CharStringsBuilder, RefusesWhatItCannotRead) {
  Source source({"aa", "b"});
  CharStringsBuilder builder(source.stream, source.header, 100);
  EXPECT_FALSE(builder.add(2));
  std::istringstream cut(cffIndex({"aa", "bbbb"}).substr(0, 8));
  FS_CFFIndexHeader header;
  ASSERT_TRUE(cff::readIndexHeader(cut, 0, header));
  CharStringsBuilder short1(cut, header, 100);
  EXPECT_TRUE(short1.add(0));
  EXPECT_FALSE(short1.add(1));
}

// Entries of a damaged INDEX may all be the whole file.
TEST(CharStringsBuilder, SpendsItsBudgetButNotOnFillersAndRepeats) {
  Source source({"aaaa", "bbbb"});
  CharStringsBuilder builder(source.stream, source.header, 7);
  EXPECT_TRUE(builder.add(0));
  EXPECT_TRUE(builder.addFiller("12345678", 10));
  builder.repeat(0);
  EXPECT_FALSE(builder.add(1));
}

TEST(CharStringsBuilder, FillersEndAtOneGibibyte) {
  Source source({"a"});
  CharStringsBuilder builder(source.stream, source.header, 7);
  EXPECT_FALSE(builder.addFiller(std::string(1 << 20, 'x'), 1025));
  EXPECT_EQ(builder.count(), 0u);
}

TEST(CharStringsBuilder, CopiesLargeEntries) {
  const std::string large(200000, 'L');
  Source source({"a", large});
  CharStringsBuilder builder(source.stream, source.header, 1 << 20);
  ASSERT_TRUE(builder.add(1));
  ByteWriter out;
  builder.write(out);
  EXPECT_EQ(text(out), cffIndex({large}, 3));
}

}  // namespace
}  // namespace QXFontService_NS::embed
