#include <gtest/gtest.h>

#include "pool/registry/registry_fixture.h"
#include "support/dfont_builder.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

SfntBuilder fontNamed(std::u16string_view family, unsigned weight = 400) {
  Os2Builder os2;
  os2.usWeightClass = weight;
  return sampleFont().table("name", NameBuilder().latin(family).build()).table("OS/2", os2.build());
}

std::string collection() {
  return qxtest::TtcBuilder()
      .member(fontNamed(u"One"))
      .member(fontNamed(u"Two"))
      .member(fontNamed(u"Two", 700))
      .build();
}

std::string suitcase() {
  return qxtest::DfontBuilder()
      .resource("FOND", "family")
      .resource("sfnt", fontNamed(u"Mac").build())
      .resource("sfnt", fontNamed(u"Mac", 700).build())
      .build();
}

/// Files with more than one font, in the pool.
class Collections : public qxtest::RegistryTest {
 protected:
  /// File and entry of the face that answers.
  std::string faceOf(const icu::UnicodeString& name, int weight = 400) {
    const FS_FontRef ref = registry->findFont(name, makeFontKey(weight, false, 5), nullptr);
    return fileOf(name, weight) + " " + std::to_string(ref.entry);
  }
};

TEST_F(Collections, EachMemberIsFoundByItsOwnNamesAndStyle) {
  world.file("/f/a.ttc", collection()).file("/f/b.dfont", suitcase());
  openFolder();
  EXPECT_TRUE(errors().empty());
  EXPECT_EQ(loaded().size(), 2U);
  EXPECT_EQ(faceOf(u"One"), "/f/a.ttc 0");
  EXPECT_EQ(faceOf(u"Two"), "/f/a.ttc 1");
  EXPECT_EQ(faceOf(u"Two", 700), "/f/a.ttc 2");
  EXPECT_EQ(faceOf(u"Two-Regular"), "/f/a.ttc 1");
  EXPECT_EQ(faceOf(u"Mac"), "/f/b.dfont 0");
  EXPECT_EQ(faceOf(u"mac", 700), "/f/b.dfont 1");
}

TEST_F(Collections, MembersShareTheFileNameAndTheFirstOfAStyleIsFoundByIt) {
  world.file("/f/a.ttc", collection());
  openFolder();
  EXPECT_EQ(faceOf(u"a.ttc"), "/f/a.ttc 0");
  EXPECT_EQ(faceOf(u"A"), "/f/a.ttc 0");
  EXPECT_EQ(faceOf(u"a.ttc", 700), "/f/a.ttc 2");
}

TEST_F(Collections, AnAliasNamesAMember) {
  world.file("/f/a.ttc", collection());
  openFolder("<font-alias file=\"a.ttc\" entry=\"2\"><alias family-name=\"Second\"/></font-alias>");
  EXPECT_EQ(faceOf(u"Second"), "/f/a.ttc 1");
  EXPECT_EQ(faceOf(u"One"), "/f/a.ttc 0");
}

TEST_F(Collections, ABrokenMemberKeepsTheWholeFileOut) {
  world.file("/f/a.ttc", qxtest::TtcBuilder()
                             .member(fontNamed(u"One"))
                             .member(fontNamed(u"Two").without("post"))
                             .build());
  openFolder();
  EXPECT_TRUE(loaded().empty());
  ASSERT_EQ(errors().size(), 1U);
  EXPECT_EQ(errors()[0], "Font file error: 'post' table not found\n/f/a.ttc");
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(Collections, CollectionsOfOpenTypeFontsGiveNothingAndReportNothing) {
  world.file(
      "/f/a.ttc",
      qxtest::TtcBuilder().member(fontNamed(u"One").version(SfntBuilder::kOpenType)).build());
  openFolder();
  EXPECT_TRUE(loaded().empty());
  EXPECT_TRUE(errors().empty());
}

}  // namespace
}  // namespace QXFontService_NS
