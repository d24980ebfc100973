#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/registry/registry_fixture.h"
#include "support/afm_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::namedFont;
using Paths = std::vector<std::string>;

class Scan : public qxtest::RegistryTest {};

TEST_F(Scan, LoadsTheFilesOfAFolderInOneFixedOrder) {
  world.file("/f/b.ttf", namedFont(u"B")).file("/f/A.ttf", namedFont(u"A"));
  world.file("/f/a_.ttf", namedFont(u"A2")).file("/f/aB.ttf", namedFont(u"A3"));
  openFolder();
  EXPECT_EQ(loaded(), (Paths{"/f/A.ttf", "/f/aB.ttf", "/f/a_.ttf", "/f/b.ttf"}))
      << "by upper-cased units, so '_' comes behind letters";
}

TEST_F(Scan, TakesKnownExtensionsOnly) {
  const std::string font = namedFont(u"A");
  for (const char* name : {"a.TTF", "b.otf", "c.pfb", "d.pfa", "e.txt", "f", "g.ttf.bak"}) {
    world.file(std::string("/f/") + name, font);
  }
  openFolder();
  EXPECT_EQ(loaded(), (Paths{"/f/a.TTF", "/f/b.otf"}));
}

TEST_F(Scan, PassesOverWebFontsAndSystemFiles) {
  const std::string font = namedFont(u"A");
  world.file("/f/a.woff", font).file("/f/b.ttf", font).system("/f/b.ttf");
  world.file("/f/.c.ttf", font).hidden("/f/.c.ttf").special("/f/d.ttf");
  openFolder();
  EXPECT_EQ(loaded(), Paths{"/f/.c.ttf"}) << "hidden files are loaded";
}

TEST_F(Scan, StaysInTheFolderUnlessItIsRecursive) {
  world.file("/f/a.ttf", namedFont(u"A")).file("/f/sub/b.ttf", namedFont(u"B"));
  openFolder();
  EXPECT_EQ(loaded(), Paths{"/f/a.ttf"});
}

TEST_F(Scan, SubfoldersFollowTheirParentDepthFirst) {
  for (const char* path : {"/f/z.ttf", "/f/s1/a.ttf", "/f/s1/t/b.ttf", "/f/s2/c.ttf", "/g/d.ttf"}) {
    world.file(path, namedFont(u"N"));
  }
  open("<font-folder path=\"/f\" recursive=\"yes\"/><font-folder path=\"/g\"/>");
  EXPECT_EQ(loaded(),
            (Paths{"/f/z.ttf", "/f/s1/a.ttf", "/f/s1/t/b.ttf", "/f/s2/c.ttf", "/g/d.ttf"}));
}

TEST_F(Scan, HiddenAndSystemSubfoldersArePassedOver) {
  world.file("/f/.h/a.ttf", namedFont(u"A")).hidden("/f/.h");
  world.file("/f/s/b.ttf", namedFont(u"B")).system("/f/s");
  openRecursive();
  EXPECT_TRUE(loaded().empty());
}

TEST_F(Scan, ASubfolderThatIsNamedKeepsItsOwnRule) {
  world.file("/f/s/a.ttf", namedFont(u"A")).file("/f/s/t/b.ttf", namedFont(u"B"));
  open("<font-folder path=\"/f\" recursive=\"yes\"/><font-folder path=\"/f/s\"/>");
  EXPECT_EQ(loaded(), Paths{"/f/s/a.ttf"}) << "it was named as not recursive";
}

TEST_F(Scan, LinksInCirclesEnd) {
  world.file("/f/s/a.ttf", namedFont(u"A")).link("/f/s/up", "/f").link("/f/s/self", "/f/s");
  openRecursive();
  EXPECT_EQ(loaded(), Paths{"/f/s/a.ttf"});
}

TEST_F(Scan, ALinkToAnotherFolderIsFollowed) {
  world.file("/other/a.ttf", namedFont(u"A")).folder("/f").link("/f/link", "/other");
  openRecursive();
  EXPECT_EQ(loaded(), Paths{"/f/link/a.ttf"});
}

TEST_F(Scan, ExcludedFilesAreNotLoaded) {
  world.file("/f/A.ttf", namedFont(u"A")).file("/f/b.ttf", namedFont(u"B"));
  openFolder("<font-exclude file=\"a.TTF\"/>");
  EXPECT_EQ(loaded(), Paths{"/f/b.ttf"});
}

TEST_F(Scan, OptionsDoNotPassDown) {
  world.file("/f/s/a.ttf", namedFont(u"A"));
  open("<font-folder path=\"/f\" recursive=\"yes\"><font-exclude file=\"a.ttf\"/></font-folder>");
  EXPECT_EQ(loaded(), Paths{"/f/s/a.ttf"});
}

