#include <memory>

#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"
#include "qxfontservice/font_info.h"

#include "font/contract/file_type_rule.h"
#include "font/contract/font_key.h"
#include "font/contract/font_name_rules.h"
#include "font/contract/font_services.h"
#include "pool/registry/font_registry.h"
#include "pool/tables/extra_font_pool.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::atBoundary;

namespace {

constexpr std::size_t kStreamBlock = 8192;

/// What a lookup found; a null font for nothing.
struct Hit {
  FS_FontRef ref;
  bool isExtra = false;
};

Hit findFace(const UnicodeString& family, const FS_FontKey& key, FS_ExtraFonts* extra) {
  if (extra != nullptr) {
    const FS_FontRef ref = extra->findFont(family, key);
    if (ref.font != nullptr) return {ref, true};
  }
  return {FS_FontRegistry::open(nullptr, nullptr)->findFont(family, key, nullptr), false};
}

/// Runs an opening; what it throws becomes false with its reason in `error`.
template <class Opening>
bool opensInto(QXError& error, Opening&& opening) {
  try {
    return QXCommonNS::answerOr(false, opening);
  } catch (const QXError& caught) {
    error = caught;
    return false;
  }
}

/// Opens the EUDC font of a face beside it. One that does not open is cut off for good and never
/// fails the face; its reason stays in `error`, which hosts read as a warning.
void openEudcLink(FS_BaseFont& font, int entry, QXError& error) {
  const FS_FontRef link = font.getEudcFont(entry);
  if (link.font == nullptr) return;
  if (!link.font->loadFontTables(&error, link.entry, nullptr)) {
    font.setEudcFont(FS_FontRef(), entry);
  } else if (font.hasVerticalGlyph(entry)) {
    link.font->setEudcFlag();
  }
}

/// Opens a file of no pool: an sfnt by its first four bytes, whatever its extension says. The
/// result is empty on failure.
QXPtr<FS_BaseFont> openFile(const QXUri& uri, QXError& error) {
  FS_FontRegistry::open(nullptr, nullptr);
  QXMemStream stream(uri.getIStream(nullptr, nullptr), kStreamBlock, true, false);
  const FS_FontFileType type = fontFileTypeOf(UnicodeString(), FS_FILETYPE_HINT_BYTES2, &stream);
  QXPtr<FS_BaseFont> font(FS_FontRegistry::createFontObject(nullptr, uri, type));
  if (!font || !font->readFont(&error, &stream)) return {};
  if (!font->loadFontTables(&error, 0, &stream)) return {};
  return font;
}

}  // namespace

bool FS_FontInfo::createFont(const UnicodeString& family, int weight, bool italic, int stretch,
                             FS_ExtraFonts* extra) {
  error_ = QXError();
  return opensInto(error_, [&] {
    const Hit hit = findFace(family, makeFontKey(weight, italic, stretch), extra);
    if (hit.ref.font == nullptr) return false;
    // A document's fonts were loaded when they were added.
    if (!hit.isExtra && !hit.ref.font->loadFontTables(&error_, hit.ref.entry, nullptr))
      return false;
    entry_ = hit.ref.entry;
    font_ = hit.ref.font;
    openEudcLink(*font_, entry_, error_);
    return true;
  });
}

bool FS_FontInfo::createFont(const UnicodeString& family, int weight, bool italic,
                             FS_ExtraFonts* extra) {
  return createFont(family, weight, italic, 0, extra);
}

bool FS_FontInfo::createFont(const QXUri& uri) {
  error_ = QXError();
  entry_ = 0;
  return opensInto(error_, [&] {
    const QXPtr<FS_BaseFont> font = openFile(uri, error_);
    if (!font) return false;
    font->refCount.fetch_add(1);  // the handle's own, which `deleteFont` releases
    font_ = font.get();
    return true;
  });
}

QXUri FS_FontInfo::getFontFolderPath(const UnicodeString& family, int weight, bool italic,
                                     int stretch, FS_ExtraFonts* extra, bool* isExtra) {
  if (isExtra != nullptr) *isExtra = false;
  return atBoundary(QXUri(), [&] {
    const Hit hit = findFace(family, makeFontKey(weight, italic, stretch), extra);
    if (hit.ref.font == nullptr) return QXUri();
    if (isExtra != nullptr) *isExtra = hit.isExtra;
    return hit.ref.font->fileUri();
  });
}

bool FS_FontInfo::getNewTextMetricEx(const UnicodeString& family, int weight, bool italic,
                                     int stretch, FS_NewTextMetricEx& out, FS_ExtraFonts* extra) {
  return atBoundary(false, [&] {
    const FS_FontRef ref = findFace(family, makeFontKey(weight, italic, stretch), extra).ref;
    if (ref.font == nullptr) return false;
    QXError error;
    return ref.font->loadFontTables(&error, ref.entry, nullptr) &&
           ref.font->getNewTextMetricEx(out, ref.entry);
  });
}

bool FS_FontInfo::getNewTextMetricEx(const UnicodeString& family, int weight, bool italic,
                                     FS_NewTextMetricEx& out, FS_ExtraFonts* extra) {
  return getNewTextMetricEx(family, weight, italic, 0, out, extra);
}

UnicodeString FS_FontInfo::getFamilyName(QXLang::LanguageID lang, const UnicodeString& family,
                                         FS_ExtraFonts* extra) {
  return atBoundary(UnicodeString(), [&] {
    const FS_FontRef ref = findFace(family, FS_FontKey(), extra).ref;
    if (ref.font == nullptr) return UnicodeString();
    FS_FontRegistry::open(nullptr, nullptr);
    if (fontServices().usePreferredFamily()) {
      const UnicodeString preferred = ref.font->getPreferredFamily(lang, ref.entry);
      if (!preferred.isEmpty()) return preferred;
    }
    return ref.font->getFamilyName(lang, ref.entry);
  });
}

bool FS_FontInfo::isSameFontName(const UnicodeString& a, const UnicodeString& b) {
  return normalizeFontName(a) == normalizeFontName(b);
}

}  // namespace QXFontService_NS
