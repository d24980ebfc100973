#include "font/dfont.h"

#include "font/answers.h"
#include "font/key_list.h"
#include "font/sfnt_fixture.h"
#include "support/be_bytes.h"
#include "support/cff_builder.h"
#include "support/cmap_builder.h"
#include "support/dfont_builder.h"
#include "support/name_builder.h"
#include "support/table_builders.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

using qxtest::Answers;
using qxtest::answersOf;
using qxtest::BeBytes;
using qxtest::CmapBuilder;
using qxtest::DfontBuilder;
using qxtest::difference;
using qxtest::formsOf;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

constexpr auto kDefault = QXLang::LANGID_DEFAULT;

/// The sample font as a condensed bold with family class, PANOSE, preferred names and variations.
SfntBuilder boldFont() {
  Os2Builder os2;
  os2.usWeightClass = 700;
  os2.usWidthClass = 3;
  os2.familyClass = 8;
  os2.familySubclass = 2;
  os2.panose[0] = 3;
  CmapBuilder cmap;
  cmap.add(0, 5, CmapBuilder::format14({{0xFE00, {}, {{0x41, 3}}}}));
  cmap.add(3, 1, CmapBuilder::format4({{0x41, 0x41, 3 - 0x41}}));
  NameBuilder names;
  names.latin(u"QX Bold", u"Bold").windows(16, u"QX").windows(17, u"Condensed");
  SfntBuilder font = sampleFont();
  return font.table("OS/2", os2.build()).table("cmap", cmap.build()).table("name", names.build());
}

DfontBuilder pair() {
  return DfontBuilder()
      .resource("FOND", "family")
      .resource("sfnt", sampleFont().build())
      .resource("sfnt", boldFont().build());
}

DfontBuilder suitcaseOf(const SfntBuilder& font) {
  return DfontBuilder().resource("FOND", "family").resource("sfnt", font.build());
}

class DFont : public qxtest::SfntFixture {
 protected:
  Ptr<FS_DFont> readFile(const std::string& bytes) { return read<FS_DFont>(bytes); }
  Ptr<FS_DFont> readFile(const DfontBuilder& builder) { return readFile(builder.build()); }
  Ptr<FS_DFont> loadFile(const DfontBuilder& builder) {
    auto font = readFile(builder);
    for (int entry = 0; font && entry < font->getEntryCount(); ++entry)
      EXPECT_TRUE(font->loadFontTables(&error, entry, nullptr)) << message();
    return font;
  }
  std::string failureOf(const std::string& bytes) {
    EXPECT_FALSE(readFile(bytes));
    return error.getErrorCode() == 0 ? "silent"
                                     : std::to_string(error.getErrorCode()) + " " + message();
  }
};

TEST_F(DFont, IsOfItsClassAndAncestors) {
  const auto font = readFile(pair());
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getClassID(), 0x972A6D12U);
  EXPECT_EQ(font->getClassName(), UnicodeString("FS_DFont"));
  for (const unsigned id : {0x972A6D12U, 0x523A46D6U, 0xD18D040AU, 0xDF537371U})
    EXPECT_TRUE(font->isKindOf(id)) << id;
  EXPECT_FALSE(font->isKindOf(ID_FS_TrueType));
  EXPECT_FALSE(font->isKindOf(ID_FS_TrueTypeCollection));
}

TEST_F(DFont, TellsItsKindForEveryEntry) {
  const auto font = readFile(pair());
  EXPECT_EQ(font->getEntryCount(), 2);
  EXPECT_TRUE(font->isTrueTypeFont());
  EXPECT_FALSE(font->isType1Font());
  EXPECT_FALSE(font->isOpenType());
  for (const int entry : {-1, 0, 1, 2}) {
    EXPECT_EQ(font->getFontFileType(entry), 9);
    EXPECT_EQ(font->getFontFileType2(entry), 9);
    EXPECT_FALSE(font->isType1OrNoCID(entry));
    EXPECT_EQ(font->isTrueTypeOrCID(entry), entry == 0 || entry == 1);
  }
}

/// What a suitcase never tells, whatever its fonts and whatever the entry.
const Answers kDefaults{
    {"preferredFamily", ""},       {"preferredSubFamily", ""}, {"stretch", "5"},
    {"familyClass", "0"},          {"familySubclass", "0"},    {"variationSequence", "65535"},
    {"hasVariationSelector", "0"}, {"hasRecord", "0"},         {"hasCff", "0"},
    {"cidSystemInfo", "0 "},       {"encodingScheme", "0"},    {"stringID", "0"}};

TEST_F(DFont, MembersAnswerLikeTheSameFontsAloneButForWhatSuitcasesDoNotTell) {
  const SfntBuilder fonts[] = {sampleFont(), boldFont()};
  for (int entry = 0; entry < 2; ++entry) {
    Answers expected = answersOf(*load(fonts[entry]), 0);
    for (const auto& [query, answer] : kDefaults) expected[query] = answer;
    expected["typoDescender"] = "-0.25";
    EXPECT_EQ(difference(answersOf(*loadFile(pair()), entry), expected), "") << entry;
  }
}

