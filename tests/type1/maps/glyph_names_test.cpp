#include "type1/maps/glyph_names.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "type1/maps/encoding_scheme_name.h"
#include "type1/maps/glyph_names_data.h"
#include "type1/maps/standard_metrics.h"
#include "type1/maps/standard_strings.h"

namespace QXFontService_NS::type1 {
namespace {

TEST(GlyphNames, rowsStandInTheirOrder) {
  EXPECT_EQ(kGlyphNameRows[0].name, "A");
  EXPECT_EQ(kGlyphNameRows[0].unicode, 0x0041);
  EXPECT_EQ(kGlyphNameRows[1].name, "AE");
  EXPECT_EQ(kGlyphNameRows[2].name, "AEacute");
  EXPECT_EQ(kGlyphNameRows[2].unicode, 0x01FC);
  EXPECT_EQ(kGlyphNameRows[854].name, "zero");
  EXPECT_EQ(kGlyphNameRows[855].name, "zeta");
  EXPECT_EQ(kGlyphNameRows[855].unicode, 0x03B6);
  EXPECT_EQ(kGlyphNameRows[856].name, "twosuperior");
  EXPECT_EQ(kGlyphNameRows[857].name, "threesuperior");
  EXPECT_EQ(kGlyphNameRows[858].name, "onesuperior");
  EXPECT_EQ(kGlyphNameRows[1058].name, "afii57700");
  EXPECT_EQ(kGlyphNameRows[1058].unicode, 0xFB4B);
}

TEST(GlyphNames, firstRowOfANameCounts) {
  EXPECT_EQ(unicodeOf("Delta"), 0x2206);
  EXPECT_EQ(unicodeOf("Omega"), 0x2126);
  EXPECT_EQ(unicodeOf("mu"), 0x00B5);
  EXPECT_EQ(unicodeOf("Tcommaaccent"), 0x0162);
  EXPECT_EQ(unicodeOf("Scedilla"), 0x015E);
  EXPECT_EQ(unicodeOf("hyphen"), 0x002D);
  EXPECT_EQ(unicodeOf("space"), 0x0020);
  EXPECT_EQ(unicodeOf("zerosuperior"), 0x2070);
}

TEST(GlyphNames, eachRowIsFoundByOneOfItsKeys) {
  for (const GlyphNameRow& row : kGlyphNameRows) {
    EXPECT_NE(unicodeOf(row.name), 0) << row.name;
    EXPECT_FALSE(glyphNameOf(row.unicode).empty()) << row.name;
  }
}

TEST(GlyphNames, unknownOnes) {
  EXPECT_EQ(unicodeOf("nothing.alt"), 0);
  EXPECT_EQ(unicodeOf(""), 0);
  EXPECT_EQ(glyphNameOf(0x4E00), "");
  EXPECT_EQ(glyphNameOf(-1), "");
}

TEST(GlyphNames, alternativesAreTheseTwelve) {
  const struct {
    int from, to;
  } rows[] = {{0x00A0, 0x0020}, {0x00AD, 0x002D}, {0x021A, 0x0162}, {0x021B, 0x0163},
              {0x02C9, 0x00AF}, {0x0394, 0x2206}, {0x03A9, 0x2126}, {0x03BC, 0x00B5},
              {0x2215, 0x2044}, {0x2219, 0x00B7}, {0xF6C1, 0x015E}, {0xF6C2, 0x015F}};
  int changed = 0;
  for (int c = 0; c < 0x10000; ++c)
    if (unicodeAlternative(c) != c) ++changed;
  EXPECT_EQ(changed, 12);
  for (const auto& row : rows) EXPECT_EQ(unicodeAlternative(row.from), row.to);
}

TEST(StandardEncoding, has149Codes) {
  int encoded = 0;
  for (int code = 0; code < 256; ++code) {
    const std::string_view name = standardEncodingName(static_cast<unsigned char>(code));
    if (name == ".notdef") continue;
    ++encoded;
    EXPECT_EQ(standardEncodingCode(name), code);
  }
  EXPECT_EQ(encoded, 149);
  EXPECT_EQ(standardEncodingCode(".notdef"), 0);
  EXPECT_EQ(standardEncodingName(39), "quoteright");
}

TEST(EncodingScheme, namesAreComparedAsTheyStand) {
  EXPECT_EQ(encodingSchemeOf("WinAnsiEncoding"), FS_ENCODING_WINANSI);
  EXPECT_EQ(encodingSchemeOf("MacRomanEncoding"), FS_ENCODING_MACROMAN);
  EXPECT_EQ(encodingSchemeOf("MacExpertEncoding"), FS_ENCODING_MACEXPERT);
  EXPECT_EQ(encodingSchemeOf("FontSpecific"), FS_ENCODING_FONTSPECIFIC);
  EXPECT_EQ(encodingSchemeOf("AdobeStandardEncoding"), FS_ENCODING_OTHER);
  EXPECT_EQ(encodingSchemeOf("fontspecific"), FS_ENCODING_OTHER);
  EXPECT_EQ(encodingSchemeOf(""), FS_ENCODING_OTHER);
}

TEST(StandardMetrics, rowsOfTheFourteenFonts) {
  const struct {
    const char16_t* name;
    StandardMetrics row;
  } rows[] = {{u"Courier", {805, 250, 805, -250, -23, 623, 0}},
              {u"Courier-Bold", {801, 250, 801, -250, -113, 749, 0}},
              {u"Courier-BoldOblique", {801, 250, 801, -250, -113, 749, -12}},
              {u"Courier-Oblique", {805, 250, 805, -250, -23, 623, -12}},
              {u"Helvetica", {905, 212, 1037, -325, -665, 2028, 0}},
              {u"Helvetica-Bold", {905, 212, 1048, -376, -628, 2034, 0}},
              {u"Helvetica-BoldOblique", {905, 212, 1031, -376, -560, 1157, -12}},
              {u"Helvetica-Oblique", {905, 212, 1025, -325, -517, 1082, -12}},
              {u"Times-Roman", {891, 216, 1007, -307, -568, 2028, 0}},
              {u"Times-Bold", {891, 216, 1026, -307, -558, 2034, 0}},
              {u"Times-Italic", {891, 216, 1023, -307, -498, 1120, -15.5F}},
              {u"Times-BoldItalic", {891, 216, 1032, -307, -546, 1206, -15}},
              {u"Symbol", {1010, 293, 1010, -293, -180, 1090, 0}},
              {u"ZapfDingbats", {857, 143, 820, -143, -1, 981, 0}}};
  for (const auto& [name, row] : rows) {
    const StandardMetrics* found = findStandardMetrics(name);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->ascent, row.ascent);
    EXPECT_EQ(found->descent, row.descent);
    EXPECT_EQ(found->yMax, row.yMax);
    EXPECT_EQ(found->yMin, row.yMin);
    EXPECT_EQ(found->xMin, row.xMin);
    EXPECT_EQ(found->xMax, row.xMax);
    EXPECT_EQ(found->italicAngle, row.italicAngle);
  }
}

TEST(StandardMetrics, namesFoldAsFontNamesDo) {
  const StandardMetrics* bold = findStandardMetrics(u"Courier-Bold");
  EXPECT_EQ(findStandardMetrics(u"COURIER BOLD"), bold);
  EXPECT_EQ(findStandardMetrics(u"courierbold"), bold);
  EXPECT_EQ(findStandardMetrics(u"Times"), nullptr);
  EXPECT_EQ(findStandardMetrics(u""), nullptr);
}

}  // namespace
}  // namespace QXFontService_NS::type1
