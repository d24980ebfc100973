#include "layout/table/layout_tables.h"

#include "layout/table/class_def.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS {
namespace {

template <class ClassDef>
int classIn(const ClassDef* table, unsigned short glyph) {
  if (table == nullptr) return GCD_NO_TABLE;
  return glyph == 0xFFFF ? GCD_NONE : table->classOf(glyph);
}

}  // namespace

FS_LayoutTables::FS_LayoutTables()
    : gsub(std::make_unique<TTI_LayoutTable>()), gpos(std::make_unique<TTI_LayoutTable>()) {}
FS_LayoutTables::~FS_LayoutTables() = default;

GlyphClassDef FS_LayoutTables::glyphClass(unsigned short glyph) const {
  return static_cast<GlyphClassDef>(classIn(glyphClassDef.get(), glyph));
}

int FS_LayoutTables::markAttachClass(unsigned short glyph) const {
  return classIn(markAttachClassDef.get(), glyph);
}

}  // namespace QXFontService_NS
