#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "qxfontservice/ext/open_file.h"
#include "qxfontservice/glyph_draw_info.h"

#include "pool/registry/registry_fixture.h"
#include "support/dfont_builder.h"
#include "support/glyf_builder.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "support/table_builders.h"
#include "support/truncation.h"
#include "support/ttc_builder.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::CharStringBuilder;
using qxtest::GlyfBuilder;
using qxtest::SfntBuilder;

/// The sample font with other glyphs; FreeType is told that they nest as deep as they like.
SfntBuilder fontOf(const GlyfBuilder& glyphs) {
  SfntBuilder font = qxtest::sampleFont();
  const qxtest::HeadBuilder head{.indexToLocFormat = 1};
  qxtest::MaxpBuilder maxp{.numGlyphs = glyphs.count()};
  maxp.limits[12] = 0xFFFF;  // maxComponentDepth
  font.table("head", head.build()).table("maxp", maxp.build());
  return font.table("glyf", glyphs.glyf()).table("loca", glyphs.loca(true));
}

GlyfBuilder chain(unsigned composites) {
  GlyfBuilder glyphs;
  glyphs.square(500);
  for (unsigned i = 0; i < composites; ++i) glyphs.composite({{i, 1, 1}});
  return glyphs;
}

class FontOutlines : public qxtest::RegistryTest {
 protected:
  FontOutlines() { openFolder(); }
  ~FontOutlines() override { font.deleteFont(); }

  bool open(const std::string& name, const std::string& bytes, int face = 0) {
    world.file(name, bytes);
    font.deleteFont();
    const QXUri uri(icu::UnicodeString::fromUTF8(name), QXCommonNS::URISTR_USER);
    return ext::openFontFile(uri, face, font);
  }
  bool draws(unsigned gid) {
    return font.getGlyphDrawInfo(static_cast<unsigned short>(gid), drawn, false);
  }

  FS_FontInfo font;
  FS_GlyphDrawInfo drawn;
};

TEST_F(FontOutlines, EveryKindOfFontDraws) {
  const SfntBuilder trueType = qxtest::sampleFont();
  const SfntBuilder named = qxtest::sampleOpenType(qxtest::sampleCff());
  const SfntBuilder keyed = qxtest::sampleOpenType(qxtest::sampleCidCff());
  const std::pair<const char*, std::string> files[] = {
      {"/x/a.ttf", trueType.build()},
      {"/x/b.otf", named.build()},
      {"/x/c.otf", keyed.build()},
      {"/x/d.woff", qxtest::WoffBuilder::of(trueType).build()},
      {"/x/e.woff", qxtest::WoffBuilder::of(named).build()},
      {"/x/f.ttc", qxtest::TtcBuilder().member(trueType).build()},
      {"/x/g.dfont", qxtest::DfontBuilder().resource("sfnt", trueType.build()).build()}};
  for (const auto& [name, bytes] : files) {
    ASSERT_TRUE(open(name, bytes)) << name;
    EXPECT_TRUE(font.isGlyphDrawInfoAvialable()) << name;
    EXPECT_TRUE(draws(2)) << name;
    EXPECT_TRUE(drawn.valid);
    EXPECT_EQ(drawn.contours.size(), 1U) << name;
    EXPECT_TRUE(font.getGlyphDrawInfo(2, drawn, true)) << name;
    EXPECT_FALSE(draws(4)) << name;
    EXPECT_FALSE(drawn.valid);
    EXPECT_FALSE(draws(0xFFFF)) << name;
  }
  EXPECT_EQ(world.openStreams(), 0U) << "no font is held open";
}

TEST_F(FontOutlines, AMemberDrawsItsOwnGlyphs) {
  const SfntBuilder small = fontOf(GlyfBuilder().square(100));
  const SfntBuilder large = fontOf(GlyfBuilder().square(900));
  ASSERT_TRUE(open("/x/two.ttc", qxtest::TtcBuilder().member(small).member(large).build(), 1));
  ASSERT_TRUE(draws(0));
  EXPECT_NEAR(drawn.bounds[2], 900, 3);
}

TEST_F(FontOutlines, AnEmptyHandleDrawsNothingAndMarksTheRecord) {
  drawn.valid = true;
  drawn.horiAdvance = 7;
  EXPECT_FALSE(font.isGlyphDrawInfoAvialable());
  EXPECT_FALSE(draws(0));
  EXPECT_FALSE(drawn.valid);
  EXPECT_EQ(drawn.horiAdvance, 7) << "the rest is left as it was";
}

TEST_F(FontOutlines, CompositesOfMoreThanSixtyFourLevelsAreNotDrawn) {
  ASSERT_TRUE(open("/x/deep.ttf", fontOf(chain(70)).build()));
  EXPECT_TRUE(draws(0));
  EXPECT_TRUE(draws(64));
  EXPECT_EQ(drawn.contours.size(), 1U);
  EXPECT_FALSE(draws(65));
  EXPECT_FALSE(drawn.valid);
  EXPECT_FALSE(draws(65));
  EXPECT_TRUE(draws(1)) << "the others of the font are";
}

