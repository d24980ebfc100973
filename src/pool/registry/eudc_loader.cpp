#include "pool/registry/eudc_loader.h"

#include "font/contract/file_type_rule.h"
#include "pool/system/folder_listing.h"

namespace QXFontService_NS {
namespace {

/// Whether the extension lets the file be an end-user-defined font: an unknown one (".tte") does.
bool isEudcFile(const QXUri& file) {
  const FS_FontFileType type = fontFileTypeOfExtension(file.getExtension());
  return type == FS_FILETYPE_UNKNOWN || type == FS_FILETYPE_TRUETYPE ||
         type == FS_FILETYPE_OPENTYPE;
}

}  // namespace

FS_BaseFont* EudcLoader::loadFile(const QXUri& file) {
  if (!isEudcFile(file)) return nullptr;
  FS_FontFolder& folder = registry_.folderForFile(file);
  const FS_FontFileName name = fileNameOf(file.getFileName());
  return isExcluded(folder, name) ? nullptr : registry_.loadFont(folder, name, kLoadEudc);
}

void EudcLoader::loadDefault() {
  const QXUri& file = registry_.settings().eudcSystemDefault;
  if (file.isEmpty()) return;
  FS_BaseFont* horizontal = loadFile(file);
  if (horizontal == nullptr) return;

  QXError error;
  if (horizontal->loadFontTables(&error, 0, nullptr)) {
    registry_.services().setEudcDefault(false, {horizontal, 0});
    registry_.mainPool().addFontUnique(horizontal, UnicodeString());
  }
  FS_BaseFont* vertical = loadFile(file);
  if (vertical != nullptr && vertical->loadFontTables(&error, 0, nullptr)) {
    vertical->setEudcFlag();
    registry_.services().setEudcDefault(true, {vertical, 0});
    registry_.mainPool().addFontUnique(vertical, UnicodeString(u"V"));
  }
  if (error.getErrorCode() != 0) registry_.collectError(error, file);
}

void EudcLoader::linkFamilies() {
  for (const auto& [family, file] : registry_.settings().eudcMap) linkFamily(family, file);
}

void EudcLoader::linkFamily(const UnicodeString& family, const QXUri& file) {
  FS_BaseFont* eudcFont = loadFile(file);
  if (eudcFont == nullptr) return;

  UnicodeString name = family;
  bool fromAlias = false;
  const FS_FontRef hit = registry_.findFont(family, makeFontKey(0, false, 0), &fromAlias);
  if (fromAlias) name = hit.font->getFamilyName(QXLang::LANGID_DEFAULT, hit.entry);

  FS_FontFamily* faces = nullptr;
  if (!registry_.mainPool().findFamily(name, faces) || faces->empty()) return;
  const FS_FontRef first = faces->begin()->second;
  registry_.mainPool().addFontUnique(eudcFont,
                                     first.font->getPostScriptName(QXLang::LANGID_DEFAULT, 0));
  first.font->setEudcFont({eudcFont, 0}, first.entry);
}

}  // namespace QXFontService_NS
