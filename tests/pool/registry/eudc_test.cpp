#include <gtest/gtest.h>

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "pool/registry/registry_fixture.h"
#include "pool/system/system_eudc.h"
#include "support/sample_open_type.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::NameBuilder;
using qxtest::namedFont;
using qxtest::sampleFont;

class Eudc : public qxtest::RegistryTest {
 protected:
  static std::string mapping(const std::string& children) {
    return "<font-folder path=\"/f\"/><eudc-processing>" + children + "</eudc-processing>";
  }
  static std::string link(const std::string& family, const std::string& file) {
    return "<eudc-map family-name=\"" + family + "\" file-path=\"" + file + "\"/>";
  }
  bool isEudc(int code) const { return registry->settings().eudcSet.contains(code); }
  FS_FontRef faceOf(const icu::UnicodeString& name, int weight = 400) const {
    return registry->findFont(name, makeFontKey(weight, false, 5), nullptr);
  }
  const FS_BaseFont& fontOf(const icu::UnicodeString& name) const { return *faceOf(name).font; }
  /// The PostScript name of the font that a face is linked to; empty without a link.
  icu::UnicodeString linked(const icu::UnicodeString& name, int weight = 400) const {
    const FS_FontRef face = faceOf(name, weight);
    const FS_FontRef link = face.font->getEudcFont(face.entry);
    return link.font == nullptr ? icu::UnicodeString()
                                : link.font->getPostScriptName(QXLang::LANGID_DEFAULT, 0);
  }
};

TEST_F(Eudc, ADefaultIsLoadedTwiceUnderMadeUpNames) {
  world.file("/e/Gaiji.TTE", namedFont(u"Gaiji"));
  open(
      "<font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-system-default file-path=\"/e/Gaiji.TTE\"/></eudc-processing>");
  const FS_FontRef horizontal = registry->services().eudcDefault(false);
  const FS_FontRef vertical = registry->services().eudcDefault(true);
  ASSERT_NE(horizontal.font, nullptr);
  ASSERT_NE(vertical.font, nullptr);
  EXPECT_NE(horizontal.font, vertical.font);
  EXPECT_FALSE(horizontal.font->hasVerticalGlyph(0));
  EXPECT_TRUE(vertical.font->hasVerticalGlyph(0));
  EXPECT_EQ(&fontOf(u"Gaiji-Regular"), horizontal.font);
  EXPECT_EQ(&fontOf(u"VGaiji-Regular"), vertical.font);
  EXPECT_EQ(fileOf(u"Gaiji"), "") << "its own names are no keys";
  EXPECT_EQ(fileOf(u"gaiji.tte"), "");
  EXPECT_EQ(horizontal.font->fontFlags(), 16u);
}

TEST_F(Eudc, ADamagedDefaultIsCollected) {
  world.file("/e/g.ttf", qxtest::sampleFont().without("cmap").build());
  open(
      "<font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-system-default file-path=\"/e/g.ttf\"/></eudc-processing>");
  EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr);
  EXPECT_EQ(registry->services().eudcDefault(true).font, nullptr);
  EXPECT_EQ(errors(),
            std::vector<std::string>{"Font file error: 'cmap' table not found\n/e/g.ttf"});
  EXPECT_EQ(loaded(), (std::vector<std::string>{"/e/g.ttf", "/e/g.ttf"}))
      << "the second one is tried all the same, and both stay";
  EXPECT_EQ(fileOf(u"QX Sample-Regular"), "");
}

/// A world in which opening one file fails at a given time, counted from 1.
class ForgetfulWorld final : public qxtest::MemoryPlatform {
 public:
  std::unique_ptr<std::istream> openFile(const std::string& path) override {
    if (path == forgotten && ++openings == failing) return nullptr;
    return MemoryPlatform::openFile(path);
  }

  std::string forgotten;
  int failing = 0;
  int openings = 0;
};

