#include "embed/cff_sfnt_subset.h"
#include "embed/cff_subset_embed.h"
#include "embed/cid/cid_writer.h"
#include "embed/true_type_subset.h"
#include "font/open_type.h"
#include "font/writing_source.h"

// The forms of embedding in which a font with `CFF ` outlines differs from one with `glyf`.
namespace QXFontService_NS {

bool FS_OpenType::getEmbedFont(const GlyphIDs&, QXMemStream& out, const unsigned int* tags,
                               int entry, std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeWholeTables(font.sfnt, tags, out);
  });
}

bool FS_OpenType::getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                               std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::makeCFFEmbedFont(font.cff, gids, out);
  });
}

bool FS_OpenType::getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::copyCffTable(font.cff.table, out);
  });
}

bool FS_OpenType::makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                 std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeCffSubset(font.sfnt, font.cff, gids, out);
  });
}

bool FS_OpenType::makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream& out,
                                             UnicodeString& fontName, FS_CIDSystemInfo& info,
                                             int entry, std::istream*) {
  const UnicodeString name = getPostScriptName(QXLang::LANGID_DEFAULT, entry);
  return writeFontFile(entry, [&](const WritingSource& font) {
    return cid::makeCidFontType0(font.cff, gids, name, out, fontName, info);
  });
}

bool FS_OpenType::getType1EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                    std::istream* source) {
  return isType1OrNoCID(entry) && getEmbedFont(gids, out, entry, source);
}

}  // namespace QXFontService_NS
