#include "font/extra_font.h"

#include "qxcommon/mem_stream.h"

#include "font/contract/font_key.h"
#include "font/contract/font_key_sink.h"

namespace QXFontService_NS {

FS_ExtraFont::FS_ExtraFont(const QXUri& uri, FS_FontFolder* folder) : FS_BaseFont(uri, folder) {}

FS_ExtraFont::~FS_ExtraFont() = default;

unsigned int FS_ExtraFont::getClassID() const {
  return kClassID;
}

bool FS_ExtraFont::isKindOf(unsigned int id) const {
  return id == kClassID || FS_BaseFont::isKindOf(id);
}

UnicodeString FS_ExtraFont::getClassName() const {
  return u"FS_ExtraFont";
}

bool FS_ExtraFont::isExtraFont(int* weight, bool* italic, int entry) const {
  if (weight != nullptr) *weight = getFontWeight(entry);
  if (italic != nullptr) *italic = isItalicFont(entry);
  return true;
}

FS_BaseFont* FS_ExtraFont::getExtraBaseFont() {
  return inner();
}

bool FS_ExtraFont::readFont(QXError* error, std::istream* stream) {
  return inner() != nullptr && inner()->readFont(error, stream);
}

bool FS_ExtraFont::readExtraFont(QXError* error, std::istream* stream, const UnicodeString& family,
                                 int weight, int italic) {
  familyName_ = family;
  declaredWeight_ = weight;
  declaredItalic_ = italic;
  return readFont(error, stream);
}

bool FS_ExtraFont::loadFontTables(QXError* error, int entry, std::istream* stream) {
  return inner() == nullptr || inner()->loadFontTables(error, entry, stream);
}

void FS_ExtraFont::addStyleKeys(FS_FontKeySink&, const FS_FontRef&, const QXUri&) {}

void FS_ExtraFont::addNameKeys(FS_FontKeySink& keys, const FS_FontRef&) {
  keys.addFamilyNames(fontAliases(), FS_FontRef{this, 0},
                      makeFontKey(getFontWeight(0), isItalicFont(0), getFontStretch(0)));
}

UnicodeString FS_ExtraFont::getFamilyNameEx(int) const {
  return familyName_;
}

int FS_ExtraFont::getFontWeight(int entry) const {
  return declaredWeight_ != 0 ? declaredWeight_ : getFontWeight2(entry);
}

bool FS_ExtraFont::isItalicFont(int entry) const {
  return declaredItalic_ != kNotDeclared ? declaredItalic_ == 1 : isItalicFont2(entry);
}

int FS_ExtraFont::getFontWeight2(int entry) const {
  return inner() != nullptr ? inner()->getFontWeight(entry) : FS_BaseFont::getFontWeight(entry);
}

bool FS_ExtraFont::isItalicFont2(int entry) const {
  return inner() != nullptr ? inner()->isItalicFont(entry) : FS_BaseFont::isItalicFont(entry);
}

embed::FontStream FS_ExtraFont::ownStream() {
  return embed::FontStream(getMemStream());
}

bool FS_ExtraFont::getEmbedFont(const GlyphIDs& gids, QXMemStream& out, const unsigned int* tags,
                                int entry, std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.getEmbedFont(gids, out, tags, entry, stream);
  });
}

bool FS_ExtraFont::getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.getEmbedFont(gids, out, entry, stream);
  });
}

bool FS_ExtraFont::getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                    std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.getSVG2EmbedFont(gids, out, entry, stream);
  });
}

bool FS_ExtraFont::getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream& out, int entry,
                                        std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.getEmbedFontWithCmap(gids, out, entry, stream);
  });
}

/// `out` may go on reading from the stream, so it is the one that lives as long as the font.
bool FS_ExtraFont::getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) {
  if (source == nullptr) source = getMemStream();
  return inner() != nullptr && inner()->getEmbedFontStream(out, entry, source);
}

bool FS_ExtraFont::getPSEmbedFont(const GlyphIDs& gids, QXMemStream& out, FS_TTGlyphMap& map,
                                  int entry, std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.getPSEmbedFont(gids, out, map, entry, stream);
  });
}

bool FS_ExtraFont::getType1EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                     std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.getType1EmbedFont(gids, out, entry, stream);
  });
}

bool FS_ExtraFont::makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream& out,
                                              UnicodeString& fontName, FS_CIDSystemInfo& info,
                                              int entry, std::istream* source) {
  return writeInner(source, [&](FS_BaseFont& font, std::istream* stream) {
    return font.makePostScriptCIDFontType0(gids, out, fontName, info, entry, stream);
  });
}

}  // namespace QXFontService_NS