class EudcDefault : public Eudc {
 protected:
  /// Opens with a default whose file fails at an opening: found, loaded, found again, loaded.
  void openFailing(int failing) {
    forgetful.file("/e/g.ttf", namedFont(u"G")).file("/etc/qx/font-config.xml", kXml);
    forgetful.setEnvironment(kVariable, "/etc/qx/font-config.xml");
    forgetful.forgotten = "/e/g.ttf";
    forgetful.failing = failing;
    QXCommonNS::setPlatformForTests(&forgetful);
    registry = FS_FontRegistry::open(kVariable, nullptr);
  }
  [[nodiscard]] bool hasDefault(bool vertical) const {
    return registry->services().eudcDefault(vertical).font != nullptr;
  }

  static constexpr const char* kXml =
      "<font-config windows-registry=\"disable\"><font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-system-default file-path=\"/e/g.ttf\"/></eudc-processing></font-config>";
  ForgetfulWorld forgetful;
};

TEST_F(EudcDefault, AFileThatIsNotFoundTwiceGivesWhatTheFirstTimeGave) {
  openFailing(3);
  EXPECT_TRUE(hasDefault(false));
  EXPECT_FALSE(hasDefault(true));
  EXPECT_EQ(loaded().size(), 1u);
  EXPECT_TRUE(errors().empty());
}

TEST_F(EudcDefault, TheVerticalOneIsTriedThoughTheHorizontalOneDoesNotLoad) {
  openFailing(2);
  EXPECT_FALSE(hasDefault(false));
  EXPECT_TRUE(hasDefault(true));
  EXPECT_EQ(loaded().size(), 2u) << "the first one stays in the list alone";
  EXPECT_EQ(fileOf(u"G-Regular"), "");
  EXPECT_EQ(fileOf(u"VG-Regular"), "/e/g.ttf");
  EXPECT_EQ(errors().size(), 1u) << "one record for both";
}

TEST_F(EudcDefault, AFailureOfTheVerticalOneIsCollectedOnce) {
  openFailing(4);
  EXPECT_TRUE(hasDefault(false));
  EXPECT_FALSE(hasDefault(true));
  EXPECT_EQ(errors().size(), 1u);
}

TEST_F(Eudc, AnExcludedDefaultIsNotLoaded) {
  world.file("/e/g.ttf", namedFont(u"G"));
  open(
      "<font-folder path=\"/e\"><font-exclude file=\"G.TTF\"/></font-folder><eudc-processing>"
      "<eudc-system-default file-path=\"/e/g.ttf\"/></eudc-processing>");
  EXPECT_TRUE(loaded().empty());
  EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr);
}

TEST_F(Eudc, TheFolderOfALinkedFontIsKnownAndNotScanned) {
  world.file("/e/g.ttf", namedFont(u"G")).file("/e/h.ttf", namedFont(u"H"));
  open(mapping(link("None", "/e/g.ttf")));
  EXPECT_EQ(loaded(), std::vector<std::string>{"/e/g.ttf"});
  EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/e", QXCommonNS::URISTR_USER)), 0);
}

TEST_F(Eudc, FilesOfOtherKindsAreIgnored) {
  const char* files[] = {"/e/g.ttc", "/e/g.woff", "/e/g.dfont", "/e/g.afm", "/e/g.pfm"};
  for (const char* file : files) world.file(file, namedFont(u"G"));
  for (const char* file : {files[0], files[1], files[2], files[3], files[4], "/e/missing.ttf"}) {
    open("<font-folder path=\"/f\"/><eudc-processing><eudc-system-default file-path=\"" +
         std::string(file) + "\"/></eudc-processing>");
    EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr) << file;
    EXPECT_TRUE(errors().empty()) << file;
    resetServiceForTests();
    QXCommonNS::setPlatformForTests(&world);
  }
}

