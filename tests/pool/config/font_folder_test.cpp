#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/config/config_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::ConfigOutcome;
using qxtest::inFile;
using Messages = std::vector<std::string>;

class ConfigFolder : public qxtest::ConfigTest {};

TEST_F(ConfigFolder, PathsAreTrimmedAndKnownBeforeTheirChildren) {
  const ConfigOutcome outcome = read(
      "<font-config><font-folder path=\"  /f  \"><font-exclude file=\"x/y\"/>"
      "</font-folder></font-config>");
  EXPECT_EQ(outcome.collected,
            Messages{inFile("Font file must be base file name: <font-exclude file=\"x/y\">")});
  EXPECT_EQ(outcome.thrown, 0) << "the folder stands, though its child ended the reading";
  EXPECT_EQ(folder().getText(), icu::UnicodeString("/f/"));
}

TEST_F(ConfigFolder, RefusedPathsAreCollected) {
  struct Case {
    const char* path;
    std::string message;
  };
  const Case cases[] = {
      {"http://host/f", "No-file path is not allowed: <font-folder path=\"http://host/f\">"},
      {"fonts", "Relative path is not allowed: <font-folder path=\"fonts\">"},
      {"/F", "Already registered value: <font-folder path=\"/F\">"},
      {"/f/", "Already registered value: <font-folder path=\"/f/\">"},
      {"/x/../f//", "Already registered value: <font-folder path=\"/x/../f//\">"},
      {"@@HOME@@/fonts", "Relative path is not allowed: <font-folder path=\"@@HOME@@/fonts\">"},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome =
        read("<font-config><font-folder path=\"/f\"/><font-folder path=\"" + std::string(c.path) +
             "\"/><font-folder path=\"/g\"/></font-config>");
    EXPECT_EQ(outcome.collected, Messages{inFile(c.message)}) << c.path;
    EXPECT_EQ(registry->folders().size(), 2u) << c.path;
  }
}

TEST_F(ConfigFolder, AnEmptyPathEndsTheReading) {
  const ConfigOutcome outcome =
      read("<font-config><font-folder path=\"  \"/><font-folder path=\"/f\"/></font-config>");
  EXPECT_EQ(outcome.collected, Messages{inFile("Empty value: <font-folder path>")});
  EXPECT_EQ(outcome.thrown, 1027);
}

TEST_F(ConfigFolder, AMissingFolderIsKnown) {
  EXPECT_EQ(read("<font-config><font-folder path=\"/missing\"/></font-config>").thrown, 0);
}

TEST_F(ConfigFolder, RecursiveIsTrueForTheWordsAlone) {
  struct Case {
    const char* value;
    int recursive;
  };
  for (const Case& c :
       {Case{"yes", 1}, Case{"true", 1}, Case{" true ", 1}, Case{"1", 0}, Case{"TRUE", 0},
        Case{"Yes", 0}, Case{"'yes'", 0}, Case{"", 0}, Case{"no", 0}}) {
    read("<font-config><font-folder path=\"/f\" recursive=\"" + std::string(c.value) +
         "\"/></font-config>");
    EXPECT_EQ(folder().recursive, c.recursive) << c.value;
  }
}

TEST_F(ConfigFolder, MacrosAreExpandedAndStayWithoutAFolder) {
  world.folder("/usr/share/fonts");
  world.setKnownFolder(QXCommonNS::KnownFolder::roamingData, "/home/a/.config");
  world.setKnownFolder(QXCommonNS::KnownFolder::localData, "/home/a/.local");
  world.setKnownFolder(QXCommonNS::KnownFolder::commonData, "/usr/share");
  read(
      "<font-config><font-folder path=\"@@WINFONTS@@\"/><font-folder path=\"@@APPDATA@@/f\"/>"
      "<font-folder path=\"@@LOCALAPPDATA@@/f\"/><font-folder path=\"@@PROGRAMDATA@@/f\"/>"
      "</font-config>");
  ASSERT_EQ(registry->folders().size(), 4u);
  EXPECT_EQ(registry->folders()[0].getText(), icu::UnicodeString("/usr/share/fonts/"));
  EXPECT_EQ(registry->folders()[1].getText(), icu::UnicodeString("/home/a/.config/f/"));
  EXPECT_EQ(registry->folders()[2].getText(), icu::UnicodeString("/home/a/.local/f/"));
  EXPECT_EQ(registry->folders()[3].getText(), icu::UnicodeString("/usr/share/f/"));
  EXPECT_TRUE(registry->settings().winFontsUsed);
}

