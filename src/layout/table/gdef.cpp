#include "layout/table/gdef.h"

#include <climits>
#include <utility>
#include <vector>

#include "layout/table/class_def.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

constexpr unsigned kGlyphClassDefOffset = 4;
constexpr unsigned kMarkAttachClassDefOffset = 10;

/// The classes of a font's glyphs side by side, since each glyph of each text is asked for its
/// class. The table itself answers beyond them.
class FlatClasses final : public TTI_ClassDef {
 public:
  FlatClasses(std::unique_ptr<const TTI_ClassDef> table, std::size_t count)
      : table_(std::move(table)), classes_(count) {
    for (std::size_t glyph = 0; glyph < count; ++glyph)
      classes_[glyph] = stored(table_->classOf(static_cast<unsigned short>(glyph)));
  }

  int classOf(unsigned short glyph) const override {
    if (glyph < classes_.size() && classes_[glyph] != kAskTable) return classes_[glyph];
    return table_->classOf(glyph);
  }

 private:
  static constexpr signed char kAskTable = -2;  // for a class that no font has

  static signed char stored(int cls) {
    return cls >= -1 && cls <= SCHAR_MAX ? static_cast<signed char>(cls) : kAskTable;
  }

  std::unique_ptr<const TTI_ClassDef> table_;
  std::vector<signed char> classes_;
};

/// Of larger fonts, which have few classes, the search costs less than asking for all glyphs.
std::unique_ptr<const TTI_ClassDef> flattened(std::unique_ptr<const TTI_ClassDef> table,
                                              unsigned glyphs) {
  constexpr unsigned kMostFlat = 16'384;
  if (!table || glyphs > kMostFlat) return table;
  return std::make_unique<FlatClasses>(std::move(table), glyphs);
}

}  // namespace

GDEFRead readGDEF(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table) {
  GraphReader reader(font, table);
  bool error = false;
  font.glyphClassDef =
      flattened(readClassDef(reader, 0, reader.u16(kGlyphClassDefOffset), &error), font.numGlyphs);
  font.gdefLoaded = !error;
  if (error) return {false, true};
  font.markAttachClassDef = readClassDef(reader, 0, reader.u16(kMarkAttachClassDefOffset), &error);
  if (error) font.markAttachClassDef = nullptr;
  return {true, !error};
}

}  // namespace QXFontService_NS::layout
