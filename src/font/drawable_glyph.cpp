#include "font/drawable_glyph.h"

#include "font/outline/glyph_guard.h"
#include "font/sfnt_font.h"
#include "font/woff.h"

namespace QXFontService_NS {
namespace {

embed::FontStream openForReading(FS_BaseFont& font) {
  if (auto* web = dynamic_cast<FS_WOFF*>(&font)) return web->ownStream();
  return embed::openFontStream(nullptr, font.getFontFileName2());
}

std::unique_ptr<outline::GlyphGuard> makeGuard(const FS_TrueTypeInfo* info) {
  auto guard = std::make_unique<outline::GlyphGuard>();
  if (info == nullptr) return guard;
  if (info->hasGlyf()) {
    guard->setGlyphTables({*info->getTable(sfnt::tagOf("glyf")),
                           *info->getTable(sfnt::tagOf("loca")),
                           info->records().head.indexToLocFormat != 0});
  }
  if (info->hasCFF()) guard->setCff(*info->getTable(sfnt::tagOf("CFF ")), info->cffFont());
  return guard;
}

void deleteGuard(void* face) {
  delete static_cast<outline::GlyphGuard*>(static_cast<FT_Face>(face)->generic.data);
}

/// The guard stands in the face, which deletes it: finding it takes no look at the font.
outline::GlyphGuard& guardOf(FT_Face face, FS_BaseFont& font, int entry) {
  if (face->generic.data == nullptr)
    face->generic = {makeGuard(SfntFont::recordOf(font, entry)).release(), deleteGuard};
  return *static_cast<outline::GlyphGuard*>(face->generic.data);
}

}  // namespace

bool isDrawableGlyph(FT_Face face, FS_BaseFont& font, int entry, unsigned short gid) {
  return guardOf(face, font, entry).passes(gid, [&font] { return openForReading(font); });
}

}  // namespace QXFontService_NS
