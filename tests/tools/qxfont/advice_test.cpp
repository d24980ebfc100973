#include "qxfont/cli/advice.h"

#include <gtest/gtest.h>

#include <fstream>

#include "qxfontservice/error_codes.h"

#include "qxfont/cli/temporary_folder.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;

class AdviceTest : public testing::Test {
 protected:
  AdviceTest() { findings.folders.push_back({unicode(folder_.path() + "/"), 1, 1}); }

  Findings findings;

 private:
  TemporaryFolder folder_;
};

TEST_F(AdviceTest, isSilentWhenAllIsWell) {
  EXPECT_TRUE(adviceFor(findings).empty());
}

TEST_F(AdviceTest, namesTheOptionsWhenNoFontWasFound) {
  findings.folders[0].files = 0;
  ASSERT_EQ(adviceFor(findings).size(), 1u);
  EXPECT_NE(adviceFor(findings)[0].find("--only DIR"), std::string::npos);
}

TEST_F(AdviceTest, namesAFolderThatIsNotThere) {
  findings.folders.push_back({u"/no/such/folder/", 0, 0});
  ASSERT_EQ(adviceFor(findings).size(), 1u);
  EXPECT_EQ(adviceFor(findings)[0],
            "/no/such/folder/ is no folder: correct its path in the configuration");
}

TEST_F(AdviceTest, tellsConfigurationsFromFonts) {
  findings.errors = {{fs::FS_ERROR_NOT_SPECIFIED, "a", "/c.xml"},
                     {fs::FS_ERROR_NOT_INTEGER, "b", "/c.xml"},
                     {fs::FS_ERROR_FONT_FILE, "c", "/f.ttf"},
                     {fs::FS_ERROR_FONT_READ, "d", ""}};
  const std::vector<std::string> advice = adviceFor(findings);
  ASSERT_EQ(advice.size(), 2u) << "one sentence a file, none for an error without one";
  EXPECT_EQ(advice[0].rfind("correct /c.xml", 0), 0u);
  EXPECT_EQ(advice[1].rfind("replace or remove /f.ttf", 0), 0u);
}

TEST_F(AdviceTest, tellsWhichHalfOfAType1FontIsMissing) {
  findings.unpaired = {"/a.afm", "/b.PFM", "/c.pfb", "/d.PFA"};
  const std::vector<std::string> advice = adviceFor(findings);
  ASSERT_EQ(advice.size(), 4u);
  EXPECT_NE(advice[0].find("put its .pfb or .pfa beside it"), std::string::npos);
  EXPECT_NE(advice[1].find("put its .pfb or .pfa beside it"), std::string::npos);
  EXPECT_NE(advice[2].find("put its .afm or .pfm beside it"), std::string::npos);
  EXPECT_NE(advice[3].find("put its .afm or .pfm beside it"), std::string::npos);
}

TEST_F(AdviceTest, tellsThatTheLettersOfTheExtensionsDiffer) {
  const TemporaryFolder folder;
  for (const char* name : {"/a.afm", "/a.PFB", "/B.AFM", "/B.pfa"})
    std::ofstream(folder.path() + name).put('x');
  const std::string small = folder.path() + "/a.afm";
  const std::string large = folder.path() + "/B.AFM";
  findings.unpaired = {small, folder.path() + "/a.PFB", large};
  const std::vector<std::string> advice = adviceFor(findings);
  ASSERT_EQ(advice.size(), 2u) << "one for both halves";
  EXPECT_EQ(advice[0], small + " has metrics without outlines: call a.PFB a.pfb");
  EXPECT_EQ(advice[1], large + " has metrics without outlines: call B.pfa B.PFA");
}

TEST_F(AdviceTest, aConfigurationOfTheToolsOwnIsNotNamed) {
  findings.configuration = "/tmp/x/font-config.xml";
  findings.errors = {
      {fs::FS_ERROR_EMPTY_VALUE, "Empty value in /tmp/x/font-config.xml", "/tmp/x/font-config.xml"},
      {fs::FS_ERROR_FONT_FILE, "bad", "/f.ttf"}};
  hideConfiguration(findings);
  EXPECT_EQ(findings.configuration, "");
  EXPECT_EQ(findings.errors[0].message, "Empty value in these folders");
  EXPECT_EQ(findings.errors[0].file, "");
  EXPECT_EQ(findings.errors[1].file, "/f.ttf");
}

}  // namespace
}  // namespace qxfont
