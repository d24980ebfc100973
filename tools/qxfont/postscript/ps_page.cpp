#include <fmt/format.h>

#include <cmath>
#include <cstddef>

#include "qxfont/pdf/pdf_number.h"
#include "qxfont/postscript/ps_document.h"

namespace qxfont {
namespace {

std::string grey(double value) {
  return pdfNumber(value) + " setgray\n";
}

std::string rectangle(const Rule& rule) {
  return fmt::format("{}{} {} {} {} rectfill\n", grey(rule.grey), pdfNumber(rule.x),
                     pdfNumber(rule.y), pdfNumber(rule.width), pdfNumber(rule.height));
}

/// Writes one line; glyphs that stand where the ones before them end are shown together.
class LineWriter {
 public:
  LineWriter(const PlacedLine& line, const std::vector<UsedGlyphs>& fonts)
      : line_(line), fonts_(fonts) {}

  std::string write() {
    double pen = 0;
    if (line_.grey != 0) out_ += grey(line_.grey);
    for (const Glyph& glyph : line_.glyphs) {
      add(glyph, pen);
      pen += glyph.advance;
    }
    show();
    return line_.grey != 0 ? out_ + grey(0) : out_;
  }

 private:
  void add(const Glyph& glyph, double pen) {
    const std::size_t font = indexOf(fonts_, glyph);
    if (fonts_[font].codes.count(glyph.gid) == 0) return;  // it is blank
    const double x = pen + glyph.dx;
    if (font != font_ || std::fabs(x - end_) > kSeen || glyph.dy != rise_) move(font, x, glyph.dy);
    hex_ += fonts_[font].hexOf(glyph.gid);
    end_ = x + glyph.width;
  }

  void move(std::size_t font, double x, double rise) {
    show();
    if (font != font_) out_ += fmt::format("/F{} {} selectfont\n", font, pdfNumber(line_.size));
    font_ = font;
    end_ = x;
    rise_ = rise;
    out_ += fmt::format("{} {} moveto\n", pdfNumber(line_.x + x * line_.size),
                        pdfNumber(line_.baseline + rise * line_.size));
  }

  void show() {
    if (!hex_.empty()) out_ += "<" + hex_ + "> show\n";
    hex_.clear();
  }

  static constexpr double kSeen = 1e-6;  // in em

  const PlacedLine& line_;
  const std::vector<UsedGlyphs>& fonts_;
  std::size_t font_ = static_cast<std::size_t>(-1);
  double end_ = 0;   // of what is shown, in em
  double rise_ = 0;  // in em
  std::string out_;
  std::string hex_;  // of the string that is being written
};

}  // namespace

std::string psPage(const Page& page, const std::vector<UsedGlyphs>& fonts) {
  std::string content;
  for (const Rule& rule : page.rules) content += rectangle(rule);
  if (!page.rules.empty()) content += grey(0);
  for (const PlacedLine& line : page.lines) content += LineWriter(line, fonts).write();
  return content;
}

}  // namespace qxfont
