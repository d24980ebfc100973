#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qxcommon/lock.h"

#include "font/contract/base_font.h"
#include "type1/charstrings/rewrite_char_strings.h"
#include "type1/program/charstring_work.h"
#include "type1/program/program_header.h"

namespace QXFontService_NS {

class FS_Type1;

/// A glyph of a font program, as FreeType tells it; font units.
struct FS_Type1GlyphRecord {
  int code = -1;  ///< the first character under which the face has it
  int width = 0;
  int height = 0;
  std::string name;
};

/// A Type 1 font program (Adobe Type 1 Font Format): the outlines behind a metric file, or a font
/// by itself.
///
/// Its clear text is read here, its glyphs by FreeType. Whoever asks for glyphs has loaded it.
class FS_Type1Printer : public FS_BaseFont {
 public:
  static constexpr unsigned int kClassID = ID_FS_Type1Printer;

  /// @param owner the font of the metric file, which outlives this; null for a bare font program.
  FS_Type1Printer(const QXUri& uri, FS_FontFolder* folder, FS_Type1* owner);

  bool isKindOf(unsigned int id) const override;
  bool isType1Font() const override;
  bool isTrueTypeFont() const override;
  bool isType1OrNoCID(int entry) const override;
  bool isTrueTypeOrCID(int entry) const override;

  /// Reads the clear text; `stream` null opens the font's file.
  bool readFont(QXError* error, std::istream* stream) override;
  /// Asks FreeType for the glyphs, once.
  bool loadFontTables(QXError* error, int entry, std::istream* stream) override;

  UnicodeString getFamilyName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getSubFamilyName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getFullFontName(QXLang::LanguageID lang, int entry) const override;
  /// FreeType's name of the face; empty without one.
  UnicodeString getPostScriptName(QXLang::LanguageID lang, int entry) const override;
  int getFontWeight(int entry) const override;
  bool isItalicFont(int entry) const override;
  /// A vertical glyph needs a face with vertical metrics. Codes that the face does not know are
  /// looked up by their names.
  unsigned short getGlyphID(int code, bool vertical, int entry) const override;
  bool isSymbolicFont(int entry) const override;
  bool isFixedWidthFont(int entry) const override;
  unsigned int getEmbedableCharCount(int entry) const override;
  bool isEmbeddingAllowed(int entry) const override;
  FS_EMBEDSTATUS getEmbedStatus(int entry) const override;
  int getUnitsPerEm(int entry) const override;
  bool hasPairKerningInfo(bool vertical, int entry) const override;
  /// Kerning of two glyphs, by FreeType.
  float getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical,
                            int entry) const override;

  /// Loads a glyph into the face. The caller holds the outline lock as long as it uses it.
  virtual bool loadGlyph(unsigned int glyph, int flags);
  /// 1 for a program of text, 2 for one in segments.
  virtual int getFileKind() const = 0;
  /// Writes the program in segments, with the charstrings that the codes need (Adobe Technical
  /// Note 5040).
  ///
  /// @param codes `count` character codes; null: all glyphs.
  /// @param stream receives the program; on false some of it may be there.
  /// @param length1 bytes of the clear text, `length2` of the private part, `length3` of what
  ///   follows; on false as far as they were written.
  /// @param pageMap what the codes mean; null where nothing was given out.
  virtual bool writeEmbedStream(const char* codes, int count, QXMemStream& stream, int& length1,
                                int& length2, int& length3, const Type1CMapArray* pageMap) = 0;

  /// The clear text, as read.
  [[nodiscard]] const type1::ProgramHeader& header() const { return header_; }
  /// The glyph of a character of the face; null for none.
  [[nodiscard]] const FS_Type1GlyphRecord* recordOfCode(int code) const;
  [[nodiscard]] const FS_Type1GlyphRecord* recordOfName(std::string_view name) const;
  /// The glyph name of a code in the program's own encoding; empty for none.
  [[nodiscard]] std::string encodedName(int code) const;
  /// What a code of a page means, for the writers; empty for nothing.
  [[nodiscard]] std::string nameOnPage(unsigned char code, const Type1CMapArray* pageMap) const;

 protected:
  ~FS_Type1Printer() override;

  /// What loading answers for a face without glyphs.
  [[nodiscard]] virtual bool answerWithoutGlyphs() const = 0;
  virtual bool readHeader(QXError* error, std::istream& stream) = 0;
  /// Reports why a header cannot be read; true where nothing is wrong.
  bool headerRead(QXError* error, const std::optional<type1::HeaderFailure>& failure) const;

  using ProgramWriter =
      std::function<bool(std::istream&, const std::optional<type1::WantedCodes>&)>;
  /// Opens the program and has it written with the glyphs of the codes; false where it does not
  /// open or the writer meets damage.
  bool writeWanted(const char* codes, int count, const Type1CMapArray* pageMap,
                   const ProgramWriter& writer) const;

  type1::ProgramHeader header_;

 private:
  bool createFont(QXError* error);
  void readGlyphs(FT_Face face);
  void readGlyph(FT_Face face, int code, unsigned int glyph);
  [[nodiscard]] std::optional<type1::CharStringWork> workOf(FT_Face face) const;
  bool loadOnce(FT_Face face, unsigned int glyph);
  [[nodiscard]] FT_Face face() const;

  FS_Type1* const owner_;
  QXLock loadLock_;
  bool loaded_ = false;
  bool loadAnswer_ = false;
  std::optional<type1::CharStringWork> work_;  // while the glyphs are read
  std::vector<FS_Type1GlyphRecord> records_;
  std::map<int, const FS_Type1GlyphRecord*> recordsByCode_;
  std::map<std::string, const FS_Type1GlyphRecord*, std::less<>> recordsByName_;
  std::map<unsigned short, std::string> encodingMap_;
  unsigned int countedRecords_ = 0;
};

}  // namespace QXFontService_NS
