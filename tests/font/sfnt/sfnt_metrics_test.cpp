#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "font/sfnt_fixture.h"
#include "support/name_builder.h"
#include "support/table_builders.h"

namespace QXFontService_NS {
namespace {

using qxtest::HeadBuilder;
using qxtest::HheaBuilder;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::PostBuilder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

class SfntMetrics : public qxtest::SfntFixture {
 protected:
  FS_NewTextMetricEx metrics(const SfntBuilder& builder) {
    FS_NewTextMetricEx out;
    EXPECT_TRUE(read(builder)->getNewTextMetricEx(out, 0));
    return out;
  }
  FS_NewTextMetricEx metrics(const SfntBuilder& builder, int size) {
    FS_NewTextMetricEx out;
    EXPECT_TRUE(read(builder)->getOutlineTextMetrics(out, size, 0));
    return out;
  }
  static SfntBuilder withOs2(const Os2Builder& os2) {
    return sampleFont().table("OS/2", os2.build());
  }
};

TEST_F(SfntMetrics, FontUnitsWithoutASize) {
  SfntBuilder font = sampleFont();
  font.table("vhea", HheaBuilder{.ascender = 500, .descender = -500, .lineGap = 7}.build());
  font.table("post", PostBuilder{.italicAngle = -12 * 65536}.build());
  const FS_NewTextMetricEx out = metrics(font);
  EXPECT_EQ(out.getAscent(), 900.0F);
  EXPECT_EQ(out.getDescent(), 300.0F);
  EXPECT_EQ(out.getCapHeight(), 700.0F);
  EXPECT_EQ(out.getTypoAscender(), 750.0F);
  EXPECT_EQ(out.getTypoDescender(), -250.0F);
  EXPECT_EQ(out.getTypoLineGap(), 100.0F);
  EXPECT_EQ(out.getVertTypoAscender(), 500.0F);
  EXPECT_EQ(out.getVertTypoDescender(), -500.0F);
  EXPECT_EQ(out.getVertTypoLineGap(), 7.0F);
  EXPECT_EQ(out.getExternalLeading(), 90.0F);
  EXPECT_EQ(out.getAveCharWidth(), 500.0F);
  EXPECT_EQ(out.getMaxCharWidth(), 1000.0F);
  EXPECT_EQ(out.getItalicAngle(), -786432.0F);
  EXPECT_EQ(out.getBBoxLeft(), -50.0F);
  EXPECT_EQ(out.getBBoxBottom(), -200.0F);
  EXPECT_EQ(out.getBBoxRight(), 950.0F);
  EXPECT_EQ(out.getBBoxTop(), 800.0F);
}

TEST_F(SfntMetrics, APositiveSizeIsTheCellAndANegativeOneTheEm) {
  const FS_NewTextMetricEx cell = metrics(sampleFont(), 600);
  const float cellScale = 600.0F / 1200.0F;
  EXPECT_EQ(cell.getAscent(), 900.0F * cellScale);
  EXPECT_EQ(cell.getAscent() + cell.getDescent(), 600.0F);
  const FS_NewTextMetricEx em = metrics(sampleFont(), -12);
  const float emScale = 12.0F / 1000.0F;
  EXPECT_EQ(em.getAscent(), 900.0F * emScale);
  EXPECT_EQ(em.getBBoxTop(), 800.0F * emScale);
  EXPECT_EQ(em.getMaxCharWidth(), 1000.0F * emScale);
}

TEST_F(SfntMetrics, ASizeOrABaseOfZeroGivesNoLengths) {
  SfntBuilder italic = sampleFont();
  italic.table("post", PostBuilder{.italicAngle = 65536}.build());
  const FS_NewTextMetricEx zero = metrics(italic, 0);
  EXPECT_FALSE(zero.hasValue());
  EXPECT_EQ(zero.getBBoxTop(), 0.0F);
  EXPECT_EQ(zero.getItalicAngle(), 65536.0F);
  italic.table("head", HeadBuilder{.unitsPerEm = 0}.build());
  EXPECT_FALSE(metrics(italic).hasValue());
  EXPECT_FALSE(metrics(italic, -10).hasValue());
  SfntBuilder flat = sampleFont().without("OS/2");
  flat.table("hhea", HheaBuilder{.ascender = 0, .descender = 0}.build());
  EXPECT_EQ(metrics(flat, 10).getMaxCharWidth(), 0.0F);
}

TEST_F(SfntMetrics, TheLowestSizeDoesNotOverflow) {
  const float scale = 2147483648.0F / 1000.0F;
  EXPECT_EQ(metrics(sampleFont(), std::numeric_limits<int>::min()).getAscent(), 900.0F * scale);
}

TEST_F(SfntMetrics, TypographicLeadingSharesOutTheRestOfTheEm) {
  struct Row {
    int typoAscender, typoDescender;
    unsigned winAscent, winDescent;
    float above, below;
  };
  // d = 1000 - ta + td with td negative; h = min(winDescent + td, d / 2).
  for (const Row& row : {
           Row{750, -250, 900, 300, 150 - 0 + 0, 50 - 0},                  // d 0
           Row{700, -200, 900, 300, 200.0F - 100 + 50, 100.0F - 50},       // d 100: h 50
           Row{700, -200, 900, 210, 200.0F - 100 + 10, 10.0F - 10},        // the cell's room: h 10
           Row{700, -200, 900, 100, 200.0F - 100 - 100, -100.0F + 100},    // no room at all: h -100
           Row{800, -305, 900, 400, 100.0F + 105 - 52.5F, 95.0F + 52.5F},  // d -105: h -52.5
       }) {
    const FS_NewTextMetricEx out = metrics(withOs2({.sTypoAscender = row.typoAscender,
                                                    .sTypoDescender = row.typoDescender,
                                                    .usWinAscent = row.winAscent,
                                                    .usWinDescent = row.winDescent}));
    EXPECT_EQ(out.getInternalLeadingA(), row.above) << row.typoAscender << row.winDescent;
    EXPECT_EQ(out.getInternalLeadingD(), row.below) << row.typoAscender << row.winDescent;
  }
}

TEST_F(SfntMetrics, TheReservedSwitchAlwaysTakesTheHalf) {
  services.reserved = true;
  const FS_NewTextMetricEx out = metrics(withOs2(
      {.sTypoAscender = 700, .sTypoDescender = -200, .usWinAscent = 900, .usWinDescent = 210}));
  EXPECT_EQ(out.getInternalLeadingA(), 200.0F - 100 + 50);
  EXPECT_EQ(out.getInternalLeadingD(), 10.0F - 50);
}

TEST_F(SfntMetrics, PositiveDescendersAreTurned) {
  SfntBuilder font = withOs2({.sTypoAscender = 700, .sTypoDescender = 200});
  font.table("vhea", HheaBuilder{.ascender = 500, .descender = 400}.build());
  const FS_NewTextMetricEx out = metrics(font);
  EXPECT_EQ(out.getTypoDescender(), -200.0F);
  EXPECT_EQ(out.getVertTypoDescender(), -400.0F);
  EXPECT_EQ(out.getInternalLeadingD(), 100.0F - 50);  // as with -200
}

TEST_F(SfntMetrics, WindowsModeHalvesTheLeadingAndHasNoTypographicMetrics) {
  services.windows = true;
  SfntBuilder font = sampleFont();
  font.table("vhea", HheaBuilder().build());
  const FS_NewTextMetricEx out = metrics(font, -500);
  EXPECT_EQ(out.getInternalLeadingA(), (450.0F + 150.0F - 500.0F) * 0.5F);
  EXPECT_EQ(out.getInternalLeadingD(), out.getInternalLeadingA());
  EXPECT_FALSE(out.hasTypoInfo());
  EXPECT_FALSE(out.hasVertTypoInfo());
  EXPECT_EQ(out.getTypoDescender(), 0.0F);
  EXPECT_EQ(out.getTypoLineGap(), 0.0F);
  EXPECT_EQ(out.getVertTypoDescender(), 0.0F);
  EXPECT_EQ(out.getVertTypoLineGap(), 0.0F);
}

TEST_F(SfntMetrics, WithoutVheaThereIsNoVerticalTypography) {
  EXPECT_FALSE(metrics(sampleFont()).hasVertTypoInfo());
}

TEST_F(SfntMetrics, PitchAndFamilyComeFromThePitchFlagAndPanose) {
  struct Row {
    unsigned family, serif, proportion, bits;
  };
  for (const Row& row : {Row{0, 0, 0, 0x01}, Row{2, 5, 3, 0x11}, Row{2, 11, 3, 0x01},
                         Row{3, 5, 3, 0x41}, Row{2, 5, 9, 0x10}, Row{2, 11, 9, 0x00}}) {
    Os2Builder os2;
    os2.panose[0] = row.family;
    os2.panose[1] = row.serif;
    os2.panose[3] = row.proportion;
    const FS_NewTextMetricEx out = metrics(withOs2(os2));
    EXPECT_EQ(out.getPitchAndFamily(), row.bits) << row.family << row.serif << row.proportion;
    EXPECT_EQ(out.isFixedPitch(), row.proportion == 9);
  }
}

TEST_F(SfntMetrics, BitsAndSymbolComeFromOs2) {
  const FS_NewTextMetricEx out = metrics(withOs2(
      {.familyClass = 12, .ulUnicodeRange = {1, 2, 3, 0x80000000}, .ulCodePageRange = {5, 6}}));
  for (int word = 0; word < 3; ++word)
    EXPECT_EQ(out.getUnicodeSubsetBits(word), static_cast<unsigned>(word) + 1);
  EXPECT_EQ(out.getUnicodeSubsetBits(3), 0x80000000u);
  EXPECT_EQ(out.getCodePageBits0(), 5u);
  EXPECT_EQ(out.getCodePageBits1(), 6u);
  EXPECT_TRUE(out.isSymbol());
  EXPECT_FALSE(metrics(sampleFont()).isSymbol());
}

TEST_F(SfntMetrics, AnOldRecordIsReplacedWhole) {
  FS_NewTextMetricEx out;
  out.setCodePageBits0(0xFF00);
  out.setVertTypoAscender(9);
  EXPECT_TRUE(read(sampleFont())->getNewTextMetricEx(out, 0));
  EXPECT_EQ(out.getCodePageBits0(), 1u);
  EXPECT_EQ(out.getVertTypoAscender(), 0.0F);
}

TEST_F(SfntMetrics, TheRecordPointsAtTheOptionsOfTheFile) {
  FS_FontFolder folder(u"/fonts/", 0, false);
  folder.fileOptions[u"a.ttf"].fontSizeAdjust = 2.0F;
  const auto font = read(sampleFont().build(), &folder);
  FS_NewTextMetricEx out;
  font->getNewTextMetricEx(out, 0);
  EXPECT_EQ(out.getFileOptions(), &folder.fileOptions[u"a.ttf"]);
  EXPECT_EQ(metrics(sampleFont()).getFileOptions(), nullptr);
}

class SfntLogFont : public qxtest::SfntFixture {
 protected:
  FS_EnumLogFontEx logFont(const NameBuilder& names) {
    FS_EnumLogFontEx out;
    SfntBuilder font = sampleFont();
    EXPECT_TRUE(read(font.table("name", names.build()))->getLogFont(out, 0));
    return out;
  }
};

TEST_F(SfntLogFont, TellsStyleFaceAndFullName) {
  SfntBuilder font = sampleFont();
  font.table("OS/2", Os2Builder{.usWeightClass = 700, .fsSelection = 1}.build());
  FS_EnumLogFontEx out;
  ASSERT_TRUE(read(font)->getLogFont(out, 0));
  EXPECT_EQ(out.getWeight(), 700);
  EXPECT_TRUE(out.isItalic());
  EXPECT_EQ(out.getFaceName(), UnicodeString("QX Sample"));
  EXPECT_EQ(out.getFullName(), UnicodeString("QX Sample Regular"));
}

TEST_F(SfntLogFont, TheWeightIsThatOfOs2EvenZeroAndAnAngleIsItalic) {
  SfntBuilder font = sampleFont();
  font.table("OS/2", Os2Builder{.usWeightClass = 0}.build());
  font.table("post", PostBuilder{.italicAngle = -65536}.build());
  FS_EnumLogFontEx out;
  ASSERT_TRUE(read(font)->getLogFont(out, 0));
  EXPECT_EQ(out.getWeight(), 0);
  EXPECT_TRUE(out.isItalic());
}

TEST_F(SfntLogFont, TheNamesAreThoseOfTheDefaultLanguage) {
  world.setLocaleName("ja_JP");
  NameBuilder names;
  names.windows(1, u"English").windows(4, u"English Full").windows(16, u"Preferred");
  names.windows(1, u"\u65E5\u672C", 0x411).windows(4, u"\u65E5", 0x411);
  EXPECT_EQ(logFont(names).getFullName(), UnicodeString(u"\u65E5"));
  EXPECT_EQ(logFont(names).getFaceName(), UnicodeString("Preferred"))
      << "in another language, where the default one has none";
  services.preferredFamily = false;
  EXPECT_EQ(logFont(names).getFaceName(), UnicodeString(u"\u65E5\u672C"));
}

TEST_F(SfntLogFont, ThePostScriptNameServesWithoutAFamily) {
  EXPECT_EQ(logFont(NameBuilder().windows(6, u"PS-Name")).getFaceName(), UnicodeString("PS-Name"));
}

TEST_F(SfntLogFont, ThePreferredFamilyReplacesBothUnlessSwitchedOff) {
  NameBuilder names;
  names.windows(1, u"Family Light").windows(6, u"PS").windows(16, u"Family");
  EXPECT_EQ(logFont(names).getFaceName(), UnicodeString("Family"));
  EXPECT_EQ(logFont(NameBuilder().windows(6, u"PS").windows(16, u"Family")).getFaceName(),
            UnicodeString("Family"));
  services.preferredFamily = false;
  EXPECT_EQ(logFont(names).getFaceName(), UnicodeString("Family Light"));
}

}  // namespace
}  // namespace QXFontService_NS
