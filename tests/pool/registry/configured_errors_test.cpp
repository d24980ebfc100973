#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/registry/registry_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::namedFont;

/// A configuration with one thing wrong in it, between two folders with a good font each.
class ConfiguredErrors : public qxtest::RegistryTest {
 protected:
  ConfiguredErrors() {
    world.file("/before/a.ttf", namedFont(u"Before")).file("/behind/b.ttf", namedFont(u"Behind"));
    world.file("/f/c.ttf", namedFont(u"Inside"));
  }

  void openAround(const std::string& wrong) {
    open("<font-folder path=\"/before\"/>" + wrong + "<font-folder path=\"/behind\"/>");
  }
  static std::string inFolder(const std::string& child) {
    return "<font-folder path=\"/f\">" + child + "</font-folder>";
  }
};

/// An error that is collected: its message, and whether the folder behind it is still read.
struct Collected {
  std::string wrong;
  std::string message;
  bool goesOn;
};

std::vector<Collected> rootErrors() {
  return {
      {"<font-folder path=\"\"/>", "Empty value: <font-folder path> in ", false},
      {"<font-folder path=\"http://h/f\"/>",
       "No-file path is not allowed: <font-folder path=\"http://h/f\"> in ", true},
      {"<font-folder path=\"@@HOME@@/fonts\"/>",
       "Relative path is not allowed: <font-folder path=\"@@HOME@@/fonts\"> in ", true},
      {"<font-folder path=\"/BEFORE/.\"/>",
       "Already registered value: <font-folder path=\"/BEFORE/.\"> in ", true},
      {"<otf-metrics-mode mode=\"typo\"/>", "Invalid value: <otf-metrics-mode mode=\"typo\"> in ",
       true},
      {"<eudc-processing mapping=\"x\"/>", "Invalid value: <eudc-processing mapping=\"x\"> in ",
       true},
      {"<eudc-processing><eudc-map family-name=\"A\"/></eudc-processing>",
       "Empty value: <eudc-map file-path> in ", false},
      {"<eudc-processing><eudc-range start=\"x\"/></eudc-processing>",
       "Not an integer value: <eudc-range start=\"x\"> in ", false},
      {"<eudc-processing><eudc-range start=\"0\"/></eudc-processing>",
       "Invalid value: <eudc-range start=\"0\"> in ", true},
      {"<eudc-processing><eudc-system-default/></eudc-processing>",
       "Empty value: <eudc-system-default file-path> in ", false},
  };
}

/// The same for children of a folder, which is kept either way.
std::vector<Collected> folderErrors() {
  return {
      {"<font-entry/>", "Empty value: <font-entry file> in ", false},
      {"<font-entry file=\"s/a.ttf\"/>",
       "Font file must be base file name: <font-entry file=\"s/a.ttf\"> in ", false},
      {"<font-entry file=\"a.ttf\" font-size-adjust=\"0\"/>",
       "Invalid value: <font-entry font-size-adjust=\"0\"> in ", true},
      {"<font-entry file=\"a.ttf\" font-exclude=\"maybe\"/>",
       "Invalid value: <font-entry font-exclude=\"maybe\"> in ", true},
      {"<font-exclude/>", "Empty value: <font-exclude file> in ", false},
      {"<use-zero-glyph-id/>", "Empty value: <use-zero-glyph-id file> in ", false},
      {"<glyph-list file=\"g\"/>", "Empty value: <glyph-list afm> in ", false},
      {"<skip-glyphname-mapping/>", "Empty value: <skip-glyphname-mapping afm> in ", false},
      {"<font-alias/>", "Empty value: <font-alias file> in ", false},
      {"<font-alias file=\"a.ttc\" entry=\"x\"/>",
       "Not an integer value: <font-alias entry=\"x\"> in ", true},
      {"<font-alias file=\"a.ttc\" entry=\"0\"/>", "Invalid value: <font-alias entry=\"0\"> in ",
       true},
      {"<font-alias file=\"a.ttf\"><alias/></font-alias>", "Empty value: <alias family-name> in ",
       false},
      {"<font-alias file=\"a.ttf\"><alias family-name=\"A\" weight=\"99\"/></font-alias>",
       "Invalid value: <alias weight=\"99\"> in ", true},
  };
}

TEST_F(ConfiguredErrors, OfTheCollectedKindLeaveTheOtherFoldersServed) {
  for (const Collected& c : rootErrors()) {
    openAround(c.wrong);
    EXPECT_EQ(errors(), std::vector<std::string>{c.message + "/etc/qx/font-config.xml"});
    EXPECT_EQ(fileOf(u"Before"), "/before/a.ttf") << c.wrong;
    EXPECT_EQ(fileOf(u"Behind"), c.goesOn ? "/behind/b.ttf" : "") << c.wrong;
    resetRegistry();
  }
}

TEST_F(ConfiguredErrors, InsideAFolderLeaveThatFolderServedToo) {
  for (const Collected& c : folderErrors()) {
    openAround(inFolder(c.wrong));
    EXPECT_EQ(errors(), std::vector<std::string>{c.message + "/etc/qx/font-config.xml"});
    EXPECT_EQ(fileOf(u"Before"), "/before/a.ttf") << c.wrong;
    EXPECT_EQ(fileOf(u"Inside"), "/f/c.ttf") << c.wrong;
    EXPECT_EQ(fileOf(u"Behind"), c.goesOn ? "/behind/b.ttf" : "") << c.wrong;
    resetRegistry();
  }
}

TEST_F(ConfiguredErrors, OfTheThrownKindLeaveARegistryThatTakesFoldersLater) {
  const std::vector<std::string> wrongs = {
      "<oops/>",
      "</oops>",
      inFolder("<oops/>"),
      inFolder("</oops>"),
      inFolder("<font-exclude file=\"a\"><font-exclude file=\"b\"/></font-exclude>"),
      "<name-processing-mode/>"};
  for (const std::string& wrong : wrongs) {
    EXPECT_THROW(openAround(wrong), QXError) << wrong;
    registry = FS_FontRegistry::open(nullptr, nullptr);
    EXPECT_TRUE(loaded().empty()) << "what was named before is known but not scanned: " << wrong;
    EXPECT_TRUE(errors().empty()) << wrong;
    EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/before", QXCommonNS::URISTR_USER)), 0);
    EXPECT_EQ(registry->addFontFolderPath(QXUri(u"/behind", QXCommonNS::URISTR_USER)), 1);
    EXPECT_EQ(fileOf(u"Behind"), "/behind/b.ttf") << wrong;
    resetRegistry();
  }
}

}  // namespace
}  // namespace QXFontService_NS
