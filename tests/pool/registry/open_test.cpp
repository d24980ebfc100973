#include <gtest/gtest.h>

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "pool/registry/registry_fixture.h"

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

/// A world where looking into one place throws an error.
class TroubledWorld final : public qxtest::MemoryPlatform {
 public:
  bool listFolder(const std::string& path, std::vector<QXCommonNS::FolderEntry>& out) override {
    troubleAt(path);
    return MemoryPlatform::listFolder(path, out);
  }
  std::unique_ptr<std::istream> openFile(const std::string& path) override {
    troubleAt(path);
    return MemoryPlatform::openFile(path);
  }

  std::string trouble;

 private:
  void troubleAt(const std::string& path) const {
    if (path == trouble) throw QXError(7, u"trouble", u"", -1, -1, u"");
  }
};

class OpenInTrouble : public Open {
 protected:
  OpenInTrouble() {
    QXCommonNS::setPlatformForTests(&troubled);
    troubled.setEnvironment(kVariable, "/etc/qx/font-config.xml");
    troubled.file("/f/a.ttf", namedFont(u"A")).file("/g/b.ttf", namedFont(u"B"));
    troubled.file("/s/c.ttf", namedFont(u"C")).addSystemFontFile("/s/c.ttf");
    troubled.file("/e/d.ttf", namedFont(u"D")).file("/e/e.ttf", namedFont(u"E"));
    troubled.file("/etc/qx/font-config.xml",
                  "<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/>"
                  "<font-folder path=\"/g\"/><eudc-processing>"
                  "<eudc-map family-name=\"A\" file-path=\"/e/e.ttf\"/>"
                  "<eudc-system-default file-path=\"/e/d.ttf\"/></eudc-processing></font-config>");
  }
  /// Opens with trouble at a place, and tells what was loaded.
  std::vector<std::string> loadedWithTroubleAt(const char* place) {
    troubled.trouble = place;
    EXPECT_EQ(failure(kVariable), 0) << "the caller does not see it";
    EXPECT_EQ(errors(), std::vector<std::string>(place[0] != '\0' ? 1 : 0, "trouble"));
    return loaded();
  }

  TroubledWorld troubled;
};

using Paths = std::vector<std::string>;

TEST_F(OpenInTrouble, WithoutAnyEachStepIsTakenInItsOrder) {
  EXPECT_EQ(loadedWithTroubleAt(""),
            (Paths{"/f/a.ttf", "/g/b.ttf", "/s/c.ttf", "/e/d.ttf", "/e/d.ttf", "/e/e.ttf"}));
  EXPECT_TRUE(isEudc(0xE000));
}

TEST_F(OpenInTrouble, AnErrorThrownInTheScanIsCollectedAndEndsAllLaterSteps) {
  EXPECT_EQ(loadedWithTroubleAt("/f/"), Paths());
  EXPECT_FALSE(isEudc(0xE000)) << "not even the default range is set";
}

TEST_F(OpenInTrouble, AnErrorThrownInTheSystemsListLeavesWhatWasScanned) {
  EXPECT_EQ(loadedWithTroubleAt("/s/c.ttf"), (Paths{"/f/a.ttf", "/g/b.ttf"}));
  EXPECT_FALSE(isEudc(0xE000));
}

TEST_F(OpenInTrouble, AnErrorThrownByTheDefaultEudcFontLeavesTheRangeAndEndsTheLinking) {
  EXPECT_EQ(loadedWithTroubleAt("/e/d.ttf"), (Paths{"/f/a.ttf", "/g/b.ttf", "/s/c.ttf"}));
  EXPECT_TRUE(isEudc(0xE000));
  EXPECT_EQ(registry->services().eudcDefault(false).font, nullptr);
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

}  // namespace
}  // namespace QXFontService_NS
