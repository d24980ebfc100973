#include "qxcommon/lock.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/glyph_draw_info.h"

#include "font/contract/outline_lock.h"
#include "font/drawable_glyph.h"
#include "font/outline/draw_glyph.h"
#include "service/boundary.h"

namespace QXFontService_NS {

bool FS_FontInfo::isGlyphDrawInfoAvialable() const {
  return service::askFont<&FS_BaseFont::getFreeTypeFace>(font_, nullptr, entry_) != nullptr;
}

bool FS_FontInfo::getGlyphDrawInfo(unsigned short gid, FS_GlyphDrawInfo& info,
                                   bool vertical) const {
  info.valid = false;
  if (font_ == nullptr) return false;
  return service::atBoundary(false, [&] {
    const QXMutex guard(&FS_OutlineLock());
    FT_Face face = font_->getFreeTypeFace(entry_);
    return face != nullptr && isDrawableGlyph(face, *font_, entry_, gid) &&
           outline::drawGlyph(face, gid, info, vertical);
  });
}

}  // namespace QXFontService_NS
