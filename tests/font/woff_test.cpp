#include "font/woff.h"

#include <atomic>
#include <thread>

#include "embed/woff.h"
#include "font/answers.h"
#include "font/key_list.h"
#include "font/sfnt_fixture.h"
#include "support/name_builder.h"
#include "support/sample_open_type.h"
#include "support/table_builders.h"
#include "support/truncation.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::Answers;
using qxtest::answersOf;
using qxtest::difference;
using qxtest::formsOf;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;
using qxtest::WoffBuilder;

/// The sample font as a heavy italic with family class, PANOSE and preferred names.
SfntBuilder heavyFont() {
  Os2Builder os2;
  os2.usWeightClass = 800;
  os2.usWidthClass = 3;
  os2.fsSelection = 1;
  os2.familyClass = 8;
  os2.panose[0] = 3;
  NameBuilder names;
  names.latin(u"QX Heavy", u"Italic").windows(16, u"QX").windows(0, u"(c)").windows(8, u"Maker");
  return sampleFont().table("OS/2", os2.build()).table("name", names.build());
}

class Woff : public qxtest::SfntFixture {
 protected:
  /// The web font of a font, read with a declared style.
  Ptr<FS_WOFF> readWeb(const std::string& bytes, int weight = 0, int italic = -1) {
    world.file(kPath, bytes);
    Ptr<FS_WOFF> font(new FS_WOFF(uri(), nullptr));
    std::istringstream stream(bytes);
    error = QXError();
    if (!font->readExtraFont(&error, &stream, u"Declared", weight, italic)) return nullptr;
    return font;
  }
  Ptr<FS_WOFF> readWeb(const SfntBuilder& font, int weight = 0, int italic = -1) {
    return readWeb(WoffBuilder::of(font).build(), weight, italic);
  }
  Ptr<FS_WOFF> loadWeb(const SfntBuilder& font, int weight = 0, int italic = -1) {
    auto web = readWeb(font, weight, italic);
    EXPECT_TRUE(web && web->loadFontTables(&error, 0, nullptr)) << message();
    return web;
  }
  std::string failureOf(const std::string& bytes) {
    EXPECT_FALSE(readWeb(bytes));
    return error.getErrorCode() == 0 ? "silent"
                                     : std::to_string(error.getErrorCode()) + " " + message();
  }
};

TEST_F(Woff, IsOfItsClassAndAncestors) {
  const auto font = readWeb(sampleFont());
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getClassID(), 0x5726A54CU);
  EXPECT_EQ(font->getClassName(), UnicodeString("FS_WOFF"));
  for (const unsigned id : {0x5726A54CU, 0x2E8D3159U, 0x523A46D6U, 0xD18D040AU, 0xDF537371U})
    EXPECT_TRUE(font->isKindOf(id)) << id;
  EXPECT_FALSE(font->isKindOf(ID_FS_TrueType));
}

TEST_F(Woff, TellsItsKindAndThatOfTheFontInside) {
  const auto font = readWeb(sampleFont());
  EXPECT_EQ(font->getFontFileType(0), 10);
  EXPECT_EQ(font->getFontFileType2(0), 5);
  EXPECT_TRUE(font->isTrueTypeFont());
  EXPECT_FALSE(font->isType1Font());
  EXPECT_TRUE(font->isTrueTypeOrCID(0));
  EXPECT_FALSE(font->isType1OrNoCID(0));
  EXPECT_EQ(font->getEntryCount(), 1);
  EXPECT_EQ(font->getExtraBaseFont()->getClassID(), ID_FS_TrueType);
  EXPECT_EQ(font->getFontFileName2().getText(), font->fileUri().getText());
}

TEST_F(Woff, AnOpenTypeFlavorMakesAnOpenTypeFontInside) {
  const auto font = loadWeb(qxtest::sampleOpenType(qxtest::sampleCff()));
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getFontFileType(0), 10);
  EXPECT_EQ(font->getFontFileType2(0), 7);
  EXPECT_EQ(font->getExtraBaseFont()->getClassID(), ID_FS_OpenType);
  EXPECT_FALSE(font->isOpenType());
  EXPECT_TRUE(font->isType1OrNoCID(0));
  EXPECT_EQ(font->getEncodingScheme(0), 1);
  const auto cid = loadWeb(qxtest::sampleOpenType(qxtest::sampleCidCff()));
  EXPECT_EQ(cid->getFontFileType2(0), 8);
  EXPECT_TRUE(cid->isTrueTypeOrCID(0));
  EXPECT_NE(cid->getStringID(3, 0), 0);
  FS_CIDSystemInfo info;
  EXPECT_TRUE(cid->getCIDSystemInfo(info, 0));
  EXPECT_EQ(info.Ordering, UnicodeString("Japan1"));
}

