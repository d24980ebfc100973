#include "layout/table/gdef.h"

#include "layout/table/class_def.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

constexpr unsigned kGlyphClassDefOffset = 4;
constexpr unsigned kMarkAttachClassDefOffset = 10;

}  // namespace

GDEFRead readGDEF(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table) {
  GraphReader reader(font, table);
  bool error = false;
  font.glyphClassDef = readClassDef(reader, 0, reader.u16(kGlyphClassDefOffset), &error);
  font.gdefLoaded = !error;
  if (error) return {false, true};
  font.markAttachClassDef = readClassDef(reader, 0, reader.u16(kMarkAttachClassDefOffset), &error);
  if (error) font.markAttachClassDef = nullptr;
  return {true, !error};
}

}  // namespace QXFontService_NS::layout