TEST_F(ConfigFolder, AnUnknownMacroFolderMakesTheRelativePathThatItIs) {
  const ConfigOutcome outcome = readInRoot("<font-folder path=\"@@WINFONTS@@\"/>");
  EXPECT_EQ(outcome.collected,
            Messages{inFile("Relative path is not allowed: <font-folder path=\"@@WINFONTS@@\">")});
  EXPECT_TRUE(registry->settings().winFontsUsed) << "the macro was used, found or not";
}

TEST_F(ConfigFolder, EachMacroOfAFolderThatTheSystemLacksStays) {
  for (const std::string macro : {"APPDATA", "LOCALAPPDATA", "PROGRAMDATA", "HOME", "OTHER"}) {
    const std::string path = "@@" + macro + "@@/f";
    EXPECT_EQ(
        readInRoot("<font-folder path=\"" + path + "\"/>").collected,
        Messages{inFile("Relative path is not allowed: <font-folder path=\"" + path + "\">")});
    EXPECT_FALSE(registry->settings().winFontsUsed);
  }
}

TEST_F(ConfigFolder, AMacroIsExpandedWhereverItStandsAndInItsSpellingAlone) {
  world.setKnownFolder(QXCommonNS::KnownFolder::commonData, "/usr");
  read(
      "<font-config><font-folder path=\"@@PROGRAMDATA@@/x@@PROGRAMDATA@@\"/>"
      "<font-folder path=\"/@@programdata@@\"/></font-config>");
  ASSERT_EQ(registry->folders().size(), 2u);
  EXPECT_EQ(registry->folders()[0].getText(), icu::UnicodeString("/usr/x/usr/"));
  EXPECT_EQ(registry->folders()[1].getText(), icu::UnicodeString("/@@programdata@@/"));
}

TEST_F(ConfigFolder, HomeIsExpandedWhenItsVariableIsNamedAndSet) {
  const std::string xml = "<font-config><font-folder path=\"@@HOME@@/f\"/></font-config>";
  world.setEnvironment("HOME", "/home/a");
  read(xml, "HOME");
  EXPECT_EQ(registry->folders()[0].getText(), icu::UnicodeString("/home/a/f/"));
  EXPECT_EQ(read(xml, "QX_NOT_SET").collected.size(), 1u);
  EXPECT_EQ(read(xml).collected.size(), 1u);
}

TEST_F(ConfigFolder, OnlyThePathOfAFolderHasMacros) {
  world.setKnownFolder(QXCommonNS::KnownFolder::commonData, "/usr");
  read(
      "<font-config><font-folder path=\"/f\"><font-entry file=\"a.afm\" "
      "glyph-list=\"@@PROGRAMDATA@@\"/></font-folder><eudc-processing>"
      "<eudc-map family-name=\"F\" file-path=\"@@PROGRAMDATA@@/e\"/>"
      "<eudc-system-default file-path=\"@@PROGRAMDATA@@/d\"/></eudc-processing></font-config>");
  EXPECT_EQ(options(u"a.afm").glyphList.getText(), icu::UnicodeString("/f/@@PROGRAMDATA@@"));
  EXPECT_EQ(registry->settings().eudcMap.at(u"F").getText(),
            icu::UnicodeString("/etc/qx/@@PROGRAMDATA@@/e"));
  EXPECT_EQ(registry->settings().eudcSystemDefault.getText(),
            icu::UnicodeString("/etc/qx/@@PROGRAMDATA@@/d"));
}

TEST_F(ConfigFolder, UnknownAttributesArePassedOver) {
  EXPECT_TRUE(
      readInFolder("<font-exclude file=\"a\" colour=\"red\" Path=\"/x\"/>").collected.empty());
  EXPECT_TRUE(options(u"a").exclude);
  EXPECT_TRUE(
      read("<font-config version=\"9\"><font-folder path=\"/f\" Recursive=\"yes\"/></font-config>")
          .collected.empty());
  EXPECT_EQ(folder().recursive, 0) << "names are case-sensitive";
}

