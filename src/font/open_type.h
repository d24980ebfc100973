#pragma once

#include "font/true_type.h"
#include "type1/maps/type1_cmap.h"

namespace QXFontService_NS {

/// A font file with one sfnt font whose outlines are in `CFF ` (file type 7, or 8 when the CFF is
/// CID-keyed, which shows once its tables are loaded).
///
/// A name-keyed one can be used as Type 1 fonts: it gives out codes for its glyphs.
class FS_OpenType : public FS_TrueType, public Type1CMap {
 public:
  static constexpr unsigned int kClassID = ID_FS_OpenType;

  FS_OpenType(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  bool loadFontTables(QXError* error, int entry, std::istream* stream) override;
  FS_FontFileType getFontFileType(int entry) const override;
  bool isOpenType() const override;
  bool isType1OrNoCID(int entry) const override;
  bool isTrueTypeOrCID(int entry) const override;
  unsigned short getStringID(unsigned short cid, int entry) const override;
  FS_EncodingScheme getEncodingScheme(int entry) const override;

  // How its forms differ from those of a font with `glyf`.

  /// The tables of `tags` (null: all), unchanged; `gids` are not looked at.
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, const unsigned int* tags, int entry,
                    std::istream* source) override;
  /// See `embed::makeCFFEmbedFont`.
  bool getEmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                    std::istream* source) override;
  /// The `CFF ` table as it stands, without the font around it.
  bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) override;
  /// See `embed::writeCffSubset`.
  bool makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                      std::istream* source) override;
  /// See `cid::makeCidFontType0`. Read from the font's own file whatever `source` is.
  bool makePostScriptCIDFontType0(const GlyphIDs& gids, QXMemStream& out, UnicodeString& fontName,
                                  FS_CIDSystemInfo& info, int entry, std::istream* source) override;

  using FS_TrueType::getType1EmbedFont;
  /// The bare CFF of `getEmbedFont`; false for a CID-keyed font, which has no glyph names.
  bool getType1EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                         std::istream* source) override;
  /// The code of a character's glyph; 0 where the font has none.
  unsigned short getType1CharCode(int code, int entry) override;
  /// The code of a glyph: the one it has, or a new one under its name, which is empty in a
  /// CID-keyed font. 0 for 0xFFFF, when all codes are given out, and before the tables are loaded.
  unsigned short getType1GlyphIDCode(unsigned short gid, int entry) override;
  const Type1CMapArray* getType1CMapArray(unsigned char page, int entry) override;
  bool getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name,
                        int entry) override;
  bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name,
                         int entry) override;

 protected:
  ~FS_OpenType() override;

 private:
  [[nodiscard]] bool isCID() const;
};

}  // namespace QXFontService_NS