/// What the wrapper does not tell of its inner font, with what it tells instead.
Answers asWebFont(Answers inner) {
  for (const char* name : {"familyName", "subFamilyName", "fullFontName", "postScriptName",
                           "preferredFamily", "preferredSubFamily", "cidFindfontName"})
    inner[name] = "";
  inner["familyNameEx"] = "Declared";
  inner["stretch"] = "5";
  for (const char* number :
       {"familyClass", "familySubclass", "hasRecord", "hasCff", "hasVariationSelector"})
    inner[number] = "0";
  inner["variationSequence"] = inner["eudcGlyphID"] = "65535";
  return inner;
}

TEST_F(Woff, AnswersAsItsInnerFontButForWhatIsTheDocuments) {
  for (const SfntBuilder& font :
       {sampleFont(), heavyFont(), qxtest::sampleOpenType(qxtest::sampleCff())}) {
    const auto web = loadWeb(font);
    ASSERT_TRUE(web);
    EXPECT_EQ(difference(answersOf(*web, 0), asWebFont(answersOf(*web->getExtraBaseFont(), 0))),
              "");
  }
  EXPECT_EQ(difference(answersOf(*loadWeb(heavyFont())->getExtraBaseFont(), 0),
                       answersOf(*load(heavyFont()), 0)),
            "");
}

TEST_F(Woff, DeclaredStyleGoesBeforeThatOfTheFontInside) {
  struct Case {
    int weight, italic;
    int toldWeight;
    bool toldItalic;
  };
  for (const Case& c : {Case{0, -1, 800, true}, Case{300, -1, 300, true}, Case{0, 0, 800, false},
                        Case{0, 1, 800, true}, Case{0, 2, 800, false}, Case{900, 1, 900, true}}) {
    const auto font = readWeb(heavyFont(), c.weight, c.italic);
    EXPECT_EQ(font->getFontWeight(0), c.toldWeight);
    EXPECT_EQ(font->isItalicFont(0), c.toldItalic);
    EXPECT_EQ(font->getFontWeight2(0), 800);
    EXPECT_TRUE(font->isItalicFont2(0));
    EXPECT_EQ(font->getFontStretch(0), 5);
    EXPECT_EQ(font->getFontStretch2(0), 5);
    int weight = 0;
    bool italic = false;
    EXPECT_TRUE(font->isExtraFont(&weight, &italic, 0));
    EXPECT_EQ(weight, c.toldWeight);
    EXPECT_EQ(italic, c.toldItalic);
  }
}

TEST_F(Woff, ReadWithoutADeclarationItHasNone) {
  const Ptr<FS_WOFF> font(new FS_WOFF(uri(), nullptr));
  std::istringstream stream(WoffBuilder::of(heavyFont()).build());
  ASSERT_TRUE(font->readFont(nullptr, &stream));
  EXPECT_TRUE(font->getFamilyNameEx(0).isEmpty());
  EXPECT_EQ(font->getFontWeight(0), 800);
  EXPECT_TRUE(font->isItalicFont(0));
}

TEST_F(Woff, TheRecordsOfEnumerationAreThoseOfTheFontInside) {
  const auto font = readWeb(heavyFont(), 300, 0);
  FS_EnumLogFontEx record;
  EXPECT_TRUE(font->getLogFont(record, 0));
  EXPECT_EQ(record.getFaceName(), UnicodeString("QX"));
  EXPECT_EQ(record.getWeight(), 800);
}

TEST_F(Woff, EntersItsAliasesInItsDeclaredStyleAndNoFile) {
  const auto font = readWeb(heavyFont(), 300, 0);
  font->fontAliases() = {u"One", u"Two"};
  qxtest::KeyList keys;
  font->addStyleKeys(keys, FS_FontRef{}, font->fileUri());
  EXPECT_TRUE(keys.lines.empty());
  font->addNameKeys(keys, FS_FontRef{});
  EXPECT_EQ(keys.lines, (std::vector<std::string>{"0 300 0 5: One; Two;"}));
  EXPECT_EQ(keys.fonts[0], font.get());
}

