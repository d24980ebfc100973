#include "embed/conforming/hollow_gvar.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::BeBytes;

/// A `gvar` of one axis and one shared tuple, which stands behind the data.
std::string gvarOf(const std::vector<std::string>& glyphs, bool isLong) {
  const unsigned count = static_cast<unsigned>(glyphs.size());
  std::string data;
  BeBytes offsets;
  const auto offset = [&] {
    const auto at = static_cast<std::uint32_t>(data.size());
    isLong ? offsets.u32(at) : offsets.u16(at / 2);
  };
  for (const std::string& glyph : glyphs) {
    offset();
    data += glyph;
  }
  offset();
  const auto dataAt = static_cast<std::uint32_t>(20 + offsets.size());
  BeBytes gvar;
  gvar.u16(1).u16(0).u16(1).u16(1).u32(dataAt + static_cast<std::uint32_t>(data.size()));
  gvar.u16(count).u16(isLong ? 1 : 0).u32(dataAt);
  return gvar.append(offsets).text(data).text("tt").str();
}

std::string hollow(const std::string& gvar, const Gids& kept) {
  std::vector<KeptGlyph> glyphs;
  for (const std::uint16_t gid : kept) glyphs.push_back({gid, 0, {}});
  return textOf(QXCommonNS::bytes::ByteView(hollowGvar(viewOf(gvar), glyphs)));
}

TEST(HollowGvar, KeepsTheVariationsOfTheKeptGlyphs) {
  BeBytes expected;
  expected.u16(1).u16(0).u16(1).u16(1).u32(20 + 20).u16(4).u16(1).u32(20 + 20 + 2);
  expected.u32(0).u32(4).u32(4).u32(4).u32(6).text("tt").text("aaaadd");
  EXPECT_EQ(hollow(gvarOf({"aaaa", "bb", "", "dd"}, true), {0, 3}), expected.str());
}

TEST(HollowGvar, KeepsTheShortForm) {
  BeBytes expected;
  expected.u16(1).u16(0).u16(1).u16(1).u32(20 + 6).u16(2).u16(0).u32(20 + 6 + 2);
  expected.u16(0).u16(0).u16(1).text("tt").text("bb");
  EXPECT_EQ(hollow(gvarOf({"aaaa", "bb"}, false), {1, 9}), expected.str());
}

TEST(HollowGvar, IsTheSameAgain) {
  const std::string once = hollow(gvarOf({"aaaa", "bb", "cc"}, true), {0, 2});
  EXPECT_EQ(hollow(once, {0, 2}), once);
}

TEST(HollowGvar, ATableThatIsNotSoundStaysAsItIs) {
  const std::string whole = gvarOf({"aaaa", "bb"}, true);
  for (std::size_t size : {0u, 10u, 20u, 30u}) {
    const std::string cut = whole.substr(0, size);
    EXPECT_EQ(hollow(cut, {0}), cut) << size;
  }
}

TEST(HollowGvar, DamageIsSurvived) {
  qxtest::forEachDamage(gvarOf({"aaaa", "bb", "cc"}, true), [](const std::string& gvar) {
    hollow(gvar, {0, 2});
  });
  qxtest::forEachDamage(gvarOf({"aaaa", "bb", "cc"}, false), [](const std::string& gvar) {
    hollow(gvar, {0, 2});
  });
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
