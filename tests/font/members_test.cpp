#include <ft2build.h>

#include "font/answers.h"
#include "font/dfont.h"
#include "font/sfnt_fixture.h"
#include "font/true_type_collection.h"
#include "support/class_def_builder.h"
#include "support/cmap_builder.h"
#include "support/coverage_builder.h"
#include "support/dfont_builder.h"
#include "support/glyf_builder.h"
#include "support/gsub_builder.h"
#include "support/kern_builder.h"
#include "support/layout_table_builder.h"
#include "support/mort_builder.h"
#include "support/name_builder.h"
#include "support/table_builders.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::Answers;
using qxtest::answersOf;
using qxtest::CmapBuilder;
using qxtest::difference;
using qxtest::formsOf;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

constexpr int kFaces = 3;

/// The tables of a font in tag order, in which a member is written whole.
SfntBuilder inTagOrder(const SfntBuilder& font, const std::vector<const char*>& tags) {
  SfntBuilder sorted;
  for (const char* tag : tags) sorted.table(tag, font.bytesOf(tag));
  return sorted;
}

/// A font with kerning, classes, sequences and vertical metrics, by tables that are read late; A is
/// a square of `side`, kerned by `kern` before B.
SfntBuilder richFont(std::u16string_view family, int side, int kern) {
  qxtest::GlyfBuilder glyphs;
  glyphs.square(500).empty().square(side).composite({{2, 10, 20}});
  CmapBuilder cmap;
  cmap.add(0, 5, CmapBuilder::format14({{0xFE00, {}, {{0x41, 3}}}}));
  cmap.add(3, 1, CmapBuilder::format4({{0x20, 0x20, 1 - 0x20}, {0x41, 0x42, 2 - 0x41}}));
  cmap.add(3, 10, CmapBuilder::format12({{0x20, 0x20, 1}, {0x41, 0x42, 2}}));
  const qxtest::MetricsBuilder heights{.metrics = {{1000, 0}, {900, 0}}, .bearings = {0, 0}};
  SfntBuilder font = sampleFont();
  font.table("head", qxtest::HeadBuilder{.indexToLocFormat = 1}.build());
  font.table("glyf", glyphs.glyf()).table("loca", glyphs.loca(true)).table("cmap", cmap.build());
  font.table("name", qxtest::NameBuilder().latin(family).build());
  font.table("kern", qxtest::KernBuilder().format0({{2, 3, kern}}).build());
  font.table("vhea", qxtest::HheaBuilder{.numberOfMetrics = 2}.build());
  font.table("vmtx", heights.build());
  return font.table("GDEF", qxtest::gdefTable(qxtest::classDef(1, {1, 2, 3})));
}

/// Vertical text shows B for A, by `GSUB`.
SfntBuilder gsubFont() {
  qxtest::LayoutTableBuilder gsub;
  const unsigned lookup = gsub.lookup(1, 0, {qxtest::singleSubst(qxtest::coverage({2}), 1)});
  gsub.script("latn", {{gsub.feature("vert", {lookup})}});
  return inTagOrder(richFont(u"QX Gsub", 600, -80).table("GSUB", gsub.str()),
                    {"GDEF", "GSUB", "OS/2", "cmap", "glyf", "head", "hhea", "hmtx", "kern", "loca",
                     "maxp", "name", "post", "vhea", "vmtx"});
}

/// Vertical text shows a space for A, by `mort`.
SfntBuilder mortFont() {
  qxtest::MortBuilder mort;
  mort.chain({qxtest::MortBuilder::subtable({{2, 1}})});
  return inTagOrder(richFont(u"QX Mort", 400, 30).table("mort", mort.build()),
                    {"GDEF", "OS/2", "cmap", "glyf", "head", "hhea", "hmtx", "kern", "loca", "maxp",
                     "mort", "name", "post", "vhea", "vmtx"});
}

/// Faces that differ in all that is read late.
const SfntBuilder& faceAt(int entry) {
  static const SfntBuilder kFonts[kFaces] = {gsubFont(), sampleFont(), mortFont()};
  return kFonts[entry];
}

std::string collection() {
  qxtest::TtcBuilder builder;
  for (int entry = 0; entry < kFaces; ++entry) builder.member(faceAt(entry));
  return builder.build();
}

std::string suitcase() {
  qxtest::DfontBuilder builder;
  for (int entry = 0; entry < kFaces; ++entry) builder.resource("sfnt", faceAt(entry).build());
  return builder.build();
}

/// Points of the outline that FreeType loads unscaled, and the advance.
std::string outlineOf(FS_BaseFont& font, int entry, unsigned glyph) {
  FT_Face face = font.getFreeTypeFace(entry);
  if (face == nullptr || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) return "none";
  std::string out = std::to_string(face->glyph->metrics.horiAdvance);
  for (int i = 0; i < face->glyph->outline.n_points; ++i) {
    const FT_Vector& point = face->glyph->outline.points[i];
    out += " " + std::to_string(point.x) + "," + std::to_string(point.y);
  }
  return out;
}

