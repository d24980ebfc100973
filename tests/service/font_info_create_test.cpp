#include <gtest/gtest.h>

#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/service.h"

#include "pool/tables/extra_font_pool.h"
#include "service/service_test.h"

namespace qxtest {

bool LoadedFont::getNewTextMetricEx(QXFontService_NS::FS_NewTextMetricEx& out, int entry) const {
  out.setAscent(static_cast<float>(entry + 1));
  return hasMetric;
}

}  // namespace qxtest

namespace QXFontService_NS {
namespace {

using qxtest::LoadedFont;
constexpr QXLang::LanguageID kLang = QXLang::LANGID_DEFAULT;

class CreateFont : public qxtest::ServiceTest {
 protected:
  FS_FontInfo info;
};

TEST_F(CreateFont, FindsAndLoadsAFaceByItsName) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  EXPECT_TRUE(info.createFont(u"fam-ily", 400, false, 5));
  EXPECT_EQ(info.getFont(), &font);
  EXPECT_EQ(info.getEntry(), 0);
  EXPECT_EQ(font.loads, 1);
  EXPECT_EQ(font.refCount.load(), 1);  // handles count nothing
}

TEST_F(CreateFont, TakesWeightZeroAs400AndStretchZeroAs5) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family", 400));
  addToMain(new LoadedFont(u"Family", 100));
  ASSERT_TRUE(info.createFont(u"Family", 0, false, 0));
  EXPECT_EQ(info.getFont(), &font);
  ASSERT_TRUE(info.createFont(u"Family", 0, false));
  EXPECT_EQ(info.getFont(), &font);
}

TEST_F(CreateFont, AnUnknownFamilyLeavesTheHandleAndNoError) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  ASSERT_TRUE(info.createFont(u"Family", 400, false));
  EXPECT_FALSE(info.createFont(u"Other", 400, false));
  EXPECT_EQ(info.getFont(), &font);
  EXPECT_EQ(info.getError().getErrorCode(), 0);
  EXPECT_FALSE(info.createFont(u"", 400, false));
  EXPECT_FALSE(info.createFont(u"@Family", 400, false));
}

TEST_F(CreateFont, AFaceThatDoesNotLoadLeavesTheHandleWithoutIt) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  font.loadable = false;
  font.errorCode = 1928;
  EXPECT_FALSE(info.createFont(u"Family", 400, false));
  EXPECT_FALSE(info.isCreatedFont());
  EXPECT_EQ(info.getError().getErrorCode(), 1928);
}

TEST_F(CreateFont, ForgetsTheErrorBeforeItStarts) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  font.loadable = false;
  font.errorCode = 1928;
  EXPECT_FALSE(info.createFont(u"Family", 400, false));
  EXPECT_FALSE(info.createFont(u"Other", 400, false));
  EXPECT_EQ(info.getError().getErrorCode(), 0);
}

TEST_F(CreateFont, TakesTheFaceOfTheHitWithItsSign) {
  auto* font = new LoadedFont(u"Family");
  font->face = -2;
  addToMain(font);
  ASSERT_TRUE(info.createFont(u"Family", 400, false));
  EXPECT_EQ(info.getEntry(), -2);
  EXPECT_EQ(font->loadedEntry, -2);
}

TEST_F(CreateFont, ADocumentsFontComesFirstAndIsNotLoadedAgain) {
  registry();
  FS_ExtraFontPool extra;
  LoadedFont& own = add(extra, new LoadedFont(u"Family", 700));
  LoadedFont& main = addToMain(new LoadedFont(u"Family", 400));
  ASSERT_TRUE(info.createFont(u"Family", 400, false, 5, &extra));
  EXPECT_EQ(info.getFont(), &own);
  EXPECT_EQ(own.loads, 0);
  ASSERT_TRUE(info.createFont(u"Family", 400, false));
  EXPECT_EQ(info.getFont(), &main);
}

TEST_F(CreateFont, WithoutAHitAmongTheDocumentsFontsTheServiceIsAsked) {
  LoadedFont& main = addToMain(new LoadedFont(u"Main"));
  FS_ExtraFontPool extra;
  add(extra, new LoadedFont(u"Own"));
  ASSERT_TRUE(info.createFont(u"Main", 400, false, &extra));
  EXPECT_EQ(info.getFont(), &main);
}

