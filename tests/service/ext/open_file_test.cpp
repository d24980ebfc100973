#include "qxfontservice/ext/open_file.h"

#include <gtest/gtest.h>

#include <string>

#include "qxfontservice/glyph_draw_info.h"

#include "pool/registry/registry_fixture.h"
#include "support/dfont_builder.h"
#include "support/sample_open_type.h"
#include "support/truncation.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::namedFont;
using qxtest::SfntBuilder;

SfntBuilder fontNamed(std::u16string_view family) {
  return qxtest::sampleFont().table("name", qxtest::NameBuilder().latin(family).build());
}

class OpenFontFile : public qxtest::RegistryTest {
 protected:
  OpenFontFile() { openFolder(); }

  bool open(const char16_t* path, int face = 0) {
    return openFontFile(QXUri(path, QXCommonNS::URISTR_USER), face, font);
  }
  std::string message() const {
    std::string text;
    return font.getError().getErrorMessage().toUTF8String(text);
  }
  FS_FontInfo font;
};

TEST_F(OpenFontFile, OpensByExtensionOrByTheFirstBytes) {
  for (const char* name : {"/x/a.ttf", "/x/a.otf", "/x/a", "/x/a.bin"}) {
    world.file(name, namedFont(u"Fam"));
    ASSERT_TRUE(open(icu::UnicodeString(name).getTerminatedBuffer())) << name << message();
    EXPECT_EQ(font.getFamilyName(QXLang::LANGID_DEFAULT), icu::UnicodeString("Fam"));
    EXPECT_EQ(font.getGlyphID('A', false), 2);
    EXPECT_EQ(font.getError().getErrorCode(), 0);
    font.deleteFont();
    EXPECT_FALSE(font.isCreatedFont());
  }
  EXPECT_EQ(world.openStreams(), 0u);
}

TEST_F(OpenFontFile, IsInNoPool) {
  world.file("/x/a.ttf", namedFont(u"Fam"));
  ASSERT_TRUE(open(u"/x/a.ttf"));
  EXPECT_EQ(fileOf(u"Fam"), "");
  font.deleteFont();
}

TEST_F(OpenFontFile, SaysWhyNot) {
  world.file("/x/short.ttf", "abc").file("/x/text.bin", "just some text, no font");
  world.file("/x/a.ttf", namedFont(u"Fam"))
      .file("/x/nocmap.ttf", qxtest::sampleFont().without("cmap").build());
  EXPECT_FALSE(open(u"/x/missing.ttf"));
  EXPECT_EQ(message(), "Font read error: The file cannot be opened\n/x/missing.ttf");
  EXPECT_FALSE(open(u"/x/short.ttf"));
  EXPECT_EQ(message(), "Font read error: Offset table read error\n/x/short.ttf");
  EXPECT_FALSE(open(u"/x/text.bin"));
  EXPECT_EQ(message(), "Font file error: No font of a known kind\n/x/text.bin");
  EXPECT_FALSE(open(u"/x/a.ttf", 1));
  EXPECT_EQ(message(), "Font file error: The font has no such face\n/x/a.ttf");
  EXPECT_FALSE(open(u"/x/a.ttf", -1));
  EXPECT_FALSE(open(u"/x/nocmap.ttf"));
  EXPECT_EQ(message(), "Font file error: 'cmap' table not found\n/x/nocmap.ttf");
  EXPECT_FALSE(font.isCreatedFont());
}

TEST_F(OpenFontFile, SaysOfACollectionOfFontsWithCffThatItIsNone) {
  const SfntBuilder member = qxtest::sampleOpenType(qxtest::sampleCff());
  world.file("/x/cff.ttc", qxtest::TtcBuilder().member(member).member(member).build());
  for (const int face : {0, 1}) {
    EXPECT_FALSE(open(u"/x/cff.ttc", face));
    EXPECT_EQ(font.getError().getErrorCode(), 1928);
    EXPECT_EQ(message(), "Font file error: Not a collection of TrueType fonts\n/x/cff.ttc");
  }
}

TEST_F(OpenFontFile, AFileWithMoreFontsIsOpenedByMember) {
  const SfntBuilder one = fontNamed(u"One");
  const SfntBuilder two = fontNamed(u"Two");
  const std::string collection = qxtest::TtcBuilder().member(one).member(two).build();
  const std::string suitcase =
      qxtest::DfontBuilder().resource("sfnt", one.build()).resource("sfnt", two.build()).build();
  world.file("/x/a.ttc", collection).file("/x/a", collection);
  world.file("/x/b.dfont", suitcase).file("/x/b", suitcase);
  for (const char16_t* path : {u"/x/a.ttc", u"/x/a", u"/x/b.dfont", u"/x/b"}) {
    ASSERT_TRUE(open(path, 1)) << message();
    EXPECT_EQ(font.getFamilyName(QXLang::LANGID_DEFAULT), icu::UnicodeString("Two"));
    EXPECT_EQ(font.getGlyphID('A', false), 2);
    EXPECT_EQ(font.getEntry(), 1);
    FS_GlyphDrawInfo drawn;
    EXPECT_TRUE(font.getGlyphDrawInfo(2, drawn, false));
    font.deleteFont();
    EXPECT_FALSE(open(path, 2));
  }
  EXPECT_EQ(world.openStreams(), 0u);
}

TEST_F(OpenFontFile, EveryCutIsAnswered) {
  qxtest::forEachPrefix(namedFont(u"Fam"), [this](const std::string& bytes) {
    world.file("/x/cut.ttf", bytes);
    if (open(u"/x/cut.ttf")) {
      font.deleteFont();
    } else {
      EXPECT_NE(font.getError().getErrorCode(), 0) << bytes.size();
    }
  });
  EXPECT_EQ(world.openStreams(), 0u);
}

}  // namespace
}  // namespace QXFontService_NS::ext
