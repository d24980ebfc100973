#include <regex>

#include "embed/cff/cff_info.h"
#include "embed/cff/fd_select.h"
#include "embed/cff_subset.h"
#include "embed/cff_subset_embed.h"
#include "font/sfnt_fixture.h"
#include "font/written_form.h"
#include "support/cmap_builder.h"
#include "support/sample_open_type.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

using qxtest::CffBuilder;
using qxtest::formOf;
using qxtest::sampleCff;
using qxtest::sampleCidCff;
using qxtest::sampleOpenType;
using qxtest::SfntBuilder;
using qxtest::tagsOf;

constexpr char kAllTags[] = "CFF  OS/2 cmap head hhea hmtx maxp name post ";
const unsigned int* const kAllTables = nullptr;

/// A CFF table as a reader of documents meets it.
struct ReadCff {
  explicit ReadCff(const std::string& bytes) : stream(bytes) {
    table = {&stream, 0, static_cast<std::uint32_t>(bytes.size())};
    good = info.readCFF(stream, 0) &&
           cff::readCFFIndexHeader(table, info.topInteger(embed::Keyword::kCharStrings), header) &&
           cff::readIndexEntries(header, stream, glyphs);
  }
  std::istringstream stream;
  cff::CffTable table;
  FS_CFFInfo info;
  FS_CFFIndexHeader header;
  FS_CFFStrings glyphs;
  bool good = false;
};

/// A font that is unpacked in memory.
class InMemory : public FS_OpenType {
 public:
  using FS_OpenType::FS_OpenType;
  QXMemStream* getMemStream() override { return &memory; }
  QXMemStream memory{nullptr, 8192, false, true};
};

class OpenTypeEmbed : public qxtest::SfntFixture {
 protected:
  template <class Font = FS_OpenType>
  QXPtr<Font> loadFont(const SfntBuilder& builder) {
    auto font = load<Font>(builder);
    EXPECT_TRUE(good) << message();
    return font;
  }
  static std::string bareCff(FS_OpenType& font, const GlyphIDs& gids) {
    return formOf([&](auto& out) { return font.getEmbedFont(gids, out, 0, nullptr); });
  }
  static std::string subset(FS_OpenType& font, const GlyphIDs& gids) {
    return formOf([&](auto& out) { return font.makeSubsetFont(gids, out, 0, nullptr); });
  }
  static std::string tables(FS_OpenType& font, const GlyphIDs& gids, const unsigned int* tags) {
    return formOf([&](auto& out) { return font.getEmbedFont(gids, out, tags, 0, nullptr); });
  }
  std::string postScript(FS_OpenType& font, const GlyphIDs& gids, std::istream* source = nullptr) {
    return formOf([&](auto& out) {
      return font.makePostScriptCIDFontType0(gids, out, fontName, info, 0, source);
    });
  }
  /// The `CFF ` of a written sfnt, where it is the first table.
  static std::string cffOf(const std::string& font) {
    const auto u32 = [&](std::size_t at) {
      std::size_t value = 0;
      for (std::size_t i = at; i < at + 4; ++i)
        value = value * 256 + static_cast<unsigned char>(font.at(i));
      return value;
    };
    return font.substr(u32(20), u32(24));
  }

  UnicodeString fontName = u"untouched";
  FS_CIDSystemInfo info;
};

TEST_F(OpenTypeEmbed, TheBareCffOfANameKeyedFontHasTheGlyphsAskedForInTheOrderOfTheirNames) {
  CffBuilder cff = sampleCff();
  const auto font = loadFont(sampleOpenType(cff));
  ReadCff read(bareCff(*font, {3, 2, 0xFFFF}));
  ASSERT_TRUE(read.good);
  EXPECT_EQ(read.glyphs, (FS_CFFStrings{cff.glyphs[0], cff.glyphs[2], cff.glyphs[3]}));
  EXPECT_EQ(read.info.getCIDFromGID(1), 34);
  EXPECT_EQ(read.info.getCIDFromGID(2), 35);
  EXPECT_FALSE(read.info.isCID);
}