TEST_F(Eudc, OpenTypeFontsAreTakenToo) {
  world.file("/e/g.otf", qxtest::sampleOpenType(qxtest::sampleCff()).build());
  open(mapping("<eudc-system-default file-path=\"/e/g.otf\"/>"));
  const FS_FontRef font = registry->services().eudcDefault(false);
  ASSERT_NE(font.font, nullptr);
  EXPECT_EQ(font.font->getFontFileType(0), FS_FILETYPE_OPENTYPE);
}

TEST_F(Eudc, AnExcludedDefaultIsPassedOverInSilence) {
  world.file("/e/g.ttf", namedFont(u"Gaiji"));
  open("<font-folder path=\"/e\"><font-exclude file=\"g.ttf\"/></font-folder>" +
       mapping("<eudc-system-default file-path=\"/e/g.ttf\"/>"));
  EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr);
  EXPECT_TRUE(loaded().empty() && errors().empty());
}

TEST_F(Eudc, AFamilyIsLinkedByItsFirstFaceAlone) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"Fam", {700, false, 5}));
  world.file("/e/g.ttf", namedFont(u"Gaiji"));
  open(
      "<font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-map family-name=\"Fam\" file-path=\"/e/g.ttf\"/></eudc-processing>");
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString("Fam-RegularGaiji-Regular"));
  EXPECT_EQ(
      registry->findFont(u"Fam", makeFontKey(700, false, 5), nullptr).font->getEudcFont(0).font,
      nullptr);
  EXPECT_EQ(fileOf(u"Fam-RegularGaiji-Regular"), "/e/g.ttf");
}

TEST_F(Eudc, MadeUpNamesAreCounted) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"Fem"));
  world.file("/e/g.ttf", namedFont(u"G")).file("/e/h.ttf", namedFont(u"G"));
  open(
      "<font-folder path=\"/f\"><font-alias file=\"a.ttf\"><alias family-name=\"Nick\"/>"
      "</font-alias></font-folder><eudc-processing>"
      "<eudc-map family-name=\"Fam\" file-path=\"/e/g.ttf\"/>"
      "<eudc-map family-name=\"Nick\" file-path=\"/e/h.ttf\"/></eudc-processing>");
  EXPECT_EQ(fileOf(u"Fam-RegularG-Regular"), "/e/g.ttf");
  EXPECT_EQ(fileOf(u"Fam-RegularG-Regular0"), "/e/h.ttf") << "an alias leads to the family behind";
}

TEST_F(Eudc, AFontForNoFamilyStaysLoadedAndUnused) {
  world.file("/e/g.ttf", namedFont(u"Gaiji"));
  open(
      "<font-folder path=\"/f\"/><eudc-processing>"
      "<eudc-map family-name=\"None\" file-path=\"/e/g.ttf\"/></eudc-processing>");
  EXPECT_EQ(loaded(), std::vector<std::string>{"/e/g.ttf"});
  EXPECT_EQ(fileOf(u"Gaiji-Regular"), "");
}

TEST_F(Eudc, AnExcludedFileIsNotLinked) {
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/e/g.ttf", namedFont(u"Gaiji"));
  open(
      "<font-folder path=\"/f\"/><font-folder path=\"/e\"><font-exclude file=\"g.ttf\"/>"
      "</font-folder><eudc-processing>"
      "<eudc-map family-name=\"Fam\" file-path=\"/e/g.ttf\"/></eudc-processing>");
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString());
}

