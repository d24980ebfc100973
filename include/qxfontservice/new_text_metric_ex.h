#pragma once

#include "qxcommon/export.h"
#include "qxfontservice/names.h"
#include "qxfontservice/unicode_subset_bit_fields.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace QXFontService_NS {

struct FS_FontFileOptions;

/// Metrics and coverage of a face. Lengths are in the units of the call that filled the record.
class QX_EXPORT FS_NewTextMetricEx {
 public:
  /// All numbers 0 but pitch and family, which is 1.
  FS_NewTextMetricEx() = default;
#ifdef _WIN32
  /// From the record of the Windows graphics interface, which has no typographic metrics.
  FS_NewTextMetricEx(const NEWTEXTMETRICEXW& record);
#endif

  /// Height above the baseline that clipping keeps (usWinAscent).
  float getAscent() const {
    return ascent_;
  }
  /// Depth below the baseline that clipping keeps (usWinDescent).
  float getDescent() const {
    return descent_;
  }
  /// Height of capitals above the baseline.
  float getCapHeight() const {
    return capHeight_;
  }
  /// Leading inside the ascent.
  float getInternalLeadingA() const {
    return internalLeadingA_;
  }
  /// Leading inside the descent.
  float getInternalLeadingD() const {
    return internalLeadingD_;
  }
  /// Height of a line of text above the baseline (sTypoAscender).
  float getTypoAscender() const {
    return typoAscender_;
  }
  /// Depth below the baseline (sTypoDescender): zero or negative.
  float getTypoDescender() const {
    return typoDescender_;
  }
  /// Room between lines (sTypoLineGap).
  float getTypoLineGap() const {
    return typoLineGap_;
  }
  /// Width of a column of vertical text right of its centre line (`vhea`, vertTypoAscender).
  float getVertTypoAscender() const {
    return vertTypoAscender_;
  }
  /// Left of the centre line: zero or negative.
  float getVertTypoDescender() const {
    return vertTypoDescender_;
  }
  /// Room between columns.
  float getVertTypoLineGap() const {
    return vertTypoLineGap_;
  }
  /// Leading that the font wants between lines, beside ascent and descent.
  float getExternalLeading() const {
    return externalLeading_;
  }
  /// The average advance (xAvgCharWidth).
  float getAveCharWidth() const {
    return aveCharWidth_;
  }
  /// The largest advance.
  float getMaxCharWidth() const {
    return maxCharWidth_;
  }
  /// The raw 16.16 number of `post`, not scaled.
  float getItalicAngle() const {
    return italicAngle_;
  }
  /// Bit 0 variable pitch, 0x10 serif-like, 0x40 script-like.
  unsigned int getPitchAndFamily() const {
    return pitchAndFamily_;
  }
  /// Whether the font has a character map for symbols.
  bool isSymbol() const {
    return symbol_;
  }
  /// Word 0 to 3 of OpenType `OS/2`, ulUnicodeRange; 0 for any other word.
  unsigned int getUnicodeSubsetBits(int word) const {
    return word >= 0 && word < 4 ? unicodeSubset_[word] : 0;
  }
  ///@{
  /// OpenType `OS/2`, ulCodePageRange1 and 2.
  unsigned int getCodePageBits0() const {
    return codePages_[0];
  }
  unsigned int getCodePageBits1() const {
    return codePages_[1];
  }
  ///@}
  ///@{
  /// A side of the box around all glyphs (OpenType `head`).
  float getBBoxLeft() const {
    return box_[0];
  }
  float getBBoxBottom() const {
    return box_[1];
  }
  float getBBoxRight() const {
    return box_[2];
  }
  float getBBoxTop() const {
    return box_[3];
  }
  ///@}
  /// What the configuration says of the font's file, or null; valid as long as the service.
  const FS_FontFileOptions* getFileOptions() const {
    return options_;
  }

  ///@{
  /// Sets what the function of the same name tells.
  void setAscent(float value) {
    ascent_ = value;
  }
  void setDescent(float value) {
    descent_ = value;
  }
  void setCapHeight(float value) {
    capHeight_ = value;
  }
  void setInternalLeadingA(float value) {
    internalLeadingA_ = value;
  }
  void setInternalLeadingD(float value) {
    internalLeadingD_ = value;
  }
  void setTypoAscender(float value) {
    typoAscender_ = value;
  }
  void setTypoDescender(float value) {
    typoDescender_ = value;
  }
  void setTypoLineGap(float value) {
    typoLineGap_ = value;
  }
  void setVertTypoAscender(float value) {
    vertTypoAscender_ = value;
  }
  void setVertTypoDescender(float value) {
    vertTypoDescender_ = value;
  }
  void setVertTypoLineGap(float value) {
    vertTypoLineGap_ = value;
  }
  void setExternalLeading(float value) {
    externalLeading_ = value;
  }
  void setAveCharWidth(float value) {
    aveCharWidth_ = value;
  }
  void setMaxCharWidth(float value) {
    maxCharWidth_ = value;
  }
  void setItalicAngle(float value) {
    italicAngle_ = value;
  }
  void setPitchAndFamily(unsigned int value) {
    pitchAndFamily_ = value;
  }
  void setSymbol(bool symbol) {
    symbol_ = symbol;
  }
  void setUnicodeSubsetBits(unsigned int word0, unsigned int word1, unsigned int word2,
                            unsigned int word3) {
    unicodeSubset_[0] = word0;
    unicodeSubset_[1] = word1;
    unicodeSubset_[2] = word2;
    unicodeSubset_[3] = word3;
  }
  ///@}
  /// Adds bits to the first code page word; it never clears one.
  void setCodePageBits0(unsigned int bits) {
    codePages_[0] |= bits;
  }
  /// Replaces both code page words.
  void setCodePageBits(unsigned int word0, unsigned int word1) {
    codePages_[0] = word0;
    codePages_[1] = word1;
  }
  ///@{
  /// Sets what the functions of that name tell.
  void setBBox(float left, float bottom, float right, float top) {
    box_[0] = left;
    box_[1] = bottom;
    box_[2] = right;
    box_[3] = top;
  }
  void setFileOptions(const FS_FontFileOptions* options) {
    options_ = options;
  }
  ///@}

