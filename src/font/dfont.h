#pragma once

#include "font/sfnt_collection.h"

namespace QXFontService_NS {

/// A Macintosh font suitcase as a plain file (file type 9, a resource fork in the data fork): its
/// `sfnt` resources are whole fonts; bitmap, Type 1 and all other resources are passed over.
///
/// It has no preferred names, stretch, family class or variation sequences to tell, and no form of
/// embedding for SVG, as a subset with all tables, or for the web: the contract's defaults answer,
/// whatever the entry. Required: hosts choose another form for such fonts.
class FS_DFont final : public SfntCollection {
 public:
  static constexpr unsigned int kClassID = ID_FS_DFont;

  FS_DFont(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  FS_FontFileType getFontFileType(int entry) const override;
  /// Reads the members in the order of the resource map. One that cannot be read makes the whole
  /// file useless. The file's own failures are reported without a detail.
  bool readFont(QXError* error, std::istream* stream) override;

  // What a suitcase does not tell, in the order of the interface.
  FS_TrueTypeInfo* getTrueTypeInfo(int entry) const override;
  UnicodeString getPreferredFamily(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getPreferredSubFamily(QXLang::LanguageID lang, int entry) const override;
  int getFontStretch(int entry) const override;
  FS_CFFInfo* getCFFFont(int entry) const override;
  bool getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                        std::istream* source) override;
  bool makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                   std::istream* source) override;
  bool makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry,
                      std::istream* source) override;
  bool getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const override;
  bool hasVariationSelector(int entry) const override;
  unsigned short variationSequence(int code, int selector, int entry) const override;
  unsigned char getFamilyClass(int entry) const override;
  unsigned char getFamilySubclass(int entry) const override;

 private:
  ~FS_DFont() override;
};

}  // namespace QXFontService_NS
