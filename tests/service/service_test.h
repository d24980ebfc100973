#pragma once

#include <gtest/gtest.h>

#include "qxfontservice/font_info.h"

#include "font/contract/plain_font.h"
#include "pool/registry/font_registry.h"
#include "support/memory_platform.h"

namespace qxtest {

/// A font as a lookup finds it: names, style, and how its loading ends.
class LoadedFont final : public PlainFont {
 public:
  explicit LoadedFont(const char16_t* family, int weight = 400, bool italic = false)
      : PlainFont(QXFontService_NS::QXUri(icu::UnicodeString(u"/fonts/") + family,
                                          QXCommonNS::URISTR_USER)),
        family_(family),
        key_(QXFontService_NS::makeFontKey(weight, italic, 5)) {}

  bool loadFontTables(QXFontService_NS::QXError* error, int entry, std::istream*) override {
    ++loads;
    loadedEntry = entry;
    if (errorCode != 0) error->setErrorCode(errorCode);
    return loadable;
  }
  void addNameKeys(QXFontService_NS::FS_FontKeySink& keys,
                   const QXFontService_NS::FS_FontRef&) override {
    keys.addFamilyNames({family_}, {this, face}, key_);
  }
  icu::UnicodeString getFamilyName(QXCommonNS::QXLang::LanguageID, int) const override {
    return family_;
  }
  icu::UnicodeString getPostScriptName(QXCommonNS::QXLang::LanguageID, int) const override {
    return family_ + u"-PS";
  }
  icu::UnicodeString getPreferredFamily(QXCommonNS::QXLang::LanguageID, int) const override {
    return preferred;
  }
  int getFontWeight(int) const override { return key_.weight; }
  bool isItalicFont(int) const override { return key_.italic != 0; }
  bool getNewTextMetricEx(QXFontService_NS::FS_NewTextMetricEx& out, int entry) const override;
  bool hasVerticalGlyph(int) const override { return vertical; }
  void setEudcFlag() override { eudcFlag = true; }
  void setEudcFont(const QXFontService_NS::FS_FontRef& ref, int) override { link = ref; }
  QXFontService_NS::FS_FontRef getEudcFont(int) const override { return link; }
  unsigned short getEudcGlyphID(int code, int) const override {
    return code == eudcCode ? eudcGlyph : 0xFFFF;
  }

  int loads = 0;
  int loadedEntry = -1;
  unsigned short errorCode = 0;
  bool loadable = true;
  short face = 0;
  bool hasMetric = true;
  bool vertical = false;
  bool eudcFlag = false;
  int eudcCode = -1;
  unsigned short eudcGlyph = 0;
  icu::UnicodeString preferred;
  QXFontService_NS::FS_FontRef link;

 private:
  icu::UnicodeString family_;
  QXFontService_NS::FS_FontKey key_;
};

/// The service over a world in memory that holds an empty font folder.
class ServiceTest : public ::testing::Test {
 protected:
  ServiceTest() : inPlace_(world) {
    world.folder("/usr/share/fonts").addFontFolderCandidate("/usr/share/fonts/");
  }
  ~ServiceTest() override { QXFontService_NS::resetServiceForTests(); }

  static QXFontService_NS::FS_FontRegistry& registry() {
    return *QXFontService_NS::FS_FontRegistry::open(nullptr, nullptr);
  }
  /// Makes a font and enters it in a pool, which owns it.
  static LoadedFont& add(QXFontService_NS::FS_FontPool& pool, LoadedFont* font) {
    pool.keepFont(font);
    font->addNameKeys(pool, {font, 0});
    return *font;
  }
  static LoadedFont& addToMain(LoadedFont* font) { return add(registry().mainPool(), font); }

  MemoryPlatform world;

 private:
  PlatformInPlace inPlace_;
};

}  // namespace qxtest
