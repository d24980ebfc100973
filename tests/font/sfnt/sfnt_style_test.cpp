#include "font/sfnt_fixture.h"
#include "support/name_builder.h"
#include "support/table_builders.h"

namespace QXFontService_NS {
namespace {

using qxtest::HeadBuilder;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::PostBuilder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

class SfntStyle : public qxtest::SfntFixture {
 protected:
  QXPtr<FS_TrueType> withOs2(const Os2Builder& os2) {
    return read(sampleFont().table("OS/2", os2.build()));
  }
};

TEST_F(SfntStyle, WeightAndStretchAreThoseOfOs2) {
  const auto font = withOs2({.usWeightClass = 650, .usWidthClass = 7});
  EXPECT_EQ(font->getFontWeight(0), 650);
  EXPECT_EQ(font->getFontStretch(0), 7);
  EXPECT_EQ(font->getFontWeight2(0), 650);
  EXPECT_EQ(font->getFontStretch2(0), 7);
}

TEST_F(SfntStyle, ItalicBySelectionBitZeroOrAnyAngle) {
  struct Row {
    unsigned selection;
    std::int32_t angle;
    bool italic;
  };
  for (const Row& row : {Row{0x40, 0, false}, Row{1, 0, true}, Row{0x200, 0, false},
                         Row{0x40, -786432, true}, Row{0x40, 1, true}}) {
    SfntBuilder font = sampleFont();
    font.table("OS/2", Os2Builder{.fsSelection = row.selection}.build());
    font.table("post", PostBuilder{.italicAngle = row.angle}.build());
    EXPECT_EQ(read(font)->isItalicFont(0), row.italic) << row.selection << " " << row.angle;
  }
}

TEST_F(SfntStyle, SymbolicByFamilyClassOrByNamesWithoutOne) {
  struct Row {
    unsigned familyClass, encoding;
    bool symbolic;
  };
  for (const Row& row :
       {Row{12, 1, true}, Row{12, 0, true}, Row{0, 0, true}, Row{0, 1, false}, Row{8, 0, false}}) {
    SfntBuilder font = sampleFont();
    font.table("OS/2", Os2Builder{.familyClass = row.familyClass}.build());
    font.table("name", NameBuilder().windows(1, u"S", 0x409, row.encoding).build());
    EXPECT_EQ(read(font)->isSymbolicFont(0), row.symbolic) << row.familyClass << row.encoding;
  }
}

TEST_F(SfntStyle, SerifAndScriptByPanose) {
  struct Row {
    unsigned family, serif;
    bool serifLike, scriptLike;
  };
  for (const Row& row : {Row{2, 1, false, false}, Row{2, 2, true, false}, Row{2, 10, true, false},
                         Row{2, 11, false, false}, Row{3, 5, false, true}, Row{4, 5, false, false},
                         Row{0, 2, false, false}}) {
    Os2Builder os2;
    os2.panose[0] = row.family;
    os2.panose[1] = row.serif;
    const auto font = withOs2(os2);
    EXPECT_EQ(font->isSerifLikeFont(0), row.serifLike) << row.family << " " << row.serif;
    EXPECT_EQ(font->isScriptLikeFont(0), row.scriptLike) << row.family << " " << row.serif;
  }
}

TEST_F(SfntStyle, FixedWidthIsTheDerivedFlag) {
  Os2Builder os2;
  os2.panose[0] = 2;
  os2.panose[3] = 9;
  EXPECT_TRUE(withOs2(os2)->isFixedWidthFont(0));
  EXPECT_FALSE(read(sampleFont().table("post", PostBuilder{.isFixedPitch = 1}.build()))
                   ->isFixedWidthFont(0));
}

TEST_F(SfntStyle, FamilyClassAndPanoseNeedOs2) {
  const auto font = withOs2({.familyClass = 8, .familySubclass = 3, .panose = {2, 11, 6}});
  PANOSE panose{};
  EXPECT_EQ(font->getFamilyClass(0), 8);
  EXPECT_EQ(font->getFamilySubclass(0), 3);
  ASSERT_EQ(font->getPanose(panose, 0), &panose);
  EXPECT_EQ(panose.bFamilyType, 2);
  EXPECT_EQ(panose.bSerifStyle, 11);
  EXPECT_EQ(panose.bWeight, 6);

  const auto bare = read(sampleFont().without("OS/2"));
  panose.bFamilyType = 77;
  EXPECT_EQ(bare->getFamilyClass(0), 0);
  EXPECT_EQ(bare->getFamilySubclass(0), 0);
  EXPECT_EQ(bare->getPanose(panose, 0), nullptr);
  EXPECT_EQ(panose.bFamilyType, 77);
}

TEST_F(SfntStyle, PanoseKeepsItsTenNumbersInOrder) {
  PANOSE panose{};
  withOs2({.panose = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}})->getPanose(panose, 0);
  EXPECT_EQ(panose.bProportion, 4);
  EXPECT_EQ(panose.bContrast, 5);
  EXPECT_EQ(panose.bStrokeVariation, 6);
  EXPECT_EQ(panose.bArmStyle, 7);
  EXPECT_EQ(panose.bLetterform, 8);
  EXPECT_EQ(panose.bMidline, 9);
  EXPECT_EQ(panose.bXHeight, 10);
}

TEST_F(SfntStyle, CodePagesAreTheTwoWords) {
  const FS_CodePageRange range =
      withOs2({.ulCodePageRange = {0x80000001, 0x10}})->getCodePageRangeBitFields(0);
  EXPECT_EQ(range.bits0, 0x80000001u);
  EXPECT_EQ(range.bits1, 0x10u);
}

TEST_F(SfntStyle, UnitsPerEmAreSigned) {
  const auto font = read(sampleFont().table("head", HeadBuilder{.unitsPerEm = 40000}.build()));
  EXPECT_EQ(font->getUnitsPerEm(0), 40000 - 65536);
  EXPECT_EQ(font->getTypoAscender(0), 750.0F / 40000.0F);  // scaling takes the number as it is
  EXPECT_EQ(read(sampleFont())->getUnitsPerEm(0), 1000);
}

TEST_F(SfntStyle, EmbedStatusIsTheMaskedLicence) {
  struct Row {
    unsigned fsType;
    FS_EMBEDSTATUS status;
  };
  const FS_EMBEDSTATUS kOther = FS_EMBED_OTHER, kAllowed = FS_EMBED_ALLOWED;
  for (const Row& row :
       {Row{0, kAllowed}, Row{2, FS_EMBED_RESTRICTED}, Row{4, kAllowed}, Row{8, kAllowed},
        Row{0x0C, kAllowed}, Row{6, kAllowed}, Row{0x0A, kAllowed}, Row{0x200, kOther},
        Row{0x202, kOther}, Row{0x204, kAllowed}, Row{0x100, kAllowed},
        Row{0x102, FS_EMBED_RESTRICTED}, Row{1, kAllowed}, Row{0xFDF1, kAllowed}}) {
    const auto font = withOs2({.fsType = row.fsType});
    EXPECT_EQ(font->getEmbedStatus(0), row.status) << row.fsType;
    EXPECT_EQ(font->isEmbeddingAllowed(0), row.status == kAllowed) << row.fsType;
    EXPECT_EQ(font->getFontEmbeddingLicence(0), row.fsType);
  }
}

TEST_F(SfntStyle, EmbeddingNeedsOutlines) {
  EXPECT_TRUE(read(sampleFont())->canEmbedFont(0));
  EXPECT_FALSE(read(sampleFont().without("loca"))->canEmbedFont(0));
  EXPECT_TRUE(read(sampleFont().without("glyf").table("CFF", "x"))->canEmbedFont(0));
  const auto font = read(sampleFont());
  EXPECT_TRUE(font->getTrueTypeInfo(0)->hasGlyf());
  EXPECT_FALSE(font->getTrueTypeInfo(0)->hasCFF());
}

TEST_F(SfntStyle, HeightsInEmOrZeroWhereTheFontDoesNotTell) {
  const auto font = withOs2({.sTypoAscender = 750, .sxHeight = 500, .sCapHeight = 700});
  EXPECT_EQ(font->getXHeight(0), 0.5F);
  EXPECT_EQ(font->getCapHeight(0), 700.0F / 1000.0F);
  EXPECT_EQ(font->getTypoAscender(0), 0.75F);
  for (const int value : {0, -1, -500}) {
    const auto none = withOs2({.sxHeight = value, .sCapHeight = value});
    EXPECT_EQ(none->getXHeight(0), 0.0F);
    EXPECT_EQ(none->getCapHeight(0), 0.0F);
  }
  EXPECT_EQ(withOs2({.sxHeight = 1})->getXHeight(0), 1.0F / 1000.0F);
}

TEST_F(SfntStyle, AFontOfNoUnitsHasNoHeights) {
  const auto font = read(sampleFont().table("head", HeadBuilder{.unitsPerEm = 0}.build()));
  EXPECT_EQ(font->getXHeight(0), 0.0F);
  EXPECT_EQ(font->getTypoAscender(0), 0.0F);
}

TEST_F(SfntStyle, TheDescenderOfASingleFontIsItsAscender) {
  EXPECT_EQ(withOs2({.sTypoAscender = 750, .sTypoDescender = -250})->getTypoDescender(0), 0.75F);
  const auto font = withOs2({.sTypoDescender = -250});
  EXPECT_EQ(font->getTrueTypeInfo(0)->getTypoDescender(), -0.25F);
}

TEST_F(SfntStyle, TheStyleKeyCountsZeroAsNormal) {
  const auto key = [&](const Os2Builder& os2) {
    return withOs2(os2)->getTrueTypeInfo(0)->styleKey();
  };
  EXPECT_EQ(key({.usWeightClass = 700, .usWidthClass = 3, .fsSelection = 1}),
            makeFontKey(700, true, 3));
  EXPECT_EQ(key({.usWeightClass = 0, .usWidthClass = 0}), makeFontKey(400, false, 5));
}

}  // namespace
}  // namespace QXFontService_NS
