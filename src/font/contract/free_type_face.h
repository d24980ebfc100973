#pragma once

#include <ft2build.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>
#include FT_FREETYPE_H

#include "qxfontservice/names.h"

namespace QXFontService_NS::contract {

/// A count of the FreeType library.
using FreeTypeLibrary = std::shared_ptr<FT_LibraryRec_>;

/// A count of the one FreeType library of the process, which the first call makes and the last
/// count ends; null when FreeType does not start. Call it, and drop the count, with the rendering
/// lock held.
FreeTypeLibrary freeTypeLibrary();

/// A FreeType face with what must outlive it: the file's bytes, where it reads from memory, and a
/// count of the library. It closes the face under the rendering lock.
class FreeTypeFace {
 public:
  FreeTypeFace() = default;
  FreeTypeFace(const FreeTypeFace&) = delete;
  FreeTypeFace& operator=(const FreeTypeFace&) = delete;
  ~FreeTypeFace();

  /// The face, or null; borrowed.
  [[nodiscard]] FT_Face get() const { return face_; }

  /// Opens the face, by the file's path where the file is local and FreeType takes it, else from
  /// memory. Once it is open further calls change nothing.
  ///
  /// @param uri the font's file.
  /// @param memStream the font in memory, or null; the file is not looked at then.
  /// @param index the face's index in the file.
  /// @return the face, or null. The bytes read stay for the next try.
  /// Takes the rendering lock, so the caller holds none but the outline lock.
  FT_Face open(const QXUri& uri, QXMemStream* memStream, int index);

 private:
  FT_Face openAny(FT_Library library, const QXUri& uri, QXMemStream* memStream, int index);

  FreeTypeLibrary library_;
  std::vector<std::byte> buffer_;  // read by the face as long as it lives
  FT_Face face_ = nullptr;
};

}  // namespace QXFontService_NS::contract
