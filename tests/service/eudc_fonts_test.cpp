#include <gtest/gtest.h>

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/service.h"

#include "pool/registry/registry_fixture.h"
#include "support/cmap_builder.h"
#include "support/mort_builder.h"

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;
using qxtest::CmapBuilder;
using qxtest::NameBuilder;
using qxtest::namedFont;
using qxtest::sampleFont;

/// "Fam" and the vertical "Tate" are linked to a font that has U+E000 and, empty, U+E002; the
/// default has U+E000 to U+E003. All glyphs are 600 of 1000 wide but the default's, 250.
class EudcFonts : public qxtest::RegistryTest {
 protected:
  static std::string gaiji(std::u16string_view name,
                           const std::vector<qxtest::CmapSegment>& codes) {
    return sampleFont()
        .table("name", NameBuilder().latin(name).build())
        .table("cmap", CmapBuilder().add(3, 1, CmapBuilder::format4(codes)).build())
        .table("hmtx", qxtest::MetricsBuilder{.metrics = {{0, 0}, {250, 0}, {600, 0}, {0, 0}},
                                              .bearings = {}}
                           .build())
        .build();
  }

  EudcFonts() {
    const auto mort = qxtest::MortBuilder().chain({qxtest::MortBuilder::subtable({{2, 3}})});
    world.file("/f/fam.ttf", namedFont(u"Fam")).file("/f/plain.ttf", namedFont(u"Plain"));
    world.file("/f/tate.ttf", sampleFont()
                                  .table("name", NameBuilder().latin(u"Tate").build())
                                  .table("mort", mort.build())
                                  .build());
    world.file("/e/linked.ttf",
               gaiji(u"Linked", {{0xE000, 0xE000, 2 - 0xE000}, {0xE002, 0xE002, 3 - 0xE002}}));
    world.file("/e/tate.ttf", gaiji(u"LinkedTate", {{0xE000, 0xE000, 2 - 0xE000}}));
    world.file("/e/default.ttf", gaiji(u"Default", {{0xE000, 0xE003, 0, {1, 1, 1, 1}}}));
  }

  void openLinked() {
    open(
        "<font-folder path=\"/f\"/><eudc-processing>"
        "<eudc-map family-name=\"Fam\" file-path=\"/e/linked.ttf\"/>"
        "<eudc-map family-name=\"Tate\" file-path=\"/e/tate.ttf\"/>"
        "<eudc-system-default file-path=\"/e/default.ttf\"/></eudc-processing>");
  }

  FS_FontInfo handle(const UnicodeString& family) {
    FS_FontInfo info;
    EXPECT_TRUE(info.createFont(family, 400, false, 5, nullptr));
    return info;
  }

  static std::string sourceOf(const FS_FontInfo& info, int code) {
    UnicodeString name;
    int weight = 0;
    bool italic = true;
    std::string text;
    return info.getEudcFontName(code, name, weight, italic) ? name.toUTF8String(text) : "none";
  }
};

TEST_F(EudcFonts, ACharacterComesFromTheLinkThenFromTheDefault) {
  openLinked();
  const FS_FontInfo info = handle(u"Fam");
  EXPECT_EQ(info.getEudcGlyphID(0xE000), 2);
  EXPECT_EQ(sourceOf(info, 0xE000), "Fam-RegularLinked-Regular");
  EXPECT_EQ(info.getEudcGlyphID(0xE001), 1);
  EXPECT_EQ(sourceOf(info, 0xE001), "Default-Regular");
  EXPECT_EQ(info.getEudcGlyphID(0xE002), 1) << "a cell of no width is none";
  EXPECT_EQ(info.getEudcGlyphID(0xE004), 0xFFFF);
  EXPECT_EQ(sourceOf(info, 0xE004), "none");
}

TEST_F(EudcFonts, AFaceWithoutALinkHasTheDefault) {
  openLinked();
  EXPECT_EQ(sourceOf(handle(u"Plain"), 0xE000), "Default-Regular");
}

TEST_F(EudcFonts, AVerticalFaceHasItsLinkThenTheVerticalDefault) {
  openLinked();
  const FS_FontInfo info = handle(u"Tate");
  EXPECT_EQ(sourceOf(info, 0xE000), "Tate-RegularLinkedTate-Regular");
  EXPECT_EQ(sourceOf(info, 0xE001), "VDefault-Regular");
}

