#include <new>
#include <stdexcept>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/tt_glyph_map.h"

#include "embed/table_lists.h"
#include "font/sfnt_fixture.h"
#include "font/written_form.h"
#include "support/be_bytes.h"
#include "support/cff_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::bytesIn;
using qxtest::formOf;
using qxtest::sampleFont;
using qxtest::SfntBuilder;
using qxtest::tagsOf;

class GlyphStreams : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short gid) override {
    asked.push_back(gid);
    return &stream;
  }
  GlyphIDs asked;
  QXMemStream stream{nullptr, 8192, false, true};
};

/// A face of a file with more of them: the one record there is stands at index 1.
class Member : public FS_TrueType {
 public:
  using FS_TrueType::FS_TrueType;
  bool getEmbedFontStream(QXMemStream& out, int entry, std::istream* source) override {
    return SfntFont::getEmbedFontStream(out, entry, source);
  }

 protected:
  FS_TrueTypeInfo* record(int entry) const override {
    return entry == 1 ? FS_TrueType::record(entry) : nullptr;
  }
};

/// A font that is unpacked in memory.
class InMemory : public FS_TrueType {
 public:
  using FS_TrueType::FS_TrueType;
  QXMemStream* getMemStream() override { return &memory; }
  QXMemStream memory{nullptr, 8192, false, true};
};

class SfntEmbed : public qxtest::SfntFixture {
 protected:
  static SfntBuilder cffFont() {
    qxtest::CffBuilder cff;
    cff.glyphs.assign(4, "\x0E");
    cff.charset = qxtest::CffBuilder::charsetFormat0({1, 2, 3});
    SfntBuilder font = sampleFont().without("glyf").without("loca");
    return font.table("CFF", cff.build());
  }
};

TEST_F(SfntEmbed, ThreeFormsTakeTheTablesOfTheirLists) {
  const auto font = load(sampleFont());
  EXPECT_EQ(tagsOf(formOf([&](auto& out) { return font->getEmbedFont({2}, out, 0, nullptr); })),
            "OS/2 glyf head hhea hmtx loca maxp post ");
  EXPECT_EQ(
      tagsOf(formOf([&](auto& out) { return font->getEmbedFontWithCmap({2}, out, 0, nullptr); })),
      "OS/2 cmap glyf head hhea hmtx loca maxp post ");
  GlyphStreams streams;
  EXPECT_EQ(tagsOf(formOf(
                [&](auto& out) { return font->getPSEmbedFont({2}, out, streams, 0, nullptr); })),
            "gdir head hhea hmtx maxp ");
  EXPECT_EQ(streams.asked, (GlyphIDs{0, 2}));
}

TEST_F(SfntEmbed, ThreeFormsTakeAllTables) {
  const auto font = load(sampleFont());
  const std::string subset =
      formOf([&](auto& out) { return font->makeSubsetFont({2}, out, 0, nullptr); });
  EXPECT_EQ(tagsOf(subset), "OS/2 cmap glyf head hhea hmtx loca maxp name post ");
  EXPECT_LT(subset.size(), sampleFont().build().size());
  EXPECT_EQ(formOf([&](auto& out) { return font->getSVG2EmbedFont({2}, out, 0, nullptr); }),
            subset);
  const unsigned int* all = nullptr;
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFont({2}, out, all, 0, nullptr); }),
            subset);
}

TEST_F(SfntEmbed, AListOfTheHostIsTaken) {
  const auto font = load(sampleFont());
  const unsigned int list[] = {0x6E616D65, 0x44534947, 0};
  EXPECT_EQ(
      tagsOf(formOf([&](auto& out) { return font->getEmbedFont({2}, out, list, 0, nullptr); })),
      "glyf loca name ");
}

