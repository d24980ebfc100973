#include "qxfont/svg/glyph_path.h"

#include <fmt/format.h>

#include <algorithm>

#include "qxfont/pdf/pdf_number.h"

namespace qxfont {
namespace {

using QXFontService_NS::FS_GlyphContour;
using QXFontService_NS::FS_GlyphDrawInfo;

/// Calls `take` with the letter and the points of each piece of a contour.
template <class Take>
void forEachPiece(const FS_GlyphContour& contour, Take take) {
  constexpr const char* kLetters[] = {"L", "Q", "C"};
  const FS_GlyphContour::Point* points = contour.points.data();
  take("M", points, points + 1);
  ++points;
  for (const unsigned kind : contour.segments) {
    take(kLetters[kind], points, points + kind + 1);
    points += kind + 1;
  }
}

/// The part of the plane that a glyph takes, its advance and its origin among it.
struct Box {
  double left = 0;
  double bottom = 0;
  double right = 0;
  double top = 0;
};

Box boxOf(const FS_GlyphDrawInfo& glyph) {
  Box box;
  box.right = glyph.horiAdvance;
  if (!glyph.contours.empty()) {
    box.left = std::min<double>(0, glyph.bounds[0]);
    box.bottom = std::min<double>(0, glyph.bounds[1]);
    box.right = std::max<double>(box.right, glyph.bounds[2]);
    box.top = std::max<double>(0, glyph.bounds[3]);
  }
  return box;
}

}  // namespace

std::string svgPath(const FS_GlyphDrawInfo& glyph) {
  std::string path;
  for (const FS_GlyphContour& contour : glyph.contours) {
    forEachPiece(contour, [&](const char* letter, const auto* point, const auto* end) {
      path += letter;
      for (const char* gap = ""; point != end; ++point, gap = " ")
        path += fmt::format("{}{} {}", gap, pdfNumber(point->x), pdfNumber(point->y));
    });
    path += "Z";
  }
  return path;
}

const char* svgFillRule(const FS_GlyphDrawInfo& glyph) {
  return glyph.evenOddFill ? "evenodd" : "nonzero";
}

std::string svgGlyph(const FS_GlyphDrawInfo& glyph) {
  const Box box = boxOf(glyph);
  const std::string width = pdfNumber(std::max(1.0, box.right - box.left));
  const std::string height = pdfNumber(std::max(1.0, box.top - box.bottom));
  return fmt::format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" "
      "viewBox=\"{2} {3} {0} {1}\">\n"
      "<path transform=\"scale(1 -1)\" fill-rule=\"{4}\" d=\"{5}\"/>\n</svg>\n",
      width, height, pdfNumber(box.left), pdfNumber(-box.top), svgFillRule(glyph), svgPath(glyph));
}

Json contoursJson(const FS_GlyphDrawInfo& glyph) {
  Json contours = Json::array();
  for (const FS_GlyphContour& contour : glyph.contours) {
    Json pieces = Json::array();
    forEachPiece(contour, [&](const char* letter, const auto* point, const auto* end) {
      Json piece = {letter};
      for (; point != end; ++point) {
        piece.push_back(number(point->x));
        piece.push_back(number(point->y));
      }
      pieces.push_back(piece);
    });
    contours.push_back(pieces);
  }
  return contours;
}

}  // namespace qxfont
