#include "service/enumeration.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "pool/tables/extra_font_pool.h"
#include "service/service_test.h"

namespace QXFontService_NS {
namespace {

/// A font that is told as the test wishes; its faces weigh 400, 500 and so on.
class ToldFont final : public qxtest::PlainFont {
 public:
  explicit ToldFont(const char16_t* family)
      : PlainFont(QXUri(UnicodeString(u"/told/") + family, QXCommonNS::URISTR_USER)),
        family_(family) {}

  int getEntryCount() const override { return faces; }
  FS_FontFileType getFontFileType(int) const override { return type; }
  FS_EMBEDSTATUS getEmbedStatus(int) const override { return FS_EMBED_RESTRICTED; }
  bool getLogFont(FS_EnumLogFontEx& out, int entry) const override {
    if (throws) throw QXError(1928, u"trouble", u"", -1, -1, u"");
    out.setFaceName(family_);
    out.setWeight(weightOf(entry));
    return hasLogFont;
  }
  bool getNewTextMetricEx(FS_NewTextMetricEx& out, int) const override {
    out.setAscent(1);
    return hasMetric;
  }
  bool loadFontTables(QXError* error, int, std::istream*) override {
    error->setErrorCode(1921);
    loaded = true;
    return loadable;
  }
  bool hasVerticalGlyph(int) const override { return vertical && loaded; }
  void addNameKeys(FS_FontKeySink& keys, const FS_FontRef&) override {
    for (int entry = 0; entry < faces; ++entry)
      keys.addFamilyNames({family_}, {this, static_cast<short>(entry)},
                          makeFontKey(weightOf(entry), false, 5));
  }

  int faces = 1;
  FS_FontFileType type = FS_FILETYPE_TRUETYPE;
  bool hasLogFont = true;
  bool hasMetric = true;
  bool throws = false;
  bool vertical = false;
  bool loadable = true;
  bool loaded = false;

 private:
  static int weightOf(int entry) { return 400 + 100 * entry; }

  UnicodeString family_;
};

class EnumerationOf : public qxtest::ServiceTest {
 protected:
  /// What the callback was told: origin, family, weight.
  struct Walk {
    std::vector<std::string> faces;
    int answer = 0;  // of the callback
    int result = 0;
  };

  static int receive(FS_FontResourceType type, const FS_EnumLogFontEx* font,
                     const FS_NewTextMetricEx*, void* user) {
    auto& walk = *static_cast<Walk*>(user);
    std::string line = std::to_string(type) + " ";
    font->getFaceName().toUTF8String(line);
    walk.faces.push_back(line + " " + std::to_string(font->getWeight()));
    return walk.answer;
  }
  Walk walk(const UnicodeString& family, int answer = 0) {
    Walk walk;
    walk.answer = answer;
    walk.result = FS_EnumFontFamilies(family, receive, &walk, &document, 0);
    return walk;
  }

  /// Puts a font in a pool, which owns it, and enters its names.
  template <class Font>
  static Font& keep(FS_FontPool& pool, Font* font) {
    pool.keepFont(font);
    font->addNameKeys(pool, {font, 0});
    return *font;
  }
  ToldFont& inMain(const char16_t* family) {
    return keep(registry().mainPool(), new ToldFont(family));
  }
  ToldFont& inDocument(const char16_t* family) {
    return keep(*document.getExtraFonts(), new ToldFont(family));
  }
  void alias(const char16_t* name, ToldFont& font) {
    registry().aliasPool().addFamilyName(name, {&font, 0}, {});
  }

