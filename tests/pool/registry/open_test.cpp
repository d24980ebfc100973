#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/registry/registry_fixture.h"
#include "pool/system/system_eudc.h"

namespace QXFontService_NS {
namespace {

using qxtest::namedFont;

class Open : public qxtest::RegistryTest {
 protected:
  /// The code with which opening fails; 0 when it does not.
  int failure(const char* variable) {
    try {
      registry = FS_FontRegistry::open(variable, nullptr);
      return 0;
    } catch (const QXError& error) {
      return error.getErrorCode();
    }
  }
  bool isEudc(int code) const { return registry->settings().eudcSet.contains(code); }
};

TEST_F(Open, ASecondOpenFindsTheFirst) {
  world.file("/f/a.ttf", namedFont(u"A"));
  FS_FontRegistry& first = openFolder();
  world.file("/g/b.ttf", namedFont(u"B"));
  EXPECT_EQ(&open("<font-folder path=\"/g\"/>"), &first);
  EXPECT_EQ(fileOf(u"B"), "");
}

TEST_F(Open, AFailedOpenLeavesARegistryThatStandsHalfBuilt) {
  world.file("/f/a.ttf", namedFont(u"A"));
  world.file("/etc/qx/font-config.xml",
             "<font-config windows-registry=\"disable\"><font-folder path=\"/f\"/><oops/>"
             "</font-config>");
  EXPECT_EQ(failure(kVariable), 1028);
  EXPECT_EQ(failure(kVariable), 0) << "the next caller goes on with it";
  EXPECT_EQ(registry->folders().size(), 1u) << "what was read so far stays";
  EXPECT_TRUE(loaded().empty()) << "but was never scanned";
  EXPECT_FALSE(isEudc(0xE000));
  EXPECT_TRUE(errors().empty()) << "what was thrown is not collected too";
}

TEST_F(Open, CollectedErrorsStayInOrder) {
  world.file("/f/a.ttf", "x");
  open("<font-folder path=\"rel\"/><font-folder path=\"/f\"/><font-folder path=\"/f\"/>");
  EXPECT_EQ(errors(),
            (std::vector<std::string>{
                "Relative path is not allowed: <font-folder path=\"rel\"> in "
                "/etc/qx/font-config.xml",
                "Already registered value: <font-folder path=\"/f\"> in /etc/qx/font-config.xml",
                "Font read error: Offset table read error\n/f/a.ttf"}));
}

TEST_F(Open, IntoAnObjectReadsTheConfigurationAlone) {
  world.file("/f/a.ttf", namedFont(u"A"));
  world.file("/etc/qx/font-config.xml",
             "<font-config><font-folder path=\"rel\"/><font-folder path=\"/f\"/></font-config>");
  FS_FontRegistry own;
  EXPECT_EQ(FS_FontRegistry::open(kVariable, &own), &own);
  EXPECT_EQ(own.folders().size(), 1u);
  EXPECT_TRUE(own.mainPool().fonts().empty());
  EXPECT_TRUE(own.errors().empty()) << "without a service collected errors are dropped";
  EXPECT_EQ(FS_FontRegistry::current(), nullptr);
}

TEST_F(Open, IntoAnObjectKeepsWhatIsThrownThere) {
  world.file("/etc/qx/font-config.xml", "<font-config/>");
  FS_FontRegistry own;
  EXPECT_EQ(FS_FontRegistry::open(kVariable, &own), nullptr);
  ASSERT_EQ(own.errors().size(), 1u);
  EXPECT_EQ(own.errors()[0].getErrorCode(), 1027);
}

TEST_F(Open, CollectedErrorsOfAnObjectGoToTheService) {
  openFolder();
  world.file("/etc/qx/font-config.xml",
             "<font-config><font-folder path=\"rel\"/><font-folder path=\"/f\"/></font-config>");
  FS_FontRegistry own;
  FS_FontRegistry::open(kVariable, &own);
  EXPECT_EQ(errors().size(), 1u);
}

TEST_F(Open, PrivateUseIsTheDefaultRange) {
  openFolder();
  EXPECT_TRUE(isEudc(0xE000) && isEudc(0xF8FF));
  EXPECT_FALSE(isEudc(0xDFFF) || isEudc(0xF900) || isEudc(-1) || isEudc(0x10E000));
}

TEST_F(Open, AConfiguredRangeReplacesTheDefault) {
  open("<font-folder path=\"/f\"/><eudc-processing><eudc-range start=\"300\"/></eudc-processing>");
  EXPECT_TRUE(isEudc(300));
  EXPECT_FALSE(isEudc(0xE000));
}

TEST_F(Open, WithoutMappingNothingIsEudc) {
  open(
      "<font-folder path=\"/f\"/><eudc-processing mapping=\"disable\"><eudc-range start=\"300\"/>"
      "</eudc-processing>");
  EXPECT_FALSE(isEudc(300) || isEudc(0xE000));
}

class Eudc : public Open {
 protected:
  const FS_BaseFont& fontOf(const icu::UnicodeString& name) const {
    return *registry->findFont(name, makeFontKey(400, false, 5), nullptr).font;
  }
  icu::UnicodeString linked(const icu::UnicodeString& name) const {
    const FS_FontRef link = fontOf(name).getEudcFont(0);
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
  EXPECT_EQ(errors(),
            std::vector<std::string>{"Font file error: 'cmap' table not found\n/e/g.ttf"});
}

TEST_F(Eudc, FilesOfOtherKindsAreIgnored) {
  world.file("/e/g.ttc", namedFont(u"G")).file("/e/g.woff", namedFont(u"G"));
  for (const char* file : {"/e/g.ttc", "/e/g.woff", "/e/missing.ttf"}) {
    open("<font-folder path=\"/f\"/><eudc-processing><eudc-system-default file-path=\"" +
         std::string(file) + "\"/></eudc-processing>");
    EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr) << file;
    EXPECT_TRUE(errors().empty()) << file;
    resetServiceForTests();
    QXCommonNS::setPlatformForTests(&world);
  }
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

TEST(EudcRanges, AreHexadecimalPairs) {
  struct Case {
    const char16_t* text;
    int in, out;
  };
  for (const Case& c :
       {Case{u"E000-E0FF", 0xE0FF, 0xE100}, Case{u"e000-e001,E010-E011", 0xE011, 0xE012},
        Case{u"E005-E001", 0xE005, 0xE004}, Case{u"E000-FFFFFFFFFF", 0xFFFF, 0xDFFF},
        Case{u"E000-E001,,E010-E011", 0xE001, 0xE010}, Case{u"E000,E002-E003", 0xE002, 0xE000},
        Case{u" E000-E001", 0xE000, 0xDFFF}}) {
    EudcSet set;
    addEudcRanges(c.text, set);
    EXPECT_TRUE(set.contains(c.in)) << c.in;
    EXPECT_FALSE(set.contains(c.out)) << c.out;
  }
}

}  // namespace
}  // namespace QXFontService_NS
