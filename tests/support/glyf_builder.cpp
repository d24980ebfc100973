#include "support/glyf_builder.h"

#include <algorithm>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

constexpr unsigned kOnCurve = 0x01;
constexpr unsigned kWords = 0x0001;
constexpr unsigned kOffsets = 0x0002;
constexpr unsigned kMore = 0x0020;

using Contour = std::vector<GlyfBuilder::Point>;

void writeBox(BeBytes& out, const std::vector<Contour>& contours) {
  int xMin = 0, yMin = 0, xMax = 0, yMax = 0;
  bool first = true;
  for (const Contour& contour : contours) {
    for (const auto& point : contour) {
      xMin = first ? point.x : std::min(xMin, point.x);
      yMin = first ? point.y : std::min(yMin, point.y);
      xMax = first ? point.x : std::max(xMax, point.x);
      yMax = first ? point.y : std::max(yMax, point.y);
      first = false;
    }
  }
  out.i16(xMin).i16(yMin).i16(xMax).i16(yMax);
}

/// Differences from point to point, all as words: the coordinates need no further flags.
template <class Coordinate>
void writeDeltas(BeBytes& out, const std::vector<Contour>& contours, Coordinate coordinate) {
  int last = 0;
  for (const Contour& contour : contours) {
    for (const auto& point : contour) {
      out.i16(coordinate(point) - last);
      last = coordinate(point);
    }
  }
}

}  // namespace

GlyfBuilder& GlyfBuilder::empty() {
  return raw("");
}

GlyfBuilder& GlyfBuilder::simple(const std::vector<Contour>& contours) {
  BeBytes out;
  out.u16(static_cast<unsigned>(contours.size()));
  writeBox(out, contours);
  unsigned last = 0;
  for (const Contour& contour : contours) {
    last += static_cast<unsigned>(contour.size());
    out.u16(last - 1);
  }
  out.u16(0);  // no instructions
  for (const Contour& contour : contours)
    for (const Point& point : contour) out.u8(point.onCurve ? kOnCurve : 0);
  writeDeltas(out, contours, [](const Point& point) { return point.x; });
  writeDeltas(out, contours, [](const Point& point) { return point.y; });
  return raw(out.str());
}

GlyfBuilder& GlyfBuilder::square(int side) {
  return simple({{{0, 0}, {0, side}, {side, side}, {side, 0}}});
}

GlyfBuilder& GlyfBuilder::composite(const std::vector<Component>& components) {
  BeBytes out;
  out.i16(-1).zeros(8);
  for (std::size_t i = 0; i < components.size(); ++i) {
    const Component& part = components[i];
    const unsigned more = i + 1 < components.size() ? kMore : 0;
    out.u16(part.flags | kWords | kOffsets | more).u16(part.glyph).i16(part.dx).i16(part.dy);
    for (int word : part.transform) out.i16(word);
  }
  return raw(out.str());
}

GlyfBuilder& GlyfBuilder::raw(std::string bytes) {
  glyphs_.push_back(std::move(bytes));
  return *this;
}

std::string GlyfBuilder::glyf() const {
  BeBytes out;
  for (const std::string& glyph : glyphs_) out.bytes(glyph).align(4);
  return out.str();
}

std::string GlyfBuilder::loca(bool longOffsets) const {
  BeBytes out;
  unsigned offset = 0;
  const auto write = [&] { longOffsets ? out.u32(offset) : out.u16(offset / 2); };
  for (const std::string& glyph : glyphs_) {
    write();
    offset += static_cast<unsigned>((glyph.size() + 3) / 4 * 4);
  }
  write();
  return out.str();
}

}  // namespace qxtest