TEST_F(OpenTypeEmbed, TheBareCffOfACidKeyedFontHasGlyphIdsAsCids) {
  CffBuilder cff = sampleCidCff();
  const auto font = loadFont(sampleOpenType(cff));
  ReadCff read(bareCff(*font, {3, 1}));
  ASSERT_TRUE(read.good);
  EXPECT_EQ(read.glyphs, (FS_CFFStrings{cff.glyphs[0], cff.glyphs[1], cff.glyphs[3]}));
  EXPECT_EQ(read.info.getCIDFromGID(1), 1);
  EXPECT_EQ(read.info.getCIDFromGID(2), 3);
  EXPECT_TRUE(read.info.isCID);
  std::vector<FS_FDRange> select;
  ASSERT_TRUE(cff::readFDSelect(read.table, read.info, select));
  EXPECT_EQ(cff::getFDIndex(select, 1), 0);
  EXPECT_EQ(cff::getFDIndex(select, 2), 1);
}

TEST_F(OpenTypeEmbed, AListOfTablesGoesOutUnchangedWhateverGlyphsAreAskedFor) {
  const SfntBuilder builder = sampleOpenType(sampleCff());
  const auto font = loadFont(builder);
  const unsigned int list[] = {0x68656164, 0x43464620, 0x676C7966, 0};
  for (const GlyphIDs& gids : {GlyphIDs{2}, GlyphIDs{}, GlyphIDs{9999}}) {
    const std::string listed = tables(*font, gids, list);
    EXPECT_EQ(tagsOf(listed), "CFF  head ");
    EXPECT_EQ(cffOf(listed), builder.bytesOf("CFF "));
    const std::string whole = tables(*font, gids, kAllTables);
    EXPECT_EQ(tagsOf(whole), kAllTags);
    EXPECT_EQ(cffOf(whole), builder.bytesOf("CFF "));
  }
}

TEST_F(OpenTypeEmbed, TheOutlinesGoWithAListThatLeavesThemOut) {
  const auto font = loadFont(sampleOpenType(sampleCff()));
  const unsigned int list[] = {0x68656164, 0};
  EXPECT_EQ(tagsOf(tables(*font, {2}, list)), "CFF  head ");
}

TEST_F(OpenTypeEmbed, TheStreamIsTheCffTableAlone) {
  const SfntBuilder builder = sampleOpenType(sampleCff());
  const auto font = loadFont(builder);
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontStream(out, 0, nullptr); }),
            builder.bytesOf("CFF "));
}

TEST_F(OpenTypeEmbed, AStreamCutShortIsAFailureThatKeepsItsBytes) {
  const SfntBuilder builder = sampleOpenType(sampleCff());
  const auto font = loadFont(builder);
  world.file(kPath, builder.build().substr(0, builder.offsetOf("CFF ") + 10));
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(font->getEmbedFontStream(out, 0, nullptr));
  EXPECT_EQ(qxtest::bytesIn(out), builder.bytesOf("CFF ").substr(0, 10));
}

TEST_F(OpenTypeEmbed, ASubsetKeepsGlyphIdsAndAllOtherTables) {
  CffBuilder cff = sampleCff();
  const SfntBuilder builder = sampleOpenType(cff);
  const auto font = loadFont(builder);
  const std::string written = subset(*font, {3});
  EXPECT_EQ(tagsOf(written), kAllTags);
  ReadCff read(cffOf(written));
  ASSERT_TRUE(read.good);
  EXPECT_EQ(read.glyphs,
            (FS_CFFStrings{cff.glyphs[0], cff.glyphs[1], cff.glyphs[1], cff.glyphs[3]}));
  EXPECT_NE(written.find(builder.bytesOf("name")), std::string::npos);
}

TEST_F(OpenTypeEmbed, ASubsetFillsUpWithTheGlyphOfTheSpace) {
  CffBuilder cff = sampleCff();
  qxtest::CmapBuilder map;
  map.add(3, 1, qxtest::CmapBuilder::format4({{0x20, 0x20, 2 - 0x20}}));
  const auto font = loadFont(sampleOpenType(cff).table("cmap", map.build()));
  EXPECT_EQ(ReadCff(cffOf(subset(*font, {3}))).glyphs[1], cff.glyphs[2]);
}

