#include <string>

#include "font/contract/outline_lock.h"
#include "support/kern_builder.h"
#include "support/sample_font.h"
#include "support/table_builders.h"
#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::Type1Builder;

const std::string kBox = qxtest::type1Box(500, 100);

/// Programs of which FreeType knows more than Type 1 fonts tell: it looks at the bytes, and takes
/// an sfnt under any name.
class Type1ForeignProgram : public qxtest::Type1Test {
 protected:
  static std::string kerned() {
    return qxtest::sampleFont()
        .table("kern", qxtest::KernBuilder().format0({{2, 3, -80}, {3, 2, 40}}).build())
        .build();
  }
};

TEST_F(Type1ForeignProgram, KerningOfItsGlyphs) {
  world.file("/f/p.pfb", kerned());
  auto& font = program<FS_Type1PFB>("/f/p.pfb");
  EXPECT_TRUE(font.hasPairKerningInfo(false, 0));
  EXPECT_EQ(font.getPairKerningValue(2, 3, -1000, false, 0), -80);
  EXPECT_EQ(font.getPairKerningValue(3, 2, -500, false, 0), 20);
  EXPECT_EQ(font.getPairKerningValue(3, 2, 12, false, 0), 40) << "raw";
  EXPECT_EQ(font.getPairKerningValue(2, 2, -1000, false, 0), 0);
}

TEST_F(Type1ForeignProgram, AMetricFileWithoutPairsAsksIt) {
  world.file("/f/a.pfa", kerned());
  auto& plain = afm(AfmBuilder());
  EXPECT_TRUE(plain.hasPairKerningInfo(false, 0));
  EXPECT_EQ(plain.getPairKerningValue(2, 3, -1000, false, 0), 0) << "which only has its own pairs";
  EXPECT_TRUE(pfm(qxtest::PfmBuilder()).hasPairKerningInfo(false, 0));
  world.file("/f/a.pfa", qxtest::sampleFont().build());
  EXPECT_FALSE(afm(AfmBuilder()).hasPairKerningInfo(false, 0));
}

TEST_F(Type1ForeignProgram, VerticalGlyphsNeedVerticalMetrics) {
  auto metrics = qxtest::sampleFont();
  world.file("/f/h.pfb", metrics.build());
  metrics.table("vhea", metrics.bytesOf("hhea")).table("vmtx", metrics.bytesOf("hmtx"));
  world.file("/f/v.pfb", metrics.build());
  EXPECT_EQ(program<FS_Type1PFB>("/f/h.pfb").getGlyphID('A', true, 0), FS_NO_GLYPH);
  EXPECT_EQ(program<FS_Type1PFB>("/f/v.pfb").getGlyphID('A', true, 0), 2);
  EXPECT_EQ(program<FS_Type1PFB>("/f/v.pfb").getGlyphID('Z', true, 0), FS_NO_GLYPH);
}

TEST_F(Type1ForeignProgram, ACodeThatTheFaceDoesNotKnowIsFoundByItsName) {
  Type1Builder letters;
  letters.glyph(".notdef", kBox).glyph("B", kBox).glyph("A", kBox).encoding({{1, "A"}});
  world.file("/f/p.pfb", letters.pfb());
  auto& font = program<FS_Type1PFB>("/f/p.pfb");
  ASSERT_TRUE(font.loadFontTables(&error, 0, nullptr));
  QXMutex guard(&FS_OutlineLock());
  // Whoever draws with the face may have chosen another character map.
  ASSERT_EQ(FT_Select_Charmap(font.getFreeTypeFace(0), FT_ENCODING_UNICODE), 0);
  ASSERT_EQ(FT_Get_Char_Index(font.getFreeTypeFace(0), 1), 0u);
  EXPECT_EQ(font.getGlyphID(1, false, 0), 2);
  EXPECT_EQ(font.getGlyphID(2, false, 0), FS_NO_GLYPH) << "nor does the encoding";
  EXPECT_EQ(font.getGlyphID('B', false, 0), 1);
}

TEST_F(Type1ForeignProgram, NamesOfGlyphsAreCutBehind63Bytes) {
  const std::string name(70, 'n');
  Type1Builder letters;
  letters.glyph(".notdef", kBox).glyph(name, kBox).encoding({{65, name}});
  world.file("/f/p.pfb", letters.pfb());
  auto& font = program<FS_Type1PFB>("/f/p.pfb");
  ASSERT_TRUE(font.loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(font.encodedName(65), name.substr(0, 63));
  EXPECT_NE(font.recordOfName(name.substr(0, 63)), nullptr);
}

TEST_F(Type1ForeignProgram, GlyphsBeyondTheWorkOfAProgramAreNotRead) {
  // Twice a call that cannot be followed: each counts as what FreeType grants a glyph at most.
  const std::string computed = qxtest::type1Number(10) + qxtest::type1Number(2) + "\x0C\x0C\x0A";
  Type1Builder letters;
  letters.glyph(".notdef", kBox).glyph("A", kBox).glyph("D", kBox);
  letters.glyph("B", computed).glyph("C", computed);
  world.file("/f/a.pfb", letters.pfb());
  auto& font = afm(AfmBuilder());
  EXPECT_TRUE(font.loadFontTables(&error, 0, nullptr));
  EXPECT_NE(font.getPrinterFont()->recordOfName("A"), nullptr);
  EXPECT_EQ(font.getPrinterFont()->recordOfName("D"), nullptr);
  EXPECT_EQ(font.getGlyphID('D', false, 0), 2) << "it is there for whoever asks for it alone";
}

TEST_F(Type1ForeignProgram, AProgramThatIsGoneIsNotEmbedded) {
  world.file("/f/a.pfb", Type1Builder().glyph(".notdef", kBox).pfb());
  auto& font = afm(AfmBuilder());
  ASSERT_TRUE(embedAll(font).done);
  world.remove("/f/a.pfb");
  const qxtest::Embedded made = embedAll(font);
  EXPECT_FALSE(made.done);
  EXPECT_EQ(made.bytes, "");
  EXPECT_EQ(made.length1, -1) << "untouched";
}

}  // namespace
}  // namespace QXFontService_NS
