#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "layout/table/sub_table.h"

namespace QXFontService_NS {

namespace layout {
class GraphReader;
}

/// A point at which glyphs are attached (OpenType Anchor table), in font units; or none. A value
/// of a few bytes, since a font has tens of thousands.
class FS_LayoutTables::GPOS_Anchor {
 public:
  /// No anchor.
  GPOS_Anchor() = default;

  [[nodiscard]] bool isNull() const { return !present_; }
  [[nodiscard]] short getX() const { return x_; }
  [[nodiscard]] short getY() const { return y_; }

 protected:
  /// Reads the coordinates, which stand at the same place in all formats.
  GPOS_Anchor(const layout::GraphReader& reader, std::uint64_t at);

 private:
  short x_ = 0;
  short y_ = 0;
  bool present_ = false;
};

/// An anchor by its coordinates alone.
class FS_LayoutTables::GPOS_AnchorFormat1 final : public GPOS_Anchor {
 public:
  GPOS_AnchorFormat1(const layout::GraphReader& reader, std::uint64_t at)
      : GPOS_Anchor(reader, at) {}
};

/// An anchor with a contour point. No size is known at this level, so the point has no effect.
class FS_LayoutTables::GPOS_AnchorFormat2 final : public GPOS_Anchor {
 public:
  GPOS_AnchorFormat2(const layout::GraphReader& reader, std::uint64_t at)
      : GPOS_Anchor(reader, at) {}
};

/// An anchor with device tables, which have no effect for the same reason.
class FS_LayoutTables::GPOS_AnchorFormat3 final : public GPOS_Anchor {
 public:
  GPOS_AnchorFormat3(const layout::GraphReader& reader, std::uint64_t at)
      : GPOS_Anchor(reader, at) {}
};

namespace layout {

using GPOS_Anchor = FS_LayoutTables::GPOS_Anchor;

/// Reads the Anchor table at `base` + `offset`. Null for an offset of 0 and an unknown format.
GPOS_Anchor readAnchor(const GraphReader& reader, std::uint64_t base, unsigned offset);

/// Rows of anchors, one for each mark class: those of a base, of a component of a ligature, or of
/// a mark that carries another.
class AnchorRows {
 public:
  explicit AnchorRows(unsigned classCount) : classCount_(classCount) {}

  /// Appends at most `count` rows, as many as are there, whose offsets stand at `at` and count
  /// from `base`. Gives how many it appended.
  std::size_t append(GraphReader& reader, std::uint64_t base, std::uint64_t at, std::size_t count);
  /// The anchor of a row for a mark class; null outside.
  [[nodiscard]] GPOS_Anchor anchor(std::int64_t row, unsigned markClass) const;
  /// The number of rows.
  [[nodiscard]] std::size_t size() const { return rows_; }

 private:
  std::size_t classCount_;
  std::size_t rows_ = 0;
  std::vector<GPOS_Anchor> anchors_;
};

}  // namespace layout
}  // namespace QXFontService_NS
