#include "type1/type1_printer.h"

#include "qxfontservice/error_codes.h"

#include "font/contract/outline_lock.h"
#include "support/cmap_builder.h"
#include "support/sample_font.h"
#include "support/truncation.h"
#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::Type1Builder;
using qxtest::utf8;

constexpr auto kAnyLanguage = QXLang::LANGID_DEFAULT;
const std::string kBox = qxtest::type1Box(500, 100);

/// Font programs by themselves.
class Type1Program : public qxtest::Type1Test {
 protected:
  static Type1Builder letters() {
    Type1Builder font;
    font.glyph(".notdef", qxtest::type1Box(250, 10)).glyph("A", kBox);
    font.glyph("B", qxtest::type1Box(600, 200));
    return font;
  }
  FS_Type1PFB& pfb(const std::string& bytes) {
    world.file("/f/p.pfb", bytes);
    auto& font = program<FS_Type1PFB>("/f/p.pfb");
    EXPECT_TRUE(font.readFont(&error, nullptr)) << message();
    return font;
  }
  FS_Type1PFB& loaded(const std::string& bytes) {
    auto& font = pfb(bytes);
    EXPECT_TRUE(font.loadFontTables(&error, 0, nullptr)) << message();
    return font;
  }
};

TEST_F(Type1Program, NamesAndStyleAreThoseOfItsClearText) {
  Type1Builder font = letters();
  for (const char* line :
       {"/FullName (Made Heavy \\(1\\)) readonly def", "/FamilyName (Made) readonly def",
        "/Weight (Bold) readonly def", "/ItalicAngle -9.5 def", "/isFixedPitch true def"})
    font.header(line);
  auto& made = loaded(font.pfb());
  EXPECT_EQ(utf8(made.getFullFontName(kAnyLanguage, 0)), "Made Heavy (1)");
  EXPECT_EQ(utf8(made.getFamilyName(kAnyLanguage, 0)), "Made");
  EXPECT_EQ(utf8(made.getSubFamilyName(kAnyLanguage, 0)), "Heavy (1)");
  EXPECT_EQ(utf8(made.getPostScriptName(kAnyLanguage, 0)), "Made") << "by FreeType";
  EXPECT_EQ(made.getFontWeight(0), 700);
  EXPECT_TRUE(made.isItalicFont(0));
  EXPECT_FALSE(made.isFixedWidthFont(0)) << "the key that fonts write is another";
  EXPECT_FALSE(made.isSymbolicFont(0));
  EXPECT_EQ(made.getUnitsPerEm(0), 1000);
  EXPECT_TRUE(made.isEmbeddingAllowed(0));
  EXPECT_EQ(static_cast<int>(made.getEmbedStatus(0)), 0);
}

TEST_F(Type1Program, TheNameNeedsAFace) {
  auto& font = program<FS_Type1PFB>("/f/none.pfb");
  EXPECT_EQ(utf8(font.getPostScriptName(kAnyLanguage, 0)), "");
  EXPECT_FALSE(font.hasPairKerningInfo(false, 0));
  EXPECT_EQ(font.getPairKerningValue(1, 2, -1000, false, 0), 0);
  EXPECT_EQ(font.getGlyphID('A', false, 0), FS_NO_GLYPH);
  EXPECT_FALSE(font.loadGlyph(0, FT_LOAD_NO_SCALE));
}

TEST_F(Type1Program, InTheStandardEncodingCodesAreCharactersAndNothingIsEncoded) {
  auto& font = loaded(letters().pfb());
  EXPECT_EQ(font.getEmbedableCharCount(0), 2u);
  ASSERT_NE(font.recordOfCode('A'), nullptr);
  EXPECT_EQ(font.recordOfCode('A')->name, "A");
  EXPECT_EQ(font.recordOfCode('A')->code, 'A');
  EXPECT_EQ(font.recordOfCode('A')->width, 500);
  EXPECT_EQ(font.recordOfCode('A')->height, 100);
  EXPECT_EQ(font.recordOfName("B"), font.recordOfCode('B'));
  EXPECT_EQ(font.recordOfCode('C'), nullptr);
  EXPECT_EQ(font.encodedName('A'), "");
}