TEST_F(Woff, AWeightOfZeroIsEnteredAsNormal) {
  Os2Builder os2;
  os2.usWeightClass = 0;
  const auto font = readWeb(sampleFont().table("OS/2", os2.build()));
  font->fontAliases() = {u"One"};
  qxtest::KeyList keys;
  font->addNameKeys(keys, FS_FontRef{});
  EXPECT_EQ(keys.lines, (std::vector<std::string>{"0 400 0 5: One;"}));
}

TEST_F(Woff, ItsFileIsNotNeededAgain) {
  const auto font = readWeb(sampleFont());
  world.remove(kPath);
  EXPECT_TRUE(font->loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_NE(font->getFreeTypeFace(0), nullptr);
  EXPECT_NE(formsOf(*font, 0).at("subset"), "false");
  EXPECT_EQ(world.counts().opened, 0U);
}

TEST_F(Woff, TablesAreLoadedFromTheUnpackedFontWhateverStreamIsGiven) {
  const auto font = readWeb(sampleFont());
  std::istringstream given("no font at all");
  EXPECT_TRUE(font->loadFontTables(&error, 0, &given));
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_EQ(given.tellg(), 0);
}

TEST_F(Woff, TheMemoryStreamIsTheUnpackedFont) {
  const Ptr<FS_WOFF> unread(new FS_WOFF(uri(), nullptr));
  EXPECT_EQ(unread->getMemStream(), nullptr);
  const auto font = readWeb(sampleFont());
  ASSERT_NE(font->getMemStream(), nullptr);
  EXPECT_EQ(qxtest::bytesIn(*font->getMemStream()), sampleFont().build());
}

TEST_F(Woff, FormsAreThoseOfTheFontInside) {
  for (const SfntBuilder& font : {sampleFont(), heavyFont()})
    EXPECT_EQ(difference(formsOf(*loadWeb(font), 0), formsOf(*load(font), 0)), "");
  const SfntBuilder openType = qxtest::sampleOpenType(qxtest::sampleCff());
  EXPECT_EQ(difference(formsOf(*loadWeb(openType), 0), formsOf(*load<FS_OpenType>(openType), 0)),
            "");
}

void expectItsSubsetPacked(FS_BaseFont& font) {
  QXMemStream subset(nullptr, 8192, false, true);
  QXMemStream packed(nullptr, 8192, false, true);
  QXMemStream web(nullptr, 8192, false, true);
  ASSERT_TRUE(font.makeSubsetFont({2}, subset, 0, nullptr));
  ASSERT_TRUE(embed::writeWOFF(packed, subset));
  ASSERT_TRUE(font.makeWebFont({2}, web, 0, nullptr));
  EXPECT_TRUE(qxtest::bytesIn(web) == qxtest::bytesIn(packed));
}

TEST_F(Woff, AWebFontIsTheSubsetPackedOfEveryKind) {
  const SfntBuilder openType = qxtest::sampleOpenType(qxtest::sampleCff());
  expectItsSubsetPacked(*load(sampleFont()));
  expectItsSubsetPacked(*load<FS_OpenType>(openType));
  expectItsSubsetPacked(*loadWeb(sampleFont()));
  expectItsSubsetPacked(*loadWeb(openType));
}

TEST_F(Woff, AStreamThatWasHandedOutStaysAfterTheFont) {
  QXMemStream out(nullptr, 8192, false, true);
  {
    const auto font = readWeb(sampleFont());
    ASSERT_TRUE(font->getEmbedFontStream(out, 0, nullptr));
  }
  EXPECT_EQ(qxtest::bytesIn(out), sampleFont().build());
}

TEST_F(Woff, AGivenStreamIsHandedOutAsItIs) {
  const auto font = readWeb(sampleFont());
  std::istringstream given("given");
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_TRUE(font->getEmbedFontStream(out, 0, &given));
  EXPECT_EQ(qxtest::bytesIn(out), "given");
}

TEST_F(Woff, OfAFontWithCffTheTableIsHandedOut) {
  const auto font = loadWeb(qxtest::sampleOpenType(qxtest::sampleCff()));
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_TRUE(font->getEmbedFontStream(out, 0, nullptr));
  EXPECT_EQ(qxtest::bytesIn(out), qxtest::sampleCff().build());
}

/// Runs the same work on several threads at once, and counts those that found it right.
template <class Work>
int rightOnThreads(int count, Work work) {
  std::atomic<int> right{0};
  std::atomic<int> waiting{count};
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&, i] {
      for (--waiting; waiting.load() != 0;) std::this_thread::yield();
      if (work(i)) ++right;
    });
  }
  for (std::thread& thread : threads) thread.join();
  return right;
}

