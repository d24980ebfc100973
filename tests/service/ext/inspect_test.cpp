#include "qxfontservice/ext/inspect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxcommon/ptr.h"
#include "qxfontservice/ext/open_file.h"

#include "font/contract/plain_font.h"
#include "pool/registry/registry_fixture.h"
#include "service/font_info_access.h"
#include "support/class_def_builder.h"
#include "support/cmap_builder.h"
#include "support/dfont_builder.h"
#include "support/kern_builder.h"
#include "support/name_builder.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "support/table_builders.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::CmapBuilder;
using qxtest::KernBuilder;
using qxtest::NameBuilder;
using testing::ElementsAre;
using testing::IsEmpty;

class Inspect : public qxtest::RegistryTest {
 protected:
  Inspect() { openFolder(); }
  ~Inspect() override {
    if (font.isCreatedFont()) font.deleteFont();
  }

  void open(const std::string& bytes) {
    world.file("/x/a.ttf", bytes);
    ASSERT_TRUE(openFontFile(QXUri(u"/x/a.ttf", QXCommonNS::URISTR_USER), 0, font));
  }
  void openWithNames(const NameBuilder& names) {
    open(qxtest::sampleFont().table("name", names.build()).build());
  }

  void openWithKern(const KernBuilder& kern) {
    open(qxtest::sampleFont().table("kern", kern.build()).build());
  }

  FS_FontInfo font;
};

/// The rows of a listing as text, one after the other.
template <class Row, class Text>
std::string texts(const std::vector<Row>& rows, Text text) {
  std::string all;
  for (const Row& row : rows) all += (all.empty() ? "" : " ") + text(row);
  return all;
}

std::string codeAndGlyph(const CharacterGlyph& row) {
  return std::to_string(row.code) + ">" + std::to_string(row.glyph);
}
std::string pairAndValue(const KernPair& row) {
  return std::to_string(row.left) + "," + std::to_string(row.right) + ":" +
         std::to_string(row.value);
}
std::string sequenceAndGlyph(const VariationGlyph& row) {
  return std::to_string(row.code) + "," + std::to_string(row.selector) + ":" +
         std::to_string(row.glyph);
}
std::string glyphAndClass(const ClassedGlyph& row) {
  return std::to_string(row.glyph) + ":" + std::to_string(row.glyphClass);
}

TEST_F(Inspect, LanguagesAreThoseOfTheWindowsRecordsRising) {
  openWithNames(
      NameBuilder().windows(1, u"Nihongo", 0x411).latin(u"Fam").windows(4, u"Voll", 0x407));
  EXPECT_THAT(nameLanguages(font), ElementsAre(0x407, 0x409, 0x411));
}

TEST_F(Inspect, LanguagesOfMacintoshRecordsAreMacintoshCodes) {
  openWithNames(NameBuilder()
                    .macintosh(1, "Fam")
                    .macintosh(2, "Regular")
                    .macintosh(4, "Fam")
                    .macintosh(6, "Fam")
                    .macintosh(1, "Famille", 1));
  EXPECT_THAT(nameLanguages(font), ElementsAre(0, 1));
}

TEST_F(Inspect, GlyphsAreCountedByMaxp) {
  open(qxtest::sampleFont().build());
  EXPECT_EQ(glyphCount(font), 4U);
}

TEST_F(Inspect, AMemberOfASuitcaseIsToldThoughTheInterfaceTellsNoRecordOfIt) {
  world.file("/x/a.dfont",
             qxtest::DfontBuilder().resource("sfnt", qxtest::sampleFont().build()).build());
  ASSERT_TRUE(openFontFile(QXUri(u"/x/a.dfont", QXCommonNS::URISTR_USER), 0, font));
  EXPECT_THAT(nameLanguages(font), ElementsAre(0x409));
  EXPECT_EQ(glyphCount(font), 4U);
}

TEST_F(Inspect, OutlinesInCffAreFoundWhateverTheFileIsCalled) {
  open(qxtest::sampleFont().build());
  EXPECT_FALSE(hasCffOutlines(font));
  font.deleteFont();
  open(qxtest::sampleOpenType(qxtest::sampleCff()).version(qxtest::SfntBuilder::kTrueType).build());
  EXPECT_TRUE(hasCffOutlines(font));
  EXPECT_EQ(font.getFontFileType(), FS_FILETYPE_TRUETYPE);
}

TEST_F(Inspect, TheCharacterMapIsThatOfTheQueries) {
  open(qxtest::sampleFont().build());
  EXPECT_EQ(texts(characterMap(font), codeAndGlyph), "32>1 65>2 66>3");
}

TEST_F(Inspect, TheCharacterMapOfASymbolFontHasTheLetters) {
  const std::string cmap =
      CmapBuilder().add(3, 0, CmapBuilder::format4({{0xF041, 0xF042, 2 - 0xF041}})).build();
  open(qxtest::sampleFont().table("cmap", cmap).build());
  // U+1041 and the like have none of the bits either, and lead to the same segment.
  const auto map = characterMap(font);
  ASSERT_FALSE(map.empty());
  for (const CharacterGlyph& row : map) EXPECT_EQ(font.getGlyphID(row.code, false), row.glyph);
  EXPECT_EQ(map.front().code, 'A');
  EXPECT_EQ(map.back().code, 0xF042);
}