  FS_ExtraFontManager document;
};

using Lines = std::vector<std::string>;

TEST_F(EnumerationOf, AllFontsGoesThroughTheDocumentThenTheServiceFaceByFace) {
  inMain(u"Main").faces = 2;
  inDocument(u"Own");
  EXPECT_EQ(walk(u"").faces, (Lines{"2 Own 400", "0 Main 400", "0 Main 500"}));
}

TEST_F(EnumerationOf, AFamilyGoesThroughTheDocumentThenTheAliasesThenTheService) {
  alias(u"Fam", inMain(u"Aliased"));
  inMain(u"Fam");
  inDocument(u"Fam");
  EXPECT_EQ(walk(u"Fam").faces, (Lines{"2 Fam 400", "1 Aliased 400", "0 Fam 400"}));
}

TEST_F(EnumerationOf, AnyFontAnAnswerOtherThanZeroEndsAndIsGivenBack) {
  alias(u"Fam", inMain(u"Aliased"));
  inMain(u"Fam").faces = 2;
  EXPECT_EQ(walk(u"Fam", -3).faces, Lines{"1 Aliased 400"});
  EXPECT_EQ(walk(u"Fam", -3).result, -3);
  EXPECT_EQ(walk(u"", 1).faces, Lines{"0 Aliased 400"});
  EXPECT_EQ(walk(u"", 1).result, 1);
  inDocument(u"Fam");
  EXPECT_EQ(walk(u"Fam", 9).faces, Lines{"2 Fam 400"});
  EXPECT_EQ(walk(u"", 9).faces, Lines{"2 Fam 400"});
}

TEST_F(EnumerationOf, AWebFontIsToldAsOneByFamilyWhicheverPoolHoldsIt) {
  ToldFont& aliased = inMain(u"Main");
  aliased.type = FS_FILETYPE_WOFF;
  alias(u"Nick", aliased);
  inDocument(u"Own").type = FS_FILETYPE_WOFF;
  EXPECT_EQ(walk(u"Main").faces, Lines{"3 Main 400"});
  EXPECT_EQ(walk(u"Nick").faces, Lines{"3 Main 400"});
  EXPECT_EQ(walk(u"Own").faces, Lines{"3 Own 400"});
  EXPECT_EQ(walk(u"").faces, (Lines{"2 Own 400", "0 Main 400"})) << "not in a walk over all";
}

TEST_F(EnumerationOf, AllFontsTellsTheSystemsListBeforeEudcByTheFlags) {
  const struct {
    unsigned int flags;
    const char* all;
  } rows[] = {{0, "0 F 400"}, {8, "5 F 400"}, {16, "4 F 400"}, {24, "5 F 400"}};
  for (const auto& row : rows) {
    inMain(u"F").addFontFlags(row.flags);
    EXPECT_EQ(walk(u"").faces, Lines{row.all}) << row.flags;
    EXPECT_EQ(walk(u"F").faces, Lines{"0 F 400"}) << "the flags play no part by family";
    resetServiceForTests();
    QXCommonNS::setPlatformForTests(&world);
  }
}

TEST_F(EnumerationOf, ADocumentsFontIsNotToldByItsFlags) {
  inDocument(u"Own").addFontFlags(24);
  EXPECT_EQ(walk(u"").faces, Lines{"2 Own 400"});
}

/// The numbers at the end of the record.
struct Numbers {
  int fileType = -1;
  int embedStatus = -1;
  int flags = -1;
};

int noteNumbers(FS_FontResourceType, const FS_EnumLogFontEx* font, const FS_NewTextMetricEx*,
                void* user) {
  *static_cast<Numbers*>(user) = {font->getFontFileType(), font->getEmbedStatus(),
                                  font->getFontFlags()};
  return 0;
}

TEST_F(EnumerationOf, ARecordEndsInFileTypeEmbedStatusAndTheTwoFlagsThatAreTold) {
  inMain(u"F").addFontFlags(0xFF);
  for (const char16_t* family : {u"", u"F"}) {
    Numbers told;
    EXPECT_EQ(FS_EnumFontFamilies(family, noteNumbers, &told, nullptr, 0), 0);
    EXPECT_EQ(told.fileType, 5);
    EXPECT_EQ(told.embedStatus, 2);
    EXPECT_EQ(told.flags, 24);
  }
}

TEST_F(EnumerationOf, AFaceWithoutBothItsRecordsIsPassedOverAndTheWalkGoesOn) {
  const struct {
    const char16_t* family;
    bool logFont, metric;
  } rows[] = {{u"A", false, true}, {u"B", true, false}, {u"C", false, false}, {u"D", true, true}};
  for (const auto& row : rows) {
    ToldFont& font = inMain(row.family);
    font.hasLogFont = row.logFont;
    font.hasMetric = row.metric;
    EXPECT_EQ(walk(row.family).faces.size(), row.logFont && row.metric ? 1u : 0u);
  }
  EXPECT_EQ(walk(u"").faces, Lines{"0 D 400"});
}

TEST_F(EnumerationOf, AVerticalRequestLoadsTheFaceBeforeItAsksForVerticalForms) {
  ToldFont& font = inMain(u"Tate");
  font.vertical = true;
  EXPECT_EQ(walk(u"@Tate").faces, Lines{"0 Tate 400"});
  EXPECT_TRUE(font.loaded);
  font.loaded = false;
  EXPECT_EQ(walk(u"Tate").faces, Lines{"0 Tate 400"});
  EXPECT_FALSE(font.loaded) << "nothing else loads one";
}

TEST_F(EnumerationOf, AVerticalFaceThatDoesNotLoadIsToldAllTheSame) {
  ToldFont& font = inMain(u"Tate");
  font.vertical = true;
  font.loadable = false;
  EXPECT_EQ(walk(u"@Tate").faces, Lines{"0 Tate 400"});
  EXPECT_EQ(FS_GetFontError(nullptr, 0), 0) << "its error is dropped";
}

TEST_F(EnumerationOf, OneMarkOfAVerticalRequestIsTakenOff) {
  ToldFont& marked = inMain(u"@Tate");
  marked.vertical = true;
  EXPECT_EQ(walk(u"@@Tate").faces, Lines{"0 @Tate 400"});
  EXPECT_TRUE(walk(u"@Tate").faces.empty());
  EXPECT_TRUE(walk(u"@").faces.empty()) << "a family without a name, and no walk over all";
}

TEST_F(EnumerationOf, AFamilyFillsNothingByItself) {
  inMain(u"Fam");
  FS_FontFamily* family = nullptr;
  EXPECT_EQ(walk(u"Fam").faces.size(), 1u);
  ASSERT_TRUE(registry().mainPool().findFamily(u"Fam", family));
  EXPECT_EQ(family->size(), 1u);
}

int fillOnce(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*, void* user) {
  if (++*static_cast<int*>(user) == 1) {
    FS_FontInfo font;
    EXPECT_TRUE(font.createFont(u"Fam", 300, true, 5));
  }
  return 0;
}

TEST_F(EnumerationOf, WhatTheCallbackFillsBehindTheFaceIsWalkedToo) {
  inMain(u"Fam");
  int count = 0;
  EXPECT_EQ(FS_EnumFontFamilies(u"Fam", fillOnce, &count, nullptr, 0), 0);
  EXPECT_EQ(count, 12) << "400 upright, then 400 italic and both of 500 to 900";
}

TEST_F(EnumerationOf, AnErrorThatAFontThrowsIsTheAnswerOne) {
  inMain(u"F").throws = true;
  EXPECT_EQ(walk(u"").result, 1);
  EXPECT_EQ(walk(u"F").result, 1);
}

int throwError(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*, void*) {
  throw QXError(7, u"host", u"", -1, -1, u"");
}

TEST_F(EnumerationOf, AnErrorOfThisKindThatTheCallbackThrowsIsTheAnswerOneToo) {
  inMain(u"F");
  EXPECT_EQ(FS_EnumFontFamilies(u"", throwError, nullptr, nullptr, 0), 1);
}

}  // namespace
}  // namespace QXFontService_NS
