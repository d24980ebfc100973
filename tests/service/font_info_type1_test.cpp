#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/error_codes.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/glyph_draw_info.h"
#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/service.h"

#include "pool/registry/registry_fixture.h"
#include "support/afm_builder.h"
#include "support/pfm_builder.h"
#include "support/type1_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::PfmBuilder;
using qxtest::Type1Builder;

std::string utf8(const icu::UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

/// Type 1 fonts as a host meets them: in folders, through the handle.
class FontInfoType1 : public qxtest::RegistryTest {
 protected:
  static AfmBuilder letters() {
    AfmBuilder file;
    file.glyph(65, 500, "A").glyph(66, 600, "B").glyph(-1, 444, "Euro").kern("A", "B", -80);
    return file;
  }
  static Type1Builder outlines() {
    Type1Builder font;
    font.glyph(".notdef", qxtest::type1Box(250, 10)).glyph("A", qxtest::type1Box(500, 100));
    return font.glyph("B", qxtest::type1Box(600, 200)).glyph("Euro", qxtest::type1Box(444, 50));
  }
  bool create(const char16_t* family, int weight = 400, bool italic = false) {
    info = FS_FontInfo();  // fonts found by name stay the service's
    return info.createFont(family, weight, italic, 5, nullptr);
  }
  std::string family() { return utf8(info.getFamilyName(QXLang::LANGID_DEFAULT)); }

  FS_FontInfo info;
};

TEST_F(FontInfoType1, AnAfmIsFoundByItsThreeNames) {
  world.file("/f/a.afm", letters().build());
  openFolder();
  for (const char16_t* name : {u"Made", u"Made Roman", u"Made-Roman", u"made roman"}) {
    ASSERT_TRUE(create(name)) << utf8(name);
    EXPECT_EQ(utf8(info.getFontFileName().getLocalPath(false)), "/f/a.afm");
  }
  EXPECT_TRUE(info.isType1Font());
  EXPECT_TRUE(info.isType1OrNoCID());
  EXPECT_EQ(static_cast<int>(info.getFontFileType()), 3);
  EXPECT_EQ(utf8(info.getPostScriptName(QXLang::LANGID_DEFAULT)), "Made-Roman");
  EXPECT_TRUE(errors().empty());
}

TEST_F(FontInfoType1, WithoutAWeightItIsRegular) {
  AfmBuilder regular = letters();
  regular.weight = "";
  world.file("/f/a.afm", regular.build());
  AfmBuilder bold = letters();
  bold.weight = "Bold";
  bold.headers = {"ItalicAngle -12"};
  world.file("/f/b.afm", bold.build());
  openFolder();
  ASSERT_TRUE(create(u"Made", 400));
  EXPECT_EQ(utf8(info.getFontFileName().getLocalPath(false)), "/f/a.afm");
  ASSERT_TRUE(create(u"Made", 700, true));
  EXPECT_EQ(utf8(info.getFontFileName().getLocalPath(false)), "/f/b.afm");
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  info.getFontStyle(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 700);
  EXPECT_TRUE(italic);
  EXPECT_EQ(stretch, 5);
}

TEST_F(FontInfoType1, WidthsKerningAndCodesComeThroughTheHandle) {
  world.file("/f/a.afm", letters().build());
  openFolder();
  ASSERT_TRUE(create(u"Made"));
  int missing = 7;
  EXPECT_EQ(info.getTextWidth(u"AB", -1000, false, &missing), 1100);
  EXPECT_EQ(missing, -1);
  EXPECT_EQ(info.getPairKerningValue('A', 'B', -1000, false), -80);
  EXPECT_EQ(info.getType1CharCode('A'), 65);
  EXPECT_EQ(info.getType1CharCode(0x20AC), 128);
  std::string name;
  EXPECT_TRUE(info.getType1GlyphName(0, 128, name));
  EXPECT_EQ(name, "Euro");
  ASSERT_NE(info.getType1CMapArray(0), nullptr);
  EXPECT_EQ(info.getType1CMapArray(0)->size(), 1u);
  FS_FontInfo again;
  ASSERT_TRUE(again.createFont(u"Made", 400, false, 5, nullptr));
  EXPECT_EQ(again.getType1CharCode(0x20AC), 128) << "codes live as long as the font";
}

TEST_F(FontInfoType1, TheMetricsOfOneFontAreTwoFontsAndTheFirstIsFound) {
  PfmBuilder windows;
  windows.face = "Made";
  windows.weight = 500;  // "Medium"
  world.file("/f/a.afm", letters().build()).file("/f/a.pfm", windows.build());
  openFolder();
  EXPECT_EQ(loaded(), (std::vector<std::string>{"/f/a.afm", "/f/a.pfm"}));
  ASSERT_TRUE(create(u"Made"));
  EXPECT_EQ(static_cast<int>(info.getFontFileType()), 3);
}

TEST_F(FontInfoType1, AProgramAloneIsNoFont) {
  world.file("/f/a.pfb", outlines().pfb()).file("/f/b.pfa", outlines().pfa());
  openFolder();
  EXPECT_TRUE(loaded().empty());
  EXPECT_TRUE(errors().empty());
}

TEST_F(FontInfoType1, AProgramGivesOutlinesAndIsEmbedded) {
  world.file("/f/a.afm", letters().build()).file("/f/a.pfb", outlines().pfb());
  openFolder();
  ASSERT_TRUE(create(u"Made"));
  EXPECT_EQ(static_cast<int>(info.getEmbedStatus()), 0);
  EXPECT_TRUE(info.isGlyphDrawInfoAvialable());
  const unsigned short glyph = info.getGlyphID('B', false);
  ASSERT_NE(glyph, FS_NO_GLYPH);
  FS_GlyphDrawInfo outline;
  EXPECT_TRUE(info.getGlyphDrawInfo(glyph, outline, false));
  QXMemStream out(nullptr, 4096, false, true);
  int length1 = 0;
  int length2 = 0;
  int length3 = 0;
  EXPECT_TRUE(info.getType1EmbedFont(0, "A", 1, out, length1, length2, length3));
  EXPECT_EQ(out.length(), static_cast<std::size_t>(length1 + length2 + length3) + 20);
  EXPECT_FALSE(info.getType1EmbedFont({1}, out)) << "glyph ids are for other fonts";
  EXPECT_FALSE(info.getEmbedFont({1}, out));
  EXPECT_FALSE(info.canEmbedFont());
}

TEST_F(FontInfoType1, AnAfmThatFailsIsCollectedAndNoFont) {
  world.file("/f/a.afm", "StartCharMetrics 0\n");
  openFolder();
  EXPECT_TRUE(loaded().empty());
  EXPECT_EQ(errors(),
            std::vector<std::string>{"Font file error: in line #1 : StartCharMetrics\n/f/a.afm"});
}

TEST_F(FontInfoType1, AnAfmWithABadProgramIsCollectedAndStays) {
  world.file("/f/a.afm", letters().build()).file("/f/a.pfb", "bad program");
  openFolder();
  EXPECT_EQ(loaded().size(), 1u);
  EXPECT_EQ(errors(),
            std::vector<std::string>{"Font file error: Header bad signature: 62\n/f/a.pfb"});
  ASSERT_TRUE(create(u"Made"));
  EXPECT_FALSE(info.isGlyphDrawInfoAvialable());
}

TEST_F(FontInfoType1, TheConfigurationNamesAGlyphListForBothMetricFiles) {
  PfmBuilder windows;
  windows.face = "Windows";
  world.file("/f/a.afm", letters().build()).file("/f/a.pfm", windows.build());
  world.file("/f/a.pfb", outlines().pfb()).file("/f/list.txt", "# list\n0041;B\n");
  for (const char* element : {R"(<glyph-list file="list.txt" afm="a.afm"/>)",
                              R"(<glyph-list file="list.txt" pfm="A.PFM"/>)",
                              R"(<font-entry file="a.afm" glyph-list="list.txt"/>)"}) {
    resetRegistry();
    openFolder(element);
    ASSERT_TRUE(create(u"Made")) << element;
    EXPECT_EQ(info.getType1CharCode('A'), 66) << element;
    ASSERT_TRUE(create(u"Windows")) << element;
    EXPECT_EQ(info.getType1CharCode('A'), 66) << element;
  }
}

TEST_F(FontInfoType1, TheConfigurationSkipsTheMappingOfGlyphNames) {
  world.file("/f/a.afm", letters().build());
  openFolder(R"(<skip-glyphname-mapping pfm="a.pfm"/>)");
  ASSERT_TRUE(create(u"Made"));
  EXPECT_EQ(info.getType1CharCode(200), 200);
  EXPECT_EQ(info.getType1CharCode(0x20AC), 0);
}

TEST_F(FontInfoType1, AGlyphListThatIsMissingFailsTheHandle) {
  world.file("/f/a.afm", letters().build());
  openFolder(R"(<glyph-list file="none.txt" afm="a.afm"/>)");
  EXPECT_FALSE(create(u"Made"));
  EXPECT_EQ(info.getError().getErrorCode(), FS_ERROR_GLYPHLIST_OPEN);
  EXPECT_NE(utf8(info.getError().getErrorMessage()).find("none.txt"), std::string::npos);
}

TEST_F(FontInfoType1, FoldersAddedAtRunTimeBringThem) {
  openFolder();
  world.file("/g/a.afm", letters().build()).file("/g/b.pfm", PfmBuilder().build());
  EXPECT_EQ(FS_AddFontFolderPath(QXUri(u"/g/", QXCommonNS::URISTR_USER)), 2);
  EXPECT_TRUE(create(u"Made"));
}

TEST_F(FontInfoType1, ADocumentBringsOneWithItsProgram) {
  world.file("/d/a.afm", letters().build()).file("/d/a.pfb", outlines().pfb());
  openFolder();
  FS_ExtraFontManager manager;
  QXError error;
  EXPECT_EQ(
      manager.appendExtraFont(u"/d/a.afm", FS_FILETYPE_TYPE1_AFM, u"Document", 400, 0, &error), 0);
  EXPECT_FALSE(info.createFont(u"Document", 400, false, 5, manager.getExtraFonts()))
      << "a font without a wrapper becomes searchable with its second name";
  EXPECT_EQ(manager.appendExtraFont(u"/d/a.afm", FS_FILETYPE_TYPE1_AFM, u"Again", 400, 0, &error),
            0);
  for (const char16_t* name : {u"Document", u"Again", u"Made"})
    ASSERT_TRUE(info.createFont(name, 400, false, 5, manager.getExtraFonts())) << utf8(name);
  EXPECT_TRUE(info.isType1Font());
  EXPECT_EQ(info.getType1CharCode(0x20AC), 128);
  EXPECT_EQ(info.getTextWidth(u"A", -1000, false, nullptr), 500);
  std::string name;
  EXPECT_TRUE(info.getType1GlyphName(0, 128, name));
  EXPECT_EQ(name, "Euro");
  QXMemStream out(nullptr, 4096, false, true);
  int length = 0;
  EXPECT_TRUE(info.getType1EmbedFont(0, "\x80", 1, out, length, length, length));
}

TEST_F(FontInfoType1, FacesAreEnumeratedWithTheirKindAndStatus) {
  using Faces = std::vector<std::string>;  // type, status, names, ascent
  world.file("/f/a.afm", letters().build()).file("/f/a.pfb", outlines().pfb());
  PfmBuilder windows;
  windows.face = "Windows";
  world.file("/f/b.pfm", windows.build());
  openFolder();
  Faces faces;
  const auto note = [](FS_FontResourceType, const FS_EnumLogFontEx* font,
                       const FS_NewTextMetricEx* metrics, void* user) {
    static_cast<Faces*>(user)->push_back(
        std::to_string(font->getFontFileType()) + " " + std::to_string(font->getEmbedStatus()) +
        " " + utf8(font->getFaceName()) + "/" + utf8(font->getFullName()) + " " +
        std::to_string(static_cast<int>(metrics->getAscent())));
    return 0;
  };
  EXPECT_EQ(FS_EnumFontFamilies(u"Made", note, &faces, nullptr, 0), 0);
  EXPECT_EQ(faces, Faces{"3 0 Made/Made Roman 1050"});
  faces.clear();
  EXPECT_EQ(FS_EnumFontFamilies(u"Windows", note, &faces, nullptr, 0), 0);
  EXPECT_EQ(faces, Faces{"4 1 Windows/Windows 0"});
}

TEST_F(FontInfoType1, AMetricFileByItsOwnUriIsTakenForAnSfntAndFails) {
  world.file("/f/a.afm", letters().build());
  openFolder();
  EXPECT_FALSE(info.createFont(QXUri(u"/f/a.afm", QXCommonNS::URISTR_USER)));
}

TEST_F(FontInfoType1, FilesAreClosedBetweenQueries) {
  world.file("/f/a.afm", letters().build()).file("/f/a.pfb", outlines().pfb());
  openFolder();
  ASSERT_TRUE(create(u"Made"));
  info.getTextWidth(u"A", -1000, false, nullptr);
  info.getGlyphID('A', false);
  QXMemStream out(nullptr, 4096, false, true);
  int length = 0;
  info.getType1FontStream(out, length, length, length);
  EXPECT_EQ(world.openStreams(), 0u);
}

}  // namespace
}  // namespace QXFontService_NS