TEST_F(SfntEmbed, LongLocaIsReadAsHeadSays) {
  SfntBuilder builder = sampleFont();
  const std::string words = builder.bytesOf("loca");
  qxtest::BeBytes longs;
  for (std::size_t i = 0; i + 1 < words.size(); i += 2)
    longs.u32(static_cast<unsigned char>(words[i + 1]) * 2u);
  std::string head = builder.bytesOf("head");
  head[51] = 1;
  builder.table("loca", longs.str()).table("head", head);
  for (const SfntBuilder& each : {builder, sampleFont()}) {
    const auto font = load(each);
    GlyphStreams streams;
    formOf([&](auto& out) { return font->getPSEmbedFont({2}, out, streams, 0, nullptr); });
    EXPECT_EQ(bytesIn(streams.stream), sampleFont().bytesOf("glyf").substr(0, 72));
  }
}

TEST_F(SfntEmbed, PaddingBehindTheLastGlyphOfMaxpIsNoGlyph) {
  SfntBuilder builder = sampleFont();
  const auto font = load(builder.table("glyf", builder.bytesOf("glyf") + "padding padding"));
  GlyphStreams streams;
  formOf([&](auto& out) { return font->getPSEmbedFont({4, 5}, out, streams, 0, nullptr); });
  EXPECT_EQ(streams.asked, (GlyphIDs{0}));
}

TEST_F(SfntEmbed, TheStreamOfAFontIsItsFile) {
  const auto font = read(sampleFont());
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontStream(out, 0, nullptr); }),
            sampleFont().build());
  std::istringstream given("given");
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontStream(out, 0, &given); }), "given");
}

TEST_F(SfntEmbed, TheFileIsClosedWhenTheHostIsDoneWithIt) {
  const auto font = read(sampleFont());
  {
    QXMemStream out(nullptr, 8192, false, true);
    ASSERT_TRUE(font->getEmbedFontStream(out, 0, nullptr));
    EXPECT_EQ(world.counts().closed + 1, world.counts().opened);
  }
  EXPECT_EQ(world.counts().closed, world.counts().opened);
  formOf([&](auto& out) { return font->makeSubsetFont({2}, out, 0, nullptr); });
  EXPECT_EQ(world.counts().closed, world.counts().opened);
  EXPECT_EQ(world.counts().opened, 2u);
}

TEST_F(SfntEmbed, AGivenStreamIsReadInsteadOfTheFile) {
  const auto font = load(sampleFont());
  const std::size_t opened = world.counts().opened;
  std::istringstream given(sampleFont().build());
  EXPECT_NE(formOf([&](auto& out) { return font->makeSubsetFont({2}, out, 0, &given); }), "false");
  EXPECT_EQ(world.counts().opened, opened);
}

TEST_F(SfntEmbed, AFontInMemoryIsReadThere) {
  const auto font = load<InMemory>(sampleFont());
  font->memory += sampleFont().build();
  world.remove(kPath);
  EXPECT_NE(formOf([&](auto& out) { return font->makeSubsetFont({2}, out, 0, nullptr); }), "false");
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontStream(out, 0, nullptr); }),
            sampleFont().build());
}

TEST_F(SfntEmbed, WithoutItsFileEveryFormFails) {
  const auto font = load(sampleFont());
  world.remove(kPath);
  GlyphStreams streams;
  const unsigned int* all = nullptr;
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(font->getEmbedFont({2}, out, all, 0, nullptr));
  EXPECT_FALSE(font->getEmbedFont({2}, out, 0, nullptr));
  EXPECT_FALSE(font->getSVG2EmbedFont({2}, out, 0, nullptr));
  EXPECT_FALSE(font->getEmbedFontWithCmap({2}, out, 0, nullptr));
  EXPECT_FALSE(font->getEmbedFontStream(out, 0, nullptr));
  EXPECT_FALSE(font->getPSEmbedFont({2}, out, streams, 0, nullptr));
  EXPECT_FALSE(font->makeSubsetFont({2}, out, 0, nullptr));
  EXPECT_EQ(out.length(), 0u);
}