TEST_F(Woff, ManyThreadsLoadItOnceAndSeeTheSame) {
  const auto font = readWeb(sampleFont());
  EXPECT_EQ(rightOnThreads(8,
                           [&](int) {
                             return font->loadFontTables(nullptr, 0, nullptr) &&
                                    font->getGlyphID('B', false, 0) == 3;
                           }),
            8);
}

/// A font of so many bytes, each other than its neighbours, that it is read block by block.
SfntBuilder longFont() {
  std::string table(60'000, '\0');
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<char>(i * i >> 4U);
  return sampleFont().table("zzzz", table);
}

/// One unpacked font serves loading, embedding and outlines, each with a position of its own.
TEST_F(Woff, ReadersOfTheUnpackedFontDoNotMeet) {
  const auto font = readWeb(longFont());
  const std::string whole = longFont().build();
  EXPECT_EQ(rightOnThreads(8,
                           [&](int i) {
                             if (i == 0) return font->loadFontTables(nullptr, 0, nullptr);
                             if (i == 1) return font->getFreeTypeFace(0) != nullptr;
                             bool same = true;
                             for (int run = 0; run < 10; ++run) {
                               QXMemStream out(nullptr, 1024, false, false);
                               same = same && font->getEmbedFontStream(out, 0, nullptr) &&
                                      std::string(std::istreambuf_iterator<char>(out), {}) == whole;
                             }
                             return same;
                           }),
            8);
}

TEST_F(Woff, AGivenStreamIsReadInsteadOfTheUnpackedFont) {
  const auto font = loadWeb(sampleFont());
  SfntBuilder other = sampleFont();
  other.table("name", std::string(other.bytesOf("name").size(), 'N'));
  std::istringstream given(other.build());
  const std::string subset = formsOf(*font, 0, &given).at("subset");
  EXPECT_NE(subset.find("NNNNNNNN"), std::string::npos);
}

/// Kept: the resource is made of the font's own file, and that of a web font is none.
TEST_F(Woff, ThereIsNoPostScriptOfAWebFont) {
  const auto font = loadWeb(qxtest::sampleOpenType(qxtest::sampleCidCff()));
  FS_CIDSystemInfo info;
  UnicodeString name;
  EXPECT_EQ(qxtest::formOf([&](auto& out) {
              return font->makePostScriptCIDFontType0({2}, out, name, info, 0, nullptr);
            }),
            "false");
}

TEST_F(Woff, TheFaceIsThatOfTheUnpackedFontTriedOnce) {
  const auto font = readWeb(sampleFont());
  const FT_Face face = font->getFreeTypeFace(7);
  ASSERT_NE(face, nullptr);
  EXPECT_STREQ(face->family_name, "QX Sample");
  EXPECT_EQ(font->getFreeTypeFace(0), face);
  const Ptr<FS_WOFF> unread(new FS_WOFF(uri(), nullptr));
  EXPECT_EQ(unread->getFreeTypeFace(0), nullptr);
}

TEST_F(Woff, FailuresTellTheFile) {
  EXPECT_EQ(failureOf(""), "1921 Font read error.\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(std::string(44, 'x')),
            "1928 Font file error: Invalid WOFF header.\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(WoffBuilder().packed("aaaa", "xx", 3).build()),
            "1928 Font file error: Uncompress error.\n/fonts/a.ttf");
}

TEST_F(Woff, ReadAgainItLetsGoOfTheFontInside) {
  const auto font = loadWeb(sampleFont());
  const Ptr<FS_BaseFont> before(font->getExtraBaseFont());
  EXPECT_EQ(before->refCount.load(), 2);
  std::istringstream again(WoffBuilder::of(qxtest::sampleOpenType(qxtest::sampleCff())).build());
  ASSERT_TRUE(font->readFont(&error, &again)) << message();
  EXPECT_EQ(before->refCount.load(), 1);
  EXPECT_EQ(font->getFontFileType2(0), 7);
  std::istringstream none("wOFF");
  EXPECT_FALSE(font->readFont(&error, &none));
  EXPECT_EQ(font->getFontFileType2(0), 7) << "a file that is none of its kind changes nothing";
}

TEST_F(Woff, TheFontInsideReportsItsOwnFailures) {
  EXPECT_EQ(failureOf(WoffBuilder::of(sampleFont().without("head")).build()),
            "1928 Font file error: 'head' table not found\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(WoffBuilder().build()),
            "1928 Font file error: OffsetTable.numTables = 0\n/fonts/a.ttf");
  EXPECT_EQ(failureOf(WoffBuilder::of(sampleFont()).flavor(0x74746366).build()), "silent");
  EXPECT_EQ(failureOf(WoffBuilder::of(sampleFont()).flavor(0x12345678).build()), "silent");
}

TEST_F(Woff, AFontWithoutOs2IsTakenAsTheFontInsideIs) {
  EXPECT_TRUE(readWeb(sampleFont().without("OS/2")));
}

/// A document's font without a format of its own.
class PlainExtra final : public FS_ExtraFont {
 public:
  using FS_ExtraFont::FS_ExtraFont;
  FS_FontFileType getFontFileType(int) const override { return FS_FILETYPE_UNKNOWN; }
  void wrap(FS_BaseFont* font) { setInner(font); }
};

TEST_F(Woff, WithoutAnInnerFontTheContractAnswers) {
  const Ptr<PlainExtra> font(new PlainExtra(uri(), nullptr));
  EXPECT_EQ(font->getClassID(), ID_FS_ExtraFont);
  EXPECT_EQ(font->getClassName(), UnicodeString("FS_ExtraFont"));
  EXPECT_EQ(font->getExtraBaseFont(), nullptr);
  EXPECT_TRUE(font->isExtraFont(nullptr, nullptr, 0));
  EXPECT_FALSE(font->isTrueTypeFont());
  EXPECT_FALSE(font->isType1Font());
  EXPECT_FALSE(font->readExtraFont(nullptr, nullptr, u"Family", 300, 1));
  EXPECT_EQ(font->getFamilyNameEx(0), UnicodeString("Family"));
  EXPECT_TRUE(font->loadFontTables(nullptr, 0, nullptr));
  EXPECT_EQ(font->getFreeTypeFace(0), nullptr);
  EXPECT_EQ(font->getMemStream(), nullptr);
  EXPECT_EQ(font->getFontFileName2().getText(), uri().getText());
  Answers answers = answersOf(*font, 0);
  EXPECT_EQ(answers["weight"], "300");
  EXPECT_EQ(answers["italic"], "1");
  EXPECT_EQ(answers["embedStatus"], "1");
  EXPECT_EQ(answers["glyphID"], "65535");
  EXPECT_EQ(answers["glyphClass"], "-1");
  for (const auto& [form, bytes] : formsOf(*font, 0))
    EXPECT_EQ(bytes, form == "psGlyphs" ? "" : "false") << form;
}

TEST_F(Woff, AnExtraFontAloneMakesNoSubsetAndNoWebFont) {
  const Ptr<PlainExtra> font(new PlainExtra(uri(), nullptr));
  const auto inner = load(sampleFont());
  font->wrap(inner.get());
  Answers expected = formsOf(*inner, 0);
  expected["web"] = expected["subset"] = "false";
  EXPECT_EQ(difference(formsOf(*font, 0), expected), "");
  EXPECT_EQ(font->getFreeTypeFace(0), inner->getFreeTypeFace(0));
}

/// What a face answers of its Type 1 codes and names, in this order since codes are given out.
Answers type1Answers(FS_BaseFont& font) {
  std::string name;
  unsigned char code = 0;
  Answers out;
  out["charCode"] = qxtest::textOf(font.getType1CharCode('A', 0));
  out["glyphCode"] = qxtest::textOf(font.getType1GlyphIDCode(3, 0));
  const Type1CMapArray* pairs = font.getType1CMapArray(0, 0);
  out["pairs"] = pairs == nullptr ? "none" : qxtest::textOf(pairs->size());
  out["pair"] = qxtest::textOf(font.getType1CMapPair(0, 1, code, name, 0)) + name;
  out["pair"] += qxtest::textOf(code);
  out["name"] = qxtest::textOf(font.getType1GlyphName(0, code, name, 0)) + name;
  out["form"] = qxtest::formOf([&](auto& o) { return font.getType1EmbedFont({2}, o, 0, nullptr); });
  return out;
}

TEST_F(Woff, Type1CodesAndNamesAreThoseOfTheFontInside) {
  const SfntBuilder openType = qxtest::sampleOpenType(qxtest::sampleCff());
  const Answers answers = type1Answers(*loadWeb(openType));
  EXPECT_EQ(difference(answers, type1Answers(*load<FS_OpenType>(openType))), "");
  EXPECT_EQ(answers.at("pairs"), "2");
  EXPECT_NE(answers.at("form"), "false");
  const Ptr<PlainExtra> none(new PlainExtra(uri(), nullptr));
  EXPECT_EQ(difference(type1Answers(*none), {{"charCode", "0"},
                                             {"glyphCode", "0"},
                                             {"pairs", "none"},
                                             {"pair", "00"},
                                             {"name", "0"},
                                             {"form", "false"}}),
            "");
}

/// A font inside with the two forms that Type 1 fonts alone have.
class WithType1Forms final : public FS_TrueType {
 public:
  using FS_TrueType::FS_TrueType;
  bool getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream&,
                         int& length1, int& length2, int& length3, int entry) override {
    length1 = page;
    length2 = codes[0];
    length3 = count + entry;
    return true;
  }
  bool getType1FontStream(QXMemStream&, int& length1, int& length2, int& length3,
                          int entry) override {
    length1 = length2 = length3 = entry + 1;
    return true;
  }
};

