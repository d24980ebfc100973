#include "font/true_type_collection.h"

#include "qxcommon/mem_stream.h"

#include "embed/cff/cff_info.h"
#include "embed/woff.h"
#include "font/answers.h"
#include "font/key_list.h"
#include "font/sfnt_fixture.h"
#include "support/be_bytes.h"
#include "support/cff_builder.h"
#include "support/cmap_builder.h"
#include "support/name_builder.h"
#include "support/table_builders.h"
#include "support/truncation.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::Answers;
using qxtest::answersOf;
using qxtest::BeBytes;
using qxtest::CmapBuilder;
using qxtest::difference;
using qxtest::formsOf;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;
using qxtest::TtcBuilder;

constexpr auto kDefault = QXLang::LANGID_DEFAULT;

/// The sample font as a bold condensed italic with another cmap and other widths.
SfntBuilder boldFont() {
  Os2Builder os2;
  os2.usWeightClass = 700;
  os2.usWidthClass = 3;
  os2.fsSelection = 1;
  os2.fsType = 2;
  SfntBuilder font = sampleFont();
  font.table("OS/2", os2.build());
  font.table("cmap",
             CmapBuilder().add(3, 1, CmapBuilder::format4({{0x41, 0x41, 3 - 0x41}})).build());
  font.table("name", NameBuilder().latin(u"QX Bold", u"Italic").windows(16, u"QX").build());
  font.table("hmtx", qxtest::MetricsBuilder{.metrics = {{500, 0}, {250, 0}, {700, 0}, {710, 0}},
                                            .bearings = {}}
                         .build());
  return font;
}

SfntBuilder cffFont(bool cid = false) {
  qxtest::CffBuilder cff;
  cff.cid = cid;
  if (cid) {
    cff.strings = {"Adobe", "Identity"};
    cff.top.numbers({391, 392, 0}).op(0x0C1E);
    cff.fdSelect = qxtest::CffBuilder::fdSelect3({{0, 0}}, 4);
    cff.privates.resize(1);
  }
  cff.glyphs.assign(4, "\x0E");
  cff.charset = qxtest::CffBuilder::charsetFormat0({1, 2, 3});
  return sampleFont().without("glyf").without("loca").table("CFF", cff.build());
}

TtcBuilder pair() {
  return TtcBuilder().member(sampleFont()).member(boldFont());
}

class TrueTypeCollection : public qxtest::SfntFixture {
 protected:
  Ptr<FS_TrueTypeCollection> readFile(const std::string& bytes) {
    return read<FS_TrueTypeCollection>(bytes);
  }
  Ptr<FS_TrueTypeCollection> readFile(const TtcBuilder& builder) {
    return readFile(builder.build());
  }
  Ptr<FS_TrueTypeCollection> loadFile(const TtcBuilder& builder) {
    auto font = readFile(builder);
    for (int entry = 0; font && entry < font->getEntryCount(); ++entry)
      EXPECT_TRUE(font->loadFontTables(&error, entry, nullptr)) << message();
    return font;
  }
  /// Code and text of a failed reading.
  std::string failureOf(const std::string& bytes) {
    EXPECT_FALSE(readFile(bytes));
    return error.getErrorCode() == 0 ? "silent"
                                     : std::to_string(error.getErrorCode()) + " " + message();
  }
  std::string failureOf(const TtcBuilder& builder) { return failureOf(builder.build()); }
};

TEST_F(TrueTypeCollection, IsOfItsClassAndAncestors) {
  const auto font = readFile(pair());
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getClassID(), 0x0C261001U);
  EXPECT_EQ(font->getClassName(), UnicodeString("FS_TrueTypeCollection"));
  for (const unsigned id : {0x0C261001U, 0x523A46D6U, 0xD18D040AU, 0xDF537371U})
    EXPECT_TRUE(font->isKindOf(id)) << id;
  EXPECT_FALSE(font->isKindOf(ID_FS_TrueType));
}

