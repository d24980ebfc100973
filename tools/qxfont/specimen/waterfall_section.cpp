#include <fmt/format.h>

#include <array>

#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr std::array kSizes = {8.0,  9.0,  10.0, 11.0, 12.0, 14.0, 16.0, 18.0,
                               21.0, 24.0, 30.0, 36.0, 48.0, 60.0, 72.0};
constexpr double kGap = 3;
constexpr double kScriptSize = 18;

/// A line of a text in the face of the sheet: as much of it as fits.
void putLine(const Subject& subject, const Desk& desk, const std::string& label,
             const icu::UnicodeString& sentence, double size) {
  Sheet& sheet = desk.sheet;
  const LineBox box = lineBoxOf(desk.fonts.font(subject.face));
  const double height = box.height(size) + kGap;
  sheet.need(height);
  sheet.label(label, box.ascent * size);
  SheetText text = sheet.note("", box.ascent * size);
  text.text = sentence;
  text.style.face = subject.face;
  text.style.size = size;
  sheet.put(text);
  sheet.skip(height);
}

}  // namespace

void waterfallSection(const Subject& subject, const Desk& desk) {
  constexpr double kFirst = 80;
  if (subject.samples.empty()) return;
  desk.sheet.beginSection("Waterfall", kFirst);
  desk.sheet.skip(kGap);
  for (const double size : kSizes)
    putLine(subject, desk, fmt::format("{}", size), subject.samples.front().text, size);
}

void scriptsSection(const Subject& subject, const Desk& desk) {
  if (subject.samples.size() < 2) return;
  const LineBox box = lineBoxOf(desk.fonts.font(subject.face));
  desk.sheet.beginSection("Scripts", box.height(kScriptSize) + 2 * kGap);
  desk.sheet.skip(kGap);
  for (const SampleText& sample : subject.samples)
    putLine(subject, desk, sample.script, sample.text, kScriptSize);
}

}  // namespace qxfont
