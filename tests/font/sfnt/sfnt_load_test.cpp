#include <thread>
#include <vector>

#include "font/sfnt_fixture.h"
#include "support/be_bytes.h"
#include "support/cff_builder.h"
#include "support/class_def_builder.h"
#include "support/cmap_builder.h"
#include "support/kern_builder.h"
#include "support/layout_table_builder.h"
#include "support/mort_builder.h"
#include "support/table_builders.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

using qxtest::BeBytes;
using qxtest::CmapBuilder;
using qxtest::HheaBuilder;
using qxtest::KernBuilder;
using qxtest::LayoutTableBuilder;
using qxtest::MaxpBuilder;
using qxtest::MetricsBuilder;
using qxtest::MortBuilder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

constexpr char kReadError[] = "Font read error: ";
constexpr char kFileError[] = "Font file error: ";

class SfntLoad : public qxtest::SfntFixture {
 protected:
  /// What a load that fails reports, code and text.
  void expectReport(int code, const std::string& detail) {
    EXPECT_FALSE(good) << detail;
    EXPECT_EQ(error.getErrorCode(), code) << detail;
    EXPECT_EQ(message(), (code == 1921 ? kReadError : kFileError) + detail + "\n" + kPath);
  }
  /// The sample font with `bytes` as its last table, that many short at the file's end.
  static SfntBuilder withLast(const char* tag, const std::string& bytes) {
    SfntBuilder font = sampleFont().without(tag);
    return font.table(tag, bytes);
  }
  bool loadCut(const SfntBuilder& font, const char* tag, std::size_t kept) {
    const auto object = read<FS_TrueType>(font.build());
    world.cut(kPath, font.offsetOf(tag) + kept);
    good = object->loadFontTables(&error, 0, nullptr);
    return good;
  }
};

std::string gsubWithFeature() {
  LayoutTableBuilder table;
  table.feature("liga", {});
  return table.str();
}

SfntBuilder openTypeFont() {
  qxtest::CffBuilder cff;
  cff.glyphs.assign(4, "\x0E");
  SfntBuilder font = sampleFont().without("glyf").without("loca");
  return font.version(SfntBuilder::kOpenType).table("CFF", cff.build());
}

TEST_F(SfntLoad, ASoundFontLoadsWithoutAReport) {
  const auto font = load(sampleFont());
  ASSERT_TRUE(font);
  EXPECT_TRUE(good);
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_EQ(font->getGlyphWidth(2, 0, false, 0), 600.0F);
  EXPECT_EQ(font->getTrueTypeInfo(0)->loaded().maxp.numGlyphs, 4);
  EXPECT_EQ(font->getEmbedableCharCount(0), 3u);
}

TEST_F(SfntLoad, BeforeTheLoadTheAnswersAreNeutral) {
  const auto font = read(sampleFont());
  EXPECT_FALSE(font->getTrueTypeInfo(0)->tablesLoaded());
  EXPECT_EQ(font->getGlyphID('A', false, 0), 0xFFFF);
  EXPECT_EQ(font->getGlyphWidth(2, 0, false, 0), 0.0F);
  EXPECT_FALSE(font->hasPairKerningInfo(false, 0));
  EXPECT_EQ(font->getCFFFont(0), nullptr);
  EXPECT_EQ(font->getGlyphClassDef(1, 0), GCD_NO_TABLE);
  EXPECT_EQ(font->getEmbedableCharCount(0), 0u);
}

TEST_F(SfntLoad, NoStreamStaysOpen) {
  const auto font = load(sampleFont());
  EXPECT_EQ(world.counts().opened, 1u);
  EXPECT_EQ(world.openStreams(), 0u);
  (void)font->getGlyphID('A', false, 0);
  EXPECT_EQ(world.counts().opened, 1u);
}

