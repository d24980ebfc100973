#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/service.h"

#include "pool/registry/font_registry.h"
#include "support/named_font.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

constexpr int kThreads = 8;

/// Several threads at work at once; each is told its number, and all start together.
template <class Work>
void together(Work work) {
  std::atomic<int> waiting{kThreads};
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      --waiting;
      while (waiting.load() != 0) std::this_thread::yield();
      work(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

/// The service over real files: two families, a broken font, and a folder that nobody named.
class Threads : public ::testing::Test {
 protected:
  Threads() {
    std::string name = (std::filesystem::temp_directory_path() / "qx-threads-XXXXXX").string();
    root_ = mkdtemp(name.data());
    std::filesystem::create_directories(root_ / "fonts");
    std::filesystem::create_directories(root_ / "later");
    write("fonts/a.ttf", qxtest::namedFont(u"First"));
    write("fonts/b.ttf", qxtest::namedFont(u"Second", {700, false, 5}));
    write("fonts/c.ttf", "broken");
    write("later/d.ttf", qxtest::namedFont(u"Later"));
    write("config.xml", "<font-config windows-registry=\"disable\"><font-folder path=\"" +
                            (root_ / "fonts").string() + "\"/></font-config>");
    setenv("QX_THREADS", (root_ / "config.xml").c_str(), 1);
  }
  ~Threads() override {
    resetServiceForTests();
    unsetenv("QX_THREADS");
    std::filesystem::remove_all(root_);
  }

  void write(const char* name, const std::string& content) const {
    std::ofstream(root_ / name, std::ios::binary) << content;
  }

  std::filesystem::path root_;
};

int countFaces(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*,
               void* count) {
  ++*static_cast<int*>(count);
  return 0;
}

int facesInAll() {
  int count = 0;
  EXPECT_EQ(FS_EnumFontFamilies(u"", countFaces, &count, nullptr, 0), 0);
  return count;
}

TEST_F(Threads, OpenAtOnceAndAllFindOneWholeService) {
  std::vector<FS_FontRegistry*> seen(kThreads);
  together([&](int i) {
    QXError error;
    EXPECT_EQ(FontServiceOpen("QX_THREADS", &error), FS_ERROR_NONE);
    seen[static_cast<std::size_t>(i)] = FS_FontRegistry::open(nullptr, nullptr);
    EXPECT_EQ(facesInAll(), 2) << "nobody sees a service in the middle of its scan";
    EXPECT_EQ(FS_GetFontError(nullptr, 0), 1);
  });
  for (const FS_FontRegistry* registry : seen) EXPECT_EQ(registry, seen.front());
}

TEST_F(Threads, AppendToOneDocumentAndFindItsFontsMeanwhile) {
  QXError opening;
  ASSERT_EQ(FontServiceOpen("QX_THREADS", &opening), FS_ERROR_NONE);
  write("web.woff", qxtest::WoffBuilder::of(qxtest::namedFont(u"Inner")).build());
  const UnicodeString file = UnicodeString::fromUTF8((root_ / "web.woff").string());
  FS_ExtraFontManager document;
  QXError error;
  ASSERT_EQ(document.appendExtraFont(file, FS_FILETYPE_UNKNOWN, u"Web", 0, -1, &error), 0);
  together([&](int i) {
    FS_ExtraFontManager own(&document);
    QXError ownError;
    const auto name = static_cast<char16_t>(u'A' + i);
    EXPECT_EQ(own.appendExtraFont(file, FS_FILETYPE_UNKNOWN, UnicodeString(name), 0, -1, &ownError),
              0);
    FS_FontInfo font;
    ASSERT_TRUE(font.createFont(u"Web", 400, false, 5, document.getExtraFonts()));
    EXPECT_EQ(font.getGlyphID('A', false), 2);
    EXPECT_EQ(own.getFontsCount(), 1);
  });
  EXPECT_EQ(document.getExtraFontFamilies(0)->size(), 1U + kThreads) << "the fonts are shared";
}

TEST_F(Threads, OfWhichOneMeetsTheFailedOpenTheOthersGoOn) {
  write("config.xml", "<font-config/>");
  std::atomic<int> failed{0};
  together([&](int) {
    QXError error;
    if (FontServiceOpen("QX_THREADS", &error) == FS_ERROR_NO_FONT_FOLDER) ++failed;
  });
  EXPECT_EQ(failed.load(), 1);
}

}  // namespace
}  // namespace QXFontService_NS