TEST_F(Woff, Type1FormsAreThoseOfTheFontInside) {
  const Ptr<PlainExtra> font(new PlainExtra(uri(), nullptr));
  QXMemStream out(nullptr, 8192, false, true);
  int lengths[3] = {7, 7, 7};
  EXPECT_FALSE(font->getType1FontStream(out, lengths[0], lengths[1], lengths[2], 4));
  EXPECT_FALSE(font->getType1EmbedFont(2, "a", 9, out, lengths[0], lengths[1], lengths[2], 4));
  font->wrap(new WithType1Forms(uri(), nullptr));
  EXPECT_TRUE(font->getType1EmbedFont(2, "a", 9, out, lengths[0], lengths[1], lengths[2], 4));
  EXPECT_TRUE(lengths[0] == 2 && lengths[1] == 'a' && lengths[2] == 13);
  EXPECT_TRUE(font->getType1FontStream(out, lengths[0], lengths[1], lengths[2], 4));
  EXPECT_TRUE(lengths[0] == 5 && lengths[1] == 5 && lengths[2] == 5);
}

TEST_F(Woff, AnExtraFontReadsAndLoadsByItsInnerFont) {
  const Ptr<PlainExtra> font(new PlainExtra(uri(), nullptr));
  font->wrap(new FS_TrueType(uri(), nullptr));
  std::istringstream stream(sampleFont().build());
  EXPECT_TRUE(font->readExtraFont(&error, &stream, u"Family", 0, -1));
  EXPECT_TRUE(font->loadFontTables(&error, 0, &stream));
  EXPECT_EQ(font->getGlyphID('A', false, 0), 2);
  EXPECT_EQ(font->getFontWeight(0), 400);
}

/// Reads the file and, where it can be read, asks for everything.
void survive(const std::string& bytes) {
  const QXPtr<FS_WOFF> font(new FS_WOFF(QXUri(), nullptr));
  std::istringstream stream(bytes);
  if (!font->readFont(nullptr, &stream)) return;
  font->loadFontTables(nullptr, 0, nullptr);
  answersOf(*font, 0);
  qxtest::formOf([&](auto& out) { return font->getEmbedFont({2}, out, 0, nullptr); });
  qxtest::formOf([&](auto& out) { return font->getEmbedFontStream(out, 0, nullptr); });
}

TEST_F(Woff, SurvivesACutAnywhereAndDamagedDirectories) {
  const std::string bytes = WoffBuilder::of(sampleFont()).build();
  qxtest::forEachPrefix(bytes, survive);
  const std::size_t headers = 44 + 20 * 10;
  const auto withRest = [&](const std::string& head) { survive(head + bytes.substr(headers)); };
  qxtest::forEachWordExtreme(bytes.substr(0, headers), withRest);
  qxtest::forEachLongExtreme(bytes.substr(0, headers), withRest);
}

}  // namespace
}  // namespace QXFontService_NS
