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

std::unique_ptr<outline::GlyphGuard> makeGuard(const FS_TrueTypeInfo& info) {
  auto guard = std::make_unique<outline::GlyphGuard>();
  if (info.hasGlyf()) {
    guard->setGlyphTables({*info.getTable(sfnt::tagOf("glyf")), *info.getTable(sfnt::tagOf("loca")),
                           info.records().head.indexToLocFormat != 0});
  }
  if (info.hasCFF()) guard->setCff(*info.getTable(sfnt::tagOf("CFF ")), info.cffFont());
  return guard;
}

}  // namespace

bool isDrawableGlyph(FS_BaseFont& font, int entry, unsigned short gid) {
  FS_TrueTypeInfo* info = SfntFont::recordOf(font, entry);
  if (info == nullptr) return true;
  std::unique_ptr<outline::GlyphGuard>& guard = info->glyphGuard();
  if (guard == nullptr) guard = makeGuard(*info);
  return guard->passes(gid, [&font] { return openForReading(font); });
}

}  // namespace QXFontService_NS
