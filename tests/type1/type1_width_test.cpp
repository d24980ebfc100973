#include <string>

#include "qxfontservice/enum_log_font_ex.h"

#include "font/contract/font_key_sink.h"
#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::PfmBuilder;
using qxtest::Type1Builder;

/// What a font enters, a line for each call: "weight italic stretch: names".
class Keys final : public FS_FontKeySink {
 public:
  void addFileName(const QXUri& uri, const FS_FontRef&, const FS_FontKey& key) override {
    lines.push_back(head(key) + qxtest::utf8(uri.getFileName()));
  }
  void addFamilyNames(const std::set<UnicodeString>& names, const FS_FontRef&,
                      const FS_FontKey& key) override {
    lines.push_back(head(key));
    for (const UnicodeString& name : names) lines.back() += qxtest::utf8(name) + ";";
  }

  std::vector<std::string> lines;

 private:
  static std::string head(const FS_FontKey& key) {
    return std::to_string(key.weight) + " " + std::to_string(key.italic) + " " +
           std::to_string(key.stretch) + ": ";
  }
};

/// How wide texts are, and under which names and styles a font is entered.
class Type1Width : public qxtest::Type1Test {
 protected:
  static AfmBuilder symbols() {
    AfmBuilder file;
    file.encodingScheme = "FontSpecific";
    file.glyph(31, 31, "a31").glyph(32, 100, "a32").glyph(255, 200, "a255").glyph(256, 256, "a256");
    return file.glyph(65, 300, "A");
  }
  template <class Font>
  static float width(Font& font, const char16_t* text, int size = -1000) {
    return font.getTextWidth(text, size, false, nullptr, 0);
  }
  template <class Font>
  static int firstMissing(Font& font, const char16_t* text) {
    int missing = 7;
    font.getTextWidth(text, -1000, false, &missing, 0);
    return missing;
  }
  template <class Font>
  static std::vector<std::string> keysOf(Font& font) {
    Keys keys;
    font.addStyleKeys(keys, {&font, 0}, font.fileUri());
    font.addNameKeys(keys, {&font, 0});
    return keys.lines;
  }
};

TEST_F(Type1Width, CodesOfASymbolicFontAreAskedForFrom32To255) {
  auto& font = afm(symbols());
  EXPECT_EQ(width(font, u"\u001F"), 0);
  EXPECT_EQ(width(font, u"\u0020"), 100);
  EXPECT_EQ(width(font, u"\u00FF"), 200);
  EXPECT_EQ(width(font, u"\u0100"), 0);
  EXPECT_EQ(firstMissing(font, u"\u0020\u00FF\u001F"), 2);
}

TEST_F(Type1Width, PrivateUseIsFoldedFromF000ToFFFF) {
  auto& font = afm(symbols());
  EXPECT_EQ(width(font, u"\uF041"), 300);
  EXPECT_EQ(width(font, u"\uF0FF"), 200);
  EXPECT_EQ(width(font, u"\uF141"), 0) << "U+0141";
  EXPECT_EQ(width(font, u"\uFF41"), 0) << "U+0F41";
  EXPECT_EQ(width(font, u"\uE041"), 0) << "stays";
  EXPECT_EQ(width(font, u"\U0001F041"), 0) << "stays";
}

TEST_F(Type1Width, AListedGlyphWithoutMetricsIsFoundByItsCodeInASymbolicFont) {
  glyphList("00FF;Missing\n");
  EXPECT_EQ(width(afm(symbols()), u"\u00FF"), 200);
}

TEST_F(Type1Width, WithDirectCodesAMissingCharacterIsAsWideAsTheListedSpace) {
  options("a.afm").skipGlyphnameMapping = true;
  glyphList("0020;A\n");
  auto& font = afm(symbols());
  EXPECT_EQ(width(font, u"\u0020"), 100) << "by its code";
  EXPECT_EQ(width(font, u"\u4E00"), 300);
  EXPECT_EQ(firstMissing(font, u"\u0020\u4E00"), 1);
  EXPECT_EQ(width(font, u"\uF041"), 300) << "folded here too";
}

TEST_F(Type1Width, AListedSpaceWithoutMetricsAddsNothing) {
  glyphList("0020;Missing\n");
  EXPECT_EQ(width(afm(AfmBuilder().glyph(65, 700, "A")), u"A\u4E00"), 700);
}