TEST_F(CreateFont, OpensTheLinkedEudcFontToo) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  LoadedFont& eudc = addToMain(new LoadedFont(u"Eudc"));
  font.link = {&eudc, 3};
  ASSERT_TRUE(info.createFont(u"Family", 400, false));
  EXPECT_EQ(eudc.loadedEntry, 3);
  EXPECT_FALSE(eudc.eudcFlag);
  font.vertical = true;
  ASSERT_TRUE(info.createFont(u"Family", 400, false));
  EXPECT_TRUE(eudc.eudcFlag);
}

TEST_F(CreateFont, ABrokenEudcFontIsCutOffAndLeavesItsErrorThoughTheFontIsMade) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  LoadedFont& eudc = addToMain(new LoadedFont(u"Eudc"));
  font.link = {&eudc, 0};
  font.vertical = true;
  eudc.loadable = false;
  eudc.errorCode = 1921;
  EXPECT_TRUE(info.createFont(u"Family", 400, false));
  EXPECT_EQ(info.getFont(), &font);
  EXPECT_EQ(info.getError().getErrorCode(), 1921);
  EXPECT_EQ(font.link.font, nullptr);
  EXPECT_FALSE(eudc.eudcFlag);
}

TEST_F(CreateFont, TheEudcFontOfADocumentsFontIsOpenedAsWell) {
  LoadedFont& eudc = addToMain(new LoadedFont(u"Eudc"));
  FS_ExtraFontPool extra;
  add(extra, new LoadedFont(u"Own")).link = {&eudc, 0};
  ASSERT_TRUE(info.createFont(u"Own", 400, false, &extra));
  EXPECT_EQ(eudc.loads, 1);
}

TEST_F(CreateFont, TheFolderPathIsTheFileOfTheHit) {
  LoadedFont& main = addToMain(new LoadedFont(u"Main"));
  FS_ExtraFontPool extra;
  LoadedFont& own = add(extra, new LoadedFont(u"Own"));
  bool isExtra = true;
  EXPECT_TRUE(FS_FontInfo::getFontFolderPath(u"Main", 0, false, 0, &extra, &isExtra).getText() ==
              main.fileUri().getText());
  EXPECT_FALSE(isExtra);
  EXPECT_TRUE(FS_FontInfo::getFontFolderPath(u"Own", 0, false, 0, &extra, &isExtra).getText() ==
              own.fileUri().getText());
  EXPECT_TRUE(isExtra);
  EXPECT_TRUE(FS_FontInfo::getFontFolderPath(u"No", 0, false, 0, &extra, &isExtra).isEmpty());
  EXPECT_FALSE(isExtra);
  EXPECT_TRUE(FS_FontInfo::getFontFolderPath(u"No", 0, false, 0, nullptr, nullptr).isEmpty());
  EXPECT_EQ(main.loads + own.loads, 0);
}

TEST_F(CreateFont, MetricsByNameLoadTheFaceADocumentsFontIncluded) {
  FS_NewTextMetricEx metric;
  registry();
  FS_ExtraFontPool extra;
  LoadedFont& own = add(extra, new LoadedFont(u"Own"));
  EXPECT_TRUE(FS_FontInfo::getNewTextMetricEx(u"Own", 400, false, metric, &extra));
  EXPECT_EQ(metric.getAscent(), 1.0F);
  EXPECT_EQ(own.loads, 1);
  own.hasMetric = false;
  EXPECT_FALSE(FS_FontInfo::getNewTextMetricEx(u"Own", 400, false, 5, metric, &extra));
  own.hasMetric = true;
  own.loadable = false;
  EXPECT_FALSE(FS_FontInfo::getNewTextMetricEx(u"Own", 400, false, 5, metric, &extra));
  EXPECT_FALSE(FS_FontInfo::getNewTextMetricEx(u"No", 400, false, 5, metric, nullptr));
}

