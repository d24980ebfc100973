#include "qxfontservice/glyph_id_position.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "layout/records/glyph_record_access.h"

namespace QXFontService_NS {
namespace {

constexpr int kAbsent = GlyphRecordAccess::kAbsent;

struct Moves {
  int x1, x2, y;
  bool operator==(const Moves&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Moves& moves) {
  return out << moves.x1 << " " << moves.x2 << " " << moves.y;
}

Moves movesOf(const GlyphIDPosition& record) {
  return {record.getMoveX1(), record.getMoveX2(), record.getMoveY()};
}

GlyphIDPosition movedRecord(int flag) {
  GlyphIDPosition record(1, 500);
  record.setMoveX1(7);
  record.setMoveX2(480);
  record.setMoveY(-3);
  record.setFlag(flag);
  return record;
}

TEST(GlyphIDPosition, IsEmptyAtFirst) {
  const GlyphIDPosition record;
  EXPECT_EQ(record.getCorrespondLength(), 0);
  EXPECT_EQ(record.getWidth(), 0);
  EXPECT_EQ(movesOf(record), (Moves{0, 0, 0}));
  EXPECT_EQ(record.getFlag(), 0);
  EXPECT_EQ(record.getGlyphID(), 0xFFFF);
  EXPECT_EQ(record.getGlyphClassDef(), GCD_NONE);
  EXPECT_EQ(record.getDecompositionType(), U_DT_ISOLATED);
  EXPECT_EQ(static_cast<int>(record.getDecompositionType()), 8);
  EXPECT_EQ(static_cast<int>(record.getJoiningGroup()), 0);
  EXPECT_EQ(record.getSkipInfo(), 0);
  EXPECT_EQ(record.getCompInfo(), 0);
  static_assert(!std::is_polymorphic_v<GlyphIDPosition>);
}

TEST(GlyphIDPosition, TakesLengthAndWidth) {
  const GlyphIDPosition record(2, 600);
  EXPECT_EQ(record.getCorrespondLength(), 2);
  EXPECT_EQ(record.getWidth(), 600);
  EXPECT_EQ(movesOf(record), (Moves{0, 600, 0}));
  EXPECT_FALSE(record.hasGlyph());
}

TEST(GlyphIDPosition, CountsCharacters) {
  GlyphIDPosition record(2, 0);
  record.addCorrespondLength(3);
  record.incLength();
  EXPECT_EQ(record.getCorrespondLength(), 6);
  record.setCorrespondLength(0x18000);
  EXPECT_EQ(record.getCorrespondLength(), -0x8000);
  record.addCorrespondLength(-1);
  EXPECT_EQ(record.getCorrespondLength(), 0x7FFF);
  record.clrLen();
  EXPECT_EQ(record.getCorrespondLength(), 0);
}

TEST(GlyphIDPosition, CutsToSixteenBitsAndWraps) {
  GlyphIDPosition record;
  record.setWidth(0x12345);
  EXPECT_EQ(record.getWidth(), 0x2345);
  record.setMoveX1(0x7FFF);
  record.addMoveX1(1);
  EXPECT_EQ(record.getMoveX1(), -0x8000);
  record.setMoveX2(-0x8000);
  record.addMoveX2(-1);
  EXPECT_EQ(record.getMoveX2(), 0x7FFF);
  record.setMoveY(0xFFFF);
  EXPECT_EQ(record.getMoveY(), -1);
  record.setSkipInfo(0x10001);
  record.setCompInfo(0xFFFF);
  EXPECT_EQ(record.getSkipInfo(), 1);
  EXPECT_EQ(record.getCompInfo(), -1);
}

TEST(GlyphIDPosition, MoveXIsTheWholeSum) {
  GlyphIDPosition record;
  record.setMoveX1(0x7FFF);
  record.setMoveX2(0x7FFF);
  EXPECT_EQ(record.getMoveX(), 0xFFFE);
}

TEST(GlyphIDPosition, WidthLeavesTheRemainingAdvance) {
  GlyphIDPosition record(1, 500);
  record.setWidth(300);
  EXPECT_EQ(record.getMoveX2(), 500);
  record.clrWidth();
  EXPECT_EQ(record.getWidth(), 0);
  EXPECT_EQ(record.getMoveX2(), 500);
  record.addMoveX1(20);
  EXPECT_EQ(record.getMoveX2(), 500);
}

TEST(GlyphIDPosition, VerticalGettersAnswerTheHorizontalFields) {
  const GlyphIDPosition record = movedRecord(0);
  for (const bool vertical : {false, true}) {
    EXPECT_EQ(record.getMoveX1V(vertical), record.getMoveX1());
    EXPECT_EQ(record.getMoveX2V(vertical), record.getMoveX2());
    EXPECT_EQ(record.getMoveXV(vertical), record.getMoveX());
    EXPECT_EQ(record.getMoveY1V(vertical), record.getMoveY());
    EXPECT_EQ(record.getWidthV(vertical), record.getWidth());
  }
}

TEST(GlyphIDPosition, ZeroMoveZeroesTheWidthToo) {
  GlyphIDPosition record = movedRecord(0x8000);
  record.setZeroMove();
  EXPECT_EQ(record.getWidth(), 0);
  EXPECT_EQ(movesOf(record), (Moves{0, 0, 0}));
  EXPECT_EQ(record.getFlag(), 0x8000);
}

TEST(GlyphIDPosition, FlagsAreSetAndClearedBitByBit) {
  GlyphIDPosition record;
  record.setFlag(0x8001);
  record.setFlag(0x14000);
  EXPECT_EQ(record.getFlag(), 0xC001);
  record.clrFlag(0x8002);
  EXPECT_EQ(record.getFlag(), 0x4001);
}

TEST(GlyphIDPosition, HoldsGlyphAndClass) {
  GlyphIDPosition record;
  record.setGlyphID(7);
  EXPECT_EQ(record.getGlyphClassDef(), GCD_NONE);
  EXPECT_TRUE(record.hasGlyph());
  EXPECT_TRUE(record.hasGlyphInfo());
  record.setGlyphID(8, GCD_MARK);
  record.setGlyphClassDef(GCD_BASE);
  EXPECT_EQ(record.getGlyphIDClassPair().glyphID, 8);
  EXPECT_EQ(record.getGlyphIDClassPair().glyphClass, GCD_BASE);
  const GlyphIDClassPair& inside = record.getGlyphIDClassPair();
  record.setGlyphIDClassPair({9, GCD_LIGATURE});
  EXPECT_EQ(inside.glyphID, 9);
  record.setDecompositionType(U_DT_FINAL);
  record.setJoiningGroup(U_JG_BEH);
  EXPECT_EQ(record.getDecompositionType(), U_DT_FINAL);
  EXPECT_EQ(record.getJoiningGroup(), U_JG_BEH);
}

TEST(GlyphIDPosition, SetGlyphStartsAnUnmovedCharacter) {
  for (const bool unused : {false, true}) {
    GlyphIDPosition record = movedRecord(0xFFFF);
    record.setSkipInfo(3);
    record.setCompInfo(4);
    record.setGlyph(5, GCD_BASE, 250, unused);
    EXPECT_EQ(record.getCorrespondLength(), 1);
    EXPECT_EQ(record.getGlyphID(), 5);
    EXPECT_EQ(record.getGlyphClassDef(), GCD_BASE);
    EXPECT_EQ(record.getWidth(), 250);
    EXPECT_EQ(movesOf(record), (Moves{0, 250, 0}));
    EXPECT_EQ(record.getFlag() + record.getSkipInfo() + record.getCompInfo(), 0);
  }
}

TEST(GlyphIDPosition, SetGlyphWithoutAGlyphHasNoWidth) {
  GlyphIDPosition record = movedRecord(0xFFFF);
  record.setGlyph(0xFFFF, GCD_MARK, 250, false);
  EXPECT_EQ(record.getCorrespondLength(), 1);
  EXPECT_EQ(record.getGlyphClassDef(), GCD_MARK);
  EXPECT_EQ(record.getWidth(), 0);
  EXPECT_EQ(movesOf(record), (Moves{0, 0, 0}));
}

TEST(GlyphIDPosition, SetGlyph2LeavesTheLength) {
  GlyphIDPosition record(4, 0);
  record.setGlyph2({5, GCD_BASE}, 250);
  EXPECT_EQ(record.getCorrespondLength(), 4);
  EXPECT_EQ(movesOf(record), (Moves{0, 250, 0}));
  record.setGlyph2({0xFFFF, GCD_BASE}, 250);
  EXPECT_EQ(record.getCorrespondLength(), 4);
  EXPECT_EQ(record.getMoveX2(), 0);
}

TEST(GlyphIDPosition, ClearingAndIgnoringDifferInTheClass) {
  GlyphIDPosition record = movedRecord(0xFFFF);
  record.setGlyphID(3, GCD_MARK);
  record.setDecompositionType(U_DT_FINAL);
  record.setJoiningGroup(U_JG_BEH);
  record.setSkipInfo(3);
  record.setCompInfo(4);
  GlyphIDPosition ignored = record;
  record.clearGlyph();
  ignored.ignoreGlyph();
  EXPECT_EQ(record.getGlyphClassDef(), GCD_NONE);
  EXPECT_EQ(ignored.getGlyphClassDef(), GCD_IGNORED);
  for (const GlyphIDPosition* each : {&record, &ignored}) {
    EXPECT_FALSE(each->hasGlyph());
    EXPECT_EQ(each->getCorrespondLength(), 0);
    EXPECT_EQ(each->getWidth(), 0);
    EXPECT_EQ(movesOf(*each), (Moves{0, 0, 0}));
    EXPECT_EQ(each->getFlag() + each->getSkipInfo() + each->getCompInfo(), 0);
    EXPECT_EQ(each->getDecompositionType(), U_DT_ISOLATED);
    EXPECT_EQ(static_cast<int>(each->getJoiningGroup()), 0);
  }
}

struct MoveCase {
  const char* what;
  int flag;
  int xPlacement, yPlacement, xAdvance, yAdvance;
  Moves want;
};

// The record starts as (7, 480, -3) with a width of 500.
TEST(GlyphIDPosition, AddPositionMoves) {
  const MoveCase cases[] = {
      {"additive, all absent", 0, kAbsent, kAbsent, kAbsent, kAbsent, {7, 480, -3}},
      {"additive placement compensates", 0, 10, kAbsent, kAbsent, kAbsent, {17, 470, -3}},
      {"additive advance", 0, kAbsent, kAbsent, 20, kAbsent, {7, 500, -3}},
      {"additive y, advance subtracted", 0, kAbsent, 30, kAbsent, 4, {7, 480, 23}},
      {"absolute, all absent", 0x8000, kAbsent, kAbsent, kAbsent, kAbsent, {7, 480, -3}},
      {"absolute placement sets", 0x8000, 10, kAbsent, kAbsent, kAbsent, {10, 477, -3}},
      {"absolute advance counts from the width", 0x8000, 10, kAbsent, 20, kAbsent, {10, 510, -3}},
      {"absolute advance alone", 0x8000, kAbsent, kAbsent, 20, kAbsent, {7, 513, -3}},
      {"absolute y sets, its advance is ignored", 0x8000, kAbsent, 30, kAbsent, 4, {7, 480, 30}},
      {"outside position is lost first", 2, 10, kAbsent, kAbsent, kAbsent, {10, 490, 0}},
      {"also when all are absent", 2, kAbsent, kAbsent, kAbsent, kAbsent, {0, 500, 0}},
      {"also when absolute", 0x8002, 10, kAbsent, kAbsent, kAbsent, {10, 490, 0}},
      {"wraps", 0, 0x8000, kAbsent, kAbsent, kAbsent, {-32761, -32288, -3}}};
  for (const MoveCase& c : cases) {
    GlyphIDPosition record = movedRecord(c.flag);
    GlyphRecordAccess::addPosition(record, c.xPlacement, c.yPlacement, c.xAdvance, c.yAdvance);
    EXPECT_EQ(movesOf(record), c.want) << c.what;
    EXPECT_EQ(record.getFlag(), c.flag & ~2) << c.what;
  }
}

TEST(GlyphIDPosition, AddPosition2AddsEvenWhenPlacedAbsolutely) {
  GlyphIDPosition record = movedRecord(0x8002);
  GlyphRecordAccess::addPosition2(record, 10, 20, 30, 40);
  EXPECT_EQ(movesOf(record), (Moves{10, 520, -20}));
  EXPECT_EQ(record.getFlag(), 0x8000);
}

TEST(GlyphIDPosition, OutsidePositionIsClearedOnce) {
  GlyphIDPosition record = movedRecord(0x4002);
  GlyphRecordAccess::clearOutsideGPOSInfo(record);
  EXPECT_EQ(movesOf(record), (Moves{0, 500, 0}));
  EXPECT_EQ(record.getFlag(), 0x4000);
  record.setMoveX1(5);
  GlyphRecordAccess::clearOutsideGPOSInfo(record);
  EXPECT_EQ(record.getMoveX1(), 5);
}

}  // namespace
}  // namespace QXFontService_NS
