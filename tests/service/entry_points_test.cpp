#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/service.h"

#include "pool/registry/registry_fixture.h"
#include "support/cmap_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::namedFont;

class EntryPoints : public qxtest::RegistryTest {
 protected:
  void configure(const std::string& xml) { world.file("/etc/qx/font-config.xml", xml); }
  void configureFolder() {
    configure("<font-config windows-registry=\"disable\"><font-folder path=\"/f\"/></font-config>");
  }
};

TEST_F(EntryPoints, OpeningGivesTheCodeOrThrowsWithoutAPlaceForIt) {
  configure("<font-config/>");
  QXError error;
  EXPECT_EQ(FontServiceOpen(kVariable, &error), FS_ERROR_NO_FONT_FOLDER);
  EXPECT_EQ(error.getErrorCode(), 1027);
  EXPECT_EQ(FontServiceOpen(kVariable, &error), FS_ERROR_NONE);
  EXPECT_EQ(error.getErrorCode(), 0) << "success empties the record";
  EXPECT_TRUE(error.getErrorMessage().isEmpty());
}

TEST_F(EntryPoints, OpeningWithoutAPlaceForTheErrorThrowsIt) {
  configure("<font-config/>");
  EXPECT_THROW(FontServiceOpen(kVariable, nullptr), QXError);
  EXPECT_EQ(FontServiceOpen(kVariable, nullptr), FS_ERROR_NONE);
}

TEST_F(EntryPoints, ClosingDoesNothing) {
  EXPECT_EQ(FontServiceClose(), FS_ERROR_NONE);
  EXPECT_EQ(FS_FontRegistry::current(), nullptr) << "and opens nothing";
  world.file("/f/a.ttf", namedFont(u"Fam"));
  configureFolder();
  FontServiceOpen(kVariable, nullptr);
  EXPECT_EQ(FontServiceClose(), FS_ERROR_NONE);
  FS_FontInfo font;
  EXPECT_TRUE(font.createFont(u"Fam", 400, false, 5));
}

TEST_F(EntryPoints, TheConfigurationsPathIsToldWithoutOpening) {
  EXPECT_EQ(FS_GetFontConfigPath(kVariable, false), icu::UnicodeString());
  EXPECT_EQ(FS_GetFontConfigPath(kVariable, true), icu::UnicodeString("/etc/qx/font-config.xml"));
  configureFolder();
  EXPECT_EQ(FS_GetFontConfigPath(kVariable, false), icu::UnicodeString("/etc/qx/font-config.xml"));
  EXPECT_EQ(FS_GetFontConfigPath(nullptr, true), icu::UnicodeString("/service/font-config.xml"));
  EXPECT_EQ(FS_GetFontConfigPath("", true), icu::UnicodeString("/service/font-config.xml"));
  EXPECT_EQ(FS_GetFontConfigPath("QX_UNSET", true), icu::UnicodeString("/service/font-config.xml"));
  EXPECT_EQ(FS_FontRegistry::current(), nullptr);
}

TEST_F(EntryPoints, AVariableIsRelativeToTheModuleAndOfBoundedLength) {
  world.setEnvironment("QX_REL", "sub/c.xml");
  EXPECT_EQ(FS_GetFontConfigPath("QX_REL", true), icu::UnicodeString("/service/sub/c.xml"));
  world.setEnvironment("QX_LONG", "/" + std::string(1022, 'x'));
  EXPECT_EQ(FS_GetFontConfigPath("QX_LONG", true).length(), 1023);
  world.setEnvironment("QX_LONG", "/" + std::string(1023, 'x'));
  EXPECT_EQ(FS_GetFontConfigPath("QX_LONG", true), icu::UnicodeString("/service/font-config.xml"))
      << "what does not fit with its zero counts as empty";
}

TEST_F(EntryPoints, AFolderIsNoConfiguration) {
  world.folder("/etc/qx/font-config.xml");
  EXPECT_EQ(FS_GetFontConfigPath(kVariable, false), icu::UnicodeString());
  EXPECT_EQ(FS_GetFontConfigPath(kVariable, true), icu::UnicodeString("/etc/qx/font-config.xml"));
}

