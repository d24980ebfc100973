#include "font/outline/outline_recorder.h"

#include <algorithm>
#include <cstddef>
#include <span>
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

/// The least and the greatest of points.
template <class Point>
struct Box {
  Point least, greatest;

  explicit Box(const Point& first) : least(first), greatest(first) {}
  void widen(const Point& at) {
    least.x = std::min(at.x, least.x);
    least.y = std::min(at.y, least.y);
    greatest.x = std::max(at.x, greatest.x);
    greatest.y = std::max(at.y, greatest.y);
  }
  void store(float scale, FS_GlyphDrawInfo& info) const {
    info.bounds[0] = static_cast<float>(least.x) / scale;
    info.bounds[1] = static_cast<float>(least.y) / scale;
    info.bounds[2] = static_cast<float>(greatest.x) / scale;
    info.bounds[3] = static_cast<float>(greatest.y) / scale;
  }
};

/// Of an outline that was decomposed to its end: what is recorded besides its points lies between
/// two of them. One walk, without a division for each.
void boundWhole(const FT_Outline& outline, int scale, FS_GlyphDrawInfo& info) {
  if (outline.n_contours == 0) return;
  const auto last = static_cast<std::size_t>(outline.contours[outline.n_contours - 1]);
  Box<FT_Vector> box(*outline.points);
  for (const FT_Vector& point : std::span(outline.points, last + 1)) box.widen(point);
  box.store(static_cast<float>(scale), info);
}

/// Of what was recorded before a damaged place.
void boundPart(FS_GlyphDrawInfo& info) {
  if (info.contours.empty()) return;
  Box<FS_GlyphContour::Point> box(info.contours.front().points.front());
  for (const FS_GlyphContour& contour : info.contours)
    for (const FS_GlyphContour::Point& point : contour.points) box.widen(point);
  box.store(1, info);
}

}  // namespace

void recordOutline(FT_Outline& outline, int scale, FS_GlyphDrawInfo& info) {
  info.evenOddFill = (outline.flags & FT_OUTLINE_EVEN_ODD_FILL) != 0;
  static constexpr FT_Outline_Funcs kCallbacks = {moveTo, lineTo, conicTo, cubicTo, 0, 0};
  Recorder context(outline, scale, info.contours);
  const bool isWhole = FT_Outline_Decompose(&outline, &kCallbacks, &context) == 0;
  context.finish();
  if (isWhole) {
    boundWhole(outline, scale, info);
  } else {
    boundPart(info);
  }
}

}  // namespace QXFontService_NS::outline
