#include "qxfont/typeset/page.h"

#include <utility>

namespace qxfont {
namespace {

constexpr double kMargin = 0.11;        // of the sheet's width
constexpr double kLineHeight = 1.45;    // in em
constexpr double kBaseline = 1.08;      // from the top of a line, in em
constexpr double kParagraphGap = 0.75;  // in em

}  // namespace

PageBuilder::PageBuilder(PageSize size, const FontSet& fonts, const Shaper& shaper)
    : size_(size), setter_(fonts, shaper), y_(size.height - kMargin * size.width), pages_(1) {}

void PageBuilder::add(const Paragraph& paragraph, std::size_t style) {
  LineStyle lines;
  lines.face = style;
  lines.size = paragraph.size;
  lines.width = size_.width * (1 - 2 * kMargin);
  for (PlacedLine& line : setter_.set(paragraph.text, lines)) {
    line.x += kMargin * size_.width;
    place(std::move(line));
  }
  gap_ = kParagraphGap * paragraph.size;
}

void PageBuilder::place(PlacedLine line) {
  const double bottom = kMargin * size_.width;
  const double height = kLineHeight * line.size;
  if (y_ - gap_ - height < bottom && !pages_.back().lines.empty()) {
    pages_.emplace_back();
    y_ = size_.height - bottom;
    gap_ = 0;
  }
  y_ -= gap_;
  line.baseline = y_ - kBaseline * line.size;
  pages_.back().lines.push_back(std::move(line));
  y_ -= height;
  gap_ = 0;
}

}  // namespace qxfont
