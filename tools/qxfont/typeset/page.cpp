#include "qxfont/typeset/page.h"

#include <algorithm>
#include <utility>

#include "qxfont/typeset/itemizer.h"
#include "qxfont/typeset/line_breaker.h"

namespace qxfont {
namespace {

constexpr double kMargin = 0.11;        // of the sheet's width
constexpr double kLineHeight = 1.45;    // in em
constexpr double kBaseline = 1.08;      // from the top of a line, in em
constexpr double kParagraphGap = 0.75;  // in em

/// Advances by the UTF-16 index of the characters, in points.
std::vector<double> advancesOf(const std::vector<Glyph>& glyphs, int length, double size) {
  std::vector<double> advances(static_cast<std::size_t>(length), 0);
  for (const Glyph& glyph : glyphs) {
    advances[static_cast<std::size_t>(glyph.begin)] += glyph.advance * size;
  }
  return advances;
}

std::vector<Glyph> glyphsIn(const std::vector<Glyph>& glyphs, const LineRange& line) {
  std::vector<Glyph> part;
  std::copy_if(glyphs.begin(), glyphs.end(), std::back_inserter(part), [&](const Glyph& glyph) {
    return glyph.begin >= line.begin && glyph.begin < line.end;
  });
  return part;
}

}  // namespace

PageBuilder::PageBuilder(PageSize size, const FontSet& fonts, const Shaper& shaper)
    : size_(size),
      fonts_(fonts),
      shaper_(shaper),
      y_(size.height - kMargin * size.width),
      pages_(1) {}

void PageBuilder::add(const Paragraph& paragraph, std::size_t style) {
  std::vector<Glyph> glyphs;
  for (const Run& run : itemize(paragraph.text, style, fonts_, missing_)) {
    shaper_.shape(paragraph.text, run, glyphs);
  }
  const double width = size_.width * (1 - 2 * kMargin);
  const auto advances = advancesOf(glyphs, paragraph.text.length(), paragraph.size);
  for (const LineRange& line : breakLines(paragraph.text, advances, width)) {
    place(glyphsIn(glyphs, line), paragraph.size);
  }
  gap_ = kParagraphGap * paragraph.size;
}

void PageBuilder::place(std::vector<Glyph> glyphs, double size) {
  const double bottom = kMargin * size_.width;
  const double height = kLineHeight * size;
  if (y_ - gap_ - height < bottom && !pages_.back().lines.empty()) {
    pages_.emplace_back();
    y_ = size_.height - bottom;
    gap_ = 0;
  }
  y_ -= gap_;
  pages_.back().lines.push_back({bottom, y_ - kBaseline * size, size, std::move(glyphs)});
  y_ -= height;
  gap_ = 0;
}

}  // namespace qxfont