TEST_F(EntryPoints, AVariableThatLeadsNowhereIsNoErrorWhereTheSystemHasFonts) {
  world.folder("/usr/share/fonts").addFontFolderCandidate("/usr/share/fonts/");
  world.setEnvironment("QX_LOST", "/nowhere/c.xml");
  QXError error;
  EXPECT_EQ(FontServiceOpen("QX_LOST", &error), FS_ERROR_NONE);
  EXPECT_EQ(FS_FontRegistry::current()->folders().size(), 1u);
}

TEST_F(EntryPoints, TagsAndTheSystemsFontFolderAreToldWithoutOpening) {
  world.folder("/b").addFontFolderCandidate("/a/").addFontFolderCandidate("/b/");
  EXPECT_EQ(getWinFontsPath(), icu::UnicodeString("/b/"));
  EXPECT_EQ(toTAG(u"GSUB"), 0x47535542u);
  EXPECT_EQ(FS_FontRegistry::current(), nullptr);
}

TEST_F(EntryPoints, FoldersAreToldWithoutOpening) {
  std::vector<UnicodeString> out = {u"old"};
  configure(
      "<font-config><font-folder path=\"/f\"/><font-folder path=\"/g\">"
      "<font-alias file=\"a.ttf\"/></font-folder></font-config>");
  EXPECT_TRUE(FS_GetFontFoldPathVector(kVariable, out)) << "a record without names counts";
  EXPECT_EQ(out, (std::vector<UnicodeString>{u"/f/", u"/g/"}));

  configureFolder();
  EXPECT_FALSE(FS_GetFontFoldPathVector(kVariable, out)) << "false: no aliases, not a failure";
  EXPECT_EQ(out, std::vector<UnicodeString>{u"/f/"});

  configure("<font-config><font-folder path=\"/f\"/><oops/></font-config>");
  EXPECT_FALSE(FS_GetFontFoldPathVector(kVariable, out));
  EXPECT_TRUE(out.empty());

  EXPECT_FALSE(FS_GetFontFoldPathVector(nullptr, out));
  EXPECT_TRUE(out.empty()) << "no folder of the system here";
  world.folder("/usr/share/fonts").addFontFolderCandidate("/usr/share/fonts/");
  EXPECT_FALSE(FS_GetFontFoldPathVector(nullptr, out));
  EXPECT_EQ(out, std::vector<UnicodeString>{u"/usr/share/fonts/"});
  EXPECT_EQ(FS_FontRegistry::current(), nullptr);
}

TEST_F(EntryPoints, ErrorsAreReadByPosition) {
  world.file("/f/a.ttf", "x").file("/f/b.ttf", "");
  configureFolder();
  FontServiceOpen(kVariable, nullptr);
  EXPECT_EQ(FS_GetFontError(nullptr, 99), 2);
  QXError error;
  EXPECT_EQ(FS_GetFontError(&error, 1), 1);
  EXPECT_EQ(error.getErrorMessage(),
            icu::UnicodeString("Font read error: Offset table read error\n/f/b.ttf"));
  const QXError kept = error;
  EXPECT_EQ(FS_GetFontError(&error, 2), -1);
  EXPECT_EQ(FS_GetFontError(&error, -1), -1);
  EXPECT_EQ(error.getErrorMessage(), kept.getErrorMessage());
}

TEST_F(EntryPoints, ErrorsAreKeptWhenTheServiceIsClosedAndReadAsCopies) {
  world.file("/f/a.ttf", "x");
  configureFolder();
  FontServiceOpen(kVariable, nullptr);
  QXError error;
  ASSERT_EQ(FS_GetFontError(&error, 0), 0);
  EXPECT_EQ(error.getErrorCode(), 1921);
  error.setErrorCode(7);
  EXPECT_EQ(FontServiceClose(), FS_ERROR_NONE);
  EXPECT_EQ(FS_GetFontError(nullptr, 0), 1);
  ASSERT_EQ(FS_GetFontError(&error, 0), 0);
  EXPECT_EQ(error.getErrorCode(), 1921);
}

TEST_F(EntryPoints, WithoutAnyFolderAddingOneAnswersZeroOnce) {
  world.file("/g/a.ttf", namedFont(u"A"));
  const QXUri folder(u"/g", QXCommonNS::URISTR_USER);
  EXPECT_EQ(FS_AddFontFolderPath(folder), 0);
  EXPECT_EQ(FS_AddFontFolderPath(folder), 1);
}

