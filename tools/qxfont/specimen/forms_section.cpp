#include <fmt/format.h>

#include <algorithm>

#include "qxfont/cli/text.h"
#include "qxfont/embed/glyph_choice.h"
#include "qxfont/specimen/form_sizes.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr double kNumberWidth = 72;
constexpr double kBarHeight = 2;
constexpr double kRowHeight = 20;

std::string bytesText(const std::optional<std::size_t>& size) {
  return size ? grouped(*size) : "not written";
}

/// A number at the right of one of the two columns of numbers.
void putNumber(const std::string& text, int column, double grey, Sheet& sheet) {
  SheetText number = sheet.note(text, Sheet::kNoteLead);
  number.x = sheet.content() + sheet.contentWidth() - (2 - column) * kNumberWidth;
  number.style.width = kNumberWidth;
  number.style.grey = grey;
  number.align = SheetText::Align::end;
  number.shrinks = true;
  sheet.put(number);
}

void putTitles(Sheet& sheet) {
  putNumber("sample text", 0, Sheet::kGrey, sheet);
  putNumber("all characters", 1, Sheet::kGrey, sheet);
  sheet.skip(1.5 * Sheet::kNoteLead);
}

void putSize(const FormSize& size, std::size_t largest, Sheet& sheet) {
  sheet.need(kRowHeight);
  sheet.label(size.form->name, Sheet::kNoteLead);
  SheetText what = sheet.note(size.form->what, Sheet::kNoteLead);
  what.style.width = sheet.contentWidth() - 2 * kNumberWidth;
  sheet.put(what);
  putNumber(bytesText(size.sample), 0, 0, sheet);
  putNumber(bytesText(size.all), 1, 0, sheet);
  const double part = static_cast<double>(size.all.value_or(0)) / static_cast<double>(largest);
  sheet.rule(sheet.content(), Sheet::kNoteLead + 3, sheet.contentWidth() * part, kBarHeight,
             Sheet::kLightGrey);
  sheet.skip(kRowHeight);
}

}  // namespace

void formsSection(const Subject& subject, const Desk& desk) {
  if (subject.samples.empty()) return;
  const icu::UnicodeString& text = subject.samples.front().text;
  const std::vector<FormSize> sizes =
      formSizes(desk.fonts.font(subject.face), parseText(utf8(text)), subject.characters.codes());
  std::size_t largest = 1;
  for (const FormSize& size : sizes) largest = std::max(largest, size.all.value_or(0));
  Sheet& sheet = desk.sheet;
  sheet.beginSection("Embedded forms", 6 * Sheet::kNoteLead);
  SheetText note =
      sheet.note("Bytes of each form that this kind of font has. Sample text:", Sheet::kNoteLead);
  sheet.put(note);
  sheet.skip(1.5 * Sheet::kNoteLead);
  SheetText sample = sheet.note("", Sheet::kNoteLead);
  sample.text = text;
  sample.style.face = subject.face;
  sample.shrinks = true;
  sheet.put(sample);
  sheet.skip(2 * Sheet::kNoteLead);
  putTitles(sheet);
  for (const FormSize& size : sizes) putSize(size, largest, sheet);
}

}  // namespace qxfont