TEST_F(TrueTypeCollection, TellsItsKindForEveryEntry) {
  const auto font = readFile(pair());
  EXPECT_EQ(font->getEntryCount(), 2);
  EXPECT_TRUE(font->isTrueTypeFont());
  EXPECT_FALSE(font->isType1Font());
  EXPECT_FALSE(font->isOpenType());
  EXPECT_FALSE(font->isExtraFont(nullptr, nullptr, 0));
  EXPECT_EQ(font->getMemStream(), nullptr);
  for (const int entry : {-1, 0, 1, 2}) {
    EXPECT_EQ(font->getFontFileType(entry), 6);
    EXPECT_EQ(font->getFontFileType2(entry), 6);
    EXPECT_FALSE(font->isType1OrNoCID(entry));
    EXPECT_EQ(font->isTrueTypeOrCID(entry), entry == 0 || entry == 1);
  }
}

TEST_F(TrueTypeCollection, OneMemberIsEnough) {
  const auto font = readFile(TtcBuilder().member(sampleFont()));
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getEntryCount(), 1);
}

/// What a collection answers otherwise than the same font alone.
Answers asMember(Answers alone) {
  alone["typoDescender"] = "-0.25";
  return alone;
}

TEST_F(TrueTypeCollection, MembersAnswerLikeTheSameFontsAlone) {
  const SfntBuilder fonts[] = {sampleFont(), boldFont()};
  for (int entry = 0; entry < 2; ++entry) {
    const auto alone = load(fonts[entry]);
    EXPECT_EQ(difference(answersOf(*loadFile(pair()), entry), asMember(answersOf(*alone, 0))), "");
  }
}

TEST_F(TrueTypeCollection, TellsItsTrueTypoDescender) {
  EXPECT_EQ(loadFile(pair())->getTypoDescender(0), -0.25F);
  EXPECT_EQ(load(sampleFont())->getTypoDescender(0), 0.75F);
}

/// The neutral answers, each written out: there is no default member and no clamping.
const Answers kNeutral{{"familyName", ""},
                       {"familyNameEx", ""},
                       {"subFamilyName", ""},
                       {"fullFontName", ""},
                       {"postScriptName", ""},
                       {"preferredFamily", ""},
                       {"preferredSubFamily", ""},
                       {"cidFindfontName", ""},
                       {"copyright", ""},
                       {"manufacturer", ""},
                       {"licenseDescription", ""},
                       {"weight", "0"},
                       {"italic", "0"},
                       {"stretch", "0"},
                       {"symbolic", "0"},
                       {"fixedWidth", "0"},
                       {"serif", "0"},
                       {"script", "0"},
                       {"familyClass", "0"},
                       {"familySubclass", "0"},
                       {"codePages", "0 0"},
                       {"panose", "null"},
                       {"logFont", "0   400"},
                       {"newTextMetric", "0 0 0"},
                       {"outlineTextMetrics", "0 0 0"},
                       {"unitsPerEm", "0"},
                       {"xHeight", "0"},
                       {"capHeight", "0"},
                       {"typoAscender", "0"},
                       {"typoDescender", "0"},
                       {"textWidth", "0 -9"},
                       {"glyphWidth", "0"},
                       {"verticalWidth", "0"},
                       {"defaultCharWidth", "0"},
                       {"hasPairKerning", "0"},
                       {"pairKerning", "0"},
                       {"hasVerticalMetrics", "0"},
                       {"glyphID", "65535"},
                       {"verticalGlyphID", "65535"},
                       {"glyphIDs", "0 9 9 -9 -9"},
                       {"glyphClass", "-1"},
                       {"stringID", "0"},
                       {"hasVerticalGlyph", "0"},
                       {"hasVariationSelector", "0"},
                       {"variationSequence", "65535"},
                       {"eudcGlyphID", "65535"},
                       {"charCount", "0"},
                       {"layout", "null"},
                       {"hasRecord", "0"},
                       {"hasCff", "0"},
                       {"trueTypeOrCID", "0"},
                       {"type1OrNoCID", "0"},
                       {"encodingScheme", "0"},
                       {"cidSystemInfo", "0 "},
                       {"canEmbed", "0"},
                       {"embeddingAllowed", "0"},
                       {"embedStatus", "0"},
                       {"licence", "0"},
                       {"vertOriginY", "0 0"}};