TEST_F(Inspect, AFontThatAnswersForItselfIsAskedCodeByCode) {
  class OneLetter final : public qxtest::PlainFont {
   public:
    OneLetter() : PlainFont(QXUri(u"/x/letter", QXCommonNS::URISTR_USER)) {}
    unsigned short getGlyphID(int code, bool, int) const override {
      return code == 0x10FFFF ? 7 : FS_NO_GLYPH;
    }
  };
  const QXPtr<OneLetter> letter(new OneLetter);
  FS_FontInfo handle;
  FontInfoAccess::set(handle, letter.get(), 0);
  EXPECT_EQ(texts(characterMap(handle), codeAndGlyph), "1114111>7");
  EXPECT_EQ(glyphCount(handle), 0U);
  EXPECT_THAT(advances(handle), IsEmpty());
}

TEST_F(Inspect, AdvancesAreThoseOfAllGlyphsTheLastMetricShared) {
  const qxtest::MetricsBuilder widths{.metrics = {{500, 0}, {250, 0}}, .bearings = {0, 0}};
  open(qxtest::sampleFont()
           .table("hhea", qxtest::HheaBuilder{.numberOfMetrics = 2}.build())
           .table("hmtx", widths.build())
           .build());
  EXPECT_THAT(advances(font), ElementsAre(500, 250, 250, 250));
}

TEST_F(Inspect, KernPairsStandInOrderWithTheValueThatIsAnswered) {
  openWithKern(KernBuilder().format0({{1, 2, -40}, {1, 3, 25}, {2, 1, -1}}));
  EXPECT_EQ(texts(kernPairs(font, false), pairAndValue), "1,2:-40 1,3:25 2,1:-1");
  EXPECT_THAT(kernPairs(font, true), IsEmpty());
  for (const KernPair& pair : kernPairs(font, false))
    EXPECT_EQ(font.getPairKerningValue(pair.left, pair.right, 0, false), pair.value);
}

TEST_F(Inspect, KernPairsOfVerticalTextAreAskedForAsSuch) {
  openWithKern(KernBuilder().format0({{1, 2, -40}}, 0));
  EXPECT_THAT(kernPairs(font, false), IsEmpty());
  EXPECT_EQ(texts(kernPairs(font, true), pairAndValue), "1,2:-40");
}

TEST_F(Inspect, CrossStreamPairsAreInEffectNowhere) {
  openWithKern(KernBuilder().format0({{1, 2, -40}}, 3));
  EXPECT_THAT(kernPairs(font, false), IsEmpty());
  EXPECT_THAT(kernPairs(font, true), IsEmpty());
}

TEST_F(Inspect, KernPairsThatStandTwiceOrInDisorderAreListedOnceAsAnswered) {
  openWithKern(KernBuilder().format0({{3, 1, 9}, {1, 2, -40}, {1, 2, -41}, {0, 1, 5}}));
  const auto pairs = kernPairs(font, false);
  ASSERT_EQ(pairs.size(), 3U);
  for (const KernPair& pair : pairs)
    EXPECT_EQ(font.getPairKerningValue(pair.left, pair.right, 0, false), pair.value);
}

TEST_F(Inspect, SequencesAreListedOnceWithWhatStandsForThem) {
  CmapBuilder cmap;
  cmap.add(0, 5,
           CmapBuilder::format14(
               {{0xE0100, {{0x41, 2}}, {{0x41, 3}, {0x50, 1}}}, {0xE0101, {}, {{0x42, 0}}}}));
  cmap.add(3, 1, CmapBuilder::format4({{0x41, 0x42, 2 - 0x41}}));
  open(qxtest::sampleFont().table("cmap", cmap.build()).build());
  // U+0043 is listed as ordinary, but has no glyph.
  EXPECT_EQ(texts(variationSequences(font), sequenceAndGlyph),
            "65,917760:2 66,917760:3 80,917760:1 66,917761:0");
}

TEST_F(Inspect, ClassesAreThoseThatTheTableGives) {
  const std::string gdef = qxtest::gdefTable(qxtest::classDefOfRanges({{1, 1, 0}, {2, 9, 3}}));
  open(qxtest::sampleFont().table("GDEF", gdef).build());
  EXPECT_EQ(texts(glyphClasses(font), glyphAndClass), "1:0 2:3 3:3");
}

TEST_F(Inspect, AFontWithoutTheTablesHasNoneOfTheirRows) {
  open(qxtest::sampleFont().build());
  EXPECT_THAT(kernPairs(font, false), IsEmpty());
  EXPECT_THAT(variationSequences(font), IsEmpty());
  EXPECT_THAT(glyphClasses(font), IsEmpty());
}

TEST_F(Inspect, AnEmptyHandleHasNothing) {
  const FS_FontInfo empty;
  EXPECT_THAT(nameLanguages(empty), IsEmpty());
  EXPECT_EQ(glyphCount(empty), 0U);
  EXPECT_FALSE(hasCffOutlines(empty));
  EXPECT_THAT(characterMap(empty), IsEmpty());
  EXPECT_THAT(advances(empty), IsEmpty());
  EXPECT_THAT(kernPairs(empty, false), IsEmpty());
  EXPECT_THAT(variationSequences(empty), IsEmpty());
  EXPECT_THAT(glyphClasses(empty), IsEmpty());
}

}  // namespace
}  // namespace QXFontService_NS::ext
