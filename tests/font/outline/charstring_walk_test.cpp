#include "font/outline/charstring_walk.h"

#include <gtest/gtest.h>

#include "font/outline/outline_source.h"
#include "support/cff_builder.h"
#include "support/sample_open_type.h"
#include "support/truncation.h"

namespace QXFontService_NS::outline {
namespace {

using qxtest::CffBuilder;
using qxtest::CharStringBuilder;

constexpr unsigned kCallSubr = 10;
constexpr unsigned kReturn = 11;
constexpr unsigned kEndChar = 14;
constexpr unsigned kCallGSubr = 29;

/// A whole budget takes its time to be spent; a small one shows the same.
constexpr std::uint64_t kLittleWork = 1 << 16;

/// Subroutine i calls i + 1 eight times; the last one only returns: 8 ^ count operators.
std::vector<std::string> exploding(unsigned code, int count) {
  std::vector<std::string> subrs;
  for (int i = 0; i + 1 < count; ++i) {
    CharStringBuilder body;
    for (int k = 0; k < 8; ++k) body.call(code, i + 1, static_cast<std::size_t>(count));
    subrs.push_back(body.op(kReturn).str());
  }
  subrs.push_back(CharStringBuilder().op(kReturn).str());
  return subrs;
}

std::string calling(unsigned code, std::size_t count) {
  return CharStringBuilder().call(code, 0, count).op(kEndChar).str();
}

bool isBounded(CffBuilder cff, std::uint16_t glyph, std::uint64_t mostWork = kLittleWork) {
  const std::string bytes = cff.build();
  qxtest::OpenedBytes source(bytes);
  const sfnt::TableRecord record = {0, 0, static_cast<std::uint32_t>(bytes.size())};
  return CharStringWalk(record, nullptr, mostWork).isBounded(glyph, source.opener());
}

TEST(CharStringWalk, PassesGlyphsOfBothKindsOfFont) {
  for (std::uint16_t glyph = 0; glyph < 6; ++glyph) {
    EXPECT_TRUE(isBounded(qxtest::sampleCff(), glyph)) << glyph;
    EXPECT_TRUE(isBounded(qxtest::sampleCidCff(), glyph)) << glyph;
  }
}

TEST(CharStringWalk, RefusesAGlyphThatExplodesByGlobalSubroutines) {
  CffBuilder cff = qxtest::sampleCff();
  cff.globalSubrs = exploding(kCallGSubr, 12);
  cff.glyphs[2] = calling(kCallGSubr, 12);
  EXPECT_FALSE(isBounded(cff, 2));
  EXPECT_TRUE(isBounded(cff, 3)) << "the others of the font pass";
}

TEST(CharStringWalk, CountsTheBytesOfAGlyphThatCallsNothing) {
  CffBuilder cff = qxtest::sampleCff();
  cff.glyphs[2] = std::string(1000, '\x8B');
  EXPECT_TRUE(isBounded(cff, 2, 1000));
  EXPECT_FALSE(isBounded(cff, 2, 999));
}

TEST(CharStringWalk, RefusesAGlyphThatExplodesByLocalSubroutines) {
  CffBuilder cff = qxtest::sampleCff();
  cff.privates[0].subrs = exploding(kCallSubr, 12);
  cff.glyphs[2] = calling(kCallSubr, 12);
  EXPECT_FALSE(isBounded(cff, 2));
}

TEST(CharStringWalk, TakesTheSubroutinesOfTheGlyphsOwnFontDict) {
  CffBuilder cff = qxtest::sampleCidCff();
  cff.privates[1].subrs = exploding(kCallSubr, 12);
  cff.glyphs[2] = cff.glyphs[3] = calling(kCallSubr, 12);
  EXPECT_TRUE(isBounded(cff, 2));
  EXPECT_FALSE(isBounded(cff, 3));
}

TEST(CharStringWalk, RefusesASubroutineThatCallsItself) {
  CffBuilder cff = qxtest::sampleCff();
  cff.globalSubrs = {CharStringBuilder().call(kCallGSubr, 0, 1).call(kCallGSubr, 0, 1).str()};
  cff.glyphs[2] = calling(kCallGSubr, 1);
  EXPECT_FALSE(isBounded(cff, 2));
}

TEST(CharStringWalk, PassesWhatIsLargeAndEnds) {
  CffBuilder cff = qxtest::sampleCff();
  cff.globalSubrs = exploding(kCallGSubr, 5);
  cff.glyphs[2] = calling(kCallGSubr, 5);
  EXPECT_TRUE(isBounded(cff, 2));
}

// What the walk cannot read is FreeType's to judge: only spent budgets refuse.
TEST(CharStringWalk, AReadThatFailsRefusesNothing) {
  CffBuilder cff = qxtest::sampleCff();
  cff.globalSubrs = exploding(kCallGSubr, 12);
  cff.glyphs[2] = calling(kCallGSubr, 12);
  const std::string bytes = cff.build();
  const sfnt::TableRecord record = {0, 0, static_cast<std::uint32_t>(bytes.size())};
  CharStringWalk unopened(record, nullptr);
  EXPECT_TRUE(unopened.isBounded(2, [] { return embed::FontStream(); }));
  qxtest::OpenedBytes noTable("none");
  EXPECT_TRUE(CharStringWalk(record, nullptr).isBounded(2, noTable.opener()));
  CffBuilder noGlyphs = cff;
  noGlyphs.writeCharStrings = false;
  EXPECT_TRUE(isBounded(noGlyphs, 2));
}

TEST(CharStringWalk, GoesOnWithoutLocalSubroutinesWhereAPrivateDictIsEmptyOrMissing) {
  CffBuilder cff = qxtest::sampleCff();
  cff.glyphs[2] = calling(kCallSubr, 12);
  cff.privates[0].dict = {};
  EXPECT_TRUE(isBounded(cff, 2));
  cff.globalSubrs = exploding(kCallGSubr, 12);
  cff.glyphs[3] = calling(kCallGSubr, 12);
  EXPECT_FALSE(isBounded(cff, 3)) << "the global ones are walked all the same";
}

TEST(CharStringWalk, TheLastGlyphOfFdSelectFormat0HasNoFontDict) {
  CffBuilder cff = qxtest::sampleCidCff();
  cff.fdSelect = CffBuilder::fdSelect0({0, 0, 1, 1});
  cff.privates[1].subrs = exploding(kCallSubr, 12);
  cff.glyphs[2] = cff.glyphs[3] = calling(kCallSubr, 12);
  EXPECT_FALSE(isBounded(cff, 2));
  EXPECT_TRUE(isBounded(cff, 3));
}

TEST(CharStringWalk, AFontDictThatIsNotThereHasNoSubroutines) {
  CffBuilder cff = qxtest::sampleCidCff();
  cff.fdSelect = CffBuilder::fdSelect3({{0, 0}, {3, 200}}, 4);
  cff.glyphs[3] = calling(kCallSubr, 12);
  EXPECT_TRUE(isBounded(cff, 3));
}

TEST(CharStringWalk, WalksAGlyphOnce) {
  CffBuilder cff = qxtest::sampleCff();
  cff.globalSubrs = exploding(kCallGSubr, 12);
  cff.glyphs[2] = calling(kCallGSubr, 12);
  const std::string bytes = cff.build();
  qxtest::OpenedBytes source(bytes);
  CharStringWalk walk({0, 0, static_cast<std::uint32_t>(bytes.size())}, nullptr, kLittleWork);
  for (int i = 0; i < 200; ++i) EXPECT_FALSE(walk.isBounded(2, source.opener()));
  EXPECT_EQ(source.opened, 2);  // the structures, and the window
}

TEST(CharStringWalk, AnyDamageIsAnswered) {
  CffBuilder cff = qxtest::sampleCidCff();
  cff.globalSubrs = exploding(kCallGSubr, 3);
  cff.privates[1].subrs = exploding(kCallSubr, 3);
  cff.glyphs[2] = calling(kCallGSubr, 3);
  cff.glyphs[3] = calling(kCallSubr, 3);
  const std::string bytes = cff.build();
  qxtest::forEachDamage(bytes, [&](const std::string& damaged) {
    qxtest::OpenedBytes source(damaged);
    CharStringWalk walk({0, 0, static_cast<std::uint32_t>(bytes.size())}, nullptr, kLittleWork);
    for (std::uint16_t glyph = 0; glyph < 5; ++glyph) (void)walk.isBounded(glyph, source.opener());
  });
}

}  // namespace
}  // namespace QXFontService_NS::outline
