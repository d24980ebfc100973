#include "font/contract/type1_partner.h"

#include <gtest/gtest.h>

#include <string>

#include "support/memory_platform.h"

namespace QXFontService_NS {
namespace {

TEST(Type1Role, IsThatOfTheExtensionInAnyCase) {
  EXPECT_EQ(type1RoleOf(u".afm"), Type1Role::metrics);
  EXPECT_EQ(type1RoleOf(u".PFM"), Type1Role::metrics);
  EXPECT_EQ(type1RoleOf(u".Pfb"), Type1Role::program);
  EXPECT_EQ(type1RoleOf(u".pfa"), Type1Role::program);
  for (const char16_t* other : {u"", u".ttf", u".pfx", u"afm", u".afmx"}) {
    EXPECT_EQ(type1RoleOf(other), Type1Role::none);
  }
}

class Type1PartnerTest : public ::testing::Test {
 protected:
  Type1PartnerTest() : inPlace_(world) {}

  std::string partner(const char16_t* metrics) {
    const Type1Partner found = type1PartnerOf(QXUri(metrics, QXCommonNS::URISTR_USER));
    std::string path;
    found.file.getLocalPath(false).toUTF8String(path);
    return path + " " + std::to_string(found.type);
  }

  qxtest::MemoryPlatform world;

 private:
  qxtest::PlatformInPlace inPlace_;
};

TEST_F(Type1PartnerTest, PfbComesBeforePfa) {
  world.file("/f/a.pfa", "");
  EXPECT_EQ(partner(u"/f/a.afm"), "/f/a.pfa 1");
  world.file("/f/a.pfb", "");
  EXPECT_EQ(partner(u"/f/a.pfm"), "/f/a.pfb 2");
}

TEST_F(Type1PartnerTest, TheFirstLetterOfTheExtensionDecidesTheCase) {
  world.file("/f/a.PFB", "").file("/f/b.pfb", "");
  EXPECT_EQ(partner(u"/f/a.AFM"), "/f/a.PFB 2");
  EXPECT_EQ(partner(u"/f/a.Afm"), "/f/a.PFB 2");
  EXPECT_EQ(partner(u"/f/a.aFM"), " 0");
  EXPECT_EQ(partner(u"/f/b.AFM"), " 0");
}

TEST_F(Type1PartnerTest, IsNoneWithoutAFileAndOpensNothing) {
  world.folder("/f/a.pfb");
  EXPECT_EQ(partner(u"/f/a.afm"), " 0");
  world.file("/f/a.pfa", "x");
  EXPECT_EQ(partner(u"/f/a.afm"), "/f/a.pfa 1");
  EXPECT_EQ(world.counts().opened, 0u);
}

}  // namespace
}  // namespace QXFontService_NS
