#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// Writes `glyf` and `loca`. Glyphs get their ids in the order in which they are added:
/// `GlyfBuilder().empty().square(500).composite({{1, 0, 0}})`.
class GlyfBuilder {
 public:
  struct Point {
    int x, y;
    bool onCurve = true;
  };
  /// A component of a composite glyph. `flags` are OR-ed to those that the builder sets itself:
  /// words for the arguments, offsets for arguments, more components.
  struct Component {
    unsigned glyph;
    int dx, dy;
    unsigned flags = 0;
    /// Words of scale or matrix, as `flags` announces them.
    std::vector<int> transform = {};
  };

  GlyfBuilder& empty();
  GlyfBuilder& simple(const std::vector<std::vector<Point>>& contours);
  /// A square contour with its corner at the origin.
  GlyfBuilder& square(int side);
  GlyfBuilder& composite(const std::vector<Component>& components);
  /// The glyph's bytes as they stand.
  GlyfBuilder& raw(std::string bytes);

  [[nodiscard]] unsigned count() const { return static_cast<unsigned>(glyphs_.size()); }
  [[nodiscard]] std::string glyf() const;
  [[nodiscard]] std::string loca(bool longOffsets = false) const;

 private:
  std::vector<std::string> glyphs_;
};

}  // namespace qxtest