TEST_F(Scan, AMissingOrUnreadableFolderScansToNothing) {
  world.file("/f/a.ttf", namedFont(u"A")).unreadable("/f");
  open("<font-folder path=\"/f\"/><font-folder path=\"/missing\"/>");
  EXPECT_TRUE(loaded().empty());
  EXPECT_TRUE(errors().empty());
}

TEST_F(Scan, ADamagedFontIsCollectedAndTheOthersServe) {
  world.file("/f/a.ttf", "short").file("/f/b.ttf", namedFont(u"B"));
  world.file("/f/c.ttf", "not a font, but long enough to have a directory of its own. ....");
  world.file("/f/d.ttf", namedFont(u"D")).unreadable("/f/d.ttf");
  openFolder();
  EXPECT_EQ(loaded(), Paths{"/f/b.ttf"});
  EXPECT_EQ(errors(),
            (std::vector<std::string>{"Font read error: Offset table read error\n/f/a.ttf",
                                      "Font read error: Table directory read error\n/f/c.ttf"}))
      << "a file that cannot be opened is passed over in silence";
}

TEST_F(Scan, AFontThatIsNotOneOfOursIsDroppedInSilence) {
  std::string bytes = namedFont(u"A");
  bytes[0] = 'x';
  world.file("/f/a.ttf", bytes);
  openFolder();
  EXPECT_TRUE(loaded().empty());
  EXPECT_TRUE(errors().empty());
}

TEST_F(Scan, ClosesEveryFile) {
  world.file("/f/a.ttf", namedFont(u"A")).file("/f/b.ttf", "broken");
  openFolder();
  EXPECT_EQ(world.openStreams(), 0u);
}

TEST_F(Scan, FilesAreFoundByNameWithAndWithoutExtension) {
  world.file("/f/Arial.TTF", namedFont(u"Some Family")).file("/f/a.b.ttf", namedFont(u"Other"));
  openFolder();
  for (const char16_t* name : {u"arial", u"ARIAL.ttf", u"some family", u"SomeFamily",
                               u"some-family", u"SOME\u3000FAMILY"}) {
    EXPECT_EQ(fileOf(name), "/f/Arial.TTF") << icu::UnicodeString(name).length();
  }
  EXPECT_EQ(fileOf(u"a.b"), "/f/a.b.ttf");
  EXPECT_EQ(fileOf(u"a"), "");
  EXPECT_EQ(fileOf(u"ari al"), "") << "file names are compared as they are";
  EXPECT_EQ(fileOf(u"@Some Family"), "");
  EXPECT_EQ(fileOf(u""), "");
}

TEST_F(Scan, FullAndPostScriptNamesAreFamiliesToo) {
  world.file("/f/x.ttf", namedFont(u"Fam"));
  openFolder();
  EXPECT_EQ(fileOf(u"Fam Regular"), "/f/x.ttf");
  EXPECT_EQ(fileOf(u"Fam-Regular"), "/f/x.ttf");
}

TEST_F(Scan, TheFirstFontOfAStyleWins) {
  world.file("/f/1.ttf", namedFont(u"Fam")).file("/f/2.ttf", namedFont(u"Fam"));
  world.file("/f/3.ttf", namedFont(u"Fam", {700, false, 5}));
  openFolder();
  EXPECT_EQ(fileOf(u"Fam"), "/f/1.ttf");
  EXPECT_EQ(fileOf(u"Fam", 700), "/f/3.ttf");
  EXPECT_EQ(loaded().size(), 3u);
}

TEST_F(Scan, FilesOfOneNameShareTheirFamily) {
  world.file("/f/arial.otf", namedFont(u"A"))
      .file("/f/arial.ttf", namedFont(u"B", {700, false, 5}));
  openFolder();
  EXPECT_EQ(fileOf(u"arial", 400), "/f/arial.otf");
  EXPECT_EQ(fileOf(u"arial", 700), "/f/arial.ttf");
}

TEST_F(Scan, AliasesGiveFurtherNames) {
  world.file("/f/a.ttf", namedFont(u"Fam", {700, false, 5}));
  openFolder(
      "<font-alias file=\"A.ttf\"><alias family-name=\"Nick Name\" weight=\"300\"/>"
      "<alias family-name=\"Other\" italic=\"yes\" stretch=\"condensed\"/></font-alias>");
  EXPECT_EQ(fileOf(u"nickname", 300), "/f/a.ttf");
  EXPECT_EQ(fileOf(u"nickname", 900), "/f/a.ttf") << "one style of an alias answers all";
  bool fromAlias = false;
  registry->findFont(u"Other", makeFontKey(400, true, 3), &fromAlias);
  EXPECT_TRUE(fromAlias);
  fromAlias = false;
  registry->findFont(u"Fam", makeFontKey(400, false, 5), &fromAlias);
  EXPECT_FALSE(fromAlias);
}