TEST_F(DFont, TheDefaultsStandForEveryEntry) {
  const auto font = loadFile(pair());
  for (const int entry : {-1, 0, 1, 2}) {
    const Answers answers = answersOf(*font, entry);
    for (const auto& [query, answer] : kDefaults) EXPECT_EQ(answers.at(query), answer) << query;
  }
}

TEST_F(DFont, ThereIsNoDefaultMember) {
  const auto font = loadFile(pair());
  for (const int entry : {-1, 2, INT_MAX}) {
    const Answers answers = answersOf(*font, entry);
    for (const char* number : {"weight", "italic", "unitsPerEm", "embedStatus", "charCount",
                               "canEmbed", "textWidth", "xHeight", "glyphWidth", "licence"})
      EXPECT_EQ(answers.at(number).substr(0, 1), "0") << number;
    EXPECT_EQ(answers.at("familyName"), "");
    EXPECT_EQ(answers.at("glyphID"), "65535");
    EXPECT_EQ(answers.at("glyphClass"), "-1");
    EXPECT_EQ(answers.at("panose"), "null");
    EXPECT_EQ(answers.at("layout"), "null");
    EXPECT_FALSE(font->loadFontTables(&error, entry, nullptr));
    EXPECT_EQ(font->getFreeTypeFace(entry), nullptr);
    for (const auto& [form, bytes] : formsOf(*font, entry))
      EXPECT_EQ(bytes, form == "psGlyphs" ? "" : "false") << form;
  }
}

TEST_F(DFont, EntersEachMemberWithTheStyleOfItsRecordAndItsPreferredFamily) {
  const auto font = readFile(pair());
  qxtest::KeyList keys;
  font->addStyleKeys(keys, FS_FontRef{}, QXUri(u"/x/B.dfont", QXCommonNS::URISTR_USER));
  font->addNameKeys(keys, FS_FontRef{});
  EXPECT_EQ(keys.lines,
            (std::vector<std::string>{"0 400 0 5: B.dfont", "1 700 0 3: B.dfont",
                                      "0 400 0 5: QX Sample; QX Sample Regular; QX Sample-Regular;",
                                      "1 700 0 3: QX; QX Bold; QX Bold Bold; QX Bold-Bold;"}));
}

TEST_F(DFont, OffsetsCountFromTheResourceInEveryStage) {
  const auto font = readFile(pair());
  EXPECT_EQ(font->getUnitsPerEm(1), 1000);
  EXPECT_TRUE(font->loadFontTables(&error, 1, nullptr)) << message();
  EXPECT_EQ(font->getGlyphID('A', false, 1), 3);
  EXPECT_EQ(font->getGlyphID('A', false, 0), 0xFFFF);  // not loaded
}

TEST_F(DFont, MacintoshNamesOfAllIdsAreRead) {
  NameBuilder names;
  names.macintosh(1, "Mac").macintosh(2, "Style").macintosh(4, "Full").macintosh(6, "PS");
  const SfntBuilder font = sampleFont().table("name", names.build());
  for (const bool hasOs2 : {true, false}) {
    const SfntBuilder each = hasOs2 ? font : SfntBuilder(font).without("OS/2");
    const auto suitcase = readFile(suitcaseOf(each));
    ASSERT_TRUE(suitcase) << message();
    EXPECT_EQ(suitcase->getFullFontName(kDefault, 0), UnicodeString("Full")) << hasOs2;
    EXPECT_EQ(suitcase->getPostScriptName(kDefault, 0), UnicodeString("PS")) << hasOs2;
  }
  EXPECT_TRUE(read(font)->getFullFontName(kDefault, 0).isEmpty());  // a font alone takes id 1
}

TEST_F(DFont, UnicodePlatformMapsAreOfTheFirstChoice) {
  CmapBuilder cmap;
  cmap.add(0, 3, CmapBuilder::format4({{0x41, 0x41, 3 - 0x41}}));
  cmap.add(3, 1, CmapBuilder::format4({{0x41, 0x41, 2 - 0x41}}));
  const SfntBuilder font = sampleFont().table("cmap", cmap.build());
  EXPECT_EQ(loadFile(suitcaseOf(font))->getGlyphID('A', false, 0), 3);
  EXPECT_EQ(load(font)->getGlyphID('A', false, 0), 2);
}

TEST_F(DFont, FontsWithoutOs2AreTaken) {
  const auto font = loadFile(suitcaseOf(sampleFont().without("OS/2")));
  ASSERT_TRUE(font);
  PANOSE panose{};
  EXPECT_EQ(font->getPanose(panose, 0), nullptr);
  EXPECT_EQ(font->getFontWeight(0), 400);
}