TEST_F(Eudc, TheRegistryGivesWhatIsNotConfigured) {
  world.setKnownFolder(QXCommonNS::KnownFolder::fonts, "/w");
  world.file("/w/arial.ttf", namedFont(u"Arial")).file("/w/d.tte", namedFont(u"D"));
  world.file("/w/m.tte", namedFont(u"M")).file("/f/a.ttf", namedFont(u"Fam"));
  world.registry(
      "[HKEY_CURRENT_USER\\EUDC\\932]\n\"SystemDefaultEUDCFont\"=\"d.tte\"\n\"Fam\"=\"m.tte\"\n"
      "[HKEY_CURRENT_USER\\EUDC\\950]\n\"Fam\"=\"other.tte\"\n"
      "[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\NLS\\CodePage\\EUDCCodeRange]\n"
      "\"Unicode\"=\"E100-E1FF,bad,E300\"\n");
  openFile("<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
  EXPECT_TRUE(isEudc(0xE100) && isEudc(0xE1FF));
  EXPECT_FALSE(isEudc(0xE000) || isEudc(0xE300));
  ASSERT_NE(registry->services().eudcDefault(false).font, nullptr);
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString("Fam-RegularM-Regular"))
      << "the first code page that has the family";
}

TEST_F(Eudc, TheRegistryIsAskedForFamiliesInFourCodePagesInOrder) {
  const std::string pages[] = {"932", "936", "949", "950"};
  world.setKnownFolder(QXCommonNS::KnownFolder::fonts, "/w").file("/f/a.ttf", namedFont(u"Fam"));
  std::string text;
  for (std::size_t i = 4; i-- != 0;) {  // each page is added before those that come behind it
    const std::string file = "p" + pages[i] + ".tte";
    text += "[HKEY_CURRENT_USER\\EUDC\\" + pages[i] + "]\n\"Fam\"=\"" + file + "\"\n";
    world.file("/w/" + file, namedFont(u"G")).registry(text);
    openFile("<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
    const QXUri linkedFile = registry->settings().eudcMap.at(u"Fam");
    std::string path;
    EXPECT_EQ(linkedFile.getLocalPath(false).toUTF8String(path), "/w/" + file);
    EXPECT_EQ(linked(u"Fam"), icu::UnicodeString(u"Fam-RegularG-Regular"));
    resetRegistry();
  }
}

TEST_F(Eudc, ValuesThatAreNoTextAndTheDefaultsNameAreNoFamilies) {
  world.setKnownFolder(QXCommonNS::KnownFolder::fonts, "/w").file("/w/g.tte", namedFont(u"G"));
  world.file("/f/a.ttf", namedFont(u"Fam")).file("/f/b.ttf", namedFont(u"SystemDefaultEudcFont"));
  world.registry(
      "[HKEY_CURRENT_USER\\EUDC\\949]\n\"Fam\"=type 3:67 00 00 00\n"
      "\"systemdefaulteudcfont\"=\"g.tte\"\n");
  openFile("<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
  EXPECT_TRUE(registry->settings().eudcMap.empty());
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString());
  EXPECT_EQ(linked(u"SystemDefaultEudcFont"), icu::UnicodeString());
}

TEST_F(Eudc, TheRegistrysDefaultIsThatOfTheLocalesCodePage) {
  world.setKnownFolder(QXCommonNS::KnownFolder::fonts, "/w");
  world.file("/w/j.tte", namedFont(u"J")).file("/w/c.tte", namedFont(u"C"));
  world.setLocaleName("zh_CN").registry(
      "[HKEY_CURRENT_USER\\EUDC\\932]\n\"SystemDefaultEUDCFont\"=\"j.tte\"\n"
      "[HKEY_CURRENT_USER\\EUDC\\936]\n\"SystemDefaultEUDCFont\"=\"c.tte\"\n");
  openFile("<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
  EXPECT_EQ(fileOf(u"C-Regular"), "/w/c.tte");
  EXPECT_EQ(fileOf(u"J-Regular"), "");
}

TEST_F(Eudc, ThePrefixIsTheNameOfTheFontsFirstFaceThoughAnotherOneIsLinked) {
  qxtest::TtcBuilder members;
  for (const char16_t* name : {u"Zero", u"Fam"}) {
    members.member(sampleFont().table("name", NameBuilder().latin(name).build()));
  }
  world.file("/f/two.ttc", members.build()).file("/e/g.ttf", namedFont(u"G"));
  open(mapping(link("Fam", "/e/g.ttf")));
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString(u"Zero-RegularG-Regular"));
  EXPECT_EQ(linked(u"Zero"), icu::UnicodeString());
}

TEST_F(Eudc, TheLookupFillsTheFamilyAndItsFirstEntryIsLinked) {
  world.file("/f/b.ttf", namedFont(u"Fam", {700, false, 5}));
  world.file("/f/l.ttf", namedFont(u"Fam", {200, false, 5})).file("/e/g.ttf", namedFont(u"G"));
  open(mapping(link("Fam", "/e/g.ttf")));
  EXPECT_EQ(linked(u"Fam", 100), icu::UnicodeString(u"Fam-RegularG-Regular"));
  EXPECT_EQ(linked(u"Fam", 700), icu::UnicodeString());
  std::string path;
  EXPECT_EQ(faceOf(u"Fam", 100).font->fileUri().getLocalPath(false).toUTF8String(path), "/f/l.ttf");
}

TEST_F(Eudc, FamiliesAreLinkedInTheOrderOfTheirNamesAsWritten) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  world.file("/e/g.ttf", namedFont(u"G")).file("/e/h.ttf", namedFont(u"H"));
  open(mapping(link("fam", "/e/h.ttf") + link("Fam", "/e/g.ttf")));
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString(u"Fam-RegularH-Regular")) << "\"fam\" comes last";
  EXPECT_EQ(fileOf(u"Fam-RegularG-Regular"), "/e/g.ttf") << "the first one lost its link alone";
}