TEST_F(EntryPoints, WithoutAnyFolderTheFirstCallFailsAndTheNextFindsTheRest) {
  EXPECT_EQ(FS_GetFontError(nullptr, 0), -1);
  EXPECT_EQ(FS_GetFontError(nullptr, 0), 0);
}

int countAndStop(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*,
                 void* count) {
  return ++*static_cast<int*>(count) == 2 ? 7 : 0;
}

TEST_F(EntryPoints, EnumerationWithoutAnyFolderAnswersOne) {
  int count = 0;
  EXPECT_EQ(FS_EnumFontFamilies(u"", countAndStop, &count, nullptr, 0), 1);
  EXPECT_EQ(FS_EnumFontFamilies(u"", countAndStop, &count, nullptr, 0), 0);
}

TEST_F(EntryPoints, AddingAFolderCountsItsFiles) {
  world.file("/g/a.ttf", namedFont(u"A")).file("/g/b.ttf", namedFont(u"B"));
  configureFolder();
  FontServiceOpen(kVariable, nullptr);
  const QXUri folder(u"/g", QXCommonNS::URISTR_USER);
  EXPECT_EQ(FS_AddFontFolderPath(folder), 2);
  EXPECT_EQ(FS_AddFontFolderPath(folder), 0);
}

TEST(ToTag, PacksUpToFourPrintableUnits) {
  struct Case {
    const char16_t* text;
    unsigned int tag;
  };
  for (const Case& c : {Case{u"kern", 0x6B65726E}, Case{u"ab", 0x61622020}, Case{u"", 0x20202020},
                        Case{u"~ ~ ", 0x7E207E20}, Case{u"abcde", 0}, Case{u"a\u007F", 0},
                        Case{u"\u001Fa", 0}, Case{u"\U0001F600", 0}, Case{u"\u00E4", 0}}) {
    EXPECT_EQ(toTAG(c.text), c.tag);
  }
}

class Enumeration : public EntryPoints {
 protected:
  struct Face {
    int type;
    std::string family;
    int weight;
    int fileType;
    int flags;
    friend bool operator==(const Face&, const Face&) = default;
  };
  struct Walk {
    std::vector<Face> faces;
    int stopAt = -1;
  };

  static int receive(FS_FontResourceType type, const FS_EnumLogFontEx* font,
                     const FS_NewTextMetricEx* metric, void* user) {
    auto& walk = *static_cast<Walk*>(user);
    std::string family;
    font->getFaceName().toUTF8String(family);
    EXPECT_TRUE(metric->hasValue());
    walk.faces.push_back(
        {type, family, font->getWeight(), font->getFontFileType(), font->getFontFlags()});
    return static_cast<int>(walk.faces.size()) == walk.stopAt ? 42 : 0;
  }
  std::vector<Face> walk(const UnicodeString& family, FS_ExtraFontManager* extra = nullptr) {
    Walk walk;
    EXPECT_EQ(FS_EnumFontFamilies(family, receive, &walk, extra, 0), 0);
    return walk.faces;
  }
};

TEST_F(Enumeration, WalksAllFontsInTheOrderOfLoading) {
  world.file("/f/b.ttf", namedFont(u"B")).file("/f/a.ttf", namedFont(u"A", {700, false, 5}));
  openFolder();
  EXPECT_EQ(walk(u""), (std::vector<Face>{{0, "A", 700, 5, 0}, {0, "B", 400, 5, 0}}));
}

TEST_F(Enumeration, TellsWhereAFontOfTheWholeListComesFrom) {
  world.file("/f/a.ttf", namedFont(u"A")).file("/w/s.ttf", namedFont(u"S"));
  world.file("/e/g.ttf", namedFont(u"G"));
  world.registry(
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts]\n"
      "\"S\"=\"/w/s.ttf\"\n");
  openFile(
      "<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-map family-name=\"None\" file-path=\"/e/g.ttf\"/></eudc-processing>"
      "</font-config>");
  EXPECT_EQ(walk(u""),
            (std::vector<Face>{{0, "A", 400, 5, 0}, {5, "S", 400, 5, 8}, {4, "G", 400, 5, 16}}));
  EXPECT_EQ(walk(u"S"), (std::vector<Face>{{0, "S", 400, 5, 8}}))
      << "a search by family tells the pool alone";
}

