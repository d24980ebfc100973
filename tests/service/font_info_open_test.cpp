#include <gtest/gtest.h>

#include <string>

#include "qxfontservice/error_codes.h"
#include "qxfontservice/glyph_draw_info.h"
#include "qxfontservice/glyph_id_array.h"
#include "qxfontservice/glyph_id_array2.h"
#include "qxfontservice/service.h"

#include "service/service_test.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

constexpr QXLang::LanguageID kLang = QXLang::LANGID_DEFAULT;

QXUri uriOf(const char16_t* path) {
  return QXUri(path, QXCommonNS::URISTR_USER);
}

class OpenByUri : public qxtest::ServiceTest {
 protected:
  OpenByUri() { world.file("/doc/a.ttf", qxtest::sampleFont().build()); }
  ~OpenByUri() override { info.deleteFont(); }

  std::string errorText() const {
    std::string result;
    return info.getError().getErrorMessage().toUTF8String(result);
  }

  FS_FontInfo info;
};

TEST_F(OpenByUri, OpensAFileThatNoPoolKnowsAndHoldsTheOneReference) {
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  EXPECT_EQ(info.getError().getErrorCode(), 0);
  EXPECT_EQ(info.getFont()->refCount.load(), 1);
  EXPECT_EQ(info.getFontFileType(), FS_FILETYPE_TRUETYPE);
  EXPECT_TRUE(info.getFamilyName(kLang) == u"QX Sample");
  EXPECT_EQ(info.getGlyphID('A', false), 2);
  FS_FontInfo byName;
  EXPECT_FALSE(byName.createFont(u"QX Sample", 400, false));
}