TEST_F(Eudc, APostScriptNameOf00GivesWayToTheFamily) {
  const auto name = NameBuilder().windows(1, u"Gaiji").windows(4, u"Gaiji").windows(6, u"00");
  world.file("/e/g.ttf", sampleFont().table("name", name.build()).build());
  open(mapping("<eudc-system-default file-path=\"/e/g.ttf\"/>"));
  EXPECT_EQ(fileOf(u"Gaiji"), "/e/g.ttf");
  EXPECT_EQ(faceOf(u"VGaiji").font, registry->services().eudcDefault(true).font);
}

TEST_F(Eudc, ALinkedFontIsNotOpened) {
  world.file("/f/a.ttf", namedFont(u"Fam"));
  world.file("/e/g.ttf",
             sampleFont().without("cmap").table("name", NameBuilder().latin(u"G").build()).build());
  open(mapping(link("Fam", "/e/g.ttf")));
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString(u"Fam-RegularG-Regular"));
  EXPECT_TRUE(errors().empty());
}

TEST_F(Eudc, WhatIsConfiguredComesBeforeTheRegistry) {
  world.setKnownFolder(QXCommonNS::KnownFolder::fonts, "/w");
  world.file("/w/d.tte", namedFont(u"D")).file("/w/m.tte", namedFont(u"M"));
  world.file("/e/c.ttf", namedFont(u"C")).file("/e/n.ttf", namedFont(u"N"));
  world.file("/f/a.ttf", namedFont(u"Fam"));
  world.registry(
      "[HKEY_CURRENT_USER\\EUDC\\932]\n\"SystemDefaultEUDCFont\"=\"d.tte\"\n\"Fam\"=\"m.tte\"\n"
      "[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\NLS\\CodePage\\EUDCCodeRange]\n"
      "\"Unicode\"=\"E100-E1FF\"\n");
  openFile("<font-config windows-registry=\"enable\">" +
           mapping("<eudc-range start=\"300\"/><eudc-system-default file-path=\"/e/c.ttf\"/>" +
                   link("Fam", "/e/n.ttf")) +
           "</font-config>");
  EXPECT_TRUE(isEudc(300));
  EXPECT_FALSE(isEudc(0xE100) || isEudc(0xE000));
  EXPECT_EQ(fileOf(u"C-Regular"), "/e/c.ttf");
  EXPECT_EQ(fileOf(u"D-Regular"), "");
  EXPECT_EQ(linked(u"Fam"), icu::UnicodeString(u"Fam-RegularN-Regular"));
}

