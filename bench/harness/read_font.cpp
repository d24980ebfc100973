#include "harness/read_font.h"

#include <memory>

#include "qxcommon/error.h"

#include "font/contract/file_type_rule.h"
#include "font/make_sfnt_font.h"

namespace qxbench {

using namespace QXFontService_NS;

QXCommonNS::QXPtr<FS_BaseFont> readFont(const std::string& path) {
  const QXUri uri(icu::UnicodeString::fromUTF8(path), QXCommonNS::URISTR_FOLDER);
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  if (!stream) return {};
  const FS_FontFileType type =
      fontFileTypeOf(uri.getExtension(), FS_FILETYPE_UNKNOWN, stream.get());
  QXCommonNS::QXPtr<FS_BaseFont> font(makeSfntFont(type, uri, nullptr));
  QXError error;
  if (!font || !font->readFont(&error, stream.get())) return {};
  return font;
}

bool loadTables(FS_BaseFont& font) {
  QXError error;
  return font.loadFontTables(&error, 0, nullptr);
}

}  // namespace qxbench
