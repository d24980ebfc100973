#include "support/name_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(NameBuilder, WritesRecordsAndStringsInOrder) {
  NameBuilder names;
  names.windows(1, u"Ab").macintosh(4, "cd", 11, 1).rawRecord(0, 3, 0, 6, 9, 8);
  BeBytes expected;
  expected.u16(0).u16(3).u16(42);
  expected.u16(3).u16(1).u16(0x409).u16(1).u16(4).u16(0);
  expected.u16(1).u16(1).u16(11).u16(4).u16(2).u16(4);
  expected.u16(0).u16(3).u16(0).u16(6).u16(9).u16(8);
  expected.utf16(u"Ab").text("cd");
  EXPECT_EQ(names.build(), expected.str());
}

TEST(NameBuilder, LatinGivesTheUsualFiveNames) {
  const std::string bytes = NameBuilder().latin(u"QX", u"Bold").build();
  EXPECT_EQ(bytes.substr(2, 2), BeBytes().u16(5).str());
  EXPECT_NE(bytes.find(utf16Bytes(u"QX-Bold")), std::string::npos);
  EXPECT_NE(bytes.find(utf16Bytes(u"QX Bold")), std::string::npos);
}

TEST(NameBuilder, StatesAnotherCount) {
  EXPECT_EQ(NameBuilder().statedCount(0).build(), BeBytes().u16(0).u16(0).u16(6).str());
}

}  // namespace
}  // namespace qxtest