TEST_F(OpenTypeEmbed, WithoutASpaceASubsetFillsUpWithNotdef) {
  CffBuilder cff = sampleCff();
  cff.glyphs[0] = cff.glyphs[3];
  qxtest::CmapBuilder map;
  map.add(3, 1, qxtest::CmapBuilder::format4({{0x41, 0x41, 2 - 0x41}}));
  const auto font = loadFont(sampleOpenType(cff).table("cmap", map.build()));
  const ReadCff read(cffOf(subset(*font, {2})));
  EXPECT_EQ(read.glyphs, (FS_CFFStrings{cff.glyphs[0], cff.glyphs[0], cff.glyphs[2]}));
}

TEST_F(OpenTypeEmbed, NoGlyphWrittenBehindTheHighestOneIsKept) {
  const SfntBuilder builder = sampleOpenType(sampleCff());
  const auto font = loadFont(builder);
  const std::string written = subset(*font, {1});
  EXPECT_EQ(ReadCff(cffOf(written)).glyphs.size(), 2u);
  EXPECT_NE(written.find(builder.bytesOf("maxp")), std::string::npos);
}

TEST_F(OpenTypeEmbed, ThePostScriptFormIsThatOfTheFontWithItsName) {
  for (const CffBuilder& cff : {sampleCff(), sampleCidCff()}) {
    const auto font = loadFont(sampleOpenType(cff));
    const std::string text = postScript(*font, {2, 3});
    std::string name;
    fontName.toUTF8String(name);
    EXPECT_TRUE(std::regex_match(name, std::regex("QX[0-9A-F]{4,8}-QX_Sample-Regular"))) << name;
    EXPECT_NE(text.find("/CIDFontName /" + name + " def\n"), std::string::npos);
    EXPECT_NE(text.find("/CIDCount 3 def\n"), std::string::npos);
    EXPECT_EQ(info.Registry, UnicodeString("Quillbracken"));
    EXPECT_EQ(info.Ordering, UnicodeString(fontName, 0, fontName.indexOf(u'-') + 1) + u"Subset");
    EXPECT_EQ(info.Supplement, 1);
    const std::string fontDicts = cff.cid ? "/FDArray 2 array\n" : "/FDArray 1 array\n";
    EXPECT_NE(text.find(fontDicts), std::string::npos);
  }
}

TEST_F(OpenTypeEmbed, ThePostScriptNameIsTheOneThatWasGiven) {
  const auto font = loadFont(sampleOpenType(sampleCff()));
  font->setPostScriptName(u"My Font");
  ASSERT_NE(postScript(*font, {2}), "false");
  EXPECT_TRUE(fontName.endsWith(u"-My_Font"));
}

TEST_F(OpenTypeEmbed, ThePostScriptFormReadsTheFileAloneAndClosesIt) {
  const auto font = loadFont<InMemory>(sampleOpenType(sampleCff()));
  std::istringstream other("not a font");
  EXPECT_NE(postScript(*font, {2}, &other), "false");
  EXPECT_EQ(world.counts().closed, world.counts().opened);
  font->memory += sampleOpenType(sampleCff()).build();
  world.remove(kPath);
  EXPECT_EQ(postScript(*font, {2}), "false");
  EXPECT_NE(bareCff(*font, {2}), "false");
}

TEST_F(OpenTypeEmbed, APostScriptFormThatFailsTouchesNothing) {
  CffBuilder cff = sampleCff();
  cff.glyphs[2] = "\x0E";  // endchar alone: it has no width to take
  const auto font = loadFont(sampleOpenType(cff));
  info.Registry = u"untouched";
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(font->makePostScriptCIDFontType0({2}, out, fontName, info, 0, nullptr));
  EXPECT_EQ(out.length(), 0u);
  EXPECT_EQ(fontName, UnicodeString(u"untouched"));
  EXPECT_EQ(info.Registry, UnicodeString(u"untouched"));
}

TEST_F(OpenTypeEmbed, AGlyphWithoutAFontDictIsAFailureAndNoException) {
  CffBuilder cff = sampleCidCff();
  cff.fdSelect = CffBuilder::fdSelect0({0, 0, 1, 1});  // the last of which is never taken
  const auto font = loadFont(sampleOpenType(cff));
  EXPECT_EQ(postScript(*font, {3}), "false");
  EXPECT_NE(postScript(*font, {2}), "false");
}

