#include "qxfontservice/ext/web_font.h"

#include "qxfontservice/ext/subset_font.h"

#include "common/limits.h"
#include "embed/woff.h"
#include "service/boundary.h"

namespace QXFontService_NS::ext {

bool makeConformingWebFont(const FS_FontInfo& font, const std::vector<unsigned short>& gids,
                           QXCommonNS::QXMemStream& out) {
  constexpr std::size_t kBlockSize = 8192;
  return service::atBoundary(false, [&] {
    QXCommonNS::QXMemStream sfnt(nullptr, kBlockSize, false, true);
    return makeConformingSubsetFont(font, gids, sfnt) &&
           sfnt.length() <= QXCommonNS::limits::kMostFileBytes &&
           embed::writeConformingWoff(out, sfnt);
  });
}

}  // namespace QXFontService_NS::ext
