#include <fmt/format.h>

#include <algorithm>

#include "qxfont/cli/text.h"
#include "qxfont/match/match_explanation.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr std::size_t kMostRows = 40;
constexpr std::size_t kMostLines = 3;

std::string askedText(const FontOptions& asked) {
  std::string text = asked.font;
  if (asked.weight != 0) text += fmt::format(", weight {}", asked.weight);
  if (asked.italic) text += ", italic";
  if (asked.stretch != 0) text += fmt::format(", width {}", asked.stretch);
  if (asked.face != 0) text += fmt::format(", face {}", asked.face);
  return text;
}

}  // namespace

void matchSection(const Subject& subject, const Desk& desk) {
  Sheet& sheet = desk.sheet;
  sheet.beginSection("Match", 4 * Sheet::kNoteLead);
  sheet.row("asked for", askedText(subject.asked), kMostLines);
  sheet.row("answer", matchedFace(subject.match.face), kMostLines);
  const std::vector<ExplanationLine> lines = explanationOf(subject.match);
  for (std::size_t i = 0; i < std::min(lines.size(), kMostRows); ++i)
    sheet.row(lines[i].label, lines[i].text, kMostLines);
  if (lines.size() > kMostRows)
    sheet.row("", fmt::format("and {} lines more", lines.size() - kMostRows));
}

}  // namespace qxfont
