#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::askFont;
using service::atBoundary;

namespace {

using Font = FS_BaseFont;

// No stream is passed: the font reads its own file.
constexpr std::istream* kOwnFile = nullptr;

}  // namespace

unsigned short FS_FontInfo::getFontEmbeddingLicence() const {
  return askFont<&Font::getFontEmbeddingLicence>(font_, 0, entry_);
}
FS_EMBEDSTATUS FS_FontInfo::getEmbedStatus() const {
  return askFont<&Font::getEmbedStatus>(font_, FS_EMBED_RESTRICTED, entry_);
}
unsigned int FS_FontInfo::getEmbedableCharCount() const {
  return askFont<&Font::getEmbedableCharCount>(font_, 0, entry_);
}
bool FS_FontInfo::canEmbedFont() const {
  return askFont<&Font::canEmbedFont>(font_, false, entry_);
}
bool FS_FontInfo::getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out) const {
  return askFont<&Font::getSVG2EmbedFont>(font_, false, gids, out, entry_, kOwnFile);
}
bool FS_FontInfo::getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream& out) const {
  return askFont<&Font::getEmbedFontWithCmap>(font_, false, gids, out, entry_, kOwnFile);
}
bool FS_FontInfo::getEmbedFontStream(QXMemStream& out) const {
  return askFont<&Font::getEmbedFontStream>(font_, false, out, entry_, kOwnFile);
}
bool FS_FontInfo::getPSEmbedFont(const GlyphIDs& gids, QXMemStream& out, FS_TTGlyphMap& map) const {
  return askFont<&Font::getPSEmbedFont>(font_, false, gids, out, map, entry_, kOwnFile);
}
bool FS_FontInfo::makeWebFont(const GlyphIDs& gids, QXMemStream& out) const {
  return askFont<&Font::makeWebFont>(font_, false, gids, out, entry_, kOwnFile);
}
bool FS_FontInfo::makeSubsetFont(const GlyphIDs& gids, QXMemStream& out) const {
  return askFont<&Font::makeSubsetFont>(font_, false, gids, out, entry_, kOwnFile);
}
bool FS_FontInfo::makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream& out,
                                             UnicodeString& fontName,
                                             FS_CIDSystemInfo& info) const {
  return askFont<&Font::makePostScriptCIDFontType0>(font_, false, gids, out, fontName, info, entry_,
                                                    kOwnFile);
}

bool FS_FontInfo::getEmbedFont(const GlyphIDs& gids, QXMemStream& out,
                               const unsigned int* tags) const {
  if (font_ == nullptr) return false;
  return atBoundary(false, [&] { return font_->getEmbedFont(gids, out, tags, entry_, kOwnFile); });
}

bool FS_FontInfo::getEmbedFont(const GlyphIDs& gids, QXMemStream& out) const {
  if (font_ == nullptr) return false;
  return atBoundary(false, [&] { return font_->getEmbedFont(gids, out, entry_, kOwnFile); });
}

}  // namespace QXFontService_NS