TEST_F(FontOutlines, TheDeepestChainThatAFontCanHaveIsAnswered) {
  ASSERT_TRUE(open("/x/deepest.ttf", fontOf(chain(65'533)).build()));
  EXPECT_FALSE(draws(65'533));
  EXPECT_FALSE(draws(30'000));
  EXPECT_TRUE(draws(64));
}

TEST_F(FontOutlines, CyclesAndManyWaysToTheSameGlyphEnd) {
  GlyfBuilder glyphs;
  glyphs.composite({{0, 0, 0}}).composite({{2, 0, 0}}).composite({{1, 0, 0}}).square(5);
  for (unsigned i = 3; i < 60; ++i) glyphs.composite({{i, 0, 0}, {i, 1, 1}});
  ASSERT_TRUE(open("/x/cycles.ttf", fontOf(glyphs).build()));
  for (const unsigned gid : {0U, 1U, 2U, 59U}) EXPECT_FALSE(draws(gid)) << gid;
  EXPECT_TRUE(draws(3));
}

// FreeType bounds the points of an outline, not the ways to a glyph that has none.
TEST_F(FontOutlines, ManyWaysToABlankGlyphEnd) {
  GlyfBuilder glyphs;
  glyphs.empty();
  for (unsigned i = 0; i < 60; ++i) glyphs.composite({{i, 0, 0}, {i, 1, 1}});
  ASSERT_TRUE(open("/x/blank.ttf", fontOf(glyphs).build()));
  EXPECT_TRUE(draws(13));
  EXPECT_TRUE(drawn.contours.empty());
  EXPECT_FALSE(draws(14));
  EXPECT_FALSE(draws(60));
}

/// The end of a charstring that adds two glyphs of the standard encoding, the second one moved.
std::string accented(int base, int accent) {
  constexpr unsigned kEndChar = 14;
  return CharStringBuilder().numbers({100, 200, base, accent}).op(kEndChar).str();
}

TEST_F(FontOutlines, AGlyphOfTwoOthersIsDrawnByTheirCodes) {
  qxtest::CffBuilder cff = qxtest::sampleCff();
  cff.glyphs[1] = accented('A', 'B');
  ASSERT_TRUE(open("/x/accent.otf", qxtest::sampleOpenType(cff).build()));
  EXPECT_TRUE(draws(1));
  EXPECT_EQ(drawn.contours.size(), 2U);
}

TEST_F(FontOutlines, CodesOfNoGlyphDrawNothing) {
  const struct {
    int base, accent;
    bool isDrawn;
  } rows[] = {{'A', 'B', true}, {'A', 'C', false}, {'C', 'B', false}, {'A', 0, true}};  // .notdef
  for (const auto& row : rows) {
    qxtest::CffBuilder cff = qxtest::sampleCff();
    cff.charset = qxtest::CffBuilder::charsetFormat0({2, 34, 35});
    cff.glyphs[1] = accented(row.base, row.accent);
    ASSERT_TRUE(open("/x/accent.otf", qxtest::sampleOpenType(cff).build()));
    EXPECT_EQ(draws(1), row.isDrawn) << row.base << " " << row.accent;
  }
}

// The service does not walk such parts: FreeType counts their operators itself.
TEST_F(FontOutlines, APartThatExplodesIsNotDrawn) {
  constexpr unsigned kCallSubr = 10;
  constexpr unsigned kReturn = 11;
  constexpr int kLevels = 12;
  qxtest::CffBuilder cff = qxtest::sampleCff();
  for (int i = 1; i <= kLevels; ++i) {
    CharStringBuilder body;
    for (int k = 0; k < 8 && i < kLevels; ++k) body.call(kCallSubr, i, kLevels);
    cff.privates[0].subrs.push_back(body.op(kReturn).str());
  }
  cff.glyphs[3] = CharStringBuilder().call(kCallSubr, 0, kLevels).str();
  cff.glyphs[1] = accented('A', 'B');
  ASSERT_TRUE(open("/x/accent.otf", qxtest::sampleOpenType(cff).build()));
  EXPECT_FALSE(draws(1));
  EXPECT_TRUE(draws(2));
}

TEST_F(FontOutlines, AWebFontIsGuardedToo) {
  ASSERT_TRUE(open("/x/deep.woff", qxtest::WoffBuilder::of(fontOf(chain(70))).build()));
  EXPECT_TRUE(draws(64));
  EXPECT_FALSE(draws(65));
}

TEST_F(FontOutlines, ACutFontIsAnswered) {
  for (const SfntBuilder& whole :
       {fontOf(chain(3)), qxtest::sampleOpenType(qxtest::sampleCidCff())}) {
    qxtest::forEachPrefix(whole.build(), [this](const std::string& bytes) {
      if (!open("/x/cut.otf", bytes)) return;
      for (unsigned gid = 0; gid < 5; ++gid) (void)draws(gid);
    });
  }
}

// The lock order is outline, then rendering; each thread has handles and faces of its own and
// shares one font with the others.
TEST_F(FontOutlines, ThreadsDrawOneFontAndSeveral) {
  constexpr unsigned kThreads = 4;
  constexpr int kRounds = 50;
  ASSERT_TRUE(open("/x/shared.ttf", fontOf(chain(20)).build()));
  for (unsigned i = 0; i < kThreads; ++i)
    world.file("/x/own" + std::to_string(i) + ".otf",
               qxtest::sampleOpenType(qxtest::sampleCidCff()).build());
  std::atomic<int> failures{0};
  const auto work = [&](unsigned number) {
    FS_GlyphDrawInfo info;
    const std::string name = "/x/own" + std::to_string(number) + ".otf";
    for (int round = 0; round < kRounds; ++round) {
      FS_FontInfo own;
      if (!ext::openFontFile(QXUri(icu::UnicodeString::fromUTF8(name), QXCommonNS::URISTR_USER), 0,
                             own) ||
          !own.isGlyphDrawInfoAvialable() || !own.getGlyphDrawInfo(2, info, false))
        ++failures;
      own.deleteFont();
      if (!font.getGlyphDrawInfo(static_cast<unsigned short>(round % 21), info, false)) ++failures;
    }
  };
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures.load(), 0);
}

}  // namespace
}  // namespace QXFontService_NS
