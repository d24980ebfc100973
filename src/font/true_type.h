#pragma once

#include "font/sfnt_font.h"

namespace QXFontService_NS {

/// A font file with one sfnt font, by its extension TrueType (file type 5).
class FS_TrueType : public SfntFont {
 public:
  static constexpr unsigned int kClassID = ID_FS_TrueType;

  FS_TrueType(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  FS_FontFileType getFontFileType(int entry) const override;
  bool readFont(QXError* error, std::istream* stream) override;
  void setPostScriptName(const UnicodeString& name) override;
  /// The same as `getTypoAscender`. Required: hosts have long set lines with this answer of fonts
  /// with one face, and collections alone tell the true one.
  float getTypoDescender(int entry) const override;
  void setEudcFlag() override;
  /// `out` reads from the font's own stream.
  bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) override;
  /// Loads a glyph into the font's FreeType face; Type 1 fonts alone do.
  virtual bool loadGlyph(unsigned int glyph, int flags);

 protected:
  ~FS_TrueType() override;
  /// The one record, whatever the entry.
  FS_TrueTypeInfo* record(int entry) const override;

 private:
  const std::unique_ptr<FS_TrueTypeInfo> info_;
};

}  // namespace QXFontService_NS
