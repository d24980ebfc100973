#include "qxfontservice/ext/open_file.h"

#include <array>
#include <memory>

#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"
#include "qxfontservice/error_codes.h"

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"
#include "font/contract/file_type_rule.h"
#include "pool/registry/font_registry.h"
#include "service/boundary.h"
#include "service/errors/font_error_text.h"
#include "service/font_info_access.h"

namespace QXFontService_NS::ext {
namespace {

QXError fontError(FS_ERROR code, const UnicodeString& detail, const QXUri& file) {
  return makeFontError(code, detail, file.getLocalPath(true));
}

/// The kind of a file by its extension, and for an unknown one by its first four bytes.
FS_FontFileType typeOf(const QXUri& file, std::istream& stream) {
  const FS_FontFileType known = fontFileTypeOf(file.getExtension(), FS_FILETYPE_UNKNOWN, &stream);
  if (known != FS_FILETYPE_UNKNOWN) return known;
  std::array<std::byte, 4> head{};
  if (!QXCommonNS::bytes::readExact(stream, 0, head)) return FS_FILETYPE_UNKNOWN;
  stream.seekg(0);  // fonts read from where the stream stands
  switch (QXCommonNS::bytes::ByteView(head).u32(0)) {
    case 0x00010000:
    case 0x74727565:
      return FS_FILETYPE_TRUETYPE;  // "true"
    case 0x4F54544F:
      return FS_FILETYPE_OPENTYPE;  // "OTTO"
    case 0x74746366:
      return FS_FILETYPE_TTC;  // "ttcf"
    case 0x774F4646:
      return FS_FILETYPE_WOFF;  // "wOFF"
    case 0x00000100:
      return FS_FILETYPE_DFONT;  // the data of a resource file begin at 256
    default:
      return FS_FILETYPE_UNKNOWN;
  }
}

/// What a font object that was not read, and said nothing, leaves to tell.
const char16_t* silentRefusal(FS_FontFileType type) {
  return type == FS_FILETYPE_TTC ? u"Not a collection of TrueType fonts"
                                 : u"No font of a known kind";
}

/// Opens the file with an error to tell; null error code on success.
QXError open(const QXUri& file, int face, FS_FontInfo& out) {
  FS_FontRegistry::open(nullptr, nullptr);
  const std::unique_ptr<std::istream> stream(file.getIStream(nullptr, nullptr));
  if (!stream) return fontError(FS_ERROR_FONT_READ, u"The file cannot be opened", file);

  const FS_FontFileType type = typeOf(file, *stream);
  QXPtr<FS_BaseFont> font(FS_FontRegistry::createFontObject(nullptr, file, type));
  if (!font) return fontError(FS_ERROR_FONT_FILE, u"No font of a known kind", file);

  QXError error;
  const bool read = font->isExtraFont(nullptr, nullptr, 0)
                        ? font->readExtraFont(&error, stream.get(), UnicodeString(), 0, -1)
                        : font->readFont(&error, stream.get());
  if (!read || face < 0 || face >= font->getEntryCount()) {
    if (error.getErrorCode() != 0) return error;
    return fontError(FS_ERROR_FONT_FILE, read ? u"The font has no such face" : silentRefusal(type),
                     file);
  }
  if (!font->loadFontTables(&error, face, nullptr)) {
    if (error.getErrorCode() != 0) return error;
    return fontError(FS_ERROR_FONT_FILE, u"The face cannot be loaded", file);
  }
  font->refCount.fetch_add(1);  // the handle's own
  FontInfoAccess::set(out, font.get(), face);
  return {};
}

}  // namespace

bool openFontFile(const QXUri& file, int face, FS_FontInfo& out) {
  out = FS_FontInfo();
  QXError error;
  try {
    error = open(file, face, out);
  } catch (const QXError& caught) {
    error = caught;
  }
  FontInfoAccess::error(out) = error;
  return out.isCreatedFont();
}

int faceCount(const FS_FontInfo& font) {
  return service::askFont<&FS_BaseFont::getEntryCount>(font.getFont(), 0);
}

}  // namespace QXFontService_NS::ext
