#pragma once

#include "type1/pfm/pfm_metrics.h"
#include "type1/type1.h"

namespace QXFontService_NS {

/// A Type 1 font by its Printer Font Metrics file (file type 4).
///
/// Its widths go by the codes of a Windows code page, so text is converted to that, unless the font
/// program tells more. Kerning is asked for with codes of that page. A program that cannot be read
/// is given up; what is left is a font only where it is one of the 14 standard ones.
class FS_Type1PFM final : public FS_Type1 {
 public:
  static constexpr unsigned int kClassID = ID_FS_Type1PFM;

  FS_Type1PFM(const QXUri& uri, FS_FontFolder* folder);

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
  bool isSerifLikeFont(int entry) const override;
  bool isScriptLikeFont(int entry) const override;
  bool getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const override;
  float getTextWidth(const UnicodeString& text, int size, bool vertical, int* firstMissing,
                     int entry) const override;
  float getXHeight(int entry) const override;
  unsigned int getEmbedableCharCount(int entry) const override;
  FS_EncodingScheme getEncodingScheme(int entry) const override;
  bool hasPairKerningInfo(bool vertical, int entry) const override;
  /// @param left and `right` are codes of the font's code page.
  float getPairKerningValue(unsigned short left, unsigned short right, int size, bool vertical,
                            int entry) const override;

 protected:
  ~FS_Type1PFM() override;
  UnicodeString postScriptName() const override;
  std::optional<int> metricCode(const std::string& name) const override;
  bool hasOwnCode(int code) const override;
  std::optional<float> widthOfName(std::string_view name) const override;
  std::optional<float> widthOfCode(int code) const override;
  void indexMetrics() override;

 private:
  [[nodiscard]] UnicodeString decoded(const std::string& bytes) const;
  [[nodiscard]] bool measuresCodes() const;
  float widthByCodes(const UnicodeString& text, int* firstMissing) const;

  type1::PfmMetrics metrics_;
};

}  // namespace QXFontService_NS