TEST_F(ConfigFolder, ChildrenMayRepeatAndUnknownOnesAreThrown) {
  EXPECT_EQ(readInFolder("<use-zero-glyph-id file=\"a.ttf\"/><font-exclude file=\"a.ttf\"/>"
                         "<use-zero-glyph-id file=\"b.ttf\"/>")
                .thrown,
            0);
  EXPECT_EQ(readInFolder("<alias/>").thrown, 1028);
  EXPECT_EQ(readInFolder("<font-exclude file=\"a\"><x/></font-exclude>").thrown, 1028);
  EXPECT_EQ(
      readInFolder("<font-exclude file=\"a\"><font-exclude file=\"b\"/></font-exclude>").thrown,
      1028)
      << "these children have none of their own";
}

TEST_F(ConfigFolder, EndTagsOfTheSixChildrenPassAnywhere) {
  for (const char* name : {"font-alias", "font-entry", "font-exclude", "glyph-list",
                           "skip-glyphname-mapping", "use-zero-glyph-id"}) {
    const ConfigOutcome outcome = readInFolder("</" + std::string(name) + ">");
    EXPECT_NE(outcome.thrown, 1029) << name;
  }
  EXPECT_EQ(readInFolder("</alias>").thrown, 1029);
  EXPECT_EQ(readInFolder("</font-config>").thrown, 1029);
}

TEST_F(ConfigFolder, AnyOfTheSixEndTagsClosesAChild) {
  const ConfigOutcome outcome = readInFolder(
      "<font-exclude file=\"a\"></glyph-list><font-exclude file=\"b\"></font-exclude>");
  EXPECT_EQ(outcome.thrown, 0);
  EXPECT_EQ(folder().fileOptions.count(u"b"), 1u);
}

TEST_F(ConfigFolder, TheEndTagOfTheFolderClosesItFromInsideAChild) {
  const ConfigOutcome outcome = read(
      "<font-config><font-folder path=\"/f\"><font-exclude file=\"a\"></font-folder>"
      "<font-folder path=\"/g\"/></font-config>");
  EXPECT_EQ(outcome.thrown, 0);
  EXPECT_EQ(registry->folders().size(), 2u) << "\"/g\" is a child of the root";
}

TEST_F(ConfigFolder, ABareNameMattersToTheChildrenOfARefusedFolderToo) {
  const ConfigOutcome outcome =
      readInRoot("<font-folder path=\"rel\"><font-exclude file=\"x/y\"/></font-folder>");
  EXPECT_EQ(outcome.collected.size(), 2u);
  EXPECT_FALSE(reachedEnd());
  EXPECT_EQ(outcome.thrown, 1027);
}

TEST_F(ConfigFolder, ChildrenOfARefusedFolderAreReadWithoutEffect) {
  const ConfigOutcome outcome = readInRoot(
      "<font-folder path=\"rel\"><font-entry file=\"a.ttf\" font-size-adjust=\"0\"/>"
      "</font-folder>");
  EXPECT_EQ(outcome.collected,
            (Messages{inFile("Relative path is not allowed: <font-folder path=\"rel\">"),
                      inFile("Invalid value: <font-entry font-size-adjust=\"0\">")}));
  EXPECT_TRUE(reachedEnd());
  EXPECT_EQ(registry->folders().size(), 1u);
}

TEST_F(ConfigFolder, FileNamesAreRequiredAndBare) {
  for (const char* element :
       {"font-entry", "font-exclude", "use-zero-glyph-id", "glyph-list", "font-alias"}) {
    const std::string name(element);
    EXPECT_EQ(readInFolder("<" + name + "/>").collected,
              Messages{inFile("Empty value: <" + name + " file>")});
    EXPECT_EQ(
        readInFolder("<" + name + " file=\"./a.ttf\"/>").collected,
        Messages{inFile("Font file must be base file name: <" + name + " file=\"./a.ttf\">")});
  }
}