TEST_F(Type1Program, AnEncodingOfItsOwnIsRead) {
  auto& font = loaded(letters().encoding({{1, "A"}, {2, "B"}, {200, "A"}}).pfb());
  EXPECT_TRUE(font.isSymbolicFont(0));
  EXPECT_EQ(font.encodedName(1), "A");
  EXPECT_EQ(font.encodedName(200), "A");
  EXPECT_EQ(font.encodedName('A'), "");
  EXPECT_EQ(font.encodedName(-1), "");
  EXPECT_EQ(font.encodedName(0x10001), "");
  EXPECT_EQ(font.recordOfCode(200), font.recordOfCode(1)) << "a glyph has one record";
  EXPECT_EQ(font.recordOfCode(200)->code, 1) << "under its first code";
  EXPECT_EQ(font.getEmbedableCharCount(0), 3u) << "each code counts";
}

TEST_F(Type1Program, GlyphsAreFoundByCharacterAndNeverVertically) {
  auto& font = loaded(letters().pfb());
  EXPECT_EQ(font.getGlyphID('A', false, 0), 1);
  EXPECT_EQ(font.getGlyphID('B', false, 0), 2);
  EXPECT_EQ(font.getGlyphID('C', false, 0), FS_NO_GLYPH);
  EXPECT_EQ(font.getGlyphID(-1, false, 0), FS_NO_GLYPH);
  EXPECT_EQ(font.getGlyphID('A', true, 0), FS_NO_GLYPH);
}

TEST_F(Type1Program, FreeTypeHasNoKerningOfAProgram) {
  auto& font = loaded(letters().pfb());
  EXPECT_FALSE(font.hasPairKerningInfo(false, 0));
  EXPECT_EQ(font.getPairKerningValue(1, 2, -1000, false, 0), 0);
}

TEST_F(Type1Program, LoadsGlyphsIntoItsFace) {
  auto& font = loaded(letters().pfb());
  QXMutex guard(&FS_OutlineLock());
  ASSERT_TRUE(font.loadGlyph(2, FT_LOAD_NO_SCALE));
  EXPECT_EQ(font.getFreeTypeFace(0)->glyph->metrics.horiAdvance, 600);
  EXPECT_FALSE(font.loadGlyph(3, FT_LOAD_NO_SCALE));
}

TEST_F(Type1Program, ADuplicateNameKeepsItsFirstRecord) {
  Type1Builder font = letters();
  font.glyph("A", qxtest::type1Box(900, 10));
  auto& made = loaded(font.pfb());
  ASSERT_NE(made.recordOfName("A"), nullptr);
  EXPECT_EQ(made.getEmbedableCharCount(0), 2u);
}

/// A program without glyphs: FreeType looks at the bytes, and takes an sfnt under any name.
std::string glyphless() {
  return qxtest::sampleFont()
      .table("maxp", std::string("\0\1\0\0\0\0", 6) + std::string(26, '\0'))
      .build();
}

