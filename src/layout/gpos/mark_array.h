#pragma once

#include <vector>

#include "layout/gpos/anchor.h"

namespace QXFontService_NS::layout {

/// A mark of an attachment subtable: its class, and where it is attached (OpenType MarkRecord).
struct Mark {
  unsigned short markClass = 0;
  GPOS_Anchor anchor;
};

/// The marks of an attachment subtable (OpenType MarkArray).
class MarkArray {
 public:
  MarkArray(GraphReader& reader, std::uint64_t at);

  /// The mark of a coverage index; outside one without an anchor.
  [[nodiscard]] Mark mark(int index) const;

 private:
  std::vector<Mark> marks_;
};

}  // namespace QXFontService_NS::layout
