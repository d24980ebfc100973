#include "qxfont/specimen/sheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

// Parts of the width of a sheet.
constexpr double kMargin = 0.08;
constexpr double kLabels = 0.165;

constexpr double kSectionGap = 26;
constexpr double kTitleSize = 10.5;
constexpr double kTitleBaseline = 17;  // below the line across the page
constexpr double kUnderTitle = 5;
constexpr double kHairline = 0.5;
constexpr double kLabelGap = 8;  // between the columns
constexpr double kEndless = 1e6;
constexpr int kMostUnits = 500;  // of a note: names in damaged fonts can be of any length
constexpr double kFootSize = 7.5;
constexpr double kFootWidth = 0.8;  // of the text's width; the rest is the number's

double alignedX(const SheetText& text, const PlacedLine& line) {
  const double free = text.style.width - line.width;
  if (text.align == SheetText::Align::centre) return text.x + free / 2;
  if (text.align == SheetText::Align::end) return text.x + free;
  return text.x + line.x;
}

}  // namespace

Sheet::Sheet(PageSize size, LineSetter& setter)
    : size_(size), setter_(setter), margin_(kMargin * size.width), labels_(kLabels * size.width) {}

void Sheet::beginFont(std::size_t labelFace, const icu::UnicodeString& foot) {
  foot_ = {labelFace, foot};
  beginPage();
}

void Sheet::beginPage() {
  pages_.emplace_back();
  feet_.push_back(foot_);
  y_ = size_.height - margin_;
}

void Sheet::beginSection(const std::string& title, double first) {
  const bool isTop = pages_.back().lines.empty();
  need((isTop ? 0 : kSectionGap) + kTitleBaseline + kUnderTitle + first);
  if (!pages_.back().lines.empty()) skip(kSectionGap);
  rule(left(), 0, width(), kHairline, 0);
  SheetText text = note(title, kTitleBaseline);
  text.x = left();
  text.style.size = kTitleSize;
  text.style.width = labels_;
  put(text);
  skip(kTitleBaseline + kUnderTitle);
}

void Sheet::need(double height) {
  if (y_ - height < bottom() && !pages_.back().lines.empty()) beginPage();
}

/// The text in the size at which one line holds all of it.
SheetText Sheet::fitted(const SheetText& text) const {
  SheetText whole = text;
  whole.shrinks = false;
  whole.style.width = kEndless;
  const std::vector<PlacedLine> lines = setter_.set(text.text, whole.style);
  const double width = lines.empty() ? 0 : lines.front().width;
  whole.style.width = text.style.width;
  if (width > text.style.width) whole.style.size *= text.style.width / width;
  return whole;
}

std::size_t Sheet::put(const SheetText& text) {
  if (text.shrinks) return put(fitted(text));
  std::vector<PlacedLine> lines = setter_.set(text.text, text.style);
  const std::size_t count = std::min(lines.size(), text.lines);
  for (std::size_t i = 0; i < count; ++i) {
    lines[i].x = alignedX(text, lines[i]);
    lines[i].baseline = y_ - text.baseline - static_cast<double>(i) * kNoteLead;
    pages_.back().lines.push_back(std::move(lines[i]));
  }
  return count;
}

std::size_t Sheet::label(const std::string& text, double baseline, std::size_t lines) {
  SheetText set = note(text, baseline);
  set.x = left();
  set.style.width = labels_ - kLabelGap;
  set.style.grey = kGrey;
  set.lines = lines;
  return put(set);
}

void Sheet::row(const std::string& name, const std::string& text, std::size_t lines) {
  SheetText set = note(text, kNoteLead);
  set.lines = lines;
  const std::size_t wanted = std::min(setter_.set(set.text, set.style).size(), lines);
  need(static_cast<double>(std::max<std::size_t>(wanted, 1)) * kNoteLead);
  label(name, kNoteLead);
  skip(static_cast<double>(std::max<std::size_t>(put(set), 1)) * kNoteLead);
}

SheetText Sheet::note(const std::string& text, double baseline) const {
  SheetText set;
  set.text = unicode(shown(text));
  set.text.truncate(kMostUnits);
  set.style.face = foot_.face;
  set.style.size = kNoteSize;
  set.style.width = contentWidth();
  set.x = content();
  set.baseline = baseline;
  return set;
}

void Sheet::rule(double x, double down, double width, double height, double grey) {
  pages_.back().rules.push_back({x, y_ - down - height, width, height, grey});
}

std::vector<Page> Sheet::finish() {
  std::vector<Page> pages = std::exchange(pages_, {});
  for (std::size_t i = 0; i < pages.size(); ++i) {
    foot_ = feet_[i];
    pages_.push_back(std::move(pages[i]));
    y_ = margin_;
    SheetText text = note(utf8(foot_.text), 0);
    text.x = left();
    text.style.size = kFootSize;
    text.style.grey = kGrey;
    text.style.width = width() * kFootWidth;
    put(text);
    text.text = unicode(fmt::format("{} / {}", i + 1, pages.size()));
    text.style.width = width();
    text.align = SheetText::Align::end;
    put(text);
  }
  return std::exchange(pages_, {});
}

}  // namespace qxfont
