#include "layout/gpos/value_record.h"

#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

using QXFontService_NS::layout::applyValue;
using QXFontService_NS::layout::GPOS_ValueRecord;
using QXFontService_NS::layout::PositionRun;
using QXFontService_NS::layout::readValueRecord;
using QXFontService_NS::layout::ValueFormat;
using QXFontService_NS::layout::WorkMeter;

TEST(ValueFormat, EachOfEightBitsIsAWord) {
  EXPECT_EQ(ValueFormat(0).size(), 0u);
  for (unsigned bit = 0; bit < 8; ++bit) EXPECT_EQ(ValueFormat(1U << bit).size(), 2u) << bit;
  EXPECT_EQ(ValueFormat(0xFF).size(), 16u);
  EXPECT_EQ(ValueFormat(0xFF00).size(), 0u);
}

TEST(ValueFormat, FieldsMoveAndDeviceTablesDoNot) {
  for (const unsigned bits : {0x01U, 0x02U, 0x04U, 0x08U, 0xFFU})
    EXPECT_TRUE(ValueFormat(bits).moves()) << bits;
  for (const unsigned bits : {0x00U, 0x10U, 0xF0U, 0xFFF0U})
    EXPECT_FALSE(ValueFormat(bits).moves()) << bits;
}

GPOS_ValueRecord read(const ValueWords& words, unsigned format) {
  std::string bytes;
  for (const int word : words) {
    bytes += static_cast<char>(word >> 8 & 0xFF);
    bytes += static_cast<char>(word & 0xFF);
  }
  return readValueRecord(viewOf(bytes), 0, ValueFormat(format));
}

TEST(ValueRecord, FieldsStandInTheOrderOfTheBits) {
  const GPOS_ValueRecord all = read({1, -2, 3, -4}, 0x0F);
  EXPECT_EQ(all.xPlacement, 1);
  EXPECT_EQ(all.yPlacement, -2);
  EXPECT_EQ(all.xAdvance, 3);
  EXPECT_EQ(all.yAdvance, -4);
}

TEST(ValueRecord, FieldThatTheFormatLacksIsZeroAndTakesNoRoom) {
  const GPOS_ValueRecord some = read({5, 6, 7}, 0x0A);
  EXPECT_EQ(some.xPlacement, 0);
  EXPECT_EQ(some.yPlacement, 5);
  EXPECT_EQ(some.xAdvance, 0);
  EXPECT_EQ(some.yAdvance, 6);
}

TEST(ValueRecord, BytesOutsideReadAsZero) {
  const GPOS_ValueRecord cut = read({5}, 0x0F);
  EXPECT_EQ(cut.xPlacement, 5);
  EXPECT_EQ(cut.yAdvance, 0);
}

Moves applied(unsigned format, const GPOS_ValueRecord& value, int flag = 0) {
  Glyphs glyphs{placed(1, flag)};
  glyphs[0].setMoveX1(7);
  PositionRun run(glyphs, WorkMeter::forStep(1));
  applyValue(run, 0, ValueFormat(format), value);
  return movesOf(glyphs[0]);
}

TEST(ApplyValue, UpwardPlacementIsANegativeMove) {
  EXPECT_EQ(applied(0x02, {1, 100, 1, 1}), (Moves{7, 500, -100}));
}

TEST(ApplyValue, AdvanceInYIsNegatedTwice) {
  EXPECT_EQ(applied(0x08, {1, 1, 1, 100}), (Moves{7, 500, 100}));
}

TEST(ApplyValue, PlacementInXIsTakenFromTheAdvance) {
  EXPECT_EQ(applied(0x01, {10, 1, 1, 1}), (Moves{17, 490, 0}));
  EXPECT_EQ(applied(0x04, {1, 1, -30, 1}), (Moves{7, 470, 0}));
  EXPECT_EQ(applied(0x0F, {10, 20, 30, 50}), (Moves{17, 520, 30}));
}

TEST(ApplyValue, AddsAlsoWhereTheGlyphIsPlacedAbsolutely) {
  EXPECT_EQ(applied(0x05, {10, 0, 30, 0}, kAbsolute), (Moves{17, 520, 0}));
}

TEST(ApplyValue, FirstMoveDropsThePositionFromOutside) {
  EXPECT_EQ(applied(0x01, {10, 0, 0, 0}, kOutside), (Moves{10, 490, 0}));
}

TEST(ApplyValue, LowestNumberIsAValueAndNotAnAbsentOne) {
  EXPECT_EQ(applied(0x02, {0, -32768, 0, 0}), (Moves{7, 500, -32768}));
}

}  // namespace
}  // namespace qxtest::gpos