TEST_F(Enumeration, ShowsBothObjectsOfTheEudcDefault) {
  world.file("/e/g.ttf", namedFont(u"G"));
  open(
      "<font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-system-default file-path=\"/e/g.ttf\"/></eudc-processing>");
  EXPECT_EQ(walk(u""), (std::vector<Face>{{4, "G", 400, 5, 16}, {4, "G", 400, 5, 16}}));
}

TEST_F(Enumeration, WalksTheFacesOfAFamilyByStyle) {
  world.file("/f/a.ttf", namedFont(u"Fam", {700, false, 5})).file("/f/b.ttf", namedFont(u"Fam"));
  openFolder();
  EXPECT_EQ(walk(u"fam"), (std::vector<Face>{{0, "Fam", 400, 5, 0}, {0, "Fam", 700, 5, 0}}));
  EXPECT_EQ(walk(u"a.ttf"), (std::vector<Face>{{0, "Fam", 700, 5, 0}}));
  EXPECT_TRUE(walk(u"none").empty());
  EXPECT_TRUE(walk(u"@").empty()) << "no walk over all fonts";
}

TEST_F(Enumeration, AFilledFamilyShowsAFaceForEachEntry) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  openFolder();
  (void)fileOf(u"Fam", 300);
  EXPECT_EQ(walk(u"Fam").size(), 18u);
}

TEST_F(Enumeration, AliasesComeBeforeTheFontsOwnFamily) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"Nick"));
  openFolder(
      "<font-alias file=\"a.ttf\"><alias family-name=\"Nick\" weight=\"900\"/></font-alias>");
  EXPECT_EQ(walk(u"Nick"), (std::vector<Face>{{1, "Fam", 400, 5, 0}, {0, "Nick", 400, 5, 0}}))
      << "the record is that of the real face";
}

TEST_F(Enumeration, TheCallbackEndsTheWalk) {
  world.file("/f/a.ttf", namedFont(u"A")).file("/f/b.ttf", namedFont(u"B"));
  openFolder();
  Walk first;
  first.stopAt = 1;
  EXPECT_EQ(FS_EnumFontFamilies(u"", receive, &first, nullptr, 0), 42);
  EXPECT_EQ(first.faces.size(), 1u);
  EXPECT_EQ(FS_EnumFontFamilies(u"", nullptr, nullptr, nullptr, 0), 0);
}

TEST_F(Enumeration, VerticalRequestsPassOverFacesWithoutVerticalForms) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  openFolder();
  EXPECT_TRUE(walk(u"@Fam").empty());
}

int addFontsAndFill(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*,
                    void* count) {
  if (++*static_cast<int*>(count) == 1) {
    FS_AddFontFolderPath(QXUri(u"/g", QXCommonNS::URISTR_USER));
    FS_FontInfo font;
    EXPECT_TRUE(font.createFont(u"Fam", 300, true, 5)) << "lookups work under the lock";
  }
  return 0;
}

TEST_F(Enumeration, TheCallbackMayAddFontsAndFillFamilies) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/g/b.ttf", namedFont(u"Fam", {700, false, 5}));
  openFolder();
  int all = 0;
  EXPECT_EQ(FS_EnumFontFamilies(u"", addFontsAndFill, &all, nullptr, 0), 0);
  EXPECT_EQ(all, 2) << "what was added behind is walked too";
}

int throwNumber(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*, void*) {
  throw 5;
}

TEST_F(Enumeration, WhatTheCallbackThrowsPassesAndLeavesTheServiceUsable) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  openFolder();
  EXPECT_THROW(FS_EnumFontFamilies(u"", throwNumber, nullptr, nullptr, 0), int);
  EXPECT_EQ(walk(u"Fam").size(), 1u);
}

TEST_F(Enumeration, ADocumentWithoutFontsAddsNothing) {
  world.file("/f/a.ttf", namedFont(u"A"));
  openFolder();
  FS_ExtraFontManager manager;
  EXPECT_EQ(walk(u"", &manager).size(), 1u);
}

}  // namespace
}  // namespace QXFontService_NS
