#include "qxfont/pdf/page_content.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>

#include "qxfont/pdf/pdf_number.h"
#include "qxfont/pdf/to_unicode.h"

namespace qxfont {
namespace {

std::string grey(double value) {
  return pdfNumber(value) + " g\n";
}

std::string rectangle(const Rule& rule) {
  return fmt::format("{}{} {} {} {} re f\n", grey(rule.grey), pdfNumber(rule.x), pdfNumber(rule.y),
                     pdfNumber(rule.width), pdfNumber(rule.height));
}

/// Writes one line glyph by glyph.
class LineWriter {
 public:
  LineWriter(const PlacedLine& line, const std::vector<UsedGlyphs>& fonts)
      : line_(line), fonts_(fonts) {}

  std::string write() {
    out_ = line_.grey != 0 ? grey(line_.grey) : "";
    out_ += fmt::format("BT\n1 0 0 1 {} {} Tm\n", pdfNumber(line_.x), pdfNumber(line_.baseline));
    for (const Glyph& glyph : line_.glyphs) add(glyph);
    showGlyphs();
    if (rise_ != 0) changeRise(0);
    out_ += "ET\n";
    return line_.grey != 0 ? out_ + grey(0) : out_;
  }

 private:
  void add(const Glyph& glyph) {
    const std::size_t font = indexOf(fonts_, glyph);
    if (font != font_) changeFont(font);
    const bool told = fonts_[font].texts.at(glyph.gid) == glyph.text;
    if (!told) {
      showGlyphs();
      out_ += fmt::format("/Span <</ActualText <FEFF{}>>> BDC\n", utf16Hex(glyph.text));
    }
    take(glyph);
    if (!told) {
      showGlyphs();
      out_ += "EMC\n";
    }
  }

  void changeFont(std::size_t font) {
    showGlyphs();
    font_ = font;
    out_ += fmt::format("/F{} {} Tf\n", font, pdfNumber(line_.size));
  }

  void take(const Glyph& glyph) {
    if (glyph.dy != rise_) changeRise(glyph.dy);
    if (isSeen(glyph.dx)) move(-glyph.dx);
    hex_ += fonts_[font_].hexOf(glyph.gid);
    // What the reader moves on by the width that the document states, less what is wanted.
    const double back = glyph.dx + glyph.width - glyph.advance;
    if (isSeen(back)) move(back);
  }

  /// Whether a length in em shows in the numbers of a document.
  static bool isSeen(double length) { return std::fabs(length) >= 1e-6; }

  /// Moves the pen back by a length in em.
  void move(double back) {
    if (!hex_.empty()) shown_ += "<" + hex_ + ">";
    shown_ += pdfNumber(back * 1000);
    hex_.clear();
  }

  void changeRise(double rise) {
    showGlyphs();
    rise_ = rise;
    out_ += fmt::format("{} Ts\n", pdfNumber(rise * line_.size));
  }

  void showGlyphs() {
    if (!hex_.empty()) shown_ += "<" + hex_ + ">";
    if (!shown_.empty()) out_ += "[" + shown_ + "] TJ\n";
    hex_.clear();
    shown_.clear();
  }

  const PlacedLine& line_;
  const std::vector<UsedGlyphs>& fonts_;
  std::size_t font_ = static_cast<std::size_t>(-1);
  double rise_ = 0;
  std::string out_;
  std::string shown_;  // of the TJ array that is being written
  std::string hex_;    // of its last string
};

}  // namespace

std::string pageContent(const Page& page, const std::vector<UsedGlyphs>& fonts) {
  std::string content;
  for (const Rule& rule : page.rules) content += rectangle(rule);
  if (!page.rules.empty()) content += grey(0);
  for (const PlacedLine& line : page.lines) content += LineWriter(line, fonts).write();
  return content;
}

}  // namespace qxfont