TEST_F(ConfigFolder, EntriesHaveTheirDefaults) {
  readInFolder("<font-entry file=\"A.TTF\"/>");
  const FS_FontFileOptions& entry = options(u"a.ttf");
  EXPECT_EQ(entry.fontSizeAdjust, 1.0F);
  EXPECT_EQ(entry.baselineAdjust, 0.0F);
  EXPECT_EQ(entry.range, nullptr);
  EXPECT_FALSE(entry.exclude);
  EXPECT_FALSE(entry.useZeroGlyphId);
  EXPECT_FALSE(entry.skipGlyphnameMapping);
  EXPECT_TRUE(entry.glyphList.isEmpty());
}

TEST_F(ConfigFolder, AdjustsTakePerCent) {
  struct Case {
    const char* text;
    float size, baseline;
    bool reported;
  };
  for (const Case& c :
       {Case{"50%", 0.5F, 0.5F, false}, Case{"2", 2.0F, 2.0F, false}, Case{"0", 0.0F, 0.0F, true},
        Case{"abc", 0.0F, 0.0F, true}, Case{"50 %", 50.0F, 50.0F, false},
        Case{"-25%", -0.25F, -0.25F, true}, Case{"0.0000001", 0.0000001F, 0.0000001F, true}}) {
    const std::string value(c.text);
    const ConfigOutcome outcome = readInFolder("<font-entry file=\"a\" font-size-adjust=\"" +
                                               value + "\" baseline-adjust=\"" + value + "\"/>");
    EXPECT_EQ(options(u"a").fontSizeAdjust, c.size) << c.text << ": stored in any case";
    EXPECT_EQ(options(u"a").baselineAdjust, c.baseline) << c.text;
    EXPECT_EQ(outcome.collected.size(), c.reported ? 1u : 0u) << c.text;
  }
}

TEST_F(ConfigFolder, UnicodeRangesAreKeptOrRefused) {
  readInFolder("<font-entry file=\"a\" unicode-range=\"U+41-5A, U+3??\"/>");
  ASSERT_NE(options(u"a").range, nullptr);
  EXPECT_TRUE(options(u"a").range->inRange('A'));
  EXPECT_TRUE(options(u"a").range->inRange(0x3FF));
  EXPECT_FALSE(options(u"a").range->inRange('a'));
  const ConfigOutcome outcome = readInFolder(
      "<font-entry file=\"a\" unicode-range=\"U+41\"/><font-entry file=\"a\" "
      "unicode-range=\"x\"/>");
  EXPECT_EQ(options(u"a").range, nullptr) << "the second one replaces the first";
  ASSERT_EQ(outcome.collected.size(), 1u);
  EXPECT_EQ(outcome.collected[0].rfind("Invalid value: <font-entry unicode-range=\"", 0), 0u);
}

TEST_F(ConfigFolder, BooleansOfEntriesStoreBothWays) {
  readInFolder(
      "<font-exclude file=\"a\"/><font-entry file=\"a\" font-exclude=\"no\" "
      "use-zero-glyph-id=\"Yes\"/>");
  EXPECT_FALSE(options(u"a").exclude);
  EXPECT_TRUE(options(u"a").useZeroGlyphId);
  for (const char* attribute : {"font-exclude", "use-zero-glyph-id", "skip-glyphname-mapping"}) {
    const std::string name(attribute);
    EXPECT_EQ(readInFolder("<font-entry file=\"a.afm\" " + name + "=\"2\"/>").collected,
              Messages{inFile("Invalid value: <font-entry " + name + "=\"2\">")});
  }
}

TEST_F(ConfigFolder, ABadBooleanLeavesWhatWasThere) {
  const std::string entry = "<font-entry file=\"a.afm\" ";
  readInFolder(entry +
               "font-exclude=\"yes\" use-zero-glyph-id=\"yes\" skip-glyphname-mapping=\"yes\"/>" +
               entry + "font-exclude=\"x\"/>" + entry + "use-zero-glyph-id=\"x\"/>" + entry +
               "skip-glyphname-mapping=\"x\"/>");
  EXPECT_TRUE(options(u"a.afm").exclude);
  EXPECT_TRUE(options(u"a.afm").useZeroGlyphId);
  EXPECT_TRUE(options(u"a.afm").skipGlyphnameMapping);
  EXPECT_TRUE(options(u"a.pfm").skipGlyphnameMapping);
}

