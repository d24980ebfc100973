#include "qxfont/cli/progress.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "qxfont/cli/opening_progress.h"

namespace qxfont {
namespace {

TEST(ProgressLine, showsHowFarTheWorkIs) {
  EXPECT_EQ(progressLine("setting", 0, 4), "setting [........................] 0/4");
  EXPECT_EQ(progressLine("setting", 1, 4), "setting [######..................] 1/4");
  EXPECT_EQ(progressLine("setting", 4, 4), "setting [########################] 4/4");
  EXPECT_EQ(progressLine("setting", 9, 4), "setting [########################] 9/4");
  EXPECT_EQ(progressLine("setting", 0, 0), "setting [........................] 0/0");
}

TEST(OpeningLine, tellsFilesFacesAndTheFolderFitForATerminal) {
  EXPECT_EQ(openingLine({12, 34, u"/usr/share/fonts/"}),
            "opening 12 files, 34 faces  /usr/share/fonts/");
  EXPECT_EQ(openingLine({0, 0, u"/a\u001bb/"}),
            "opening 0 files, 0 faces  /a\uFFFD"
            "b/");
}

TEST(CutToColumns, keepsWhatFits) {
  EXPECT_EQ(cutToColumns("abc", 3), "abc");
  EXPECT_EQ(cutToColumns("abcd", 3), "abc");
  EXPECT_EQ(cutToColumns("abc", 0), "");
  EXPECT_EQ(cutToColumns("", 0), "");
}

TEST(CutToColumns, cutsWholeCharactersAndCountsWideOnesTwice) {
  EXPECT_EQ(cutToColumns("a猫猫", 5), "a猫猫");
  EXPECT_EQ(cutToColumns("a猫猫", 4), "a猫");
  EXPECT_EQ(cutToColumns("é", 0), "");
}

/// Standard error led to a file that is no terminal, from wherever the test is run.
class NoTerminal {
 public:
  NoTerminal() : kept_(dup(STDERR_FILENO)), file_(std::tmpfile()) {
    dup2(fileno(file_), STDERR_FILENO);
  }
  ~NoTerminal() {
    dup2(kept_, STDERR_FILENO);
    close(kept_);
    std::fclose(file_);
  }
  NoTerminal(const NoTerminal&) = delete;
  NoTerminal& operator=(const NoTerminal&) = delete;

 private:
  int kept_;
  std::FILE* file_;
};

TEST(Progress, isNeverDueWhereStandardErrorIsNoTerminal) {
  const NoTerminal noTerminal;
  Progress progress("waiting");
  EXPECT_FALSE(progress.isDue());
  std::this_thread::sleep_for(std::chrono::milliseconds(350));  // a terminal's turn comes by then
  EXPECT_FALSE(progress.isDue());
}

}  // namespace
}  // namespace qxfont
