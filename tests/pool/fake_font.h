#pragma once

#include <utility>

#include "font/contract/base_font.h"
#include "font/contract/font_key_sink.h"

namespace qxtest {

/// A font object without a file: a style and a few names, for tests of the pool.
class FakeFont final : public QXFontService_NS::FS_BaseFont {
 public:
  explicit FakeFont(const icu::UnicodeString& file, icu::UnicodeString family = {},
                    QXFontService_NS::FS_FontKey key = {})
      : FS_BaseFont(QXFontService_NS::QXUri(file, QXCommonNS::URISTR_USER), nullptr),
        key_(key),
        family_(std::move(family)),
        postScriptName_(family_) {}

  QXFontService_NS::FS_FontFileType getFontFileType(int) const override {
    return QXFontService_NS::FS_FILETYPE_TRUETYPE;
  }
  bool isType1Font() const override { return false; }
  bool isTrueTypeFont() const override { return true; }
  bool isType1OrNoCID(int) const override { return false; }
  bool isTrueTypeOrCID(int) const override { return true; }
  bool readFont(QXFontService_NS::QXError*, std::istream*) override { return true; }

  void addStyleKeys(QXFontService_NS::FS_FontKeySink& keys, const QXFontService_NS::FS_FontRef&,
                    const QXFontService_NS::QXUri& uri) override {
    keys.addFileName(uri, {this, 0}, key_);
  }
  void addNameKeys(QXFontService_NS::FS_FontKeySink& keys,
                   const QXFontService_NS::FS_FontRef&) override {
    keys.addFamilyNames({family_}, {this, 0}, key_);
  }
  icu::UnicodeString getFamilyName(QXCommonNS::QXLang::LanguageID, int) const override {
    return family_;
  }
  icu::UnicodeString getPostScriptName(QXCommonNS::QXLang::LanguageID, int) const override {
    return postScriptName_;
  }
  void setPostScriptName(const icu::UnicodeString& name) override { postScriptName_ = name; }
  int getFontWeight(int) const override { return key_.weight; }
  bool isItalicFont(int) const override { return key_.italic != 0; }
  int getFontStretch(int) const override { return key_.stretch; }

 private:
  QXFontService_NS::FS_FontKey key_;
  icu::UnicodeString family_;
  icu::UnicodeString postScriptName_;
};

}  // namespace qxtest
