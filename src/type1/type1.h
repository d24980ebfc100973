#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "qxcommon/ptr.h"

#include "font/contract/base_font.h"
#include "font/contract/eudc_link.h"
#include "type1/maps/standard_metrics.h"
#include "type1/maps/type1_cmap.h"
#include "type1/type1_printer.h"

namespace QXFontService_NS {

/// A Type 1 font by its metric file, with the font program that lies beside it, if any.
///
/// The program is the file of the same name with the extension ".pfb" or ".pfa", in capitals where
/// the metric file's begins with one. It is never read to find out. Metrics are read when the font
/// is found; the glyph list and the program's glyphs at the first need.
class FS_Type1 : public FS_BaseFont, public Type1CMap {
 public:
  static constexpr unsigned int kClassID = ID_FS_Type1;

  /// @param uri the metric file.
  FS_Type1(const QXUri& uri, FS_FontFolder* folder);

  bool isKindOf(unsigned int id) const override;
  bool isType1Font() const override;
  bool isTrueTypeFont() const override;
  bool isType1OrNoCID(int entry) const override;
  bool isTrueTypeOrCID(int entry) const override;

  bool loadFontTables(QXError* error, int entry, std::istream* stream) override;
  void addStyleKeys(FS_FontKeySink& keys, const FS_FontRef& ref, const QXUri& uri) override;
  void addNameKeys(FS_FontKeySink& keys, const FS_FontRef& ref) override;
  bool getLogFont(FS_EnumLogFontEx& out, int entry) const override;
  bool getNewTextMetricEx(FS_NewTextMetricEx& out, int entry) const override;

  unsigned short getGlyphID(int code, bool vertical, int entry) const override;
  bool isSymbolicFont(int entry) const override;
  bool isEmbeddingAllowed(int entry) const override;
  FS_EMBEDSTATUS getEmbedStatus(int entry) const override;
  bool hasVerticalGlyph(int entry) const override;
  int getUnitsPerEm(int entry) const override;

  unsigned short getType1CharCode(int code, int entry) override;
  const Type1CMapArray* getType1CMapArray(unsigned char page, int entry) override;
  bool getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name,
                        int entry) override;
  bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name,
                         int entry) override;
  using FS_BaseFont::getType1EmbedFont;
  /// The font program with the glyphs that the codes of a page need; false without a program.
  bool getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream& out,
                         int& length1, int& length2, int& length3, int entry) override;
  /// The font program with all glyphs; false without one.
  bool getType1FontStream(QXMemStream& out, int& length1, int& length2, int& length3,
                          int entry) override;
  void setEudcFont(const FS_FontRef& ref, int entry) override;
  FS_FontRef getEudcFont(int entry) const override;
  /// The face of the font program; null without one. It loads nothing and takes no lock, since
  /// outlines are asked for under the outline lock.
  FT_Face getFreeTypeFace(int entry) override;
  /// Loads a glyph into the program's face; the caller holds the outline lock.
  virtual bool loadGlyph(unsigned int glyph, int flags);

  [[nodiscard]] FS_Type1Printer* getPrinterFont() const { return printer_.get(); }
  /// Whether codes mean what the font says, and not characters: by configuration, or by a list.
  [[nodiscard]] bool codesAreItsOwn() const { return directCodes_ || hasGlyphList_; }

 protected:
  ~FS_Type1() override;

  // How the two kinds of metric file differ.

  /// The name of the font program.
  [[nodiscard]] virtual UnicodeString postScriptName() const = 0;
  /// The code of a glyph in the metrics: -1 where it is not encoded, nothing where it is missing.
  [[nodiscard]] virtual std::optional<int> metricCode(const std::string& name) const = 0;
  /// Whether the font's own code map has a number.
  [[nodiscard]] virtual bool hasOwnCode(int code) const = 0;
  /// The width of a glyph by its name, or by its code in the font's own encoding.
  [[nodiscard]] virtual std::optional<float> widthOfName(std::string_view name) const = 0;
  [[nodiscard]] virtual std::optional<float> widthOfCode(int code) const = 0;
  /// Makes what queries need of the metrics, once, before the rest is loaded.
  virtual void indexMetrics() = 0;

  /// Reads the clear text of the font program; one that cannot be read is given up.
  bool parsePrinterFont(QXError* error);
  /// Loads at the first query that needs it; its failure is told to nobody.
  void ensureLoaded() const;
  /// The widths of a text's characters, by their glyph names, together. A missing one is as wide as
  /// the space of the glyph list.
  /// @param firstMissing UTF-16 index of the first missing character, or -1; may be null.
  float widthByNames(const UnicodeString& text, int* firstMissing) const;
  /// The glyph name of a character by the glyph list; null when the list does not have it.
  [[nodiscard]] const std::string* listedName(int character) const;
  /// A character of a symbolic font, without the private-use bits under which hosts write them.
  [[nodiscard]] int folded(int character) const;

  QXCommonNS::QXPtr<FS_Type1Printer> printer_;
  bool directCodes_ = false;
  bool hasGlyphList_ = false;
  const type1::StandardMetrics* standardMetrics_ = nullptr;

 private:
  [[nodiscard]] std::optional<float> widthOf(int character) const;
  [[nodiscard]] std::optional<float> namedWidth(int character) const;
  bool load(QXError* error);
  bool readGlyphList(QXError* error, const QXUri& uri);
  unsigned short findCode(int character);
  unsigned short directCode(int character);
  std::optional<unsigned short> codeOfListedName(int character, const std::string& name);
  std::optional<unsigned short> codeOfKnownName(int character, int unicode,
                                                const std::string& name);
  unsigned short newCode(int character, const std::string& name);
  unsigned short codeOfProgram(int character);

  mutable QXLock loadLock_;
  bool loaded_ = false;
  bool loadAnswer_ = false;
  std::map<int, std::string> glyphList_;
  contract::EudcLink eudc_;
};

}  // namespace QXFontService_NS