TEST_F(EudcFonts, TheToldNameFindsTheFontItself) {
  openLinked();
  for (const char16_t* name :
       {u"Fam-RegularLinked-Regular", u"Default-Regular", u"VDefault-Regular"}) {
    const FS_FontInfo info = handle(name);
    EXPECT_TRUE(info.getPostScriptName(QXLang::LANGID_DEFAULT) == name);
    EXPECT_NE(info.getGlyphID(0xE000, false), 0xFFFF);
  }
  EXPECT_NE(handle(u"Default-Regular").getFont(), handle(u"VDefault-Regular").getFont());
}

TEST_F(EudcFonts, TextCountsTheWidthInTheFontThatServesIt) {
  openLinked();
  const FS_FontInfo info = handle(u"Fam");
  int missing = 0;
  const float linked = info.getTextWidth(UnicodeString(u"\uE000"), -1000, false, &missing);
  EXPECT_EQ(missing, -1);
  EXPECT_FLOAT_EQ(linked, 600.0F);
  EXPECT_FLOAT_EQ(info.getTextWidth(UnicodeString(u"A\uE001"), -1000, false, &missing), 850.0F);
  (void)info.getTextWidth(UnicodeString(u"\uE000\uE004"), -1000, false, &missing);
  EXPECT_EQ(missing, 1);
}

TEST_F(EudcFonts, ABrokenLinkLeavesTheDefaultForAllHandles) {
  world.file(
      "/e/linked.ttf",
      sampleFont().without("cmap").table("name", NameBuilder().latin(u"Linked").build()).build());
  openLinked();
  const FS_FontInfo first = handle(u"Fam");
  EXPECT_NE(first.getError().getErrorCode(), 0) << "hosts read it as a warning";
  EXPECT_EQ(sourceOf(first, 0xE000), "Default-Regular");
  const FS_FontInfo second = handle(u"Fam");
  EXPECT_EQ(second.getError().getErrorCode(), 0) << "the link is cut for good";
  EXPECT_EQ(sourceOf(second, 0xE000), "Default-Regular");
}

TEST_F(EudcFonts, AreTheirOwnKindAmongAllFontsAndNoneUnderTheirOwnNames) {
  openLinked();
  std::vector<std::string> faces;
  const auto note = [](FS_FontResourceType type, const FS_EnumLogFontEx* font,
                       const FS_NewTextMetricEx*, void* user) {
    std::string text = std::to_string(type) + " ";
    static_cast<std::vector<std::string>*>(user)->push_back(font->getFaceName().toUTF8String(text));
    return 0;
  };
  EXPECT_EQ(FS_EnumFontFamilies(UnicodeString(), note, &faces, nullptr, 0), 0);
  EXPECT_EQ(faces, (std::vector<std::string>{"0 Fam", "0 Plain", "0 Tate", "4 Default", "4 Default",
                                             "4 Linked", "4 LinkedTate"}));
  faces.clear();
  EXPECT_EQ(FS_EnumFontFamilies(UnicodeString(u"Default"), note, &faces, nullptr, 0), 0);
  EXPECT_TRUE(faces.empty());
  EXPECT_EQ(FS_EnumFontFamilies(UnicodeString(u"VDefault-Regular"), note, &faces, nullptr, 0), 0);
  EXPECT_EQ(faces, std::vector<std::string>{"0 Default"}) << "the kind is told among all fonts";
}

TEST_F(EudcFonts, OutsideTheRangeNothingIsAsked) {
  open(
      "<font-folder path=\"/f\"/><eudc-processing><eudc-range start=\"57345\"/>"
      "<eudc-map family-name=\"Fam\" file-path=\"/e/linked.ttf\"/>"
      "<eudc-system-default file-path=\"/e/default.ttf\"/></eudc-processing>");
  const FS_FontInfo info = handle(u"Fam");
  EXPECT_EQ(info.getEudcGlyphID(0xE000), 0xFFFF);
  EXPECT_EQ(info.getEudcGlyphID(0xE001), 1);
}

}  // namespace
}  // namespace QXFontService_NS
