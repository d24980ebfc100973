#include "font/woff.h"

#include "qxcommon/lock.h"

#include "embed/true_type_subset.h"
#include "font/contract/file_type_rule.h"
#include "font/contract/font_error.h"
#include "font/contract/font_services.h"
#include "font/make_sfnt_font.h"
#include "font/woff_reader.h"

namespace QXFontService_NS {
namespace {

constexpr std::size_t kBlockSize = 8192;

/// A memory stream over an unpacked font: it reads what it is asked for and keeps nothing.
std::unique_ptr<QXMemStream> memStreamOver(const std::shared_ptr<UnpackedSfnt>& sfnt) {
  return std::make_unique<QXMemStream>(UnpackedSfnt::cursor(sfnt).release(), kBlockSize, true,
                                       false);
}

}  // namespace

FS_WOFF::FS_WOFF(const QXUri& uri, FS_FontFolder* folder) : FS_ExtraFont(uri, folder) {}

FS_WOFF::~FS_WOFF() = default;

unsigned int FS_WOFF::getClassID() const {
  return kClassID;
}

bool FS_WOFF::isKindOf(unsigned int id) const {
  return id == kClassID || FS_ExtraFont::isKindOf(id);
}

UnicodeString FS_WOFF::getClassName() const {
  return u"FS_WOFF";
}

FS_FontFileType FS_WOFF::getFontFileType(int) const {
  return FS_FILETYPE_WOFF;
}

bool FS_WOFF::readFont(QXError* error, std::istream* stream) {
  const TableResult failure = unpackWoff(*stream, sfnt_);
  if (failure) {
    reportFontError(*this, error, failure->code, UnicodeString::fromUTF8(failure->detail));
    return false;
  }
  sfntStream_ = memStreamOver(sfnt_);
  return readInner(error);
}

/// The name is only a hint: the data tell which kind of font it is.
bool FS_WOFF::readInner(QXError* error) {
  const auto stream = UnpackedSfnt::cursor(sfnt_);
  const FS_FontFileType type = fontFileTypeOf(u".otf", FS_FILETYPE_UNKNOWN, stream.get());
  setInner(makeSfntFont(type, fileUri_, folder_));
  return inner() != nullptr && inner()->readFont(error, stream.get());
}

bool FS_WOFF::loadFontTables(QXError* error, int entry, std::istream*) {
  if (sfnt_ == nullptr) return FS_ExtraFont::loadFontTables(error, entry, nullptr);
  return FS_ExtraFont::loadFontTables(error, entry, UnpackedSfnt::cursor(sfnt_).get());
}

embed::FontStream FS_WOFF::ownStream() {
  return sfnt_ != nullptr ? embed::FontStream(UnpackedSfnt::cursor(sfnt_)) : embed::FontStream();
}

bool FS_WOFF::getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) {
  const bool takesTheStream =
      inner() != nullptr && inner()->getFontFileType(entry) == FS_FILETYPE_TRUETYPE;
  if (source != nullptr || sfnt_ == nullptr || !takesTheStream)
    return FS_ExtraFont::getEmbedFontStream(out, entry, source);
  return embed::handOverStream(ownStream(), out);
}

bool FS_WOFF::makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry, std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.makeWebFont(gids, out, entry, stream);
  });
}

bool FS_WOFF::makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                             std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.makeSubsetFont(gids, out, entry, stream);
  });
}

FT_Face FS_WOFF::getFreeTypeFace(int) {
  QXMutex guard(&fontServices().renderingLock());
  const unsigned int before = ftFlags_.fetch_or(kFaceTried, std::memory_order_relaxed);
  if ((before & kFaceTried) == 0 && sfnt_ != nullptr)
    ftFace_.open(getFontFileName2(), memStreamOver(sfnt_).get(), 0);
  return ftFace_.get();
}

QXMemStream* FS_WOFF::getMemStream() {
  return sfntStream_.get();
}

}  // namespace QXFontService_NS
