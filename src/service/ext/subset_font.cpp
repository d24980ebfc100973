#include "qxfontservice/ext/subset_font.h"

#include "font/sfnt_font.h"
#include "service/boundary.h"

namespace QXFontService_NS::ext {

bool makeConformingSubsetFont(const FS_FontInfo& font, const std::vector<unsigned short>& gids,
                              QXCommonNS::QXMemStream& out) {
  return service::atBoundary(false, [&] {
    FS_BaseFont* base = font.getFont();
    if (base == nullptr) return false;
    auto* sfnt = dynamic_cast<SfntFont*>(base->getExtraBaseFont());
    // A document's font is read where it was unpacked to; others give null and open their file.
    return sfnt != nullptr &&
           sfnt->makeConformingSubsetFont(gids, out, font.getEntry(), base->getMemStream());
  });
}

}  // namespace QXFontService_NS::ext