TEST_F(Scan, OnlyAHitAmongTheAliasesWritesTheFlag) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  openFolder("<font-alias file=\"a.ttf\"><alias family-name=\"Nick\"/></font-alias>");
  bool fromAlias = true;
  EXPECT_NE(registry->findFont(u"Fam", {}, &fromAlias).font, nullptr);
  EXPECT_TRUE(fromAlias);
  EXPECT_EQ(registry->findFont(u"None", {}, &fromAlias).font, nullptr);
  EXPECT_TRUE(fromAlias);
  EXPECT_NE(registry->findFont(u"Nick", {}, nullptr).font, nullptr);
}

TEST_F(Scan, AnAliasHidesTheFamilyOfItsName) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"Real", {700, false, 5}));
  openFolder("<font-alias file=\"a.ttf\"><alias family-name=\"Real\"/></font-alias>");
  EXPECT_EQ(fileOf(u"Real", 700), "/f/a.ttf");
  EXPECT_EQ(fileOf(u"Real", 400, true), "/f/a.ttf") << "for each style, since all are filled";
}

TEST_F(Scan, AnAliasIsResolvedWhenItsFolderWasListed) {
  world.file("/f/s/a.ttf", namedFont(u"Sub")).file("/e/b.ttf", namedFont(u"Early"));
  open(
      "<font-folder path=\"/e\"/><font-folder path=\"/f\" recursive=\"yes\">"
      "<font-alias file=\"a.ttf\"><alias family-name=\"Late\"/></font-alias>"
      "<font-alias file=\"b.ttf\"><alias family-name=\"Caught\"/></font-alias></font-folder>");
  EXPECT_EQ(fileOf(u"Late"), "") << "subfolders are scanned later";
  EXPECT_EQ(fileOf(u"Caught"), "/e/b.ttf") << "a file of that name from an earlier folder serves";
}

TEST_F(Scan, FoldersAddedLaterAreLoadedOnceAndFlat) {
  world.file("/g/a.ttf", namedFont(u"Added")).file("/g/b.woff", "web").file("/g/s/c.ttf", "x");
  world.file("/g/d.txt", "text").folder("/f");
  openFolder();
  const QXUri folder(u"/g", QXCommonNS::URISTR_USER);
  EXPECT_EQ(registry->addFontFolderPath(folder), 2) << "a web font counts, and is in no pool";
  EXPECT_EQ(loaded(), Paths{"/g/a.ttf"});
  EXPECT_EQ(fileOf(u"Added"), "/g/a.ttf");
  EXPECT_EQ(registry->addFontFolderPath(folder), 0);
  EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/G/", QXCommonNS::URISTR_USER)), 0);
  EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/f", QXCommonNS::URISTR_USER)), 0);
  EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/none", QXCommonNS::URISTR_USER)), 0);
}

TEST_F(Scan, EverythingThatIsNamedFontsButDamagedLeavesTheServiceStanding) {
  const std::string font = namedFont(u"Fam");
  for (std::size_t size = 0; size < font.size(); size += 7) {
    world.file("/f/cut" + std::to_string(size) + ".ttf", font.substr(0, size));
  }
  world.file("/f/whole.ttf", font);
  openFolder();
  EXPECT_EQ(fileOf(u"Fam").substr(0, 3), "/f/");
  EXPECT_EQ(world.openStreams(), 0u);
}

class SystemList : public qxtest::RegistryTest {
 protected:
  static constexpr const char* kFonts =
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts]\n";
  FS_FontRegistry& openListed(const std::string& elements = "<font-folder path=\"/f\"/>") {
    return openFile("<font-config windows-registry=\"enable\">" + elements + "</font-config>");
  }
};

TEST_F(SystemList, TakesAbsoluteFilesThatExist) {
  world.file("/w/a.ttf", namedFont(u"A")).file("/w/b.ttf", namedFont(u"B"));
  world.file("/w/c.txt", namedFont(u"C")).folder("/w/d.ttf");
  world.registry(std::string(kFonts) +
                 "\"A (TrueType)\"=\"/w/a.ttf\"\n\"B\"=multi:\"T\",\"/w/b.ttf\"\n"
                 "\"Bare\"=\"a.ttf\"\n\"Gone\"=\"/w/gone.ttf\"\n\"Text\"=\"/w/c.txt\"\n"
                 "\"Folder\"=\"/w/d.ttf\"\n\"Number\"=type 4:01 00 00 00\n");
  openListed();
  EXPECT_EQ(loaded(), (Paths{"/w/a.ttf", "/w/b.ttf"}));
  EXPECT_EQ(registry->mainPool().fonts()[0]->fontFlags(), 8u);
  EXPECT_TRUE(errors().empty());
}