TEST_F(OpenTypeEmbed, AsType1ItIsTheBareCffOfANameKeyedFont) {
  const auto named = loadFont(sampleOpenType(sampleCff()));
  const auto type1 = [&](FS_OpenType& font) {
    return formOf([&](auto& out) { return font.getType1EmbedFont({2}, out, 0, nullptr); });
  };
  EXPECT_EQ(type1(*named), bareCff(*named, {2}));
  const auto cid = loadFont(sampleOpenType(sampleCidCff()));
  EXPECT_EQ(type1(*cid), "false");
  int lengths[3] = {7, 7, 7};
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(named->getType1EmbedFont(0, "A", 1, out, lengths[0], lengths[1], lengths[2], 0));
  EXPECT_FALSE(named->getType1FontStream(out, lengths[0], lengths[1], lengths[2], 0));
}

TEST_F(OpenTypeEmbed, NothingAndGlyphsPastTheEndAreRefused) {
  for (const CffBuilder& cff : {sampleCff(), sampleCidCff()}) {
    const auto font = loadFont(sampleOpenType(cff));
    EXPECT_EQ(bareCff(*font, {}), "false");
    EXPECT_EQ(subset(*font, {}), "false");
    EXPECT_EQ(bareCff(*font, {4}), "false");
    EXPECT_EQ(subset(*font, {4}), "false");
    EXPECT_EQ(postScript(*font, {4}), "false");
    EXPECT_NE(postScript(*font, {}), "false");  // .notdef alone
  }
}

TEST_F(OpenTypeEmbed, BeforeItsTablesAreLoadedTheFormsThatLookIntoTheCffFail) {
  const SfntBuilder builder = sampleOpenType(sampleCff());
  const auto font = read<FS_OpenType>(builder);
  EXPECT_EQ(bareCff(*font, {2}), "false");
  EXPECT_EQ(postScript(*font, {2}), "false");
  EXPECT_EQ(tagsOf(tables(*font, {2}, kAllTables)), kAllTags);
}

TEST_F(OpenTypeEmbed, WithoutItsFileEveryFormFails) {
  const auto font = loadFont(sampleOpenType(sampleCff()));
  world.remove(kPath);
  EXPECT_EQ(bareCff(*font, {2}), "false");
  EXPECT_EQ(subset(*font, {2}), "false");
  EXPECT_EQ(postScript(*font, {2}), "false");
  EXPECT_EQ(tables(*font, {2}, kAllTables), "false");
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontStream(out, 0, nullptr); }), "false");
}

TEST_F(OpenTypeEmbed, AFileThatShrinksAfterLoadingIsAnAnswerAtEveryByte) {
  for (const CffBuilder& cff : {sampleCff(), sampleCidCff()}) {
    const SfntBuilder builder = sampleOpenType(cff);
    const auto font = loadFont(builder);
    const std::string whole = builder.build();
    for (std::size_t size = 0; size < whole.size(); ++size) {
      world.file(kPath, whole.substr(0, size));
      bareCff(*font, {1, 2, 3});
      subset(*font, {1, 3});
      postScript(*font, {3, 2});
      tables(*font, {2}, kAllTables);
    }
  }
}

TEST_F(OpenTypeEmbed, ACffThatDoesNotReadIsReportedAndHandsOverNothing) {
  CffBuilder cff = sampleCff();
  cff.charset = std::string("\x03\x00\x01", 3);
  const auto font = load<FS_OpenType>(sampleOpenType(cff));
  ASSERT_TRUE(font);
  EXPECT_FALSE(good);
  EXPECT_EQ(message(), "Font read error: 'CFF' table read error\n/fonts/a.ttf");
  EXPECT_EQ(font->getCFFFont(0), nullptr);
  EXPECT_EQ(bareCff(*font, {2}), "false");
}

TEST_F(OpenTypeEmbed, TwoRunsGiveTheSameBytes) {
  for (const CffBuilder& cff : {sampleCff(), sampleCidCff()}) {
    const auto font = loadFont(sampleOpenType(cff));
    EXPECT_EQ(bareCff(*font, {2, 3}), bareCff(*font, {2, 3}));
    EXPECT_EQ(subset(*font, {2, 3}), subset(*font, {2, 3}));
  }
}

}  // namespace
}  // namespace QXFontService_NS