TEST_F(CreateFont, TheFamilyNameIsThePreferredOneWhereTheSettingAsksForIt) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"FAMILY", nullptr) == u"Family");
  font.preferred = u"Preferred";
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"family", nullptr) == u"Preferred");
  registry().settings().usePreferredFamily = false;
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"family", nullptr) == u"Family");
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"other", nullptr).isEmpty());
}

TEST_F(CreateFont, TheFamilyNameIsAskedOfTheNormalStyleAndMayFillTheFamily) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family", 700, true));
  LoadedFont& light = addToMain(new LoadedFont(u"Family", 300));
  light.preferred = u"Light one";
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"family", nullptr) == u"Light one");
  FS_FontFamily* family = nullptr;
  ASSERT_TRUE(registry().mainPool().findFamily(u"family", family));
  EXPECT_EQ(family->size(), 18U);
  EXPECT_EQ(font.loads + light.loads, 0);
}

TEST_F(CreateFont, TheSettingHoldsForTheFamilyNameOfADocumentsFontToo) {
  registry();
  FS_ExtraFontPool extra;
  add(extra, new LoadedFont(u"Own")).preferred = u"Preferred";
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"own", &extra) == u"Preferred");
  registry().settings().usePreferredFamily = false;
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"own", &extra) == u"Own");
}

TEST_F(CreateFont, ALiteralZeroIsAStretchWithOrWithoutADocument) {
  LoadedFont& font = addToMain(new LoadedFont(u"Family"));
  EXPECT_TRUE(info.createFont(u"Family", 400, false, 0));
  EXPECT_EQ(info.getFont(), &font);
  EXPECT_TRUE(info.createFont(u"Family", 400, false, nullptr));
}

TEST_F(CreateFont, TheFamilyNameOfADocumentsFontDoesNotFallThroughToTheService) {
  addToMain(new LoadedFont(u"Own")).preferred = u"Main";
  FS_ExtraFontPool extra;
  add(extra, new LoadedFont(u"Own"));
  EXPECT_TRUE(FS_FontInfo::getFamilyName(kLang, u"own", &extra) == u"Own");
}

TEST_F(CreateFont, NamesAreTheSameWithoutCaseBlanksAndHyphens) {
  EXPECT_TRUE(FS_FontInfo::isSameFontName(u"Noto Sans-Bold", u"NOTOSANSBOLD"));
  EXPECT_FALSE(FS_FontInfo::isSameFontName(u"Noto_Sans", u"Noto Sans"));
  EXPECT_EQ(FS_FontRegistry::current(), nullptr);  // no service is needed for it
}

/// A world without any font folder: opening the service fails once.
class NoFolders : public testing::Test {
 protected:
  NoFolders() : inPlace_(world) {}
  ~NoFolders() override { resetServiceForTests(); }

  qxtest::MemoryPlatform world;

 private:
  qxtest::PlatformInPlace inPlace_;
};

TEST_F(NoFolders, TheFirstCallTellsWhyTheServiceDoesNotOpenAndTheNextGoesOn) {
  FS_FontInfo info;
  EXPECT_FALSE(info.createFont(u"Family", 400, false));
  EXPECT_EQ(info.getError().getErrorCode(), FS_ERROR_CONFIG_NOT_FOUND);
  EXPECT_FALSE(info.createFont(u"Family", 400, false));
  EXPECT_EQ(info.getError().getErrorCode(), 0);
}

TEST_F(NoFolders, QuestionsByNameAnswerNeutrally) {
  bool isExtra = true;
  EXPECT_TRUE(FS_FontInfo::getFontFolderPath(u"A", 0, false, 0, nullptr, &isExtra).isEmpty());
  EXPECT_FALSE(isExtra);
}

TEST_F(NoFolders, IsEudcAnswersNeutrally) {
  EXPECT_FALSE(FS_FontInfo::isEUDC(0xE000));
}

TEST_F(NoFolders, OpeningByUriTellsTheReason) {
  FS_FontInfo info;
  EXPECT_FALSE(info.createFont(QXUri(u"/a.ttf", QXCommonNS::URISTR_USER)));
  EXPECT_EQ(info.getError().getErrorCode(), FS_ERROR_CONFIG_NOT_FOUND);
}

}  // namespace
}  // namespace QXFontService_NS