TEST_F(Type1Program, WithoutGlyphsSegmentsLoadAndTextDoesNot) {
  world.file("/f/g.pfb", glyphless()).file("/f/g.pfa", glyphless());
  auto& segments = program<FS_Type1PFB>("/f/g.pfb");
  EXPECT_TRUE(segments.loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(message(), "Font file error: No glyphs\n/f/g.pfb");
  auto& text = program<FS_Type1PFA>("/f/g.pfa");
  EXPECT_FALSE(text.loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(message(), "Font file error: No glyphs\n/f/g.pfa");
}

TEST_F(Type1Program, NoMoreThan65536CodesAreWalked) {
  std::vector<qxtest::CmapGroup> groups;
  for (std::uint32_t i = 0; i < 30'000; ++i) groups.push_back({3 * i + 32, 3 * i + 34, 1});
  const std::string cmap =
      qxtest::CmapBuilder().add(3, 10, qxtest::CmapBuilder::format12(groups)).build();
  world.file("/f/g.pfb", qxtest::sampleFont().table("cmap", cmap).build());
  auto& font = program<FS_Type1PFB>("/f/g.pfb");
  EXPECT_TRUE(font.loadFontTables(&error, 0, nullptr)) << message();
  EXPECT_EQ(font.getEmbedableCharCount(0), 65536u) << "of 90,000";
  EXPECT_NE(font.recordOfCode(65536 + 31), nullptr);
  EXPECT_EQ(font.recordOfCode(65536 + 32), nullptr);
}

TEST_F(Type1Program, ReportsOfDamagedSegments) {
  const std::string sound = letters().pfb();
  const auto changed = [&](std::size_t at, char byte) {
    std::string bytes = sound;
    bytes[at] = byte;
    return bytes;
  };
  const struct {
    std::string bytes;
    int code;
    const char* message;
  } rows[] = {
      {sound.substr(0, 5), 1921, nullptr},
      {"", 1921, nullptr},
      {changed(0, 0), 1928, "Font file error: Header bad signature: 00\n/f/q.pfb"},
      {changed(1, 2), 1928, "Font file error: Header bad segmentType: 02\n/f/q.pfb"},
      {changed(1, '\xFF'), 1928, "Font file error: Header bad segmentType: FF\n/f/q.pfb"},
      {sound.substr(0, 20), 1928, "Font file error: SegmentData read error\n/f/q.pfb"},
      {changed(5, '\xFF'), 1928, "Font file error: SegmentData read error\n/f/q.pfb"},
      {qxtest::type1Segment(1, "/FontBBox {1 2 3} def\n"), 1928,
       "Font file error: /FontBBox {1 2 3} def\n/f/q.pfb"},
  };
  for (const auto& row : rows) {
    world.file("/f/q.pfb", row.bytes);
    QXError report;
    EXPECT_FALSE(program<FS_Type1PFB>("/f/q.pfb").readFont(&report, nullptr));
    EXPECT_EQ(report.getErrorCode(), row.code);
    if (row.message == nullptr) continue;
    EXPECT_EQ(utf8(report.getErrorMessage()), row.message);
  }
}

TEST_F(Type1Program, ABareBoxOfThreeFailsAText) {
  world.file("/f/q.pfa", "FontBBox {1 2 3}\n");
  auto& font = program<FS_Type1PFA>("/f/q.pfa");
  EXPECT_FALSE(font.readFont(&error, nullptr));
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_FILE);
}

TEST_F(Type1Program, CutAnywhereSegmentsAnswer) {
  qxtest::forEachPrefix(letters().encoding({{1, "A"}}).pfb(), [&](const std::string& bytes) {
    world.file("/f/q.pfb", bytes);
    auto& font = program<FS_Type1PFB>("/f/q.pfb");
    if (!font.readFont(nullptr, nullptr)) return;
    font.loadFontTables(nullptr, 0, nullptr);
    font.getGlyphID(1, false, 0);
    QXMemStream out(nullptr, 4096, false, true);
    int lengths[3] = {};
    EXPECT_FALSE(font.writeEmbedStream("\1", 1, out, lengths[0], lengths[1], lengths[2], nullptr));
  });
}

TEST_F(Type1Program, CutAnywhereTextAnswers) {
  qxtest::forEachPrefix(letters().pfa(), [&](const std::string& bytes) {
    world.file("/f/q.pfa", bytes);
    auto& font = program<FS_Type1PFA>("/f/q.pfa");
    EXPECT_TRUE(font.readFont(nullptr, nullptr)) << "nothing of it is a bare key";
    font.loadFontTables(nullptr, 0, nullptr);
    QXMemStream out(nullptr, 4096, false, true);
    int lengths[3] = {};
    font.writeEmbedStream(nullptr, 0, out, lengths[0], lengths[1], lengths[2], nullptr);
  });
}

}  // namespace
}  // namespace QXFontService_NS