TEST_F(TrueTypeCollection, ThereIsNoDefaultMember) {
  const auto font = loadFile(pair());
  for (const int entry : {-1, 2, 5, INT_MIN, INT_MAX}) {
    EXPECT_EQ(difference(answersOf(*font, entry), kNeutral), "") << entry;
    EXPECT_FALSE(font->loadFontTables(&error, entry, nullptr));
    EXPECT_EQ(font->getFreeTypeFace(entry), nullptr);
    EXPECT_EQ(font->getEudcFont(entry).font, nullptr);
  }
  EXPECT_TRUE(font->getFamilyName(kDefault, 5).isEmpty());
  EXPECT_EQ(font->getGlyphID(65, false, 5), 0xFFFF);
}

TEST_F(TrueTypeCollection, OfAMemberThatIsNotThereNothingIsOpenedOrWritten) {
  const auto font = readFile(pair());
  for (const int entry : {-1, 2}) {
    for (const auto& [form, bytes] : formsOf(*font, entry))
      EXPECT_EQ(bytes, form == "psGlyphs" ? "" : "false") << form;
  }
  EXPECT_EQ(world.counts().opened, 0U);
}

TEST_F(TrueTypeCollection, OnlyTheMemberAskedForIsLoaded) {
  const auto font = readFile(pair());
  EXPECT_EQ(world.counts().opened, 0U);
  EXPECT_TRUE(font->loadFontTables(&error, 1, nullptr));
  EXPECT_EQ(world.counts().opened, 1U);
  EXPECT_FALSE(font->getTrueTypeInfo(0)->tablesLoaded());
  EXPECT_TRUE(font->getTrueTypeInfo(1)->tablesLoaded());
  EXPECT_EQ(font->getGlyphID('A', false, 0), 0xFFFF);
  EXPECT_EQ(font->getGlyphID('A', false, 1), 3);
  EXPECT_TRUE(font->loadFontTables(&error, 1, nullptr));
  EXPECT_EQ(world.counts().opened, 1U);
  EXPECT_EQ(world.counts().closed, 1U);
}

TEST_F(TrueTypeCollection, AMemberLoadsFromAGivenStreamToo) {
  const auto font = readFile(pair());
  std::istringstream given(pair().build());
  EXPECT_TRUE(font->loadFontTables(&error, 0, &given));
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_EQ(world.counts().opened, 0U);
}

TEST_F(TrueTypeCollection, EntersEachMemberUnderItsOwnStyleAndNames) {
  const auto font = readFile(pair());
  font->fontAliases().insert(u"Alias");
  qxtest::KeyList keys;
  font->addStyleKeys(keys, FS_FontRef{}, QXUri(u"/x/B.TTC", QXCommonNS::URISTR_USER));
  font->addNameKeys(keys, FS_FontRef{});
  EXPECT_EQ(keys.lines, (std::vector<std::string>{
                            "0 400 0 5: B.TTC", "1 700 1 3: B.TTC",
                            "0 400 0 5: Alias; QX Sample; QX Sample Regular; QX Sample-Regular;",
                            "1 700 1 3: Alias; QX; QX Bold; QX Bold Italic; QX Bold-Italic;"}));
  for (const FS_BaseFont* entered : keys.fonts) EXPECT_EQ(entered, font.get());
}

TEST_F(TrueTypeCollection, TheEudcLinkIsTheMembers) {
  const auto font = readFile(pair());
  font->setEudcFont(FS_FontRef{font.get(), 7}, 1);
  font->setEudcFont(FS_FontRef{font.get(), 8}, 2);
  EXPECT_EQ(font->getEudcFont(0).font, nullptr);
  EXPECT_EQ(font->getEudcFont(1).font, font.get());
  EXPECT_EQ(font->getEudcFont(1).entry, 7);
  EXPECT_EQ(font->getEudcFont(2).font, nullptr);
}

