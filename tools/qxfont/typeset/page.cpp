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

/// The glyphs of a line as they stand on it from left to right.
std::vector<Glyph> glyphsIn(const std::vector<Glyph>& glyphs, const LineRange& line,
                            const Bidi& bidi) {
  std::vector<const Glyph*> part;
  std::vector<UBiDiLevel> levels;
  for (const Glyph& glyph : glyphs) {
    if (glyph.begin < line.begin || glyph.begin >= line.end) continue;
    part.push_back(&glyph);
    levels.push_back(bidi.levelAt(glyph.begin));
  }
  std::vector<Glyph> ordered;
  for (const int index : visualOrder(levels))
    ordered.push_back(*part[static_cast<std::size_t>(index)]);
  return ordered;
}

double widthOf(const std::vector<Glyph>& glyphs, double size) {
  double width = 0;
  for (const Glyph& glyph : glyphs) width += glyph.advance * size;
  return width;
}

bool continues(const LineRun& last, const LineRun& next) {
  return last.face == next.face && last.missing == next.missing && last.level == next.level;
}

/// What of the runs stands on a line, cut where the level changes, whatever the scripts are.
std::vector<LineRun> runsIn(const std::vector<Run>& runs, const LineRange& line, const Bidi& bidi) {
  std::vector<LineRun> part;
  for (const Run& run : runs) {
    for (int at = std::max(run.begin, line.begin); at < std::min(run.end, line.end); ++at) {
      const int begin = at - line.begin;
      const LineRun one{begin, begin + 1, run.face, run.missing, bidi.levelAt(at)};
      if (part.empty() || !continues(part.back(), one)) part.push_back(one);
      part.back().end = one.end;
    }
  }
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
  const Bidi bidi(paragraph.text);
  std::vector<Glyph> glyphs;
  const auto runs = itemize(paragraph.text, bidi, style, fonts_, missing_);
  for (const Run& run : runs) shaper_.shape(paragraph.text, run, glyphs);
  const double width = size_.width * (1 - 2 * kMargin);
  const auto advances = advancesOf(glyphs, paragraph.text.length(), paragraph.size);
  for (const LineRange& range : breakLines(paragraph.text, advances, width)) {
    PlacedLine line;
    line.size = paragraph.size;
    line.glyphs = glyphsIn(glyphs, range, bidi);
    line.text = paragraph.text.tempSubStringBetween(range.begin, range.end);
    line.runs = runsIn(runs, range, bidi);
    line.width = widthOf(line.glyphs, paragraph.size);
    line.rightToLeft = bidi.isRightToLeft();
    line.x = kMargin * size_.width;
    if (line.rightToLeft) line.x += width - line.width;
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
