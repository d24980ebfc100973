#pragma once

#include <unicode/unistr.h>

#include <set>
#include <vector>

#include "qxfont/typeset/bidi.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/page_size.h"
#include "qxfont/typeset/shaper.h"
#include "qxfont/typeset/source_text.h"

namespace qxfont {

/// A stretch of a line's text in one face and direction.
struct LineRun {
  int begin = 0;  ///< UTF-16 index in the text of the line
  int end = 0;
  std::size_t face = 0;
  bool missing = false;  ///< No face has these characters.
  UBiDiLevel level = 0;  ///< odd ones run from right to left
};

/// A line at its place: points from the lower left corner of the sheet.
struct PlacedLine {
  double x = 0;
  double baseline = 0;
  double size = 0;
  std::vector<Glyph> glyphs;     ///< from left to right
  icu::UnicodeString text = {};  ///< in its own order, and all of it in runs
  std::vector<LineRun> runs = {};
  double width = 0;          ///< points
  bool rightToLeft = false;  ///< the paragraph
};

struct Page {
  std::vector<PlacedLine> lines;
};

/// Sets paragraphs one below the other on as many pages as they need, at least one.
class PageBuilder {
 public:
  PageBuilder(PageSize size, const FontSet& fonts, const Shaper& shaper);

  /// @param style the face of the paragraph.
  void add(const Paragraph& paragraph, std::size_t style);

  [[nodiscard]] const std::vector<Page>& pages() const { return pages_; }
  /// The characters that no face had; a `.notdef` stands in their place.
  [[nodiscard]] const std::set<int>& missing() const { return missing_; }

 private:
  void place(PlacedLine line);

  PageSize size_;
  const FontSet& fonts_;
  const Shaper& shaper_;
  double y_;        // what is used of the page ends here
  double gap_ = 0;  // wanted above the next line
  std::vector<Page> pages_;
  std::set<int> missing_;
};

}  // namespace qxfont