TEST_F(ConfigFolder, FlagsAdjustsAndRangesHoldForTheOneMetricFile) {
  readInFolder(
      "<font-entry file=\"n.afm\" font-exclude=\"yes\" use-zero-glyph-id=\"yes\" "
      "font-size-adjust=\"2\" baseline-adjust=\"3\" unicode-range=\"U+41\" glyph-list=\"l\"/>");
  const FS_FontFileOptions& sibling = options(u"n.pfm");
  EXPECT_FALSE(sibling.glyphList.isEmpty());
  EXPECT_FALSE(sibling.exclude || sibling.useZeroGlyphId);
  EXPECT_EQ(sibling.fontSizeAdjust, 1.0F);
  EXPECT_EQ(sibling.baselineAdjust, 0.0F);
  EXPECT_EQ(sibling.range, nullptr);
}

TEST_F(ConfigFolder, ListsAndMappingOfAnEntryHoldForBothMetricFiles) {
  readInFolder(
      "<font-entry file=\"N.AFM\" glyph-list=\"list.txt\" skip-glyphname-mapping=\"yes\"/>");
  for (const char16_t* file : {u"n.afm", u"n.pfm"}) {
    EXPECT_EQ(options(file).glyphList.getText(), icu::UnicodeString("/f/list.txt"));
    EXPECT_TRUE(options(file).skipGlyphnameMapping);
  }
  readInFolder("<font-entry file=\"n.ttf\" glyph-list=\"l\" skip-glyphname-mapping=\"yes\"/>");
  EXPECT_TRUE(options(u"n.ttf").glyphList.isEmpty());
  EXPECT_FALSE(options(u"n.ttf").skipGlyphnameMapping);
}

TEST_F(ConfigFolder, AnEntryOfEitherMetricFileServesBothAndMaySayNo) {
  readInFolder(
      "<font-entry file=\"n.pfm\" glyph-list=\"a.txt\" skip-glyphname-mapping=\"true\"/>"
      "<font-entry file=\"n.afm\" glyph-list=\"sub/b.txt\" skip-glyphname-mapping=\"No\"/>");
  for (const char16_t* file : {u"n.afm", u"n.pfm"}) {
    EXPECT_EQ(options(file).glyphList.getText(), icu::UnicodeString("/f/sub/b.txt"))
        << "the last counts, and need not be a bare name";
    EXPECT_FALSE(options(file).skipGlyphnameMapping);
  }
}

TEST_F(ConfigFolder, AListOfAnEntryIsInTheWayOfAnElement) {
  EXPECT_EQ(readInFolder("<font-entry file=\"n.pfm\" glyph-list=\"a.txt\"/>"
                         "<glyph-list file=\"b.txt\" pfm=\"N.pfm\"/>")
                .collected,
            Messages{inFile("Already registered value: <glyph-list afm=\"N.afm\">")});
  EXPECT_EQ(options(u"n.pfm").glyphList.getText(), icu::UnicodeString("/f/a.txt"));
}

TEST_F(ConfigFolder, GlyphListsNameOneOrBothMetricFiles) {
  for (const char* names : {"afm=\"N.afm\"", "pfm=\"N.pfm\"", "afm=\"N.afm\" pfm=\"N.pfm\""}) {
    readInFolder("<glyph-list file=\"l.txt\" " + std::string(names) + "/>");
    EXPECT_EQ(options(u"n.afm").glyphList.getText(), icu::UnicodeString("/f/l.txt")) << names;
    EXPECT_EQ(options(u"n.pfm").glyphList.getText(), icu::UnicodeString("/f/l.txt")) << names;
  }
  readInFolder("<glyph-list file=\"l.txt\" afm=\"x\"/>");
  EXPECT_FALSE(options(u"x.pfm").glyphList.isEmpty()) << "a name without extension gets one";
}