TEST_F(TrueTypeCollection, ThePostScriptNameAndTheEudcFlagAreForFontsWithOneFace) {
  const auto font = readFile(pair());
  font->setPostScriptName(u"Given");
  font->setEudcFlag();
  EXPECT_EQ(font->getPostScriptName(kDefault, 0), UnicodeString("QX Sample-Regular"));
  EXPECT_FALSE(font->hasVerticalGlyph(0));
}

TEST_F(TrueTypeCollection, FacesAreOpenedByMemberAndKept) {
  const auto font = readFile(pair());
  const FT_Face first = font->getFreeTypeFace(0);
  const FT_Face second = font->getFreeTypeFace(1);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_STREQ(first->family_name, "QX Sample");
  EXPECT_STREQ(second->family_name, "QX");
  EXPECT_EQ(second->face_index & 0xFFFF, 1);
  EXPECT_EQ(font->getFreeTypeFace(0), first);
}

TEST_F(TrueTypeCollection, AFaceThatDidNotOpenIsTriedAgain) {
  const std::string bytes = pair().build();
  const auto font = readFile(bytes);
  world.remove(kPath);
  EXPECT_EQ(font->getFreeTypeFace(1), nullptr);
  EXPECT_EQ(font->getFreeTypeFace(1), nullptr);
  world.file(kPath, bytes);
  EXPECT_NE(font->getFreeTypeFace(1), nullptr);
}

/// The forms with the checkSumAdjustment of `head` as 0: it is that of a file alone. The web font,
/// where it is packed, is left out.
Answers withoutAdjustment(Answers forms) {
  forms.erase("web");
  for (auto& [form, bytes] : forms) {
    const std::size_t magic = bytes.find("\x5F\x0F\x3C\xF5");
    if (magic != std::string::npos) bytes.replace(magic - 4, 4, 4, '\0');
  }
  return forms;
}

TEST_F(TrueTypeCollection, FormsOfAMemberAreThoseOfTheSameFontAlone) {
  const SfntBuilder fonts[] = {sampleFont(), boldFont()};
  for (int entry = 0; entry < 2; ++entry) {
    const Answers alone = withoutAdjustment(formsOf(*load(fonts[entry]), 0));
    EXPECT_EQ(difference(withoutAdjustment(formsOf(*loadFile(pair()), entry)), alone), "") << entry;
  }
}

TEST_F(TrueTypeCollection, TheWebFontOfAMemberIsItsSubsetPacked) {
  Answers forms = formsOf(*loadFile(pair()), 1);
  QXMemStream subset(nullptr, 8192, false, true);
  subset += forms["subset"];
  EXPECT_EQ(forms["web"], qxtest::formOf([&](auto& out) { return embed::writeWOFF(out, subset); }));
}

TEST_F(TrueTypeCollection, MembersMayShareTheirTablesAndStandInAnyOrder) {
  const auto font = loadFile(pair().listed({1, 0, 1}));
  ASSERT_EQ(font->getEntryCount(), 3);
  EXPECT_EQ(font->getFontWeight(0), 700);
  EXPECT_EQ(font->getFontWeight(1), 400);
  EXPECT_EQ(difference(answersOf(*font, 2), answersOf(*font, 0)), "");
}

TEST_F(TrueTypeCollection, TheVersionOfTheHeaderIsNotLookedAt) {
  for (const std::uint32_t version : {0U, 0x00020000U, 0xFFFFFFFFU})
    EXPECT_TRUE(readFile(pair().version(version))) << version;
}

TEST_F(TrueTypeCollection, AShortHeaderIsAReadError) {
  for (const std::size_t size : {0U, 1U, 4U, 11U})
    EXPECT_EQ(failureOf(pair().build().substr(0, size)),
              "1921 Font read error: TTC header read error\n/fonts/a.ttf");
}

