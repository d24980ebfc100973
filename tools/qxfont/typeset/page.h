#pragma once

#include <set>
#include <vector>

#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/line_setter.h"
#include "qxfont/typeset/page_size.h"
#include "qxfont/typeset/placed_line.h"
#include "qxfont/typeset/shaper.h"
#include "qxfont/typeset/source_text.h"

namespace qxfont {

struct Page {
  std::vector<PlacedLine> lines;
  std::vector<Rule> rules = {};  ///< behind the lines
};

/// Sets paragraphs one below the other on as many pages as they need, at least one.
class PageBuilder {
 public:
  PageBuilder(PageSize size, const FontSet& fonts, const Shaper& shaper);

  /// @param style the face of the paragraph.
  void add(const Paragraph& paragraph, std::size_t style);

  [[nodiscard]] const std::vector<Page>& pages() const { return pages_; }
  /// The characters that no face had; a `.notdef` stands in their place.
  [[nodiscard]] const std::set<int>& missing() const { return setter_.missing(); }

 private:
  void place(PlacedLine line);

  PageSize size_;
  LineSetter setter_;
  double y_;        // what is used of the page ends here
  double gap_ = 0;  // wanted above the next line
  std::vector<Page> pages_;
};

}  // namespace qxfont