TEST_F(SfntLoad, ASecondCallGivesTheFirstAnswerAndReportsNothing) {
  const auto font = load(sampleFont().without("cmap"));
  expectReport(1928, "'cmap' table not found");
  error = QXError();
  std::istringstream whole(sampleFont().build());
  EXPECT_FALSE(font->loadFontTables(&error, 0, &whole));
  EXPECT_FALSE(font->loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_EQ(world.counts().opened, 1u);
}

TEST_F(SfntLoad, AFileThatDoesNotOpenIsTriedAgainAndNeverGood) {
  const auto font = read(sampleFont());
  world.remove(kPath);
  good = font->loadFontTables(&error, 0, nullptr);
  expectReport(1921, std::string("Cannot read font: ") + kPath + "\n");
  EXPECT_FALSE(font->getTrueTypeInfo(0)->tablesLoaded());
  world.file(kPath, sampleFont().build());
  EXPECT_FALSE(font->loadFontTables(&error, 0, nullptr));
  EXPECT_TRUE(font->getTrueTypeInfo(0)->tablesLoaded());
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_FALSE(font->loadFontTables(&error, 0, nullptr));
}

TEST_F(SfntLoad, ANullErrorReportsNothing) {
  const auto font = read(sampleFont().without("cmap"));
  EXPECT_FALSE(font->loadFontTables(nullptr, 0, nullptr));
  std::istringstream nothing;
  EXPECT_FALSE(font->readFont(nullptr, &nothing));
}

TEST_F(SfntLoad, TheZeroGlyphCountsOnTheFilePathAlone) {
  FS_FontFolder folder(u"/fonts/", 0, false);
  folder.fileOptions[u"a.ttf"].useZeroGlyphId = true;
  SfntBuilder builder = sampleFont();
  builder.table("cmap",
                CmapBuilder().add(3, 1, CmapBuilder::format4({{0x41, 0x41, -0x41}})).build());
  const auto byFile = read(builder.build(), &folder);
  ASSERT_TRUE(byFile->loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(byFile->getGlyphID('A', false, 0), 0);
  const auto byStream = read(builder.build(), &folder);
  std::istringstream stream(builder.build());
  ASSERT_TRUE(byStream->loadFontTables(&error, 0, &stream));
  EXPECT_EQ(byStream->getGlyphID('A', false, 0), 0xFFFF);
}

TEST_F(SfntLoad, MaxpMayBeAbsentShortOrOfAnotherVersion) {
  EXPECT_EQ(load(sampleFont().without("maxp"))->getTrueTypeInfo(0)->loaded().maxp.numGlyphs, 0);
  EXPECT_TRUE(good);
  const std::string half = MaxpBuilder{.numGlyphs = 7, .version = 0x00005000}.build();
  EXPECT_EQ(load(withLast("maxp", half))->getTrueTypeInfo(0)->loaded().maxp.numGlyphs, 7);
  EXPECT_TRUE(good);
  const SfntBuilder whole = withLast("maxp", MaxpBuilder().build());
  loadCut(whole, "maxp", 31);
  expectReport(1921, "'maxp' table read error");
}

TEST_F(SfntLoad, TheOutlinesOfAnOpenTypeFontAreItsCff) {
  const auto font = load<FS_OpenType>(openTypeFont());
  EXPECT_TRUE(good) << message();
  EXPECT_NE(font->getCFFFont(0), nullptr);
}

TEST_F(SfntLoad, AnOpenTypeFontWithoutCffGoesOnWithTheRest) {
  SfntBuilder glyf = sampleFont();
  glyf.version(SfntBuilder::kOpenType);
  const auto font = load<FS_OpenType>(glyf);
  expectReport(1928, "'CFF' table not found");
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_EQ(font->getCFFFont(0), nullptr);
  load<FS_OpenType>(glyf.table("CFF2", "x"));
  expectReport(1928, "'CFF2' table not supported");
  load(sampleFont().table("CFF2", "x"));
  EXPECT_TRUE(good);
}

TEST_F(SfntLoad, ABrokenCffIsReported) {
  load<FS_OpenType>(openTypeFont().table("CFF", "x"));
  expectReport(1921, "'CFF' table read error");
  load(sampleFont().table("CFF", "x"));
  expectReport(1921, "'CFF' table read error");
}

TEST_F(SfntLoad, GdefGivesClassesOrMinusThree) {
  EXPECT_EQ(load(sampleFont())->getGlyphClassDef(2, 0), GCD_NO_TABLE);
  SfntBuilder font = sampleFont();
  font.table("GDEF", qxtest::gdefTable(qxtest::classDef(1, {1, 3})));
  const auto object = load(font);
  EXPECT_TRUE(good);
  EXPECT_TRUE(object->getTrueTypeInfo(0)->gdefLoaded);
  EXPECT_EQ(object->getGlyphClassDef(2, 0), GCD_MARK);
  EXPECT_EQ(object->getGlyphClassDef(3, 0), GCD_NONE);
  EXPECT_EQ(object->getGlyphClassDef(0xFFFF, 0), GCD_NONE);
}

TEST_F(SfntLoad, AShortGdefIsReported) {
  const SfntBuilder font = withLast("GDEF", qxtest::gdefTable(qxtest::classDef(1, {1})));
  loadCut(font, "GDEF", 12);
  expectReport(1921, "'GDEF' table read error");
}

TEST_F(SfntLoad, ABadGlyphClassTableIsABadLoad) {
  SfntBuilder font = sampleFont();
  font.table("GDEF", qxtest::gdefTable(BeBytes().u16(9).u16(0).str()));
  const auto object = load(font);
  expectReport(1928, "'GDEF' glyph ClassDef error");
  EXPECT_FALSE(object->getTrueTypeInfo(0)->gdefLoaded);
  EXPECT_EQ(object->getGlyphID('A', false, 0), 2);
}

TEST_F(SfntLoad, ABadMarkClassTableIsReportedAndTheLoadStaysGood) {
  SfntBuilder font = sampleFont();
  font.table("GDEF", qxtest::gdefTable(qxtest::classDef(1, {1}), BeBytes().u16(9).u16(0).str()));
  const auto object = load(font);
  EXPECT_TRUE(good);
  EXPECT_EQ(error.getErrorCode(), 1928);
  EXPECT_EQ(message(), std::string(kFileError) + "'GDEF' markAttach ClassDef error\n" + kPath);
  EXPECT_TRUE(object->getTrueTypeInfo(0)->gdefLoaded);
  EXPECT_EQ(object->getGlyphClassDef(1, 0), GCD_BASE);
}

TEST_F(SfntLoad, ClassesBeyondTheGlyphCountAreAnError) {
  SfntBuilder font = sampleFont();
  font.table("GDEF", qxtest::gdefTable(qxtest::classDef(1, {1, 1})));
  load(font.without("maxp"));
  expectReport(1928, "'GDEF' glyph ClassDef error");
}

TEST_F(SfntLoad, AShortGdefHeaderNamesNoMarkClasses) {
  load(withLast("GDEF", BeBytes().u32(0x00010000).u16(0).str()));
  EXPECT_TRUE(good);
  EXPECT_EQ(error.getErrorCode(), 0);
}

/// A layout table whose list at `headerPlace` lies behind the end.
std::string layoutWithBadList(std::size_t headerPlace) {
  std::string table = gsubWithFeature();
  return table.replace(headerPlace, 2, "\xFF\xFE");
}

TEST_F(SfntLoad, ListsOutsideTheirTableAreReported) {
  struct Row {
    const char* tag;
    std::size_t place;
    const char* text;
  };
  for (const Row& row : {Row{"GPOS", 6, "'GPOS' feature list read error"},
                         Row{"GPOS", 8, "'GPOS' lookup list read error"},
                         Row{"GPOS", 4, "'GPOS' sclipt list read error"},
                         Row{"GSUB", 6, "'GSUB' feature list read error"},
                         Row{"GSUB", 8, "'GSUB' lookup list read error"},
                         Row{"GSUB", 4, "'GSUB' sclipt list read error"}}) {
    const auto font = load(sampleFont().table(row.tag, layoutWithBadList(row.place)));
    expectReport(1928, row.text);
    EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  }
}

TEST_F(SfntLoad, ABadGposStillLeavesGsub) {
  SfntBuilder font = openTypeFont();
  font.table("GPOS", layoutWithBadList(6)).table("GSUB", gsubWithFeature());
  const auto object = load<FS_OpenType>(font);
  expectReport(1928, "'GPOS' feature list read error");
  EXPECT_TRUE(object->hasVerticalGlyph(0));  // a feature list is enough
}

TEST_F(SfntLoad, ShortLayoutTablesAreReported) {
  for (const char* tag : {"GPOS", "GSUB"}) {
    loadCut(withLast(tag, gsubWithFeature()), tag, 9);
    expectReport(1921, std::string("'") + tag + "' table read error");
  }
}

TEST_F(SfntLoad, TheLastReportRemains) {
  SfntBuilder font = sampleFont();
  font.table("GPOS", layoutWithBadList(6)).table("GSUB", layoutWithBadList(8)).without("hmtx");
  load(font);
  expectReport(1928, "'hmtx' table not found");
  load(font.table("mort", "x").statedLength("mort", 1000));
  expectReport(1928, "'hmtx' table not found");  // GSUB has a feature: mort is not asked
}

TEST_F(SfntLoad, MortIsReadLastAndOnlyWithoutGsubFeatures) {
  SfntBuilder font = sampleFont();
  font.table("mort", "x").statedLength("mort", 1000);
  load(font);
  expectReport(1921, "'mort' table read error");
  load(font.table("GSUB", gsubWithFeature()));
  EXPECT_TRUE(good);
  SfntBuilder vertical = sampleFont();
  vertical.table("mort", MortBuilder().chain({MortBuilder::subtable({{2, 3}})}).build());
  const auto object = load(vertical);
  EXPECT_TRUE(object->hasVerticalGlyph(0));
  EXPECT_EQ(object->getGlyphID('A', true, 0), 3);
  EXPECT_EQ(object->getGlyphID('A', false, 0), 2);
}

TEST_F(SfntLoad, CmapAndKernAndHmtxReportThroughTheFont) {
  load(sampleFont().without("cmap"));
  expectReport(1928, "'cmap' table not found");
  loadCut(withLast("kern", "xxxx"), "kern", 3);
  expectReport(1921, "'kern' table read error");
  load(sampleFont().without("hmtx"));
  expectReport(1928, "'hmtx' table not found");
}

TEST_F(SfntLoad, ABrokenTableLeavesTheOthersServed) {
  struct Row {
    const char* tag;
    SfntBuilder font;
    int code;
    const char* detail;
  };
  SfntBuilder sound = sampleFont();
  sound.table("kern", KernBuilder().format0({{2, 3, -50}}).build());
  sound.table("mort", MortBuilder().chain({MortBuilder::subtable({{2, 3}})}).build());
  const auto broken = [&](const char* tag, const std::string& bytes) {
    return SfntBuilder(sound).table(tag, bytes);
  };
  const std::string oddMap = CmapBuilder::format4({{0x41, 0x41, 0}}).replace(2, 2, {'\0', '\x21'});
  const std::vector<Row> rows{
      {"cmap", broken("cmap", "x"), 1928, "'cmap' table has no record error"},
      {"cmap", broken("cmap", CmapBuilder().add(3, 1, oddMap).build()), 1928,
       "'cmap' table format length error"},
      {"kern", broken("kern", BeBytes().u16(0).u16(1).u16(0).u16(20).u16(1).u16(9).zeros(6).str()),
       1928, "'kern' subtable 0 invalid pairs size"},
      {"hmtx", SfntBuilder(sound).without("hmtx").rawEntry("hmtx", 0x7FFFFFF0, 16), 1921,
       "'hmtx' table metric read error"},
      {"mort", SfntBuilder(sound).statedLength("mort", 9000), 1921, "'mort' table read error"},
      {"loca", broken("loca", "x"), 0, ""},
      {"glyf", broken("glyf", "x"), 0, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.tag);
    const auto font = load(row.font);
    ASSERT_TRUE(font);
    if (row.code != 0) expectReport(row.code, row.detail);
    EXPECT_EQ(good, row.code == 0);
    const std::string tag = row.tag;
    EXPECT_EQ(font->getGlyphID('A', false, 0), tag == "cmap" ? 0xFFFF : 2);
    EXPECT_EQ(font->getGlyphID('A', true, 0), tag == "cmap" ? 0xFFFF : tag == "mort" ? 2 : 3);
    EXPECT_EQ(font->getGlyphWidth(2, 0, false, 0), tag == "hmtx" ? 0.0F : 600.0F);
    EXPECT_EQ(font->getPairKerningValue(2, 3, 0, false, 0), tag == "kern" ? 0.0F : -50.0F);
    EXPECT_EQ(font->getTextWidth(u"A", -1000, false, nullptr, 0),
              tag == "cmap" || tag == "hmtx" ? 0.0F : 600.0F);
    EXPECT_EQ(font->hasPairKerningInfo(false, 0), tag != "kern");
  }
}

SfntBuilder verticalMetricsFont() {
  SfntBuilder font = sampleFont();
  font.table("vhea", HheaBuilder{.numberOfMetrics = 1}.build());
  return font.table("vmtx", MetricsBuilder{.metrics = {{1000, 0}}, .bearings = {}}.build());
}

TEST_F(SfntLoad, VerticalMetricsGoWhereThereAreNoVerticalForms) {
  const auto font = read(verticalMetricsFont());
  EXPECT_TRUE(font->hasVerticalMetrics(0));
  ASSERT_TRUE(font->loadFontTables(&error, 0, nullptr));
  EXPECT_FALSE(font->hasVerticalMetrics(0));
}

TEST_F(SfntLoad, VerticalMetricsStayWithFeaturesOrPairs) {
  SfntBuilder gsub = verticalMetricsFont();
  EXPECT_TRUE(load(gsub.table("GSUB", gsubWithFeature()))->hasVerticalMetrics(0));
  SfntBuilder mort = verticalMetricsFont();
  mort.table("mort", MortBuilder().chain({MortBuilder::subtable({{2, 3}})}).build());
  EXPECT_TRUE(load(mort)->hasVerticalMetrics(0));
  EXPECT_FALSE(load(sampleFont().table("GSUB", gsubWithFeature()))->hasVerticalMetrics(0));
}

TEST_F(SfntLoad, CutAtEveryByteTheFontStillAnswers) {
  SfntBuilder builder = verticalMetricsFont();
  builder.table("GSUB", gsubWithFeature());
  builder.table("GDEF", qxtest::gdefTable(qxtest::classDef(1, {1})));
  builder.table("kern", KernBuilder().format0({{2, 3, -50}}).build());
  const std::string bytes = builder.build();
  qxtest::forEachPrefix(bytes, [&](const std::string& cut) {
    const auto font = read<FS_TrueType>(bytes);
    std::istringstream stream(cut);
    EXPECT_FALSE(font->loadFontTables(&error, 0, &stream)) << cut.size();
    (void)font->getGlyphID('A', true, 0);
    (void)font->getGlyphWidth(3, 10, false, 0);
  });
}

TEST_F(SfntLoad, DamageIsSurvived) {
  SfntBuilder builder = verticalMetricsFont();
  builder.table("GSUB", gsubWithFeature());
  builder.table("kern", KernBuilder().format0({{2, 3, -50}}).build());
  int read = 0;
  int loaded = 0;
  qxtest::forEachDamage(builder.build(), [&](const std::string& damaged) {
    QXPtr<FS_TrueType> font(new FS_TrueType(uri(), nullptr));
    std::istringstream stream(damaged);
    if (!font->readFont(&error, &stream)) return;
    ++read;
    if (font->loadFontTables(&error, 0, &stream)) ++loaded;
    (void)font->getGlyphID('A', true, 0);
    (void)font->getTextWidth(u"AB \u3042", -10, true, nullptr, 0);
  });
  EXPECT_GT(read, 1000);
  EXPECT_GT(loaded, 1000);
  EXPECT_LT(loaded, read);
}

TEST_F(SfntLoad, ManyThreadsLoadOnceAndSeeTheSame) {
  const auto font = read(sampleFont());
  std::vector<std::thread> threads;
  std::atomic<int> right{0};
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      (void)font->hasVerticalMetrics(0);
      if (font->loadFontTables(nullptr, 0, nullptr) && font->getGlyphID('B', false, 0) == 3)
        ++right;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, 8);
  EXPECT_EQ(world.counts().opened, 1u);
}

}  // namespace
}  // namespace QXFontService_NS
