#include "font/outline/draw_glyph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include FT_OUTLINE_H

#include "qxcommon/mem_stream.h"
#include "qxcommon/uri.h"

#include "font/contract/free_type_face.h"
#include "font/outline/outline_recorder.h"
#include "support/glyf_builder.h"
#include "support/random_draw.h"
#include "support/sfnt_builder.h"
#include "support/table_builders.h"

namespace QXFontService_NS {
namespace {

using outline::drawGlyph;
using outline::drawScale;

/// Glyph 0 empty, 1 a square of 500, 2 a contour with an off-curve point.
std::string fontBytes(unsigned unitsPerEm) {
  qxtest::GlyfBuilder glyphs;
  glyphs.empty().square(500).simple({{{100, 0}, {300, 400, false}, {500, 0}}});
  qxtest::MetricsBuilder metrics;
  metrics.metrics = {{250, 0}, {600, 0}, {700, 100}};
  qxtest::HeadBuilder head;
  head.unitsPerEm = unitsPerEm;
  qxtest::HheaBuilder hhea;
  hhea.numberOfMetrics = 3;
  qxtest::MaxpBuilder maxp;
  maxp.numGlyphs = 3;
  return qxtest::SfntBuilder()
      .table("glyf", glyphs.glyf())
      .table("head", head.build())
      .table("hhea", hhea.build())
      .table("hmtx", metrics.build())
      .table("loca", glyphs.loca())
      .table("maxp", maxp.build())
      .build();
}

class OpenFace {
 public:
  explicit OpenFace(unsigned unitsPerEm) : stream_(nullptr, 8192, false, true) {
    stream_ += fontBytes(unitsPerEm);
    face_.open(QXUri(), &stream_, 0);
  }
  [[nodiscard]] FT_Face get() const { return face_.get(); }

