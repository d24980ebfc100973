#include "font/outline/outline_recorder.h"

#include <algorithm>
#include <initializer_list>

#include FT_OUTLINE_H

namespace QXFontService_NS::outline {
namespace {

enum SegmentKind : unsigned int { kLine = 0, kQuadratic = 1, kCubic = 2 };

struct Recorder {
  FS_GlyphDrawInfo& info;
  float scale;

  void addPoint(const FT_Vector& at) {
    const FS_GlyphContour::Point point = {static_cast<float>(at.x) / scale,
                                          static_cast<float>(at.y) / scale};
    info.contours.back().points.push_back(point);
    info.bounds[0] = std::min(info.bounds[0], point.x);
    info.bounds[1] = std::min(info.bounds[1], point.y);
    info.bounds[2] = std::max(info.bounds[2], point.x);
    info.bounds[3] = std::max(info.bounds[3], point.y);
  }
  void startBounds(const FT_Vector& at) {
    info.bounds[0] = info.bounds[2] = static_cast<float>(at.x) / scale;
    info.bounds[1] = info.bounds[3] = static_cast<float>(at.y) / scale;
  }
  int addSegment(SegmentKind kind, std::initializer_list<const FT_Vector*> points) {
    info.contours.back().segments.push_back(kind);
    for (const FT_Vector* point : points) addPoint(*point);
    return 0;
  }
};

Recorder& recorder(void* user) {
  return *static_cast<Recorder*>(user);
}

int moveTo(const FT_Vector* to, void* user) {
  Recorder& record = recorder(user);
  if (record.info.contours.empty()) record.startBounds(*to);
  record.info.contours.emplace_back();
  record.addPoint(*to);
  return 0;
}

int lineTo(const FT_Vector* to, void* user) {
  return recorder(user).addSegment(kLine, {to});
}

int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  return recorder(user).addSegment(kQuadratic, {control, to});
}

int cubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
  return recorder(user).addSegment(kCubic, {control1, control2, to});
}

}  // namespace

void recordOutline(FT_Outline& outline, int scale, FS_GlyphDrawInfo& info) {
  static constexpr FT_Outline_Funcs kCallbacks = {moveTo, lineTo, conicTo, cubicTo, 0, 0};
  info.contours.clear();
  Recorder context = {info, static_cast<float>(scale)};
  FT_Outline_Decompose(&outline, &kCallbacks, &context);
}

}  // namespace QXFontService_NS::outline