TEST_F(Eudc, WithoutTheSystemsListTheRegistryIsNotAsked) {
  world.file("/w/d.tte", namedFont(u"D"));
  world.registry("[HKEY_CURRENT_USER\\EUDC\\932]\n\"SystemDefaultEUDCFont\"=\"/w/d.tte\"\n");
  open("<font-folder path=\"/f\"/>");
  EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr);
}

TEST_F(Eudc, TheRegistrysDefaultMustBeAnAbsoluteExistingFile) {
  for (const char* value : {"none.tte", "/w/none.tte", "/w"}) {
    world.folder("/w");
    world.registry("[HKEY_CURRENT_USER\\EUDC\\932]\n\"SystemDefaultEUDCFont\"=\"" +
                   std::string(value) + "\"\n");
    openFile("<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
    EXPECT_TRUE(registry->settings().eudcSystemDefault.isEmpty()) << value;
    resetRegistry();
  }
}

TEST_F(Eudc, ARegistryRangeWithoutAnyPairLeavesThePrivateUseArea) {
  for (const char* value : {"", "E100", "-E100", ",E100-E1FF"}) {
    world.registry(
        "[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\NLS\\CodePage\\EUDCCodeRange]\n"
        "\"Unicode\"=\"" +
        std::string(value) + "\"\n");
    openFile("<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
    EXPECT_TRUE(isEudc(0xE000) && isEudc(0xF8FF)) << value;
    EXPECT_FALSE(isEudc(0)) << value;
    resetRegistry();
  }
}

TEST_F(Eudc, TheCodePageFollowsTheLocale) {
  const struct {
    const char* locale;
    const char* codePage;
  } rows[] = {{"zh_TW", "950"}, {"ko", "949"},    {"ko_KR", "932"}, {"zh_CN", "936"},
              {"ja_JP", "932"}, {"en_US", "932"}, {"", "932"}};
  for (const auto& row : rows) {
    world.setLocaleName(row.locale);
    EXPECT_STREQ(eudcCodePage(), row.codePage) << row.locale;
  }
}

TEST(EudcRanges, AreHexadecimalPairs) {
  struct Case {
    const char16_t* text;
    int in, out;
  };
  for (const Case& c :
       {Case{u"E000-E0FF", 0xE0FF, 0xE100}, Case{u"e000-e001,E010-E011", 0xE011, 0xE012},
        Case{u"E005-E001", 0xE005, 0xE004}, Case{u"E000-FFFFFFFFFF", 0xFFFF, 0xDFFF},
        Case{u"E000-E001,,E010-E011", 0xE001, 0xE010}, Case{u"E000,E002-E003", 0xE002, 0xE000},
        Case{u" E000-E001", 0xE000, 0xDFFF}, Case{u"0xE000-0XE001", 0xE001, 0xE002},
        Case{u"+E000-+E001", 0xE001, 0xE002}, Case{u"E000-", 0xE000, 0},
        Case{u"E000-x,E010-E011z", 0xE010, 0xE001}, Case{u"-5-3", 3, 4},
        Case{u"0x-1,E000-E000", 0xE000, 0}, Case{u"E000-E000,10000-10005", 0xE000, 0}}) {
    EudcSet set;
    EXPECT_TRUE(addEudcRanges(c.text, set));
    EXPECT_TRUE(set.contains(c.in)) << c.in;
    EXPECT_FALSE(set.contains(c.out)) << c.out;
  }
}

TEST(EudcRanges, WithoutAPairThereIsNone) {
  for (const char16_t* text : {u"", u"E000", u"-E000", u"x", u"E000 -E001", u",E000-E001"}) {
    EudcSet set;
    EXPECT_FALSE(addEudcRanges(text, set));
  }
}

}  // namespace
}  // namespace QXFontService_NS
