#include "font/member_budget.h"

#include "common/limits.h"
#include "font/sfnt_fixture.h"
#include "font/true_type_collection.h"
#include "support/name_builder.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::NameBuilder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;
using qxtest::TtcBuilder;
using std::size_t;

constexpr auto kFileRecordBytes = static_cast<double>(QXCommonNS::limits::kFileRecordBytes);

/// How often a member fits in a file of `length` bytes.
int timesWithin(size_t length, const FS_TrueType& font) {
  std::istringstream file(std::string(length, '\0'));
  MemberBudget budget(file);
  int times = 0;
  while (budget.spend(*font.getTrueTypeInfo(0))) ++times;
  return times;
}

class MemberBudgets : public qxtest::SfntFixture {
 protected:
  /// Whether a collection that names one member `count` times is read.
  bool reads(const SfntBuilder& member, size_t count) {
    const auto bytes = TtcBuilder().member(member).listed(std::vector<size_t>(count, 0)).build();
    length = bytes.size();
    return read<FS_TrueTypeCollection>(bytes).get() != nullptr;
  }
  size_t length = 0;
};

/// A font with the same 60,000 letters as family name in `languages` languages.
SfntBuilder fontWithLongNames(unsigned languages) {
  NameBuilder names;
  names.windows(1, std::u16string(30'000, u'x'));
  for (unsigned i = 1; i < languages; ++i) names.rawRecord(3, 1, 0x409 + i, 1, 60'000, 0);
  return sampleFont().table("name", names.build());
}

TEST_F(MemberBudgets, MembersThatShareLongNamesAreRefusedTogether) {
  const SfntBuilder member = fontWithLongNames(20);  // 1.2 MB decoded from 60 kB
  EXPECT_TRUE(reads(member, 5));
  EXPECT_FALSE(reads(member, 70));
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_LT(length, 70'000U);
}

TEST_F(MemberBudgets, WhatIsKeptIsTakenOffEachTime) {
  const auto font = read(fontWithLongNames(20));
  EXPECT_NEAR(timesWithin(1000, *font), kFileRecordBytes / 1'260'000, 2);
}

TEST_F(MemberBudgets, NamesThatAreReadAndPassedOverCountToo) {
  NameBuilder names;
  names.latin(u"Family");
  for (int i = 0; i < 20'000; ++i) names.rawRecord(0, 0, 0, 1, 0, 0);
  const auto font = read(sampleFont().table("name", names.build()));
  EXPECT_NEAR(timesWithin(300'000, *font), (kFileRecordBytes + 300'000 * 64) / 242'000, 10);
}

TEST_F(MemberBudgets, ALongerFileMayHoldMore) {
  const auto font = read(fontWithLongNames(20));
  EXPECT_NEAR(timesWithin(1'048'576, *font), 2 * kFileRecordBytes / 1'260'000, 3);
}

}  // namespace
}  // namespace QXFontService_NS
