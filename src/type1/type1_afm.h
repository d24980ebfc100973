#pragma once

#include <map>
#include <string_view>

#include "type1/afm/afm_metrics.h"
#include "type1/type1.h"

namespace QXFontService_NS {

/// A Type 1 font by its Adobe Font Metrics file (file type 3).
///
/// Lengths are thousandths of an em. A positive size is the height of the font's box, a negative
/// one the em. Kerning is asked for with characters, since the file names glyphs.
class FS_Type1AFM final : public FS_Type1 {
 public:
  static constexpr unsigned int kClassID = ID_FS_Type1AFM;

  FS_Type1AFM(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;
  FS_FontFileType getFontFileType(int entry) const override;
  bool readFont(QXError* error, std::istream* stream) override;

  UnicodeString getFamilyName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getSubFamilyName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getFullFontName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getPostScriptName(QXLang::LanguageID lang, int entry) const override;
  UnicodeString getCopyright(QXLang::LanguageID lang, int entry) const override;
  int getFontWeight(int entry) const override;
  bool isItalicFont(int entry) const override;
  bool isFixedWidthFont(int entry) const override;
  bool getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const override;
  float getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing,
                     int entry) const override;
  float getXHeight(int entry) const override;
  float getCapHeight(int entry) const override;
  float getTypoAscender(int entry) const override;
  float getTypoDescender(int entry) const override;
  unsigned int getEmbedableCharCount(int entry) const override;
  FS_EncodingScheme getEncodingScheme(int entry) const override;
  bool hasPairKerningInfo(bool vertical, int entry) const override;
  /// @param left and `right` are characters.
  float getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical,
                            int entry) const override;

 protected:
  ~FS_Type1AFM() override;
  UnicodeString postScriptName() const override;
  std::optional<int> metricCode(const std::string& name) const override;
  bool hasOwnCode(int code) const override;
  std::optional<float> widthOfName(std::string_view name) const override;
  std::optional<float> widthOfCode(int code) const override;
  void indexMetrics() override;

 private:
  [[nodiscard]] const AFMCharMetric* metricOfName(std::string_view name) const;
  void deriveMetrics();

  type1::AfmMetrics metrics_;
  // Trees, since a file can choose codes and names that all meet in one place of a hash table.
  std::map<int, const AFMCharMetric*> metricsByCode_;
  std::map<std::string_view, const AFMCharMetric*> metricsByName_;
  float externalLeading_ = 0;
  float maxWidth_ = 0;
  float avgWidth_ = 0;
};

}  // namespace QXFontService_NS
