#include "qxfontservice/ext/opening.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "qxfontservice/error_codes.h"
#include "qxfontservice/ext/open_file.h"
#include "qxfontservice/service.h"

#include "pool/registry/registry_fixture.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::namedFont;
using Lines = std::vector<std::string>;

std::string text(const icu::UnicodeString& units) {
  std::string utf8;
  return units.toUTF8String(utf8);
}

/// Keeps what it is told: "files/faces folder".
class Notes final : public OpeningObserver {
 public:
  void read(const OpeningProgress& progress) override {
    lines.push_back(std::to_string(progress.files) + "/" + std::to_string(progress.faces) + " " +
                    text(progress.folder));
  }
  Lines lines;
};

/// Throws at its nth call.
template <class Thrown>
class Thrower final : public OpeningObserver {
 public:
  Thrower(int nth, Thrown thrown) : nth_(nth), thrown_(std::move(thrown)) {}
  void read(const OpeningProgress&) override {
    if (++calls == nth_) throw thrown_;
  }
  int calls = 0;

 private:
  int nth_;
  Thrown thrown_;
};

class Opening : public qxtest::RegistryTest {
 protected:
  static constexpr const char* kConfiguration =
      "<font-config windows-registry=\"disable\">"
      "<font-folder path=\"/f\" recursive=\"yes\"/></font-config>";

  Opening() {
    world.file("/f/a.ttf", namedFont(u"A")).file("/f/b.ttf", "no font");
    world.file("/f/s/c.ttf", namedFont(u"C")).file("/g/d.ttf", namedFont(u"D"));
    world.file("/etc/qx/font-config.xml", kConfiguration);
  }

  static FS_ERROR openService() {
    QXError error;
    return FontServiceOpen(kVariable, &error);
  }
  static int addFolder(const char16_t* path) {
    return FS_AddFontFolderPath(QXUri(path, QXCommonNS::URISTR_USER));
  }
  static Lines folders() {
    Lines lines;
    for (const OpenedFolder& folder : openedFolders()) {
      lines.push_back(text(folder.path) + " " + std::to_string(folder.files) + "/" +
                      std::to_string(folder.faces));
    }
    return lines;
  }
  static Lines unpaired() {
    Lines lines;
    for (const QXUri& file : unpairedType1Files()) lines.push_back(text(file.getLocalPath(false)));
    return lines;
  }
};

TEST_F(Opening, TheObserverIsToldOfEachFolderAndFile) {
  Notes notes;
  setOpeningObserver(&notes);
  EXPECT_EQ(openService(), FS_ERROR_NONE);
  EXPECT_EQ(notes.lines, (Lines{"0/0 /f/", "1/1 /f/", "2/1 /f/", "2/1 /f/s/", "3/2 /f/s/"}));
}

TEST_F(Opening, TheObserverIsToldOfFoldersThatAreAddedAtRunTime) {
  ASSERT_EQ(openService(), FS_ERROR_NONE);
  Notes notes;
  setOpeningObserver(&notes);
  EXPECT_EQ(addFolder(u"/g/"), 1);
  EXPECT_EQ(addFolder(u"/g/"), 0) << "known already";
  EXPECT_EQ(notes.lines, (Lines{"0/0 /g/", "1/1 /g/"}));
}

TEST_F(Opening, TheObserverIsToldOfTheSystemsList) {
  world.addSystemFontFile("/g/d.ttf");
  world.file("/etc/qx/font-config.xml",
             "<font-config windows-registry=\"enable\"><font-folder path=\"/f\"/></font-config>");
  Notes notes;
  setOpeningObserver(&notes);
  EXPECT_EQ(openService(), FS_ERROR_NONE);
  EXPECT_EQ(notes.lines.back(), "3/2 /g/");
}

TEST_F(Opening, NobodyIsToldAfterTheObserverIsTakenAway) {
  Notes notes;
  setOpeningObserver(&notes);
  setOpeningObserver(nullptr);
  EXPECT_EQ(openService(), FS_ERROR_NONE);
  EXPECT_TRUE(notes.lines.empty());
}

TEST_F(Opening, WhatTheObserverThrowsPassesAndChangesNothing) {
  Thrower<std::runtime_error> observer(2, std::runtime_error("stop"));
  setOpeningObserver(&observer);
  EXPECT_THROW(openService(), std::runtime_error);
  EXPECT_EQ(observer.calls, 2) << "it is not called again before its failure has passed";
  EXPECT_EQ(folders(), (Lines{"/f/ 1/1", "/f/s/ 1/1"})) << "opening went on to its end";
  EXPECT_EQ(openService(), FS_ERROR_NONE) << "it passes once";
  addFolder(u"/g/");
  EXPECT_GT(observer.calls, 2);
}

TEST_F(Opening, EveryKindOfFailurePasses) {
  const auto passes = [&](auto thrown) {
    Thrower<decltype(thrown)> observer(1, thrown);
    resetServiceForTests();
    QXCommonNS::setPlatformForTests(&world);
    setOpeningObserver(&observer);
    try {
      openService();
    } catch (const decltype(thrown)&) {
      setOpeningObserver(nullptr);
      return folders().size() == 2;
    }
    return false;
  };
  EXPECT_TRUE(passes(7));
  EXPECT_TRUE(passes(std::bad_alloc()));
  EXPECT_TRUE(passes(QXError())) << "not taken for an answer of opening";
}

TEST_F(Opening, WhatIsThrownWhileAFolderIsAddedPassesWithTheFolderInPlace) {
  ASSERT_EQ(openService(), FS_ERROR_NONE);
  Thrower<int> observer(1, 7);
  setOpeningObserver(&observer);
  EXPECT_THROW(addFolder(u"/g/"), int);
  EXPECT_EQ(folders().back(), "/g/ 1/1");
}