TEST_F(TrueTypeCollection, AnotherTagIsToldInHexadecimals) {
  EXPECT_EQ(failureOf(pair().tag("TTCF")),
            "1928 Font file error: Unknown TTC tag 54544346\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(sampleFont().build()),
            "1928 Font file error: Unknown TTC tag 00010000\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(std::string(12, '\xFF')),
            "1928 Font file error: Unknown TTC tag FFFFFFFF\n/fonts/a.ttf");
}

TEST_F(TrueTypeCollection, NoMembersIsAFileError) {
  EXPECT_EQ(failureOf(pair().statedCount(0)), "1928 Font file error: numTables = 0\n/fonts/a.ttf");
}

TEST_F(TrueTypeCollection, MoreMembersThanAFaceNumberCountsAreRefused) {
  EXPECT_EQ(failureOf(pair().statedCount(32768)),
            "1928 Font file error: numTables = 32768\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(pair().statedCount(0xFFFFFFFF)),
            "1928 Font file error: numTables = 4294967295\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(pair().statedCount(32767)),
            "1921 Font read error: Offset table read error\n/fonts/a.ttf");
  TtcBuilder most = TtcBuilder().member(sampleFont());
  const auto font = readFile(most.listed(std::vector<std::size_t>(32767, 0)));
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getEntryCount(), 32767);
  EXPECT_EQ(font->getFontWeight(32766), 400);
}

TEST_F(TrueTypeCollection, CutOffsetsAndACutMemberHeaderHaveTheSameText) {
  const std::string text = "1921 Font read error: Offset table read error\n/fonts/a.ttf";
  EXPECT_EQ(failureOf(pair().build().substr(0, 12)), text);
  EXPECT_EQ(failureOf(pair().build().substr(0, 19)), text);
  EXPECT_EQ(failureOf(pair().build().substr(0, 20)), text);
  EXPECT_EQ(failureOf(pair().build().substr(0, 31)), text);
}

TEST_F(TrueTypeCollection, AMemberBehindTheEndIsCutShort) {
  const auto size = static_cast<std::uint32_t>(pair().build().size());
  for (const std::uint32_t offset : {size, size - 11, size + 1, 0xFFFFFFFFU, 0x80000000U})
    for (const std::size_t index : {0U, 1U})
      EXPECT_EQ(failureOf(pair().statedOffset(index, offset)),
                "1921 Font read error: Offset table read error\n/fonts/a.ttf")
          << offset;
}

TEST_F(TrueTypeCollection, ACollectionWithABrokenMemberIsDroppedWhole) {
  TtcBuilder builder = TtcBuilder().member(sampleFont()).member(boldFont().without("post"));
  EXPECT_EQ(failureOf(builder), "1928 Font file error: 'post' table not found\n/fonts/a.ttf");
  const Ptr<FS_TrueTypeCollection> font(new FS_TrueTypeCollection(uri(), nullptr));
  std::istringstream stream(builder.build());
  EXPECT_FALSE(font->readFont(nullptr, &stream));
  EXPECT_EQ(font->getEntryCount(), 0);
  EXPECT_EQ(difference(answersOf(*font, 0), kNeutral), "");
}

TEST_F(TrueTypeCollection, AHeaderThatNamesItselfIsNoMember) {
  EXPECT_EQ(failureOf(pair().statedOffset(1, 0)), "silent");
}

TEST_F(TrueTypeCollection, OpenTypeMembersAreRefusedInSilence) {
  const SfntBuilder openType = cffFont().version(SfntBuilder::kOpenType);
  EXPECT_EQ(failureOf(TtcBuilder().member(openType).member(openType)), "silent");
  EXPECT_EQ(failureOf(TtcBuilder().member(sampleFont()).member(openType)), "silent");
}

TEST_F(TrueTypeCollection, AllMembersAgreeWithTheFirstOnCff) {
  EXPECT_EQ(failureOf(TtcBuilder().member(sampleFont()).member(cffFont())), "silent");
  EXPECT_EQ(failureOf(TtcBuilder().member(cffFont()).member(sampleFont())), "silent");
  EXPECT_EQ(failureOf(pair().member(cffFont())), "silent");
  SfntBuilder both = cffFont().table("glyf", sampleFont().bytesOf("glyf"));
  EXPECT_TRUE(readFile(TtcBuilder().member(cffFont()).member(both)));
}

