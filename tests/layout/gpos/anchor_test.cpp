#include "layout/gpos/anchor.h"

#include <gtest/gtest.h>

#include "layout/gpos/mark_array.h"
#include "layout/table/graph_reader.h"
#include "layout/test_font.h"
#include "support/gpos_builder.h"
#include "support/offset_table.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::anchorTable;
using qxtest::OffsetTable;

GPOS_Anchor readFrom(const std::string& bytes, unsigned offset) {
  const qxtest::TestFont font;
  return readAnchor(GraphReader(font, qxtest::viewOf(bytes)), 0, offset);
}

TEST(Anchor, AllFormatsGiveTheirCoordinatesAlone) {
  for (const unsigned format : {1U, 2U, 3U}) {
    const std::string bytes = "--" + anchorTable(-300, 700, format);
    const GPOS_Anchor anchor = readFrom(bytes, 2);
    EXPECT_FALSE(anchor.isNull()) << format;
    EXPECT_EQ(anchor.getX(), -300) << format;
    EXPECT_EQ(anchor.getY(), 700) << format;
  }
}

TEST(Anchor, OffsetZeroAndUnknownFormatAreNull) {
  EXPECT_TRUE(readFrom(anchorTable(1, 2), 0).isNull());
  for (const unsigned format : {0U, 4U, 0xFFFFU})
    EXPECT_TRUE(readFrom("--" + anchorTable(1, 2, format), 2).isNull()) << format;
  EXPECT_TRUE(readFrom(anchorTable(1, 2), 600).isNull());
}

TEST(Anchor, BytesOutsideReadAsZero) {
  const std::string bytes = "--" + anchorTable(0x1234, 700).substr(0, 3);
  EXPECT_EQ(readFrom(bytes, 2).getX(), 0x1200);
  EXPECT_EQ(readFrom(bytes, 2).getY(), 0);
}

TEST(AnchorRows, RowsOfClasses) {
  const std::string bytes =
      OffsetTable()
          .u16(2)
          .offsets({anchorTable(1, 2), "", anchorTable(3, 4), anchorTable(5, 6)})
          .str();
  const qxtest::TestFont font;
  GraphReader reader(font, qxtest::viewOf(bytes));
  AnchorRows rows(2);
  EXPECT_EQ(rows.append(reader, 0, 2, 2), 2u);
  EXPECT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows.anchor(0, 0).getX(), 1);
  EXPECT_TRUE(rows.anchor(0, 1).isNull());
  EXPECT_EQ(rows.anchor(1, 0).getX(), 3);
  EXPECT_EQ(rows.anchor(1, 1).getY(), 6);
}

TEST(AnchorRows, OutsideIsNull) {
  const std::string bytes = OffsetTable().u16(1).offset(anchorTable(1, 2)).str();
  const qxtest::TestFont font;
  GraphReader reader(font, qxtest::viewOf(bytes));
  AnchorRows rows(1);
  rows.append(reader, 0, 2, 1);
  EXPECT_TRUE(rows.anchor(-1, 0).isNull());
  EXPECT_TRUE(rows.anchor(1, 0).isNull());
  EXPECT_TRUE(rows.anchor(0, 1).isNull());
  EXPECT_FALSE(rows.anchor(0, 0).isNull());
}

TEST(AnchorRows, CountIsClippedToWholeRows) {
  const std::string bytes(2 + 2 * 5, '\0');
  const qxtest::TestFont font;
  GraphReader reader(font, qxtest::viewOf(bytes));
  AnchorRows pairs(2);
  EXPECT_EQ(pairs.append(reader, 0, 2, 0xFFFF), 2u);
  AnchorRows none(0);
  EXPECT_EQ(none.append(reader, 0, 2, 0xFFFF), 0u);
}

TEST(MarkArray, GivesClassAndAnchorByIndex) {
  const std::string bytes =
      OffsetTable().u16(2).u16(7).offset(anchorTable(1, 2)).u16(8).offset("").str();
  const qxtest::TestFont font;
  GraphReader reader(font, qxtest::viewOf(bytes));
  const MarkArray marks(reader, 0);
  EXPECT_EQ(marks.mark(0).markClass, 7);
  EXPECT_EQ(marks.mark(0).anchor.getY(), 2);
  EXPECT_EQ(marks.mark(1).markClass, 8);
  EXPECT_TRUE(marks.mark(1).anchor.isNull());
  EXPECT_TRUE(marks.mark(2).anchor.isNull());
  EXPECT_TRUE(marks.mark(-1).anchor.isNull());
}

}  // namespace
}  // namespace QXFontService_NS::layout
