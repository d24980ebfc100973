#include "qxfontservice/ext/inspect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "qxfontservice/ext/open_file.h"

#include "pool/registry/registry_fixture.h"
#include "support/dfont_builder.h"
#include "support/name_builder.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::NameBuilder;
using testing::ElementsAre;
using testing::IsEmpty;

class Inspect : public qxtest::RegistryTest {
 protected:
  Inspect() { openFolder(); }
  ~Inspect() override {
    if (font.isCreatedFont()) font.deleteFont();
  }

  void open(const std::string& bytes) {
    world.file("/x/a.ttf", bytes);
    ASSERT_TRUE(openFontFile(QXUri(u"/x/a.ttf", QXCommonNS::URISTR_USER), 0, font));
  }
  void openWithNames(const NameBuilder& names) {
    open(qxtest::sampleFont().table("name", names.build()).build());
  }

  FS_FontInfo font;
};

TEST_F(Inspect, LanguagesAreThoseOfTheWindowsRecordsRising) {
  openWithNames(
      NameBuilder().windows(1, u"Nihongo", 0x411).latin(u"Fam").windows(4, u"Voll", 0x407));
  EXPECT_THAT(nameLanguages(font), ElementsAre(0x407, 0x409, 0x411));
}

TEST_F(Inspect, LanguagesOfMacintoshRecordsAreMacintoshCodes) {
  openWithNames(NameBuilder()
                    .macintosh(1, "Fam")
                    .macintosh(2, "Regular")
                    .macintosh(4, "Fam")
                    .macintosh(6, "Fam")
                    .macintosh(1, "Famille", 1));
  EXPECT_THAT(nameLanguages(font), ElementsAre(0, 1));
}

TEST_F(Inspect, GlyphsAreCountedByMaxp) {
  open(qxtest::sampleFont().build());
  EXPECT_EQ(glyphCount(font), 4U);
}

TEST_F(Inspect, AMemberOfASuitcaseIsToldThoughTheInterfaceTellsNoRecordOfIt) {
  world.file("/x/a.dfont",
             qxtest::DfontBuilder().resource("sfnt", qxtest::sampleFont().build()).build());
  ASSERT_TRUE(openFontFile(QXUri(u"/x/a.dfont", QXCommonNS::URISTR_USER), 0, font));
  EXPECT_THAT(nameLanguages(font), ElementsAre(0x409));
  EXPECT_EQ(glyphCount(font), 4U);
}

TEST_F(Inspect, AnEmptyHandleHasNothing) {
  EXPECT_THAT(nameLanguages(FS_FontInfo()), IsEmpty());
  EXPECT_EQ(glyphCount(FS_FontInfo()), 0U);
}

}  // namespace
}  // namespace QXFontService_NS::ext