  /// Whether the record was filled: there is an ascent.
  bool hasValue() const {
    return ascent_ != 0;
  }
  /// Whether the font has typographic metrics.
  bool hasTypoInfo() const {
    return typoAscender_ != 0;
  }
  /// Whether the font has metrics for vertical text.
  bool hasVertTypoInfo() const {
    return vertTypoAscender_ != 0;
  }
  /// Whether the angle of the italic is not 0.
  bool isItalic() const {
    return italicAngle_ != 0;
  }
  /// Whether bit 0 is clear: the flag has the sense of Windows, set for a variable pitch.
  bool isFixedPitch() const {
    return (pitchAndFamily_ & 0x01) == 0;
  }
  /// Whether the font has serifs.
  bool isSerifLike() const {
    return (pitchAndFamily_ & 0x70) == 0x10;
  }
  /// Whether the font looks like handwriting.
  bool isScriptLike() const {
    return (pitchAndFamily_ & 0x70) == 0x40;
  }

  /// Whether a Unicode subset bit is set; false for numbers outside 0 to 127.
  bool checkUSB(UnicodeSubsetBitFields bit) const;
  /// Whether any bit of `mask` is set in the first code page word.
  bool checkFSCharSet(unsigned int mask) const {
    return (codePages_[0] & mask) != 0;
  }
  /// Whether the subset bit of the range that holds the code point is set (the ranges of OpenType
  /// `OS/2`, ulUnicodeRange); false for U+FFFF and for code points of no range.
  bool isInUSB(int codePoint) const;
  /// Whether the configured `unicode-range` of the font's file holds the code point; true without.
  bool isInUnicodeRange(int codePoint) const;

  ///@{
  /// Whether a Unicode subset bit or the code page of the script is set.
  bool isLatin1() const;
  bool isGreek() const;
  bool isCyrillic() const;
  bool isArmenian() const;
  bool isHebrew() const;
  bool isArabic() const;
  bool isDevanagari() const;
  bool isBengali() const;
  bool isGurmukhi() const;
  bool isGujarati() const;
  bool isOriya() const;
  bool isTamil() const;
  bool isTelugu() const;
  bool isKannada() const;
  bool isMalayalam() const;
  bool isThai() const;
  bool isLao() const;
  bool isGeorgian() const;
  bool isMathOperator() const;
  bool isTibetan() const;
  bool isSyriac() const;
  bool isSinhala() const;
  bool isMyanmar() const;
  bool isEthiopic() const;
  bool isKhmer() const;
  bool isKorean() const;
  ///@}
  ///@{
  /// As those above; the argument is not used.
  bool isHiragana(bool any) const;
  bool isKatakana(bool any) const;
  ///@}
  ///@{
  /// As those above, but `any` false asks for the code page as well as a subset bit.
  bool isChineseSimp(bool any) const;
  bool isChineseTrad(bool any) const;
  bool isJapanese(bool any) const;
  ///@}
  ///@{
  /// Whether the font is made for one East Asian code page: no other bit in the first word.
  bool isJapaneseEncoding() const;
  bool isChineseSimpEncoding() const;
  bool isChineseTradEncoding() const;
  bool isKoreanEncoding() const;
  ///@}

 private:
  float ascent_ = 0;
  float descent_ = 0;
  float capHeight_ = 0;
  float internalLeadingA_ = 0;
  float internalLeadingD_ = 0;
  float typoAscender_ = 0;
  float typoDescender_ = 0;
  float typoLineGap_ = 0;
  float vertTypoAscender_ = 0;
  float vertTypoDescender_ = 0;
  float vertTypoLineGap_ = 0;
  float externalLeading_ = 0;
  float aveCharWidth_ = 0;
  float maxCharWidth_ = 0;
  float italicAngle_ = 0;
  unsigned int pitchAndFamily_ = 1;
  bool symbol_ = false;
  unsigned int unicodeSubset_[4] = {0, 0, 0, 0};
  unsigned int codePages_[2] = {0, 0};
  float box_[4] = {0, 0, 0, 0};
  const FS_FontFileOptions* options_ = nullptr;
};

}  // namespace QXFontService_NS
