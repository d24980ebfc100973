#include "qxfont/cli/output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "qxfont/cli/output_file.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/temporary_folder.h"

namespace qxfont {
namespace {

namespace files = std::filesystem;

TEST(JsonNumber, isAnIntegerWhereItIsOne) {
  EXPECT_EQ(number(1527.0F).dump(), "1527");
  EXPECT_EQ(number(-7).dump(), "-7");
  EXPECT_EQ(number(0.0F).dump(), "0");
}

TEST(JsonNumber, hasTheDigitsThatTellAFloatApart) {
  EXPECT_EQ(number(0.1F).dump(), "0.1");
  EXPECT_EQ(number(12.24F).dump(), "12.24");
}

TEST(JsonNumber, thatIsNoneIsZero) {
  EXPECT_EQ(number(std::numeric_limits<double>::quiet_NaN()).dump(), "0");
  EXPECT_EQ(number(std::numeric_limits<double>::infinity()).dump(), "0");
}

TEST(JsonText, keepsKeysInOrderAndSurvivesBytesThatAreNoUtf8) {
  Json json;
  json["z"] = 1;
  json["a"] = "\xE9";
  EXPECT_EQ(jsonText(json), "{\n \"z\": 1,\n \"a\": \"\xEF\xBF\xBD\"\n}");
}

class OutputFilesTest : public testing::Test {
 protected:
  [[nodiscard]] std::string path(const std::string& name) const {
    return folder_.path() + "/" + name;
  }
  [[nodiscard]] std::ptrdiff_t count() const {
    return std::distance(files::directory_iterator(folder_.path()), files::directory_iterator());
  }
  static std::string content(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  template <class Function>
  static bool isRefused(Function&& function) {
    try {
      function();
    } catch (const ToolError& error) {
      return error.status() == Status::notWritten;
    }
    return false;
  }

  TemporaryFolder folder_;
};

TEST_F(OutputFilesTest, standAtTheirPlaceAfterCommit) {
  OutputFiles out;
  out.add(path("a"), "one");
  out.add(path("b"), "");
  EXPECT_FALSE(files::exists(path("a")));
  out.commit();
  EXPECT_EQ(content(path("a")), "one");
  EXPECT_TRUE(files::exists(path("b")));
  EXPECT_EQ(count(), 2);
}

TEST_F(OutputFilesTest, leaveNothingWithoutCommit) {
  {
    OutputFiles out;
    out.add(path("a"), "one");
    out.addFolder(path("f"));
    out.addToFolder("x", "two");
  }
  EXPECT_EQ(count(), 0);
}

TEST_F(OutputFilesTest, replaceWhatWasThere) {
  std::ofstream(path("a")) << "old and longer";
  OutputFiles out;
  out.add(path("a"), "new");
  EXPECT_EQ(content(path("a")), "old and longer");
  out.commit();
  EXPECT_EQ(content(path("a")), "new");
}

TEST_F(OutputFilesTest, goWhereALinkLeads) {
  std::ofstream(path("real")) << "old";
  files::create_symlink(path("real"), path("link"));
  OutputFiles out;
  out.add(path("link"), "new");
  out.commit();
  EXPECT_TRUE(files::is_symlink(path("link")));
  EXPECT_EQ(content(path("real")), "new");
}

TEST_F(OutputFilesTest, holdAFolderAndItsFiles) {
  files::create_directory(path("f"));
  OutputFiles out;
  out.addFolder(path("f/"));
  out.addToFolder("x", "one");
  out.addToFolder("y", "two");
  out.commit();
  EXPECT_EQ(content(path("f/x")) + content(path("f/y")), "onetwo");
  EXPECT_EQ(count(), 1);
}

TEST_F(OutputFilesTest, areRefusedWhereNoFileCanStand) {
  files::create_directories(path("full/x"));
  OutputFiles out;
  EXPECT_TRUE(isRefused([&] { out.add(path("no/such/folder"), "x"); }));
  EXPECT_TRUE(isRefused([&] { out.add(path("full"), "x"); }));
  EXPECT_TRUE(isRefused([&] { out.add("/dev/null", "x"); }));
  EXPECT_TRUE(isRefused([&] { out.addFolder(path("full")); }));
  EXPECT_EQ(count(), 1);
}

TEST_F(OutputFilesTest, areAllOrNone) {
  {
    OutputFiles out;
    out.add(path("a"), "one");
    out.add(path("b"), "two");
    files::create_directories(path("b/in/the/way"));
    EXPECT_TRUE(isRefused([&] { out.commit(); }));
  }
  EXPECT_FALSE(files::exists(path("a")));
  EXPECT_EQ(count(), 1);
}

TEST(TemporaryFolderTest, goesWithAllThatStandsInIt) {
  std::string path;
  {
    const TemporaryFolder folder;
    path = folder.path();
    files::create_directory(path + "/sub");
    std::ofstream(path + "/sub/file") << "x";
    EXPECT_TRUE(files::exists(path + "/sub/file"));
  }
  EXPECT_FALSE(files::exists(path));
}

}  // namespace
}  // namespace qxfont