TEST_F(Type1Width, EachOfTheTwelveAlternativesIsMeasuredByItsName) {
  const struct {
    const char16_t* text;
    const char* name;
  } rows[] = {{u"\u00A0", "space"},          {u"\u00AD", "hyphen"},   {u"\u021A", "Tcommaaccent"},
              {u"\u021B", "tcommaaccent"},   {u"\u02C9", "macron"},   {u"\u0394", "Delta"},
              {u"\u03A9", "Omega"},          {u"\u03BC", "mu"},       {u"\u2215", "fraction"},
              {u"\u2219", "periodcentered"}, {u"\uF6C1", "Scedilla"}, {u"\uF6C2", "scedilla"}};
  for (const auto& row : rows) {
    EXPECT_EQ(width(afm(AfmBuilder().glyph(-1, 321, row.name)), row.text), 321) << row.name;
    AfmBuilder symbolic;
    symbolic.encodingScheme = "FontSpecific";
    EXPECT_EQ(width(afm(symbolic.glyph(-1, 321, row.name)), row.text), 0) << row.name;
  }
}

TEST_F(Type1Width, CodesThatMeetInOnePlaceOfAHashTableCostNoMore) {
  // A table of 42,043 places would walk over all codes at each line.
  AfmBuilder file;
  for (int i = 1; i <= 42'000; ++i) file.metrics.push_back("C " + std::to_string(i * 42'043L));
  for (int i = 0; i < 100'000; ++i) file.metrics.push_back("C 1765806000");
  options("a.afm").skipGlyphnameMapping = true;
  EXPECT_EQ(width(afm(file), u"A"), 0);
}

TEST_F(Type1Width, APfmWithAProgramOfAKnownEncodingGoesByNamesUnlessItIsAStandardFont) {
  const std::string box = qxtest::type1Box(500, 100);
  Type1Builder program;
  program.glyph(".notdef", box).glyph("A", box);
  std::string text = program.clearText();
  const std::string encoding = "/Encoding StandardEncoding def";
  text.replace(text.find(encoding), encoding.size(), "/Encoding WinAnsiEncoding def");
  world.file("/f/a.pfb",
             qxtest::type1Segment(1, text) + program.pfb().substr(program.clearText().size() + 6));
  PfmBuilder file;
  file.font = "Unheard";
  auto& font = pfm(file);
  ASSERT_EQ(static_cast<int>(font.getEncodingScheme(0)), 2);
  EXPECT_EQ(firstMissing(font, u"!"), 0) << "the program has no such glyph";
  file.font = "Helvetica";
  EXPECT_EQ(width(pfm(file), u"!"), 333) << "the table of widths";
}

TEST_F(Type1Width, EncodingsOfAPfmByTheNameOfItsProgram) {
  const std::pair<const char*, int> rows[] = {{"WinAnsiEncoding", 2},   {"MacRomanEncoding", 3},
                                              {"MacExpertEncoding", 4}, {"FontSpecific", 5},
                                              {"ISOLatin1Encoding", 1}, {"winansiencoding", 1}};
  for (const auto& [name, scheme] : rows) {
    world.file("/f/a.pfb", qxtest::type1Segment(1, "/Encoding " + std::string(name) + " def\n"));
    EXPECT_EQ(static_cast<int>(pfm(PfmBuilder()).getEncodingScheme(0)), scheme) << name;
  }
}

TEST_F(Type1Width, FontsAreEnteredUnderTheirThreeNamesAndTheirStyle) {
  AfmBuilder file;
  file.weight = "Bold";
  file.headers = {"ItalicAngle -12"};
  EXPECT_EQ(keysOf(afm(file)),
            (std::vector<std::string>{"700 1 5: a.afm", "700 1 5: Made;Made Roman;Made-Roman;"}));
  PfmBuilder metrics;
  metrics.weight = 300;
  EXPECT_EQ(keysOf(pfm(metrics)),
            (std::vector<std::string>{"300 0 5: a.pfm", "300 0 5: Made;Made-Roman;"}));
}

TEST_F(Type1Width, WithoutAWeightAFontIsEnteredAsNormal) {
  world.file("/f/a.afm", "FontName Bare\n");
  auto& font = make<FS_Type1AFM>("/f/a.afm");
  ASSERT_TRUE(font.readFont(&error, nullptr));
  EXPECT_EQ(font.getFontWeight(0), 0);
  EXPECT_EQ(keysOf(font), (std::vector<std::string>{"400 0 5: a.afm", "400 0 5: Bare;"}));
  FS_EnumLogFontEx out;
  ASSERT_TRUE(font.getLogFont(out, 0));
  EXPECT_EQ(qxtest::utf8(out.getFaceName()), "Bare") << "without a family";
}

}  // namespace
}  // namespace QXFontService_NS
