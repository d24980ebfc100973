#include <array>

#include "qxcommon/ptr.h"

#include "common/platform/platform.h"
#include "font/contract/file_type_rule.h"
#include "font/make_sfnt_font.h"
#include "pool/registry/font_registry.h"
#include "pool/registry/opening_watcher.h"
#include "type1/type1_afm.h"
#include "type1/type1_pfm.h"

namespace QXFontService_NS {
namespace {

void markOrigin(FS_BaseFont& font, int flags) {
  if ((flags & kLoadSystemList) != 0) font.addFontFlags(FS_BaseFont::kSystemFont);
  if ((flags & kLoadEudc) != 0) font.addFontFlags(FS_BaseFont::kEudcFont);
}

}  // namespace

QXUri fileUriIn(const FS_FontFolder& folder, const FS_FontFileName& name) {
  return QXUri(folder.getText() + name.name, QXCommonNS::URISTR_FOLDER);
}

FS_BaseFont* FS_FontRegistry::createFontObject(FS_FontFolder* folder, const QXUri& uri,
                                               FS_FontFileType type) {
  // Font programs are never made here: they hang behind their metric files.
  if (type == FS_FILETYPE_TYPE1_AFM) return new FS_Type1AFM(uri, folder);
  if (type == FS_FILETYPE_TYPE1_PFM) return new FS_Type1PFM(uri, folder);
  return makeSfntFont(type, uri, folder);
}

FS_BaseFont* FS_FontRegistry::loadFont(FS_FontFolder& folder, const FS_FontFileName& name,
                                       int flags) {
  const QXUri uri = fileUriIn(folder, name);
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  if (!stream) return nullptr;

  const bool eudc = (flags & kLoadEudc) != 0;
  const FS_FontFileType hint = eudc ? FS_FILETYPE_HINT_TRUETYPE : FS_FILETYPE_UNKNOWN;
  QXCommonNS::QXPtr<FS_BaseFont> font(
      createFontObject(&folder, uri, fontFileTypeOf(uri.getExtension(), hint, stream.get())));
  if (!font) return nullptr;
  if (font->isExtraFont(nullptr, nullptr, 0)) {
    font->refCount.fetch_add(1);  // handed to the caller
    return font.get();
  }

  markOrigin(*font, flags);
  QXError error;
  const bool usable = font->readFont(&error, stream.get());
  if (error.getErrorCode() != 0) collectError(error, uri);
  opening::tellFile(usable ? font->getEntryCount() : 0);
  if (!usable) return nullptr;

  mainPool_.keepFont(font.get());
  if (!eudc) {
    font->refCount.fetch_add(1);  // dropped by addFont
    mainPool_.addFont(FS_FontRef{font.get(), 0});
  }
  return font.get();
}

bool FS_FontRegistry::loadPoolFont(FS_FontFolder& folder, const FS_FontFileName& name, int flags) {
  FS_BaseFont* font = loadFont(folder, name, flags);
  if (font != nullptr && font->isExtraFont(nullptr, nullptr, 0)) {
    font->release();
    return true;
  }
  return font != nullptr;
}

bool isExcluded(const FS_FontFolder& folder, const FS_FontFileName& name) {
  const FS_FontFileOptions* options = folder.findOptions(name.lowerName);
  return options != nullptr && options->exclude;
}

}  // namespace QXFontService_NS
