#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

/// Classes of glyphs (OpenType Class Definition table). A glyph that the table does not name has
/// no class, -1: class 0 exists only where the table says 0. Kept: context rules tell the two
/// apart.
class FS_LayoutTables::TTI_ClassDef {
 public:
  virtual ~TTI_ClassDef() = default;
  /// The class of a glyph, or -1.
  virtual int classOf(unsigned short glyph) const = 0;
};

/// Classes of consecutive glyphs.
class FS_LayoutTables::TTI_ClassDefFormat1 final : public TTI_ClassDef {
 public:
  TTI_ClassDefFormat1(unsigned short start, std::vector<unsigned short> classes)
      : start_(start), classes_(std::move(classes)) {}
  int classOf(unsigned short glyph) const override;

 private:
  unsigned short start_;
  std::vector<unsigned short> classes_;
};

/// Classes of sorted ranges of glyphs.
class FS_LayoutTables::TTI_ClassDefFormat2 final : public TTI_ClassDef {
 public:
  struct Range {
    unsigned short start, end, cls;
  };
  explicit TTI_ClassDefFormat2(std::vector<Range> ranges) : ranges_(std::move(ranges)) {}
  int classOf(unsigned short glyph) const override;

 private:
  std::vector<Range> ranges_;
};

namespace layout {

using TTI_ClassDef = FS_LayoutTables::TTI_ClassDef;
using ClassDefPtr = std::shared_ptr<const TTI_ClassDef>;
class GraphReader;

/// Reads the Class Definition table at `base` + `offset`. Null for an offset of 0, which is no
/// error, and for an unknown format, which is one. A format 1 table that reaches past the font's
/// glyphs is an error too, and holds no classes at all.
///
/// @param error raised on an error, never lowered; may be null
std::unique_ptr<const TTI_ClassDef> readClassDef(GraphReader& reader, std::uint64_t base,
                                                 unsigned offset, bool* error = nullptr);
/// The same without a report; tables at one place are read once and shared.
ClassDefPtr sharedClassDef(GraphReader& reader, std::uint64_t base, unsigned offset);

}  // namespace layout
}  // namespace QXFontService_NS