 private:
  QXMemStream stream_;
  contract::FreeTypeFace face_;
};

TEST(DrawScale, IsEvenNear4096AnEmAndAtLeastTen) {
  const std::pair<int, int> rows[] = {{16, 256},  {64, 64},    {256, 16},  {300, 12},
                                      {400, 10},  {512, 10},   {1000, 10}, {2048, 10},
                                      {4096, 10}, {65535, 10}, {0, 10},    {1, 4096}};
  for (const auto& [unitsPerEm, scale] : rows) EXPECT_EQ(drawScale(unitsPerEm), scale);
}

void expectEqualContour(const FS_GlyphContour& own, const FS_GlyphContour& other) {
  EXPECT_EQ(own.segments, other.segments);
  ASSERT_EQ(own.points.size(), other.points.size());
  for (std::size_t i = 0; i < own.points.size(); ++i) {
    EXPECT_EQ(own.points[i].x, other.points[i].x) << i;
    EXPECT_EQ(own.points[i].y, other.points[i].y) << i;
  }
}

void expectMetrics(const FS_GlyphDrawInfo& info, const FT_Glyph_Metrics& metrics, int scale) {
  EXPECT_EQ(info.width, metrics.width / scale);
  EXPECT_EQ(info.height, metrics.height / scale);
  EXPECT_EQ(info.horiBearingX, metrics.horiBearingX / scale);
  EXPECT_EQ(info.horiBearingY, metrics.horiBearingY / scale);
  EXPECT_EQ(info.horiAdvance, metrics.horiAdvance / scale);
  EXPECT_EQ(info.vertBearingX, metrics.vertBearingX / scale);
  EXPECT_EQ(info.vertBearingY, metrics.vertBearingY / scale);
  EXPECT_EQ(info.vertAdvance, metrics.vertAdvance / scale);
}

class DrawGlyph : public testing::TestWithParam<unsigned> {};

// The outlines are those of FreeType with its hinting on, not the design units of `glyf`.
TEST_P(DrawGlyph, TellsWhatTheSameCallsOfFreeTypeTell) {
  const OpenFace face(GetParam());
  const OpenFace other(GetParam());
  ASSERT_NE(face.get(), nullptr);
  const int scale = drawScale(static_cast<int>(GetParam()));
  for (unsigned short gid = 0; gid < 3; ++gid) {
    FS_GlyphDrawInfo info;
    FS_GlyphDrawInfo expected;
    ASSERT_TRUE(drawGlyph(face.get(), gid, info, false));
    FT_Set_Char_Size(other.get(), 0, scale * static_cast<FT_F26Dot6>(GetParam()), 0, 0);
    ASSERT_EQ(FT_Load_Glyph(other.get(), gid, 0), 0);
    expectMetrics(info, other.get()->glyph->metrics, scale);
    outline::recordOutline(other.get()->glyph->outline, scale, expected);
    ASSERT_EQ(info.contours.size(), expected.contours.size());
    for (std::size_t i = 0; i < expected.contours.size(); ++i)
      expectEqualContour(info.contours[i], expected.contours[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(Ems, DrawGlyph, testing::Values(64U, 256U, 1000U, 2048U, 16384U));

TEST(DrawGlyphRecord, HoldsTheBoxOfTheFace) {
  const OpenFace face(1000);
  FS_GlyphDrawInfo info;
  ASSERT_TRUE(drawGlyph(face.get(), 1, info, false));
  EXPECT_TRUE(info.valid);
  EXPECT_EQ(info.xMin, -50);
  EXPECT_EQ(info.yMin, -200);
  EXPECT_EQ(info.xMax, 950);
  EXPECT_EQ(info.yMax, 800);
  EXPECT_FALSE(info.evenOddFill);
}

TEST(DrawGlyphRecord, AnEmptyGlyphIsValidAndLeavesTheBounds) {
  const OpenFace face(1000);
  FS_GlyphDrawInfo info;
  info.contours.resize(4);
  info.bounds[0] = 7;
  info.bounds[3] = 9;
  ASSERT_TRUE(drawGlyph(face.get(), 0, info, false));
  EXPECT_TRUE(info.valid);
  EXPECT_TRUE(info.contours.empty());
  EXPECT_EQ(info.bounds[0], 7.0F);
  EXPECT_EQ(info.bounds[3], 9.0F);
}

TEST(DrawGlyphRecord, UsedAgainTellsTheSameAsAFreshOne) {
  const OpenFace face(1000);
  FS_GlyphDrawInfo used;
  used.contours.resize(3);
  for (FS_GlyphContour& contour : used.contours) contour = {{1, 2, 0}, {{-9, -9}, {9999, 9999}}};
  constexpr unsigned short kGlyphs[] = {1, 2, 1, 0, 2};
  for (const unsigned short gid : kGlyphs) {
    FS_GlyphDrawInfo fresh;
    ASSERT_TRUE(drawGlyph(face.get(), gid, used, false));
    ASSERT_TRUE(drawGlyph(face.get(), gid, fresh, false));
    ASSERT_EQ(used.contours.size(), fresh.contours.size()) << gid;
    for (std::size_t i = 0; i < fresh.contours.size(); ++i)
      expectEqualContour(used.contours[i], fresh.contours[i]);
    if (fresh.contours.empty()) continue;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(used.bounds[i], fresh.bounds[i]) << gid;
  }
}

TEST(DrawGlyphRecord, AVerticalGlyphHasTheVerticalLayout) {
  const OpenFace face(1000);
  const OpenFace other(1000);
  FS_GlyphDrawInfo info;
  ASSERT_TRUE(drawGlyph(face.get(), 1, info, true));
  FT_Set_Char_Size(other.get(), 0, 10000, 0, 0);
  ASSERT_EQ(FT_Load_Glyph(other.get(), 1, FT_LOAD_VERTICAL_LAYOUT), 0);
  expectMetrics(info, other.get()->glyph->metrics, 10);
}

TEST(DrawGlyphRecord, AGlyphPastTheEndIsNoneAndTheRecordKeepsTheRest) {
  const OpenFace face(1000);
  FS_GlyphDrawInfo info;
  ASSERT_TRUE(drawGlyph(face.get(), 1, info, false));
  const int advance = info.horiAdvance;
  for (const int gid : {3, 4, 0xFFFF}) {
    for (const bool vertical : {false, true}) {
      EXPECT_FALSE(drawGlyph(face.get(), static_cast<unsigned short>(gid), info, vertical));
      EXPECT_FALSE(info.valid);
      EXPECT_EQ(info.horiAdvance, advance);
      EXPECT_EQ(info.contours.size(), 1U);
    }
  }
}

/// A face over a stream of its own, which can be told to fail a number of reads.
class FailingFace {
 public:
  FailingFace() : bytes_(fontBytes(1000)) {
    stream_.size = static_cast<unsigned long>(bytes_.size());
    stream_.descriptor.pointer = this;
    stream_.read = &FailingFace::read;
    FT_Open_Args arguments{};
    arguments.flags = FT_OPEN_STREAM;
    arguments.stream = &stream_;
    library_ = contract::freeTypeLibrary();
    EXPECT_EQ(FT_Open_Face(library_.get(), &arguments, 0, &face_), 0);
  }
  ~FailingFace() { FT_Done_Face(face_); }
  FailingFace(const FailingFace&) = delete;
  FailingFace& operator=(const FailingFace&) = delete;

  [[nodiscard]] FT_Face get() const { return face_; }
  void failReads(int count) { toFail_ = count; }

 private:
  static unsigned long read(FT_Stream stream, unsigned long offset, unsigned char* out,
                            unsigned long count) {
    auto& self = *static_cast<FailingFace*>(stream->descriptor.pointer);
    if (count == 0) return offset > self.bytes_.size() ? 1 : 0;  // a seek: 0 is success
    if (self.toFail_ > 0) {
      --self.toFail_;
      return 0;
    }
    if (offset >= self.bytes_.size()) return 0;
    return static_cast<unsigned long>(
        self.bytes_.copy(static_cast<char*>(static_cast<void*>(out)), count, offset));
  }

  std::string bytes_;
  FT_StreamRec stream_{};
  contract::FreeTypeLibrary library_;
  FT_Face face_ = nullptr;
  int toFail_ = 0;
};

TEST(DrawGlyphRecord, AGlyphThatFailsIsTriedOnceMoreUnlessVertical) {
  FailingFace face;
  FS_GlyphDrawInfo info;
  const struct {
    int failures;
    bool vertical;
    bool drawn;
  } rows[] = {
      {0, false, true}, {1, false, true}, {2, false, false}, {0, true, true}, {1, true, false}};
  for (const auto& row : rows) {
    face.failReads(row.failures);
    EXPECT_EQ(drawGlyph(face.get(), 1, info, row.vertical), row.drawn) << row.failures;
    EXPECT_EQ(info.valid, row.drawn);
    face.failReads(0);
  }
}

/// Two contours, one with a quadratic and one with a cubic curve.
struct OwnOutline {
  FT_Vector points[7] = {{0, 0}, {20, 40}, {40, 0}, {-20, -10}, {0, -60}, {30, -60}, {50, -10}};
  unsigned char tags[7] = {FT_CURVE_TAG_ON,    FT_CURVE_TAG_CONIC, FT_CURVE_TAG_ON, FT_CURVE_TAG_ON,
                           FT_CURVE_TAG_CUBIC, FT_CURVE_TAG_CUBIC, FT_CURVE_TAG_ON};
  short ends[2] = {2, 6};

  FT_Outline outline() {
    FT_Outline result{};
    result.n_contours = 2;
    result.n_points = 7;
    result.points = points;
    // The signs of these types differ between versions of FreeType.
    result.tags = static_cast<decltype(result.tags)>(static_cast<void*>(tags));
    result.contours = static_cast<decltype(result.contours)>(static_cast<void*>(ends));
    return result;
  }
};

TEST(OutlineRecorder, RecordsKindsPointsAndBoundsControlPointsIncluded) {
  OwnOutline own;
  FT_Outline source = own.outline();
  FS_GlyphDrawInfo info;
  info.contours.resize(5);
  info.bounds[0] = -1000;
  outline::recordOutline(source, 10, info);
  ASSERT_EQ(info.contours.size(), 2U);
  // FreeType closes each contour by a line to its start.
  EXPECT_EQ(info.contours[0].segments, (std::vector<unsigned int>{1, 0}));
  ASSERT_EQ(info.contours[0].points.size(), 4U);
  EXPECT_EQ(info.contours[0].points[1].y, 4.0F);
  EXPECT_EQ(info.contours[1].segments, (std::vector<unsigned int>{2, 0}));
  ASSERT_EQ(info.contours[1].points.size(), 5U);
  EXPECT_EQ(info.contours[1].points[0].x, -2.0F);
  EXPECT_EQ(info.bounds[0], -2.0F);
  EXPECT_EQ(info.bounds[1], -6.0F);
  EXPECT_EQ(info.bounds[2], 5.0F);
  EXPECT_EQ(info.bounds[3], 4.0F);
}

TEST(OutlineRecorder, DividesPointsAsFloats) {
  OwnOutline own;
  own.points[0] = {7, -3};
  FT_Outline source = own.outline();
  FS_GlyphDrawInfo info;
  outline::recordOutline(source, 16, info);
  EXPECT_EQ(info.contours[0].points[0].x, 7.0F / 16.0F);
  EXPECT_EQ(info.contours[0].points[0].y, -3.0F / 16.0F);
}

/// The bounds of what was recorded, point by point.
std::array<float, 4> boundsOfPoints(const FS_GlyphDrawInfo& info) {
  const auto& first = info.contours.front().points.front();
  std::array<float, 4> box{first.x, first.y, first.x, first.y};
  for (const FS_GlyphContour& contour : info.contours)
    for (const auto& point : contour.points)
      box = {std::min(box[0], point.x), std::min(box[1], point.y), std::max(box[2], point.x),
             std::max(box[3], point.y)};
  return box;
}

std::array<float, 4> boundsOf(const FS_GlyphDrawInfo& info) {
  return {info.bounds[0], info.bounds[1], info.bounds[2], info.bounds[3]};
}

TEST(OutlineRecorder, BoundsEveryRecordedPointHoweverTheCurvesAreJoined) {
  qxtest::RandomDraw draw(21);
  for (int round = 0; round < 500; ++round) {
    OwnOutline own;
    for (FT_Vector& point : own.points)
      point = {static_cast<FT_Pos>(draw.below(4001)) - 2000,
               static_cast<FT_Pos>(draw.below(4001)) - 2000};
    for (unsigned char& tag : own.tags)
      tag = draw.below(2) == 0 ? FT_CURVE_TAG_ON : FT_CURVE_TAG_CONIC;
    FT_Outline source = own.outline();
    FS_GlyphDrawInfo info;
    outline::recordOutline(source, 10, info);
    ASSERT_EQ(info.contours.size(), 2U);
    EXPECT_EQ(boundsOf(info), boundsOfPoints(info)) << round;
  }
}

TEST(OutlineRecorder, ADamagedOutlineIsBoundedAsFarAsItWasRecorded) {
  OwnOutline own;
  own.tags[3] = FT_CURVE_TAG_CUBIC;  // no contour begins so
  FT_Outline source = own.outline();
  FS_GlyphDrawInfo info;
  outline::recordOutline(source, 10, info);
  ASSERT_EQ(info.contours.size(), 1U);
  EXPECT_EQ(boundsOf(info), (std::array<float, 4>{0.0F, 0.0F, 4.0F, 4.0F}));
}

TEST(OutlineRecorder, TakesTheFillRuleOfTheOutline) {
  OwnOutline own;
  FT_Outline source = own.outline();
  FS_GlyphDrawInfo info;
  const std::pair<int, bool> rows[] = {{FT_OUTLINE_NONE, false},
                                       {FT_OUTLINE_EVEN_ODD_FILL, true},
                                       {FT_OUTLINE_REVERSE_FILL | FT_OUTLINE_EVEN_ODD_FILL, true},
                                       {FT_OUTLINE_REVERSE_FILL, false}};
  for (const auto& [flags, evenOdd] : rows) {
    source.flags = flags;
    outline::recordOutline(source, 10, info);
    EXPECT_EQ(info.evenOddFill, evenOdd) << flags;
  }
}

}  // namespace
}  // namespace QXFontService_NS
