#include "qxfont/typeset/line_setter.h"

#include <algorithm>
#include <utility>

#include "qxfont/typeset/itemizer.h"
#include "qxfont/typeset/line_breaker.h"

namespace qxfont {
namespace {

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

std::vector<PlacedLine> LineSetter::set(const icu::UnicodeString& text, const LineStyle& style) {
  const Bidi bidi(text);
  std::vector<Glyph> glyphs;
  const auto runs = itemize(text, bidi, style.face, fonts_, missing_);
  for (const Run& run : runs) shaper_.shape(text, run, style.switches, glyphs);
  const auto advances = advancesOf(glyphs, text.length(), style.size);
  std::vector<PlacedLine> lines;
  for (const LineRange& range : breakLines(text, advances, style.width)) {
    PlacedLine line;
    line.size = style.size;
    line.grey = style.grey;
    line.switches = style.switches;
    line.glyphs = glyphsIn(glyphs, range, bidi);
    line.text = icu::UnicodeString(text, range.begin, range.end - range.begin);
    line.runs = runsIn(runs, range, bidi);
    line.width = widthOf(line.glyphs, style.size);
    line.rightToLeft = bidi.isRightToLeft();
    if (line.rightToLeft) line.x = style.width - line.width;
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace qxfont
