#include "qxfont/html/html_page.h"

#include <fmt/format.h>

#include <algorithm>

#include "qxfont/html/css_grey.h"
#include "qxfont/html/html_text.h"
#include "qxfont/pdf/pdf_number.h"

namespace qxfont {
namespace {

std::string rectangle(const Rule& rule, const PageSize& sheet) {
  return fmt::format(
      "<div class=\"rule\" "
      "style=\"left:{}pt;top:{}pt;width:{}pt;height:{}pt;background:{}\"></div>\n",
      pdfNumber(rule.x), pdfNumber(sheet.height - rule.y - rule.height), pdfNumber(rule.width),
      pdfNumber(rule.height), cssGrey(rule.grey));
}

/// Writes one line. Where a text runs in two directions, each stretch is told its own, since a
/// reader who has the line alone cannot know what the whole paragraph made of it.
class LineWriter {
 public:
  LineWriter(const PlacedLine& line, const std::vector<UsedGlyphs>& fonts)
      : line_(line), fonts_(fonts), base_(line.rightToLeft ? 1 : 0) {}

  std::string write(const PageSize& sheet) {
    out_ = openTag(sheet);
    for (const LineRun& run : line_.runs) {
      setLevel(run.level);
      out_ += run.missing ? missing(run) : text(run);
    }
    setLevel(base_);
    return out_ + "</div>\n";
  }

 private:
  /// The edge at which the line begins is the one that stays in its place.
  [[nodiscard]] std::string openTag(const PageSize& sheet) const {
    const double top = sheet.height - line_.baseline - kHtmlAscent * line_.size;
    const double margin = line_.rightToLeft ? sheet.width - line_.x - line_.width : line_.x;
    return fmt::format("<div class=\"line{}\"{} style=\"{}:{}pt;top:{}pt;font-size:{}pt{}\">",
                       isMixed() ? " bidi" : "", line_.rightToLeft ? " dir=\"rtl\"" : "",
                       line_.rightToLeft ? "right" : "left", pdfNumber(margin), pdfNumber(top),
                       pdfNumber(line_.size), appearance());
  }

  /// What the line has beside its place and size.
  [[nodiscard]] std::string appearance() const {
    std::string features;
    for (const FeatureSwitch& one : line_.switches) {
      features += fmt::format("{}'{}' {}", features.empty() ? ";font-feature-settings:" : ",",
                              tagText(one.tag), one.on ? "on" : "off");
    }
    return line_.grey != 0 ? ";color:" + cssGrey(line_.grey) + features : features;
  }

  [[nodiscard]] bool isMixed() const {
    return std::any_of(line_.runs.begin(), line_.runs.end(),
                       [](const LineRun& run) { return run.level != 0; });
  }

  /// Opens or closes elements until as many are open as a level wants.
  void setLevel(int level) {
    for (; open_ > std::max(level - base_, 0); --open_) out_ += "</bdo>";
    for (; open_ < level - base_; ++open_)
      out_ += fmt::format("<bdo dir=\"{}\">", (base_ + open_) % 2 != 0 ? "ltr" : "rtl");
  }

  [[nodiscard]] std::size_t indexOf(std::size_t face) const {
    std::size_t index = 0;
    while (index < fonts_.size() && fonts_[index].face != face) ++index;
    return index;
  }

  [[nodiscard]] std::string text(const LineRun& run) const {
    return fmt::format("<span class=\"f{}\">{}</span>", indexOf(run.face),
                       htmlText(line_.text.tempSubStringBetween(run.begin, run.end)));
  }

  [[nodiscard]] std::string missing(const LineRun& run) const {
    std::string boxes;
    for (int at = run.begin; at < run.end;) {
      const int next = line_.text.moveIndex32(at, 1);
      const std::string character = htmlText(line_.text.tempSubStringBetween(at, next));
      boxes += isInvisible(line_.text.char32At(at))
                   ? character
                   : fmt::format("<span class=\"missing\" style=\"width:{}em\">{}</span>",
                                 pdfNumber(widthOfNone(run.face)), character);
      at = next;
    }
    return boxes;
  }

  /// The width of a face's `.notdef`, in em.
  [[nodiscard]] double widthOfNone(std::size_t face) const {
    const auto found =
        std::find_if(line_.glyphs.begin(), line_.glyphs.end(),
                     [&](const Glyph& glyph) { return glyph.gid == 0 && glyph.face == face; });
    return found != line_.glyphs.end() ? found->advance : 0;
  }

  const PlacedLine& line_;
  const std::vector<UsedGlyphs>& fonts_;
  const int base_;  // the level of the paragraph
  int open_ = 0;    // elements, each of which is a level
  std::string out_;
};

}  // namespace

std::string htmlPage(const Page& page, const PageSize& sheet,
                     const std::vector<UsedGlyphs>& fonts) {
  std::string content;
  for (const Rule& rule : page.rules) content += rectangle(rule, sheet);
  for (const PlacedLine& line : page.lines) content += LineWriter(line, fonts).write(sheet);
  return content;
}

}  // namespace qxfont