TEST_F(SystemList, ValuesThatAreDamagedArePassedOver) {
  world.file("/w", namedFont(u"W")).file("/a.ttf", namedFont(u"A"));
  // Texts of no unit, of half a unit and without a closing zero; lists that end in their marker.
  world.registry(std::string(kFonts) +
                 "\"Empty\"=type 1:\n\"Half\"=type 1:2f\n\"Odd\"=type 1:2f 00 77 00 2e\n"
                 "\"Open\"=type 1:2f 00 61 00 2e 00 74 00 74 00 66 00\n"
                 "\"None\"=type 7:\n\"Short\"=type 7:54 00 00\n\"Marker\"=type 7:54 00 00 00\n"
                 "\"Expanded\"=type 2:2f 00 61 00 2e 00 74 00 74 00 66 00 00 00\n");
  openListed();
  EXPECT_EQ(loaded(), Paths{"/a.ttf"}) << "the one that lacks nothing but its closing zero";
  EXPECT_TRUE(errors().empty());
}

TEST_F(SystemList, AnExclusionOfTheFolderHolds) {
  world.file("/f/a.ttf", namedFont(u"A"));
  world.registry(std::string(kFonts) + "\"A\"=\"/f/A.ttf\"\n\"A2\"=\"/f/a.ttf\"\n");
  openListed("<font-folder path=\"/f\"><font-exclude file=\"a.ttf\"/></font-folder>");
  EXPECT_TRUE(loaded().empty());
}

TEST_F(SystemList, Type1FontsComeFromTheirOwnKey) {
  world.file("/w/a.ttf", namedFont(u"A"));
  world.registry(
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Type 1 "
      "Installer\\Type 1 Fonts]\n\"A\"=multi:\"T\",\"/w/a.ttf\",\"/w/a.pfb\"\n");
  openListed();
  EXPECT_EQ(loaded(), Paths{"/w/a.ttf"});
}

TEST_F(SystemList, AListedFolderIsKnownAndNotScanned) {
  world.file("/w/a.ttf", namedFont(u"A")).file("/w/b.ttf", namedFont(u"B"));
  world.registry(std::string(kFonts) + "\"A\"=\"/w/a.ttf\"\n");
  openListed();
  EXPECT_EQ(loaded(), Paths{"/w/a.ttf"});
  EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/w", QXCommonNS::URISTR_USER)), 0);
}

TEST_F(SystemList, IsNotReadWhenDisabled) {
  world.file("/w/a.ttf", namedFont(u"A"));
  world.registry(std::string(kFonts) + "\"A\"=\"/w/a.ttf\"\n");
  openFolder();
  EXPECT_TRUE(loaded().empty());
}

TEST_F(SystemList, WithoutARegistryThePlatformsFilesServe) {
  world.file("/w/a.ttf", namedFont(u"A")).file("/f/b.ttf", namedFont(u"B"));
  world.addSystemFontFile("/w/a.ttf").addSystemFontFile("/f/b.ttf").addSystemFontFile("/w/x.woff");
  openListed();
  EXPECT_EQ(loaded(), (Paths{"/f/b.ttf", "/w/a.ttf"}))
      << "the file of a folder that is scanned is not loaded twice";
}

TEST_F(SystemList, WithoutARegistryMetricFilesComeBehindAllOthers) {
  world.file("/w/a.afm", qxtest::AfmBuilder().glyph(65, 700, "A").build());
  world.file("/w/b.ttf", namedFont(u"B")).file("/w/c.PFB", "x");
  for (const char* file : {"/w/a.afm", "/w/b.ttf", "/w/c.PFB"}) world.addSystemFontFile(file);
  openListed();
  EXPECT_EQ(loaded(), (Paths{"/w/b.ttf", "/w/a.afm"})) << "they stand for a key of their own";
}

TEST_F(SystemList, WithoutARegistryAConfigurationHasToAskForIt) {
  world.file("/w/a.ttf", namedFont(u"A")).addSystemFontFile("/w/a.ttf");
  openFile("<font-config><font-folder path=\"/f\"/></font-config>");
  EXPECT_TRUE(loaded().empty());
}

TEST_F(SystemList, WithoutAConfigurationItServes) {
  world.file("/w/a.ttf", namedFont(u"A")).addSystemFontFile("/w/a.ttf");
  world.folder("/usr/share/fonts").addFontFolderCandidate("/usr/share/fonts/");
  registry = FS_FontRegistry::open(nullptr, nullptr);
  EXPECT_EQ(loaded(), Paths{"/w/a.ttf"});
}

}  // namespace
}  // namespace QXFontService_NS