TEST_F(OpenByUri, KeepsNoFileOpen) {
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  EXPECT_EQ(world.openStreams(), 0U);
  EXPECT_FALSE(FS_FontInfo().createFont(uriOf(u"/doc/none.ttf")));
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(OpenByUri, AFileCutAnywhereTellsAShortRead) {
  const std::string whole = qxtest::sampleFont().build();
  qxtest::forEachPrefix(whole, [&](const std::string& cut) {
    world.file("/doc/cut.ttf", cut);
    FS_FontInfo font;
    ASSERT_FALSE(font.createFont(uriOf(u"/doc/cut.ttf"))) << cut.size();
    EXPECT_EQ(font.getError().getErrorCode(), FS_ERROR_FONT_READ) << cut.size();
    EXPECT_TRUE(font.getError().getErrorMessage().indexOf(u"read error") > 0) << cut.size();
    EXPECT_FALSE(font.isCreatedFont());
  });
}

TEST_F(OpenByUri, NoFieldOfAFileLeadsAstray) {
  for (const qxtest::SfntBuilder& sound :
       {qxtest::sampleFont(), qxtest::sampleOpenType(qxtest::sampleCff())}) {
    qxtest::forEachDamage(sound.build(), [&](const std::string& damaged) {
      world.file("/doc/damaged.ttf", damaged);
      FS_FontInfo font;
      if (font.createFont(uriOf(u"/doc/damaged.ttf"))) {
        font.getFamilyName(kLang);
        font.getGlyphID('A', true);
        font.getTextWidth(u"AB", 12, false, nullptr);
        font.deleteFont();
      } else {
        EXPECT_FALSE(font.isCreatedFont());
      }
    });
  }
}

TEST_F(OpenByUri, MakesANewObjectEachTime) {
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  FS_FontInfo second;
  ASSERT_TRUE(second.createFont(uriOf(u"/doc/a.ttf")));
  EXPECT_NE(second.getFont(), info.getFont());
  second.deleteFont();
}

TEST_F(OpenByUri, TheExtensionPlaysNoPart) {
  world.file("/doc/a.woff", qxtest::sampleFont().build());
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.woff")));
  EXPECT_EQ(info.getFontFileType(), FS_FILETYPE_TRUETYPE);
}

TEST_F(OpenByUri, AMissingFileIsAShortRead) {
  EXPECT_FALSE(info.createFont(uriOf(u"/doc/none.ttf")));
  EXPECT_EQ(info.getError().getErrorCode(), 1921);
  EXPECT_EQ(errorText(), "Font read error: Offset table read error\n/doc/none.ttf");
  EXPECT_FALSE(info.isCreatedFont());
}

TEST_F(OpenByUri, AFailureSetsTheEntryToZeroAndLeavesTheFont) {
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  const FS_BaseFont* font = info.getFont();
  EXPECT_FALSE(info.createFont(uriOf(u"/doc/none.ttf")));
  EXPECT_EQ(info.getFont(), font);
  EXPECT_EQ(info.getEntry(), 0);
}

TEST_F(OpenByUri, AFontWithoutACharacterMapIsNotMade) {
  world.file("/doc/b.ttf", qxtest::sampleFont().without("cmap").build());
  EXPECT_FALSE(info.createFont(uriOf(u"/doc/b.ttf")));
  EXPECT_FALSE(info.isCreatedFont());
}

TEST_F(OpenByUri, FilesOfOtherKindsAreNeverMade) {
  for (const char* head :
       {"ttcf", "wOFF", "%!PS-AdobeFont-1.0", "StartFontMetrics 2.0", "\x80\x01"}) {
    world.file("/doc/other", std::string(head) + std::string(64, '\0'));
    EXPECT_FALSE(info.createFont(uriOf(u"/doc/other"))) << head;
    EXPECT_FALSE(info.isCreatedFont()) << head;
  }
}

TEST_F(OpenByUri, FilesOfOtherKindsFailWhereAnOffsetTableWould) {
  struct Case {
    std::string bytes;
    int code;
    const char* text;
  };
  const std::string rest(64, '\0');
  const Case cases[] = {
      {std::string("ttcf\0\1\0\0", 8) + rest, 0, ""},
      {std::string("wOFF\0\1\0\0", 8) + rest, 0, ""},
      {"wOFFOTTO" + rest, 1921, "Font read error: Table directory read error\n/doc/other"},
      {"\x80\x01" + rest, 1928, "Font file error: OffsetTable.numTables = 0\n/doc/other"},
      {"%!PS-AdobeFont-1.0", 1921, "Font read error: Table directory read error\n/doc/other"},
      {"StartFontMetrics 2.0", 1921, "Font read error: Table directory read error\n/doc/other"},
  };
  for (const Case& c : cases) {
    world.file("/doc/other", c.bytes);
    EXPECT_FALSE(info.createFont(uriOf(u"/doc/other")));
    EXPECT_EQ(info.getError().getErrorCode(), c.code) << c.bytes.substr(0, 8);
    EXPECT_EQ(errorText(), c.text) << c.bytes.substr(0, 8);
  }
}

TEST_F(OpenByUri, OptionsOfTheConfigurationHoldForTheFontOfThePoolAlone) {
  world.setEnvironment("QX_CONFIG", "/etc/qx.xml");
  world.file("/etc/qx.xml",
             "<font-config windows-registry=\"disable\"><font-folder path=\"/doc\">"
             "<font-entry file=\"a.ttf\" font-size-adjust=\"2\"/></font-folder></font-config>");
  ASSERT_EQ(FontServiceOpen("QX_CONFIG", nullptr), FS_ERROR_NONE);
  FS_FontInfo named;
  ASSERT_TRUE(named.createFont(u"QX Sample", 400, false));
  EXPECT_EQ(named.getFontSizeAdjust(), 2.0F);
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  EXPECT_EQ(info.getFontSizeAdjust(), 1.0F);
  EXPECT_NE(info.getFont(), named.getFont());
}

TEST_F(OpenByUri, TheNextFontReplacesTheOneBefore) {
  world.file("/doc/b.ttf", qxtest::sampleFont().build());
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  FS_FontInfo first = info;
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/b.ttf")));
  EXPECT_NE(info.getFont(), first.getFont());
  EXPECT_EQ(first.getFont()->refCount.load(), 1);  // neither released nor counted again
  first.deleteFont();
}

TEST_F(OpenByUri, AFontThatIsListedButDoesNotLoadIsNotMadeAndTellsWhyOnce) {
  world.file("/usr/share/fonts/n.ttf", qxtest::sampleFont().without("hmtx").build());
  FS_FontInfo named;
  EXPECT_FALSE(named.createFont(u"QX Sample", 400, false));
  EXPECT_FALSE(named.isCreatedFont());
  EXPECT_NE(named.getError().getErrorCode(), 0);
  EXPECT_FALSE(named.createFont(u"QX Sample", 400, false));
  EXPECT_EQ(named.getError().getErrorCode(), 0);
  EXPECT_EQ(registry().mainPool().fonts().size(), 1U);
}

TEST_F(OpenByUri, DrawsTheGlyphsOfTheFont) {
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/a.ttf")));
  EXPECT_TRUE(info.isGlyphDrawInfoAvialable());
  FS_GlyphDrawInfo draw;
  ASSERT_TRUE(info.getGlyphDrawInfo(2, draw, false));
  EXPECT_NEAR(draw.horiAdvance, 600, 2);  // hinting is on, so it is not that of `hmtx`
  EXPECT_EQ(draw.contours.size(), 1U);
  EXPECT_FALSE(info.getGlyphDrawInfo(4, draw, false));
  EXPECT_FALSE(draw.valid);
}

TEST_F(OpenByUri, ShapesARunThroughTheFontsTables) {
  qxtest::LayoutTableBuilder table;
  table.onlyLookup("test", 1, 0, {qxtest::singleSubst(qxtest::coverage({2}), 1)});
  world.file("/doc/s.ttf", qxtest::sampleFont().table("GSUB", table.str()).build());
  ASSERT_TRUE(info.createFont(uriOf(u"/doc/s.ttf")));
  constexpr unsigned int kTest = 0x74657374;
  FS_GSUBGPOSInfo* layout = info.getGSUBGPOSInfo(kTest, 0);
  ASSERT_NE(layout, nullptr);
  EXPECT_TRUE(FS_FontInfo::hasGSUBInfo(layout));
  EXPECT_FALSE(FS_FontInfo::hasGPOSInfo(layout));
  EXPECT_EQ(FS_FontInfo::getGSUBFeatureTag(layout, 0), kTest);

  GlyphIDArray2 input;
  input.push_back(info.getGlyphID('A', false), GCD_NONE);
  GlyphIDArray output;
  GlyphIDArray matched;
  int position = 0;
  EXPECT_EQ(FS_FontInfo::processGSUB(layout, kTest, input, position, output, matched, 1), 1);
  EXPECT_EQ(position, 1);
  EXPECT_EQ(output[0].glyphID, 3);
  GlyphIDArray2 replaced;
  EXPECT_TRUE(FS_FontInfo::processGSUB3(layout, 0, input, replaced, 1));
  ASSERT_EQ(replaced.size(), 1);
  EXPECT_EQ(replaced[0].glyphID, 3);
  FS_FontInfo::deleteGSUBGPOSInfo(layout);
}

TEST_F(OpenByUri, EveryCutOfTheFileIsAnAnswer) {
  const std::string whole = qxtest::sampleFont().build();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    world.file("/doc/cut.ttf", whole.substr(0, size));
    FS_FontInfo cut;
    if (cut.createFont(uriOf(u"/doc/cut.ttf"))) {
      cut.getGlyphID('A', false);
      cut.getTextWidth(u"AB", 10, false, nullptr);
    }
    cut.deleteFont();
  }
}

}  // namespace
}  // namespace QXFontService_NS
