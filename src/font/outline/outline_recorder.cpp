#include "font/outline/outline_recorder.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include FT_OUTLINE_H

namespace QXFontService_NS::outline {
namespace {

enum SegmentKind : unsigned int { kLine = 0, kQuadratic = 1, kCubic = 2 };

/// Contours that a record had too many, so that the next glyph with more takes their room again:
/// contours cost two allocations each, which is more than to fill them. Under the outline lock.
class SpareContours {
 public:
  FS_GlyphContour take() {
    if (spare_.empty()) return {};
    FS_GlyphContour contour = std::move(spare_.back());
    spare_.pop_back();
    return contour;
  }
  void keep(FS_GlyphContour&& contour) {
    if (spare_.size() < kMost && contour.points.capacity() <= kMostPoints)
      spare_.push_back(std::move(contour));
  }

 private:
  static constexpr std::size_t kMost = 16;
  static constexpr std::size_t kMostPoints = 256;
  std::vector<FS_GlyphContour> spare_;
};

SpareContours& spareContours() {
  // Never destroyed: a host's static handles may still draw while the process ends.
  static SpareContours& spare = *new SpareContours;
  return spare;
}

/// Fills contours one after the other, in the room that those of the glyph before have: a host
/// takes many glyphs into one record.
class Recorder {
 public:
  Recorder(const FT_Outline& outline, int scale, std::vector<FS_GlyphContour>& contours)
      : outline_(outline), scale_(static_cast<float>(scale)), contours_(contours) {}

  void start(const FT_Vector& at) {
    if (begun_ == contours_.size()) contours_.push_back(spareContours().take());
    contour_ = &contours_[begun_];
    contour_->segments.clear();
    contour_->points.clear();
    makeRoom();
    ++begun_;
    addPoint(at);
  }
  void addSegment(SegmentKind kind) { contour_->segments.push_back(kind); }
  void addPoint(const FT_Vector& at) {
    contour_->points.push_back(
        {static_cast<float>(at.x) / scale_, static_cast<float>(at.y) / scale_});
  }
  void finish() {
    for (; contours_.size() > begun_; contours_.pop_back())
      spareContours().keep(std::move(contours_.back()));
  }

 private:
  /// Each point of an outline ends a segment, and may need another one between it and the next.
  void makeRoom() {
    const int before = begun_ == 0 ? -1 : outline_.contours[begun_ - 1];
    const auto points = static_cast<std::size_t>(std::max(outline_.contours[begun_] - before, 0));
    contour_->segments.reserve(points + 1);
    contour_->points.reserve(2 * (points + 1));
  }

  const FT_Outline& outline_;
  const float scale_;
  std::vector<FS_GlyphContour>& contours_;
  std::size_t begun_ = 0;
  FS_GlyphContour* contour_ = nullptr;
};

Recorder& recorder(void* user) {
  return *static_cast<Recorder*>(user);
}

int moveTo(const FT_Vector* to, void* user) {
  recorder(user).start(*to);
  return 0;
}

int lineTo(const FT_Vector* to, void* user) {
  Recorder& record = recorder(user);
  record.addSegment(kLine);
  record.addPoint(*to);
  return 0;
}

int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  Recorder& record = recorder(user);
  record.addSegment(kQuadratic);
  record.addPoint(*control);
  record.addPoint(*to);
  return 0;
}

int cubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
  Recorder& record = recorder(user);
  record.addSegment(kCubic);
  record.addPoint(*control1);
  record.addPoint(*control2);
  record.addPoint(*to);
  return 0;
}

void widen(float* bounds, const FS_GlyphContour& contour) {
  float least[2] = {bounds[0], bounds[1]};
  float greatest[2] = {bounds[2], bounds[3]};
  for (const FS_GlyphContour::Point& point : contour.points) {
    least[0] = std::min(least[0], point.x);
    least[1] = std::min(least[1], point.y);
    greatest[0] = std::max(greatest[0], point.x);
    greatest[1] = std::max(greatest[1], point.y);
  }
  std::copy_n(least, 2, bounds);
  std::copy_n(greatest, 2, bounds + 2);
}

/// In walks over the points and not at each of them: the least and greatest stay in registers.
void findBounds(FS_GlyphDrawInfo& info) {
  if (info.contours.empty()) return;
  const FS_GlyphContour::Point& first = info.contours.front().points.front();
  info.bounds[0] = info.bounds[2] = first.x;
  info.bounds[1] = info.bounds[3] = first.y;
  for (const FS_GlyphContour& contour : info.contours) widen(info.bounds, contour);
}

}  // namespace

void recordOutline(FT_Outline& outline, int scale, FS_GlyphDrawInfo& info) {
  info.evenOddFill = (outline.flags & FT_OUTLINE_EVEN_ODD_FILL) != 0;
  static constexpr FT_Outline_Funcs kCallbacks = {moveTo, lineTo, conicTo, cubicTo, 0, 0};
  Recorder context(outline, scale, info.contours);
  FT_Outline_Decompose(&outline, &kCallbacks, &context);
  context.finish();
  findBounds(info);
}

}  // namespace QXFontService_NS::outline
