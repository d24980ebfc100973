#pragma once

#include <memory>

#include "qxcommon/mem_stream.h"

#include "font/extra_font.h"
#include "font/unpacked_sfnt.h"

namespace QXFontService_NS {

/// A web font (file type 10, WOFF 1.0): a document's font whose inner font is read from an sfnt
/// that was unpacked into memory. Once it is read, its file is not needed again.
class FS_WOFF final : public FS_ExtraFont {
 public:
  static constexpr unsigned int kClassID = ID_FS_WOFF;

  FS_WOFF(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  FS_FontFileType getFontFileType(int entry) const override;
  /// Unpacks the file and reads the inner font, an `FS_OpenType` where the unpacked data begin
  /// with "OTTO", else an `FS_TrueType`.
  bool readFont(QXError* error, std::istream* stream) override;
  /// Loads from the unpacked font; `stream` is not looked at.
  bool loadFontTables(QXError* error, int entry, std::istream* stream) override;
  /// As the inner font; what `out` is given to read from is its own, on any thread, and stays after
  /// the font.
  bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) override;
  bool makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                   std::istream* source) override;
  bool makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                      std::istream* source) override;
  /// Face 0 of the unpacked font, tried once.
  FT_Face getFreeTypeFace(int entry) override;
  /// The unpacked font; null before it was read. It has one position, so it is for the caller
  /// alone: everything else, embedding among it, has a stream of its own.
  QXMemStream* getMemStream() override;

  /// A stream of its own over the unpacked font; none before it was read.
  embed::FontStream ownStream() override;

 private:
  ~FS_WOFF() override;
  bool readInner(QXError* error);

  std::shared_ptr<UnpackedSfnt> sfnt_;
  std::unique_ptr<QXMemStream> sfntStream_;
};

}  // namespace QXFontService_NS