TEST_F(ConfigFolder, BadGlyphListsEndTheReading) {
  struct Case {
    const char* elements;
    std::string message;
  };
  const Case cases[] = {
      {"<glyph-list file=\"l\"/>", "Empty value: <glyph-list afm>"},
      {"<glyph-list afm=\"n.afm\"/>", "Empty value: <glyph-list file>"},
      {"<glyph-list file=\"d/l\" afm=\"n.afm\"/>",
       "Font file must be base file name: <glyph-list file=\"d/l\">"},
      {"<glyph-list file=\"l\" afm=\"d/n.afm\"/>",
       "Font file must be base file name: <glyph-list afm=\"d/n.afm\">"},
      {"<glyph-list file=\"l\" pfm=\"d/n.pfm\"/>",
       "Font file must be base file name: <glyph-list pfm=\"d/n.pfm\">"},
      {"<glyph-list file=\"l\" afm=\"n.afm\"/><glyph-list file=\"m\" afm=\"N.afm\"/>",
       "Already registered value: <glyph-list afm=\"N.afm\">"},
      {"<glyph-list file=\"l\" afm=\"a.afm\" pfm=\"b.pfm\"/>"
       "<glyph-list file=\"m\" afm=\"c.afm\" pfm=\"B.pfm\"/>",
       "Already registered value: <glyph-list pfm=\"B.pfm\">"},
      {"<glyph-list file=\"l\" afm=\"a.afm\" pfm=\"b.pfm\"/>"
       "<glyph-list file=\"m\" afm=\"A.afm\" pfm=\"B.pfm\"/>",
       "Already registered value: <glyph-list afm=\"A.afm\">"},
      {"<glyph-list file=\"l\" pfm=\"n.pfm\"/><glyph-list file=\"m\" pfm=\"n.pfm\"/>",
       "Already registered value: <glyph-list afm=\"n.afm\">"},
      {"<glyph-list file=\"d/l\" afm=\"d/n.afm\"/>",
       "Font file must be base file name: <glyph-list file=\"d/l\">"},
      {"<glyph-list afm=\"d/n.afm\"/>", "Empty value: <glyph-list file>"},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome =
        readInFolder(std::string(c.elements) + "<font-exclude file=\"behind\"/>");
    EXPECT_EQ(outcome.collected, Messages{inFile(c.message)});
    EXPECT_EQ(folder().fileOptions.count(u"behind"), 0u) << c.elements;
  }
}

TEST_F(ConfigFolder, WithBothMetricFilesNeitherIsTested) {
  EXPECT_TRUE(
      readInFolder("<glyph-list file=\"l\" afm=\"d/n.afm\" pfm=\"e/n.pfm\"/>").collected.empty());
}

TEST_F(ConfigFolder, SkipMappingFollowsTheSameRule) {
  readInFolder("<skip-glyphname-mapping pfm=\"n.pfm\"/>");
  EXPECT_TRUE(options(u"n.afm").skipGlyphnameMapping);
  EXPECT_TRUE(options(u"n.pfm").skipGlyphnameMapping);
  readInFolder("<skip-glyphname-mapping afm=\"M.AFM\"/>");
  EXPECT_TRUE(options(u"m.afm").skipGlyphnameMapping && options(u"m.pfm").skipGlyphnameMapping);
  EXPECT_TRUE(readInFolder("<skip-glyphname-mapping afm=\"d/n.afm\" pfm=\"p.pfm\"/>"
                           "<skip-glyphname-mapping pfm=\"p.pfm\"/>")
                  .collected.empty())
      << "with both none is tested, and twice is no mistake";
  EXPECT_TRUE(options(u"p.pfm").skipGlyphnameMapping);
  EXPECT_EQ(readInFolder("<skip-glyphname-mapping/>").collected,
            Messages{inFile("Empty value: <skip-glyphname-mapping afm>")});
  EXPECT_EQ(readInFolder("<skip-glyphname-mapping pfm=\"d/n.pfm\"/>").collected,
            Messages{inFile(
                "Font file must be base file name: <skip-glyphname-mapping pfm=\"d/n.pfm\">")});
  EXPECT_EQ(readInFolder("<skip-glyphname-mapping afm=\"d/n.afm\"/>").collected,
            Messages{inFile(
                "Font file must be base file name: <skip-glyphname-mapping afm=\"d/n.afm\">")});
}

}  // namespace
}  // namespace QXFontService_NS
