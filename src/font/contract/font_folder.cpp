#include "font/contract/font_folder.h"

namespace QXFontService_NS {

FS_FontFolder::FS_FontFolder(const UnicodeString& path, unsigned char reservedValue,
                             bool withSubfolders)
    : QXUri(path, QXCommonNS::URISTR_FOLDER),
      reserved(reservedValue),
      recursive(withSubfolders ? 1 : 0) {
  toDirectory();
}

const FS_FontFileOptions* FS_FontFolder::findOptions(const UnicodeString& fileName) const {
  if (fileOptions.empty()) return nullptr;
  const auto found = fileOptions.find(makeFontFileName(fileName).lowerName);
  return found == fileOptions.end() ? nullptr : &found->second;
}

}  // namespace QXFontService_NS
