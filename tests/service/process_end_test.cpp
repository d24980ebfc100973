#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/glyph_draw_info.h"
#include "qxfontservice/service.h"

#include "service/service_test.h"
#include "support/sample_font.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

/// A font that tells its end.
class TellingFont final : public qxtest::PlainFont {
 public:
  TellingFont() : PlainFont(QXUri(u"/f/telling.ttf", QXCommonNS::URISTR_USER)) {}
  ~TellingFont() override { std::fputs("font destroyed\n", stderr); }
};

/// Each case ends a process of its own, as a host ends.
class ProcessEnd : public qxtest::ServiceTest {
 protected:
  ProcessEnd() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

  [[noreturn]] static void leave() {
    registry().mainPool().keepFont(new TellingFont);
    std::fputs("leaving\n", stderr);
    std::exit(0);
  }
  [[noreturn]] static void closeAndLeave() {
    registry();
    FontServiceClose();
    leave();
  }
  [[noreturn]] void leaveWithOpenHandles() const {
    static FS_FontInfo pooled;
    static FS_FontInfo document;
    addToMain(new qxtest::LoadedFont(u"Fam"));
    pooled.createFont(u"Fam", 400, false);
    document.createFont(QXUri(u"/doc/a.ttf", QXCommonNS::URISTR_USER));
    if (pooled.getFont() == nullptr || document.getFont() == nullptr) std::exit(1);
    leave();
  }
  /// A document whose font has a face open, and which the host destroys behind the service.
  [[noreturn]] static void leaveWithADocument() {
    static FS_ExtraFontManager document;
    static FS_FontInfo font;
    FS_GlyphDrawInfo drawn;
    QXError error;
    const int number =
        document.appendExtraFont(u"/doc/a.woff", FS_FILETYPE_UNKNOWN, u"Web", 0, -1, &error);
    if (number != 0 || !font.createFont(u"Web", 400, false, document.getExtraFonts()) ||
        !font.getGlyphDrawInfo(2, drawn, false)) {
      std::exit(1);
    }
    leave();
  }
  [[noreturn]] static void leaveAfterAFailedOpen() {
    try {
      FontServiceOpen("QX_CONFIG", nullptr);
    } catch (const QXError&) {
      leave();
    }
    std::exit(1);
  }
};

TEST_F(ProcessEnd, DestroysTheFontsOfTheService) {
  EXPECT_EXIT(leave(), testing::ExitedWithCode(0), "leaving\nfont destroyed");
}

TEST_F(ProcessEnd, ClosingLeavesTheFontsToIt) {
  EXPECT_EXIT(closeAndLeave(), testing::ExitedWithCode(0), "leaving\nfont destroyed");
}

TEST_F(ProcessEnd, HandlesThatAreStillOpenDoNoHarm) {
  world.file("/doc/a.ttf", qxtest::sampleFont().build());
  EXPECT_EXIT(leaveWithOpenHandles(), testing::ExitedWithCode(0), "leaving\nfont destroyed");
}

TEST_F(ProcessEnd, ADocumentMayGoBehindTheService) {
  world.file("/doc/a.woff", qxtest::WoffBuilder::of(qxtest::sampleFont()).build());
  EXPECT_EXIT(leaveWithADocument(), testing::ExitedWithCode(0), "leaving\nfont destroyed");
}

TEST_F(ProcessEnd, AHalfBuiltServiceIsDestroyedToo) {
  world.setEnvironment("QX_CONFIG", "/c.xml").file("/c.xml", "<font-config/>");
  EXPECT_EXIT(leaveAfterAFailedOpen(), testing::ExitedWithCode(0), "leaving\nfont destroyed");
}

TEST_F(ProcessEnd, WithoutAnyCallThereIsNothingToDo) {
  EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace QXFontService_NS