TEST_F(DFont, FacesAreOpenedByMemberAndTriedAgain) {
  const std::string bytes = pair().build();
  const auto font = readFile(bytes);
  world.remove(kPath);
  EXPECT_EQ(font->getFreeTypeFace(1), nullptr);
  world.file(kPath, bytes);
  const FT_Face first = font->getFreeTypeFace(0);
  const FT_Face second = font->getFreeTypeFace(1);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_STREQ(first->family_name, "QX Sample");
  EXPECT_STREQ(second->family_name, "QX");
  EXPECT_EQ(font->getFreeTypeFace(1), second);
}

TEST_F(DFont, TheEudcLinkIsTheMembers) {
  const auto font = readFile(pair());
  font->setEudcFont(FS_FontRef{font.get(), 7}, 1);
  EXPECT_EQ(font->getEudcFont(0).font, nullptr);
  EXPECT_EQ(font->getEudcFont(1).entry, 7);
  EXPECT_EQ(font->getEudcFont(2).font, nullptr);
}

TEST_F(DFont, HasTheFormsOfTheFontAloneButForThree) {
  const SfntBuilder fonts[] = {sampleFont(), boldFont()};
  for (int entry = 0; entry < 2; ++entry) {
    Answers expected = formsOf(*load(fonts[entry]), 0);
    for (const char* form : {"svg", "web", "subset"}) expected[form] = "false";
    EXPECT_EQ(difference(formsOf(*loadFile(pair()), entry), expected), "") << entry;
    EXPECT_EQ(expected["stream"], fonts[entry].build());
  }
}

TEST_F(DFont, AForkFailsWithTheCodeAlone) {
  EXPECT_EQ(failureOf(""), "1921 Font read error.\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(DfontBuilder().resource("FOND", "x").build()),
            "1928 Font file error.\n/fonts/a.ttf");
}

TEST_F(DFont, OfAMemberItsOwnReportIsGiven) {
  EXPECT_EQ(failureOf(suitcaseOf(sampleFont().without("head")).build()),
            "1928 Font file error: 'head' table not found\n/fonts/a.ttf");
  BeBytes behindTheEnd = pair().bytes();
  EXPECT_EQ(failureOf(behindTheEnd.patchU32("dataOffset", 0xFFFFFFFF).str()),
            "1921 Font read error: Offset table read error\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(suitcaseOf(sampleFont().version(SfntBuilder::kOpenType)).build()), "silent");
}

TEST_F(DFont, ABrokenMemberMakesTheFileUseless) {
  DfontBuilder builder = pair();
  builder.resource("sfnt", sampleFont().without("hhea").build());
  EXPECT_EQ(failureOf(builder.build()),
            "1928 Font file error: 'hhea' table not found\n/fonts/a.ttf");
  const Ptr<FS_DFont> font(new FS_DFont(uri(), nullptr));
  std::istringstream stream(builder.build());
  EXPECT_FALSE(font->readFont(nullptr, &stream));
  EXPECT_EQ(font->getEntryCount(), 0);
}

TEST_F(DFont, MembersNeedNotAgreeOnCff) {
  qxtest::CffBuilder cff;
  cff.glyphs.assign(4, "\x0E");
  const SfntBuilder cffFont =
      sampleFont().without("glyf").without("loca").table("CFF", cff.build());
  DfontBuilder builder = suitcaseOf(sampleFont());
  const auto font = loadFile(builder.resource("sfnt", cffFont.build()));
  ASSERT_TRUE(font);
  EXPECT_TRUE(font->canEmbedFont(1));
  EXPECT_EQ(font->getCFFFont(1), nullptr);
}

/// Reads the file and, where it can be read, asks for everything.
void survive(const std::string& bytes) {
  const QXPtr<FS_DFont> font(new FS_DFont(QXUri(), nullptr));
  std::istringstream stream(bytes);
  if (!font->readFont(nullptr, &stream)) return;
  for (int entry = 0; entry < std::min(font->getEntryCount(), 3); ++entry) {
    font->loadFontTables(nullptr, entry, &stream);
    answersOf(*font, entry);
    qxtest::formOf([&](auto& out) { return font->getEmbedFont({2}, out, entry, &stream); });
    qxtest::formOf([&](auto& out) { return font->getEmbedFontStream(out, entry, &stream); });
  }
}

TEST_F(DFont, SurvivesMapsThatPointAnywhereAndACutAnywhere) {
  const BeBytes file = pair().bytes();
  qxtest::forEachPrefix(file.str(), survive);
  const std::string head = file.str().substr(0, 16);
  const std::string body = file.str().substr(16, file.at("map") - 16);
  const std::string map = file.str().substr(file.at("map"));
  const auto withHead = [&](const std::string& changed) { survive(changed + body + map); };
  const auto withMap = [&](const std::string& changed) { survive(head + body + changed); };
  qxtest::forEachLongExtreme(head, withHead);
  qxtest::forEachWordExtreme(map, withMap);
  qxtest::forEachLongExtreme(map, withMap);
}

}  // namespace
}  // namespace QXFontService_NS
