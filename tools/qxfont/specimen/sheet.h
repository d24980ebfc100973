#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <string>
#include <vector>

#include "qxfont/typeset/line_setter.h"
#include "qxfont/typeset/page.h"
#include "qxfont/typeset/page_size.h"

namespace qxfont {

/// A text at its place: across from the left edge of the sheet, down from the top of what is free.
struct SheetText {
  enum class Align { start, centre, end };

  icu::UnicodeString text;
  LineStyle style;
  double x = 0;
  double baseline = 0;
  Align align = Align::start;  ///< in the column; text from right to left starts at its right
  std::size_t lines = 1;       ///< no more are set: what is left of the text is dropped
  bool shrinks = false;        ///< is set smaller where the column is too narrow for it
};

/// Pages of two columns, a narrow one of labels and a wide one of what they are about, which are
/// filled from the top. Lengths are points.
class Sheet {
 public:
  /// @param setter which outlives the sheet.
  Sheet(PageSize size, LineSetter& setter);

  /// Begins a page; labels and the line at its foot are in a face.
  void beginFont(std::size_t labelFace, const icu::UnicodeString& foot);
  /// Begins a section with a line across the page, its title in the column of labels.
  /// @param first how much room its first row wants.
  void beginSection(const std::string& title, double first);

  [[nodiscard]] double left() const { return margin_; }
  [[nodiscard]] double content() const { return margin_ + labels_; }
  [[nodiscard]] double contentWidth() const { return size_.width - margin_ - content(); }
  [[nodiscard]] double width() const { return size_.width - 2 * margin_; }

  /// Begins a new page unless so much room is left.
  void need(double height);
  /// Moves down.
  void skip(double height) { y_ -= height; }

  /// Sets a text; its further lines stand below the first.
  /// @return how many lines it took.
  std::size_t put(const SheetText& text);
  /// A label in its column, in grey.
  /// @return how many lines it took.
  std::size_t label(const std::string& text, double baseline, std::size_t lines = 1);
  /// A text in the face of the labels.
  SheetText note(const std::string& text, double baseline) const;
  /// A row of a label and a note of at most so many lines, behind which it moves down.
  void row(const std::string& name, const std::string& text, std::size_t lines = 1);
  /// A filled rectangle whose top is `down`.
  void rule(double x, double down, double width, double height, double grey);

  /// The pages, each with its foot.
  std::vector<Page> finish();

  static constexpr double kNoteSize = 8;
  static constexpr double kNoteLead = 12;  ///< from line to line of notes
  static constexpr double kGrey = 0.45;
  static constexpr double kLightGrey = 0.8;

 private:
  void beginPage();
  [[nodiscard]] SheetText fitted(const SheetText& text) const;
  [[nodiscard]] double bottom() const { return margin_ + kFootRoom; }

  static constexpr double kFootRoom = 16;

  struct Foot {
    std::size_t face = 0;
    icu::UnicodeString text;
  };

  PageSize size_;
  LineSetter& setter_;
  double margin_;
  double labels_;  // width of their column
  double y_ = 0;   // what is used of the page ends here
  Foot foot_;
  std::vector<Page> pages_;
  std::vector<Foot> feet_;
};

}  // namespace qxfont
