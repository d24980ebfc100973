#include "service/enumeration.h"

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "pool/tables/extra_font_pool.h"
#include "pool/tables/global_lock.h"

namespace QXFontService_NS {
namespace {

constexpr char16_t kVerticalMark = u'@';

/// A walk over one pool. The callback may add fonts and fill families: lists are walked by index
/// and families by iterators that insertions keep valid, so what is added is seen too.
class PoolWalk {
 public:
  PoolWalk(FS_FontPool& pool, FS_FontResourceType type, const EnumReceiver& receiver)
      : pool_(pool), type_(type), receiver_(receiver) {}

  int all() {
    const QXMutex guard(&FS_GlobalLock());
    for (std::size_t i = 0; i < pool_.fonts().size(); ++i) {
      if (const int result = font(*pool_.fonts()[i])) return result;
    }
    return 0;
  }

  int family(const UnicodeString& name) {
    const bool vertical = name.startsWith(&kVerticalMark, 1);
    const QXMutex guard(&FS_GlobalLock());
    FS_FontFamily* faces = nullptr;
    if (!pool_.findFamily(vertical ? UnicodeString(name, 1) : name, faces)) return 0;
    for (const auto& [key, ref] : *faces) {
      if (const int result = face(ref, vertical)) return result;
    }
    return 0;
  }

 private:
  int font(FS_BaseFont& font) {
    const FS_FontResourceType type = originOf(font);
    const int count = font.getEntryCount();
    for (int entry = 0; entry < count; ++entry) {
      if (const int result = tell(font, entry, type)) return result;
    }
    return 0;
  }

  FS_FontResourceType originOf(const FS_BaseFont& font) const {
    if (type_ != FS_RESOURCE_MAIN) return type_;
    const unsigned int flags = font.fontFlags();
    if ((flags & FS_BaseFont::kSystemFont) != 0) return FS_RESOURCE_SYSTEM;
    if ((flags & FS_BaseFont::kEudcFont) != 0) return FS_RESOURCE_EUDC;
    return type_;
  }

  int face(const FS_FontRef& ref, bool vertical) {
    if (vertical) {
      QXError ignored;
      (void)ref.font->loadFontTables(&ignored, ref.entry, nullptr);
      if (!ref.font->hasVerticalGlyph(ref.entry)) return 0;
    }
    const bool webFont = ref.font->getFontFileType(ref.entry) == FS_FILETYPE_WOFF;
    return tell(*ref.font, ref.entry, webFont ? FS_RESOURCE_WOFF : type_);
  }

  int tell(FS_BaseFont& font, int entry, FS_FontResourceType type) {
    FS_EnumLogFontEx record;
    FS_NewTextMetricEx metric;
    if (!font.getLogFont(record, entry) || !font.getNewTextMetricEx(metric, entry)) return 0;
    record.setFontFileType(font.getFontFileType(entry));
    record.setEmbedStatus(font.getEmbedStatus(entry));
    record.setFontFlags(static_cast<int>(font.fontFlags()));
    return receiver_.callback(type, &record, &metric, receiver_.user);
  }

  FS_FontPool& pool_;
  FS_FontResourceType type_;
  const EnumReceiver& receiver_;
};

int walk(FS_FontPool& pool, FS_FontResourceType type, const EnumReceiver& receiver,
         const UnicodeString& family) {
  PoolWalk walk(pool, type, receiver);
  return family.isEmpty() ? walk.all() : walk.family(family);
}

}  // namespace

int enumerateFonts(FS_FontRegistry& registry, const UnicodeString& family,
                   const EnumReceiver& receiver, FS_ExtraFontManager* extra) {
  const QXMutex guard(&FS_GlobalLock());
  if (extra != nullptr) {
    if (const int result = walk(*extra->getExtraFonts(), FS_RESOURCE_EXTRA, receiver, family)) {
      return result;
    }
  }
  if (const int result = walk(registry.aliasPool(), FS_RESOURCE_ALIAS, receiver, family)) {
    return result;
  }
  return walk(registry.mainPool(), FS_RESOURCE_MAIN, receiver, family);
}

}  // namespace QXFontService_NS