/// What the queries and forms of a member give otherwise than the font alone gives.
struct Differences {
  Answers answers;
  Answers forms;
};
const Differences kOfCollection{{{"typoDescender", "-0.25"}}, {}};
const Differences kOfSuitcase{{{"typoDescender", "-0.25"},
                               {"hasRecord", "0"},
                               {"variationSequence", "65535"},
                               {"hasVariationSelector", "0"}},
                              {{"svg", "false"}, {"web", "false"}, {"subset", "false"}}};

/// The checkSumAdjustment of `head` counts the bytes of the file, so a builder's face alone has
/// another one than as a member; the web font, where it is packed, is told from the subset.
Answers comparable(Answers forms) {
  if (forms["web"] != "false") forms["web"] = "written";
  for (auto& [form, bytes] : forms) {
    const std::size_t magic = bytes.find("\x5F\x0F\x3C\xF5");
    if (magic != std::string::npos) bytes.replace(magic - 4, 4, 4, '\0');
  }
  return forms;
}

class Members : public qxtest::SfntFixture {
 protected:
  template <class Font>
  void expectLikeTheFontsAlone(const std::string& bytes, const Differences& differences) {
    for (int entry = 0; entry < kFaces; ++entry) {
      const auto alone = load(faceAt(entry));
      Answers answers = answersOf(*alone, 0);
      for (const auto& [query, answer] : differences.answers) answers[query] = answer;
      Answers forms = comparable(formsOf(*alone, 0));
      for (const auto& [form, given] : differences.forms) forms[form] = given;
      const auto font = read<Font>(bytes);
      ASSERT_TRUE(font && font->loadFontTables(&error, entry, nullptr)) << message();
      EXPECT_EQ(difference(answersOf(*font, entry), answers), "") << entry;
      EXPECT_EQ(difference(comparable(formsOf(*font, entry)), forms), "") << entry;
    }
  }
  template <class Font>
  void expectOutlinesOfTheFontsAlone(const std::string& bytes) {
    for (int entry = 0; entry < kFaces; ++entry) {
      std::string alone[5];
      const auto single = load(faceAt(entry));
      for (unsigned glyph = 0; glyph < 5; ++glyph) alone[glyph] = outlineOf(*single, 0, glyph);
      const auto font = read<Font>(bytes);
      for (unsigned glyph = 0; glyph < 5; ++glyph)
        EXPECT_EQ(outlineOf(*font, entry, glyph), alone[glyph]) << entry << " " << glyph;
    }
  }
};

TEST_F(Members, TheFacesOfTheseCasesDifferInWhatIsReadLate) {
  const Answers gsub = answersOf(*load(faceAt(0)), 0);
  const Answers mort = answersOf(*load(faceAt(2)), 0);
  EXPECT_EQ(gsub.at("verticalGlyphID"), "3");
  EXPECT_EQ(mort.at("verticalGlyphID"), "1");
  EXPECT_EQ(gsub.at("pairKerning"), "-80");
  EXPECT_EQ(mort.at("pairKerning"), "30");
  EXPECT_EQ(gsub.at("glyphClass"), "2");
  EXPECT_EQ(gsub.at("variationSequence"), "3");
  EXPECT_EQ(gsub.at("hasVerticalMetrics"), "1");
  EXPECT_EQ(gsub.at("layout"), "1");
  const Answers plain = answersOf(*load(faceAt(1)), 0);
  EXPECT_EQ(plain.at("hasVerticalMetrics"), "0");
  EXPECT_EQ(plain.at("glyphClass"), "-3");
}

TEST_F(Members, OfACollectionAnswerAndAreWrittenLikeTheFontsAlone) {
  expectLikeTheFontsAlone<FS_TrueTypeCollection>(collection(), kOfCollection);
}

TEST_F(Members, OfASuitcaseAnswerAndAreWrittenLikeTheFontsAlone) {
  expectLikeTheFontsAlone<FS_DFont>(suitcase(), kOfSuitcase);
}

TEST_F(Members, OfACollectionHaveTheOutlinesOfTheFontsAlone) {
  expectOutlinesOfTheFontsAlone<FS_TrueTypeCollection>(collection());
}

TEST_F(Members, OfASuitcaseHaveTheOutlinesOfTheFontsAlone) {
  expectOutlinesOfTheFontsAlone<FS_DFont>(suitcase());
}

TEST_F(Members, LoadedFromAGivenStreamTheyAnswerTheSame) {
  for (int entry = 0; entry < kFaces; ++entry) {
    const auto fromFile = read<FS_TrueTypeCollection>(collection());
    const auto fromStream = read<FS_TrueTypeCollection>(collection());
    std::istringstream stream(collection());
    ASSERT_TRUE(fromFile->loadFontTables(&error, entry, nullptr));
    ASSERT_TRUE(fromStream->loadFontTables(&error, entry, &stream));
    EXPECT_EQ(difference(answersOf(*fromStream, entry), answersOf(*fromFile, entry)), "");
    EXPECT_EQ(difference(formsOf(*fromStream, entry, &stream), formsOf(*fromFile, entry)), "");
  }
}

}  // namespace
}  // namespace QXFontService_NS
