#include "qxcommon/mem_stream.h"

#include "common/answer_or.h"
#include "common/limits.h"
#include "embed/cff_subset_embed.h"
#include "embed/conforming/cff_conforming_font.h"
#include "embed/conforming/true_type_conforming.h"
#include "embed/font_stream.h"
#include "embed/glyph_directory.h"
#include "embed/table_lists.h"
#include "embed/table_selection.h"
#include "embed/true_type_subset.h"
#include "embed/woff.h"
#include "font/sfnt_font.h"
#include "font/true_type.h"
#include "font/writing_source.h"

// How the fonts over sfnt data are embedded: each form is written by `embed`, from the record of
// the face and the font's stream.
namespace QXFontService_NS {
namespace {

embed::SubsetSource sfntSource(FS_TrueTypeInfo& info, std::istream& stream) {
  embed::SubsetSource source;
  source.stream = &stream;
  source.image = &info.image();
  source.indexToLocFormat = static_cast<int>(info.records().head.indexToLocFormat);
  source.glyphCount = info.numGlyphs;
  return source;
}

embed::CffSubsetSource cffSource(const FS_TrueTypeInfo& info, std::istream& stream) {
  embed::CffSubsetSource source;
  const auto* table = info.getTable(sfnt::tagOf("CFF "));
  if (table != nullptr) source.table = {&stream, table->offset, table->length};
  source.info = info.cffFont();
  source.spaceGlyph = info.getGlyphID(' ', false);
  return source;
}

}  // namespace

bool SfntFont::writeFont(int entry, std::istream* source, const Writing& write) {
  FS_TrueTypeInfo* info = record(entry);
  if (info == nullptr) return false;
  return QXCommonNS::answerOr(
      false, [&] { return writeFrom(source != nullptr ? source : getMemStream(), *info, write); });
}

bool SfntFont::writeFontFile(int entry, const Writing& write) {
  FS_TrueTypeInfo* info = record(entry);
  if (info == nullptr) return false;
  return QXCommonNS::answerOr(false, [&] { return writeFrom(nullptr, *info, write); });
}

bool SfntFont::writeFrom(std::istream* given, FS_TrueTypeInfo& info, const Writing& write) {
  const embed::FontStream stream = embed::openFontStream(given, fileUri_);
  if (stream.get() == nullptr) return false;
  return write({sfntSource(info, *stream.get()), cffSource(info, *stream.get())});
}

bool SfntFont::getEmbedFont(const GlyphIDs& gids, QXMemStream& out, const unsigned int* tags,
                            int entry, std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeGlyphSubset(font.sfnt, gids, tags, out);
  });
}

bool SfntFont::getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                            std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    if (embed::hasCffOutlines(font.sfnt)) return embed::makeCFFEmbedFont(font.cff, gids, out);
    return embed::writeGlyphSubset(font.sfnt, gids, embed::kEmbedTables.data(), out);
  });
}

std::map<unsigned short, unsigned short> SfntFont::cffEmbedGlyphs(const GlyphIDs& gids, int entry) {
  embed::KeyedGlyphs glyphs;
  writeFont(entry, nullptr, [&](const WritingSource& font) {
    glyphs = embed::cffEmbedGlyphs(font.cff, gids);
    return true;
  });
  return glyphs;
}

bool SfntFont::getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeSvgFont(font.sfnt, gids, out);
  });
}

bool SfntFont::getEmbedFontWithCmap(const GlyphIDs& gids, QXMemStream& out, int entry,
                                    std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeGlyphSubsetWithCmap(font.sfnt, gids, out);
  });
}

bool SfntFont::getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeWholeTables(font.sfnt, nullptr, out);
  });
}

bool SfntFont::getPSEmbedFont(const GlyphIDs& gids, QXMemStream& out, FS_TTGlyphMap& map, int entry,
                              std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeGlyphDirectoryFont(font.sfnt, gids, map, out);
  });
}

bool SfntFont::makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                           std::istream* source) {
  constexpr std::size_t kBlockSize = 8192;
  return QXCommonNS::answerOr(false, [&] {
    QXMemStream sfnt(nullptr, kBlockSize, false, true);
    return makeSubsetFont(gids, sfnt, entry, source) &&
           sfnt.length() <= QXCommonNS::limits::kMostFileBytes && embed::writeWOFF(out, sfnt);
  });
}

bool SfntFont::makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                              std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    return embed::writeGlyphSubset(font.sfnt, gids, nullptr, out);
  });
}

bool SfntFont::makeConformingSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                                        std::istream* source) {
  return writeFont(entry, source, [&](const WritingSource& font) {
    if (embed::hasGlyphOutlines(font.sfnt))
      return embed::conforming::writeConformingTrueType(font.sfnt, gids, out);
    return embed::conforming::writeConformingOpenType(font.sfnt, font.cff, gids, out);
  });
}

bool FS_TrueType::getEmbedFontStream(QXMemStream& out, int, std::istream* source) {
  return QXCommonNS::answerOr(false, [&] {
    std::istream* given = source != nullptr ? source : getMemStream();
    return embed::handOverStream(embed::openFontStream(given, fileUri_), out);
  });
}

}  // namespace QXFontService_NS