TEST_F(Opening, ACallThatOpensOnItsWayLeavesTheFailureToTheNextOpening) {
  world.addFontFolderCandidate("/g/");
  Thrower<int> observer(1, 7);
  setOpeningObserver(&observer);
  EXPECT_EQ(FS_GetFontError(nullptr, 0), 0);
  EXPECT_THROW(openService(), int);
  EXPECT_EQ(openService(), FS_ERROR_NONE);
}

TEST_F(Opening, BeforeItAllAnswersAreEmptyAndNothingIsOpened) {
  EXPECT_TRUE(openedConfiguration().isEmpty());
  EXPECT_TRUE(openedFolders().empty());
  EXPECT_TRUE(openingErrors().empty());
  EXPECT_TRUE(unpairedType1Files().empty());
  EXPECT_EQ(FS_FontRegistry::current(), nullptr);
}

TEST_F(Opening, TellsTheConfiguration) {
  openService();
  EXPECT_EQ(text(openedConfiguration().getLocalPath(false)), "/etc/qx/font-config.xml");
}

TEST_F(Opening, TellsNoConfigurationWhereTheSystemServes) {
  world.addFontFolderCandidate("/g/");
  QXError error;
  EXPECT_EQ(FontServiceOpen(nullptr, &error), FS_ERROR_NONE);
  EXPECT_TRUE(openedConfiguration().isEmpty());
  EXPECT_EQ(folders(), Lines{"/g/ 1/1"});
}

TEST_F(Opening, TellsFoldersInTheOrderOfScanning) {
  world.folder("/h");
  openService();
  addFolder(u"/h/");
  addFolder(u"/g/");
  EXPECT_EQ(folders(), (Lines{"/f/ 1/1", "/f/s/ 1/1", "/h/ 0/0", "/g/ 1/1"}));
}

TEST_F(Opening, TellsTheFileOfEachError) {
  world.file("/f/c.ttf", namedFont(u"Cut").substr(0, 100));
  world.file("/etc/qx/font-config.xml",
             "<font-config windows-registry=\"disable\"><font-folder path=\"/f\"/>"
             "<font-folder path=\"/f\"/></font-config>");
  openService();
  const std::vector<OpeningError> errors = openingErrors();
  ASSERT_EQ(errors.size(), static_cast<std::size_t>(FS_GetFontError(nullptr, 0)));
  ASSERT_GE(errors.size(), 2u);
  EXPECT_EQ(errors[0].error.getErrorCode(), FS_ERROR_ALREADY_REGISTERED);
  EXPECT_EQ(text(errors[0].file.getLocalPath(false)), "/etc/qx/font-config.xml");
  for (std::size_t i = 1; i < errors.size(); ++i) {
    const std::string file = text(errors[i].file.getLocalPath(false));
    EXPECT_TRUE(file == "/f/b.ttf" || file == "/f/c.ttf") << file;
  }
}

TEST_F(Opening, ErrorsOfAConfigurationThatIsOnlyLookedAtNameThatOne) {
  openService();
  const std::size_t before = openingErrors().size();
  world.setEnvironment("OTHER", "/etc/qx/other.xml");
  world.file("/etc/qx/other.xml",
             "<font-config><font-folder path=\"/g\"/><font-folder path=\"/g\"/></font-config>");
  std::vector<UnicodeString> paths;
  FS_GetFontFoldPathVector("OTHER", paths);
  const std::vector<OpeningError> errors = openingErrors();
  ASSERT_EQ(errors.size(), before + 1);
  EXPECT_EQ(text(errors.back().file.getLocalPath(false)), "/etc/qx/other.xml");
}

TEST_F(Opening, AfterAFailureTellsHowFarItCame) {
  world.file("/etc/qx/font-config.xml", "<font-config></font-config>");
  EXPECT_NE(openService(), FS_ERROR_NONE);
  EXPECT_EQ(text(openedConfiguration().getLocalPath(false)), "/etc/qx/font-config.xml");
  EXPECT_TRUE(openedFolders().empty());
}

TEST_F(Opening, TellsType1FilesWithoutAPartner) {
  for (const char* name : {"both.afm", "both.pfb", "hex.pfm", "hex.pfa", "metrics.afm", "old.pfm",
                           "program.pfb", "hexonly.pfa", "Case.AFM", "Case.pfb"}) {
    world.file(std::string("/f/s/") + name, "x");
  }
  openService();
  EXPECT_EQ(unpaired(), (Lines{"/f/s/Case.AFM", "/f/s/Case.pfb", "/f/s/hexonly.pfa",
                               "/f/s/metrics.afm", "/f/s/old.pfm", "/f/s/program.pfb"}));
}

TEST_F(Opening, TellsType1FilesOfFoldersThatAreAdded) {
  world.file("/g/x.pfb", "x");
  openService();
  EXPECT_TRUE(unpaired().empty());
  addFolder(u"/g/");
  EXPECT_EQ(unpaired(), Lines{"/g/x.pfb"});
}

TEST_F(Opening, ExcludedType1FilesAreNotTold) {
  world.file("/f/x.pfb", "x");
  openFolder("<font-exclude file=\"x.pfb\"/>");
  EXPECT_TRUE(unpaired().empty());
}

TEST_F(Opening, TheFacesOfAFileAreCounted) {
  openService();
  FS_FontInfo font;
  EXPECT_EQ(faceCount(font), 0);
  ASSERT_TRUE(openFontFile(QXUri(u"/g/d.ttf", QXCommonNS::URISTR_USER), 0, font));
  EXPECT_EQ(faceCount(font), 1);
  font.deleteFont();
}

}  // namespace
}  // namespace QXFontService_NS::ext