TEST_F(TrueTypeCollection, AMemberWithCffAnswersWhatItsRecordHolds) {
  const auto font = loadFile(TtcBuilder().member(cffFont(true)).member(cffFont()));
  ASSERT_TRUE(font);
  ASSERT_NE(font->getCFFFont(0), nullptr);
  EXPECT_TRUE(font->getCFFFont(0)->isCID);
  FS_CIDSystemInfo info;
  EXPECT_TRUE(font->getCIDSystemInfo(info, 0));
  EXPECT_EQ(info.Ordering, UnicodeString("Identity"));
  EXPECT_FALSE(font->getCIDSystemInfo(info, 1));
  EXPECT_EQ(font->getEncodingScheme(0), 0);
  EXPECT_EQ(font->getStringID(2, 0), 0);
  EXPECT_FALSE(font->isType1OrNoCID(1));
  EXPECT_TRUE(font->isTrueTypeOrCID(1));
  EXPECT_EQ(qxtest::formOf([&](auto& out) {
              return font->getEmbedFont({2}, out, 1, nullptr);
            }).substr(0, 4),
            std::string("\1\0\4\3", 4));
}

TEST_F(TrueTypeCollection, AMemberWithCffHasTheFormsThatNeedNoGlyf) {
  const TtcBuilder builder = TtcBuilder().member(cffFont(true)).member(cffFont());
  const auto font = loadFile(builder);
  ASSERT_TRUE(font);
  const Answers forms = formsOf(*font, 1);
  EXPECT_EQ(forms.at("svg"), builder.build()) << "the whole file, as of any font with CFF";
  EXPECT_EQ(forms.at("subset"), forms.at("stream")) << "nothing is cut from such a font";
  EXPECT_EQ(forms.at("subset"), forms.at("allTables"));
  EXPECT_EQ(forms.at("web").substr(0, 4), "wOFF");
  for (const char* form : {"withCmap", "ps"}) EXPECT_EQ(forms.at(form), "false") << form;
}

TEST_F(TrueTypeCollection, NothingIsReportedWhereNothingIsAskedFor) {
  const Ptr<FS_TrueTypeCollection> font(new FS_TrueTypeCollection(uri(), nullptr));
  for (const std::string& bytes : {std::string(), pair().tag("????").build()}) {
    std::istringstream stream(bytes);
    EXPECT_FALSE(font->readFont(nullptr, &stream));
  }
}

/// Reads the file and, where it can be read, asks for everything.
void survive(const std::string& bytes) {
  const QXPtr<FS_TrueTypeCollection> font(new FS_TrueTypeCollection(QXUri(), nullptr));
  std::istringstream stream(bytes);
  if (!font->readFont(nullptr, &stream)) return;
  for (int entry = 0; entry < std::min(font->getEntryCount(), 3); ++entry) {
    font->loadFontTables(nullptr, entry, &stream);
    answersOf(*font, entry);
    qxtest::formOf([&](auto& out) { return font->getEmbedFont({2}, out, entry, &stream); });
    qxtest::formOf([&](auto& out) { return font->getEmbedFontStream(out, entry, &stream); });
  }
}

TEST_F(TrueTypeCollection, SurvivesAnyDamageToItsHeadersAndACutAnywhere) {
  const TtcBuilder builder = pair();
  const std::string bytes = builder.build();
  qxtest::forEachPrefix(bytes, survive);
  const std::size_t headers = builder.offsetOf(0) + sampleFont().offsetOf("OS/2");
  const auto withRest = [&](const std::string& changed) {
    survive(changed + bytes.substr(headers));
  };
  qxtest::forEachWordExtreme(bytes.substr(0, headers), withRest);
  qxtest::forEachLongExtreme(bytes.substr(0, headers), withRest);
}

}  // namespace
}  // namespace QXFontService_NS
