#include <gtest/gtest.h>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/ext/match.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/service.h"

#include "pool/registry/registry_fixture.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;
using qxtest::namedFont;
using qxtest::WoffBuilder;

/// A document's web font "/d/a.woff", declared as "Shared" 300 italic, beside fonts of the service.
class DocumentFonts : public qxtest::RegistryTest {
 protected:
  DocumentFonts() {
    world.file("/f/main.ttf", namedFont(u"Shared", {700, false, 5}));
    world.file("/d/a.woff", WoffBuilder::of(namedFont(u"Inner", {800, false, 3})).build());
    openFolder();
    QXError error;
    EXPECT_EQ(manager.appendExtraFont(u"/d/a.woff", FS_FILETYPE_UNKNOWN, u"Shared", 300, 1, &error),
              0);
  }
  static std::string pathOf(const QXUri& uri) {
    std::string path;
    return uri.getLocalPath(false).toUTF8String(path);
  }

  FS_ExtraFontManager manager;
  FS_FontInfo info;
};

/// Kept: documents rely on their own fonts, whatever weight they declare.
TEST_F(DocumentFonts, GoBeforeAnExactHitOfTheService) {
  ASSERT_TRUE(info.createFont(u"Shared", 700, false, 5, manager.getExtraFonts()));
  EXPECT_EQ(pathOf(info.getFontFileName()), "/d/a.woff");
  ASSERT_TRUE(info.createFont(u"Shared", 700, false, 5, nullptr));
  EXPECT_EQ(pathOf(info.getFontFileName()), "/f/main.ttf");
}

TEST_F(DocumentFonts, AreSetWithoutFurtherLoading) {
  ASSERT_TRUE(info.createFont(u"shared", 400, false, 5, manager.getExtraFonts()));
  EXPECT_EQ(info.getGlyphID('A', false), 2);
  EXPECT_EQ(info.getFontFileType(), FS_FILETYPE_WOFF);
  EXPECT_EQ(info.getFontFileType2(), FS_FILETYPE_TRUETYPE);
  EXPECT_EQ(pathOf(info.getFontFileName2()), "/d/a.woff");
  ASSERT_NE(info.getExtraBaseFont(), nullptr);
  EXPECT_NE(info.getExtraBaseFont(), info.getFont());
}

TEST_F(DocumentFonts, TellTheDeclaredStyleAndThatOfTheFontInside) {
  ASSERT_TRUE(info.createFont(u"Shared", 400, false, 5, manager.getExtraFonts()));
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  info.getFontStyle(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 300);
  EXPECT_TRUE(italic);
  EXPECT_EQ(stretch, 5);
  info.getFontStyle2(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 800);
  EXPECT_FALSE(italic);
  EXPECT_EQ(stretch, 5) << "the one inside tells none either";
}

TEST_F(DocumentFonts, HaveNoOptionsOfAConfiguredFolder) {
  ASSERT_TRUE(info.createFont(u"Shared", 400, false, 5, manager.getExtraFonts()));
  EXPECT_EQ(info.getFontSizeAdjust(), 1.0F);
  EXPECT_EQ(info.getBaselineAdjust(), 0.0F);
}

TEST_F(DocumentFonts, AreTheDocumentsAloneWhenTheirFolderIsAsked) {
  bool isExtra = false;
  const auto folder = [&](FS_ExtraFonts* extra) {
    return pathOf(FS_FontInfo::getFontFolderPath(u"Shared", 700, false, 5, extra, &isExtra));
  };
  EXPECT_EQ(folder(manager.getExtraFonts()), "/d/a.woff");
  EXPECT_TRUE(isExtra);
  EXPECT_EQ(folder(nullptr), "/f/main.ttf");
  EXPECT_FALSE(isExtra);
}

TEST_F(DocumentFonts, AreExplained) {
  ext::MatchReport report;
  ASSERT_TRUE(ext::explainMatch(u"Shared", 700, false, 5, manager.getExtraFonts(), report));
  EXPECT_EQ(report.pool, ext::MatchPool::extra);
  EXPECT_EQ(report.table, ext::MatchTable::family);
  EXPECT_EQ(report.face.fileType, FS_FILETYPE_WOFF);
}

TEST_F(DocumentFonts, AreEnumeratedAsWebFontsUnderTheNameInside) {
  struct Face {
    FS_FontResourceType type;
    UnicodeString family;
    int weight;
  };
  std::vector<Face> faces;
  const auto note = [](FS_FontResourceType type, const FS_EnumLogFontEx* font,
                       const FS_NewTextMetricEx*, void* user) {
    static_cast<std::vector<Face>*>(user)->push_back(
        {type, font->getFaceName(), font->getWeight()});
    return 0;
  };
  EXPECT_EQ(FS_EnumFontFamilies(u"Shared", note, &faces, &manager, 0), 0);
  ASSERT_FALSE(faces.empty());
  EXPECT_EQ(faces[0].type, FS_RESOURCE_WOFF);
  EXPECT_EQ(faces[0].family, UnicodeString("Inner"));
  EXPECT_EQ(faces[0].weight, 800);
}

TEST_F(DocumentFonts, AreEmbeddedFromTheirUnpackedFont) {
  world.remove("/d/a.woff");
  ASSERT_TRUE(info.createFont(u"Shared", 400, false, 5, manager.getExtraFonts()));
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  EXPECT_TRUE(info.makeWebFont({2}, out));
  EXPECT_EQ(out.get(), 'w');
}

}  // namespace
}  // namespace QXFontService_NS