TEST_F(SfntEmbed, AFaceThatIsNotThereIsRefusedBeforeAnythingIsOpened) {
  const auto font = read<Member>(sampleFont());
  GlyphStreams streams;
  const unsigned int* all = nullptr;
  QXMemStream out(nullptr, 8192, false, true);
  for (const int entry : {-1, 0, 2}) {
    EXPECT_FALSE(font->getEmbedFont({2}, out, all, entry, nullptr));
    EXPECT_FALSE(font->getEmbedFont({2}, out, entry, nullptr));
    EXPECT_FALSE(font->getSVG2EmbedFont({2}, out, entry, nullptr));
    EXPECT_FALSE(font->getEmbedFontWithCmap({2}, out, entry, nullptr));
    EXPECT_FALSE(font->getEmbedFontStream(out, entry, nullptr));
    EXPECT_FALSE(font->getPSEmbedFont({2}, out, streams, entry, nullptr));
    EXPECT_FALSE(font->makeSubsetFont({2}, out, entry, nullptr));
  }
  EXPECT_EQ(world.counts().opened, 0u);
}

TEST_F(SfntEmbed, TheStreamOfAMemberIsANewFontWithAllItsTables) {
  const auto font = read<Member>(sampleFont());
  const std::string stream =
      formOf([&](auto& out) { return font->getEmbedFontStream(out, 1, nullptr); });
  EXPECT_EQ(stream, sampleFont().build());  // whose tables stand in order, the last one unpadded
}

TEST_F(SfntEmbed, ATrueTypeFontWithCffIsWrittenAsCff) {
  const auto font = load(cffFont());
  ASSERT_TRUE(good) << message();
  const std::string embedded =
      formOf([&](auto& out) { return font->getEmbedFont({2}, out, 0, nullptr); });
  EXPECT_EQ(embedded.substr(0, 4), std::string("\1\0\4\3", 4));
  EXPECT_EQ(formOf([&](auto& out) { return font->getSVG2EmbedFont({2}, out, 0, nullptr); }),
            cffFont().build());
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontWithCmap({2}, out, 0, nullptr); }),
            "false");
  EXPECT_EQ(tagsOf(formOf([&](auto& out) { return font->makeSubsetFont({2}, out, 0, nullptr); })),
            "CFF  OS/2 cmap head hhea hmtx maxp name post ");
  GlyphStreams streams;
  EXPECT_EQ(formOf([&](auto& out) { return font->getPSEmbedFont({2}, out, streams, 0, nullptr); }),
            "false");
}

TEST_F(SfntEmbed, TheOtherFormsOfAnOpenTypeFontAreThoseOfATrueTypeFont) {
  const SfntBuilder builder = cffFont().version(SfntBuilder::kOpenType);
  const auto font = load<FS_OpenType>(builder);
  ASSERT_TRUE(font);
  EXPECT_EQ(formOf([&](auto& out) { return font->getSVG2EmbedFont({2}, out, 0, nullptr); }),
            builder.build());
  EXPECT_EQ(formOf([&](auto& out) { return font->getEmbedFontWithCmap({2}, out, 0, nullptr); }),
            "false");
  GlyphStreams streams;
  EXPECT_EQ(formOf([&](auto& out) { return font->getPSEmbedFont({2}, out, streams, 0, nullptr); }),
            "false");
}

template <class Thrown>
class ThrowingMap : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short) override { throw Thrown(); }
};

struct LengthError : std::length_error {
  LengthError() : std::length_error("") {}
};

TEST_F(SfntEmbed, AStandardExceptionIsAFailureAndAllElsePasses) {
  const auto font = load(sampleFont());
  QXMemStream out(nullptr, 8192, false, true);
  ThrowingMap<LengthError> standard;
  EXPECT_FALSE(font->getPSEmbedFont({2}, out, standard, 0, nullptr));
  ThrowingMap<std::bad_alloc> memory;
  EXPECT_THROW(font->getPSEmbedFont({2}, out, memory, 0, nullptr), std::bad_alloc);
  ThrowingMap<int> host;
  EXPECT_THROW(font->getPSEmbedFont({2}, out, host, 0, nullptr), int);
  EXPECT_EQ(world.counts().closed, world.counts().opened);
}

}  // namespace
}  // namespace QXFontService_NS
