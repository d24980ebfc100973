#include "font/contract/free_type_face.h"

#include <climits>
#include <limits>
#include <string>
#include <utility>

#include "qxcommon/lock.h"
#include "qxcommon/mem_stream.h"
#include "qxcommon/uri.h"

#include "common/bytes/stream_read.h"
#include "font/contract/font_services.h"

namespace QXFontService_NS::contract {
namespace {

constexpr FT_Error kCannotOpenResource = 1;

FT_Error openFromPath(FT_Library library, const QXUri& uri, int index, FT_Face& face) {
  std::string path;
  uri.getLocalPath(false).toUTF8String(path);
  return FT_New_Face(library, path.c_str(), index, &face);
}

FT_Face openFromMemory(FT_Library library, const std::vector<std::byte>& bytes, int index) {
  if (bytes.empty() || bytes.size() > static_cast<unsigned long>(LONG_MAX)) return nullptr;
  // std::byte to FreeType's unsigned char, both plain bytes, by way of void.
  const void* data = bytes.data();
  FT_Face face = nullptr;
  const FT_Error error = FT_New_Memory_Face(library, static_cast<const FT_Byte*>(data),
                                            static_cast<FT_Long>(bytes.size()), index, &face);
  return error == 0 ? face : nullptr;
}

std::vector<std::byte> readWhole(std::istream& stream) {
  return QXCommonNS::bytes::readBlock(stream, 0, std::numeric_limits<std::uint64_t>::max());
}

std::vector<std::byte> readFile(const QXUri& uri) {
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  return stream ? readWhole(*stream) : std::vector<std::byte>();
}

}  // namespace

FreeTypeLibrary freeTypeLibrary() {
  // Never destroyed: the last face may die behind all static objects of the library.
  static std::weak_ptr<FT_LibraryRec_>& current = *new std::weak_ptr<FT_LibraryRec_>;
  if (FreeTypeLibrary shared = current.lock()) return shared;
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) return nullptr;
  FreeTypeLibrary made(library, FT_Done_FreeType);
  current = made;
  return made;
}

FreeTypeFace::~FreeTypeFace() {
  if (face_ == nullptr) return;
  QXMutex guard(&fontServices().renderingLock());
  FT_Done_Face(face_);
  library_.reset();
}

FT_Face FreeTypeFace::open(const QXUri& uri, QXMemStream* memStream, int index) {
  FS_FontServices& services = fontServices();
  QXMutex guard(&services.renderingLock());
  if (face_ != nullptr || services.freeType() == nullptr) return face_;
  FreeTypeLibrary library = freeTypeLibrary();
  face_ = openAny(library.get(), uri, memStream, index);
  if (face_ != nullptr) library_ = std::move(library);
  return face_;
}

FT_Face FreeTypeFace::openAny(FT_Library library, const QXUri& uri, QXMemStream* memStream,
                              int index) {
  if (library == nullptr) return nullptr;
  // Regular files only: FreeType would wait for the writer of a pipe.
  if (buffer_.empty() && memStream == nullptr && uri.isFileExists()) {
    FT_Face face = nullptr;
    const FT_Error error = openFromPath(library, uri, index, face);
    if (error == 0) return face;
    // A path that FreeType cannot open may still be read by the service's own streams.
    if (error > kCannotOpenResource) return nullptr;
  }
  if (buffer_.empty()) buffer_ = memStream != nullptr ? readWhole(*memStream) : readFile(uri);
  return openFromMemory(library, buffer_, index);
}

}  // namespace QXFontService_NS::contract
