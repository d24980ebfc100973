#include "qxfontservice/extra_font_manager.h"

#include <memory>
#include <type_traits>

#include "qxcommon/ptr.h"

#include "font/contract/class_ids.h"
#include "pool/registry/registry_fixture.h"
#include "pool/tables/extra_font_pool.h"
#include "support/sample_open_type.h"
#include "support/ttc_builder.h"
#include "support/woff_builder.h"

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;
using qxtest::WoffBuilder;
using Names = std::set<UnicodeString>;

constexpr auto kUnknown = FS_FILETYPE_UNKNOWN;

SfntBuilder fontNamed(std::u16string_view family, unsigned fsType = 0) {
  Os2Builder os2;
  os2.fsType = fsType;
  return sampleFont().table("name", NameBuilder().latin(family).build()).table("OS/2", os2.build());
}

std::string webFont(std::u16string_view family = u"Inner", unsigned fsType = 0) {
  return WoffBuilder::of(fontNamed(family, fsType)).build();
}

std::string base64(const std::string& bytes) {
  constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    unsigned group = 0;
    for (std::size_t i = 0; i < 3; ++i)
      group = group << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i)
      out += at + i <= bytes.size() ? kLetters[group >> (18 - 6 * i) & 63] : '=';
  }
  return out;
}

class ExtraFontManager : public qxtest::RegistryTest {
 protected:
  ExtraFontManager() { openFolder(); }

  int append(const UnicodeString& path, const UnicodeString& family,
             FS_FontFileType type = kUnknown, int weight = 0, int style = -1) {
    return manager.appendExtraFont(path, type, family, weight, style, &error);
  }
  int appendFile(const char16_t* path, const std::string& bytes, const UnicodeString& family) {
    std::string name;
    world.file(UnicodeString(path).toUTF8String(name), bytes);
    return append(path, family);
  }
  std::string failure() const {
    std::string text;
    return std::to_string(error.getErrorCode()) + " " + error.getErrorMessage().toUTF8String(text);
  }
  FS_FontRef find(const UnicodeString& name, int weight = 400) {
    return manager.getExtraFonts()->findFont(name, makeFontKey(weight, false, 5));
  }
  const FS_BaseFont& font(std::size_t index) { return *manager.getExtraFonts()->fonts()[index]; }

  FS_ExtraFontManager manager;
  QXError error;
};

TEST_F(ExtraFontManager, BeginsEmpty) {
  EXPECT_EQ(manager.getFontsCount(), 0);
  EXPECT_NE(manager.getExtraFonts(), nullptr);
  EXPECT_EQ(manager.getExtraFontFamilies(0), nullptr);
}

TEST_F(ExtraFontManager, AWebFontIsNumberedAndFoundByItsDeclaredFamilyAlone) {
  EXPECT_EQ(appendFile(u"/d/a.woff", webFont(), u"Declared"), 0) << failure();
  EXPECT_EQ(appendFile(u"/d/b.woff", webFont(), u"Other"), 1);
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_EQ(manager.getFontsCount(), 2);
  EXPECT_EQ(find(u"declared").font, &font(0));
  EXPECT_EQ(find(u"OTHER").font, &font(1));
  for (const char16_t* name : {u"Inner", u"Inner Regular", u"a.woff", u"a"})
    EXPECT_EQ(find(name).font, nullptr) << UnicodeString(name).length();
  EXPECT_EQ(font(0).getClassID(), ID_FS_WOFF);
  EXPECT_EQ(font(0).getGlyphID('A', false, 0), 2);
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(ExtraFontManager, NothingEntersTheRegistry) {
  appendFile(u"/d/a.woff", webFont(), u"Declared");
  EXPECT_TRUE(loaded().empty());
  EXPECT_EQ(fileOf(u"Declared"), "");
}

TEST_F(ExtraFontManager, AUriKnownAlreadyKeepsItsNumberAndStyleAndGainsAName) {
  world.file("/d/a.woff", webFont(u"Inner", 2));
  EXPECT_EQ(append(u"/d/a.woff", u"One", kUnknown, 300, 1), 0);
  EXPECT_EQ(error.getErrorCode(), 1945);
  EXPECT_EQ(append(u"/d/a.woff", u"Two", FS_FILETYPE_TTC, 900, 0), 0);
  EXPECT_EQ(error.getErrorCode(), 0) << "the warning comes once";
  EXPECT_EQ(manager.getFontsCount(), 1);
  EXPECT_EQ(*manager.getExtraFontFamilies(0), (Names{u"One", u"Two"}));
  EXPECT_EQ(find(u"One").font, &font(0));
  EXPECT_EQ(find(u"Two").font, &font(0));
  EXPECT_EQ(font(0).getFontWeight(0), 300);
  EXPECT_TRUE(font(0).isItalicFont(0));
  EXPECT_EQ(append(u"/d/a.woff", u"Two"), 0);
  EXPECT_EQ(font(0).refCount.load(), 1);
}

TEST_F(ExtraFontManager, TheCodeOfTheErrorIsResetAndItsMessageStays) {
  EXPECT_EQ(append(u"/d/missing.woff", u"One"), -1);
  appendFile(u"/d/a.woff", webFont(), u"One");
  EXPECT_EQ(failure(), "0 Cannot open font-face font.\n/d/missing.woff");
}

TEST_F(ExtraFontManager, AFailureReplacesTheRecordWhole) {
  error = QXError(7, u"old", u"second", 3, 4, u"third");
  EXPECT_EQ(append(u"/d/missing.woff", u"One"), -1);
  EXPECT_EQ(failure(), "1931 Cannot open font-face font.\n/d/missing.woff");
  EXPECT_TRUE(error.getSecondText().isEmpty() && error.getThirdText().isEmpty());
  EXPECT_EQ(error.getFirstNumber(), -1);
  EXPECT_EQ(error.getSecondNumber(), -1);
}

TEST_F(ExtraFontManager, ContentTypesOfWebFontsGoBeforeTheExtension) {
  const std::string bytes = base64(webFont());
  for (const char* type : {"font/woff", "application/font-woff"}) {
    const std::string uri = std::string("data:") + type + ";base64," + bytes;
    const int number = append(UnicodeString::fromUTF8(uri), u"One");
    ASSERT_GE(number, 0) << failure();
    EXPECT_EQ(font(static_cast<std::size_t>(number)).getClassID(), ID_FS_WOFF);
  }
  const std::string other = "data:font/ttf;base64," + bytes;
  EXPECT_EQ(append(UnicodeString::fromUTF8(other), u"One"), -1);
  EXPECT_EQ(error.getErrorCode(), 1932);
}

/// Kept: a hint leaves it to name and bytes, and those tell no web font.
TEST_F(ExtraFontManager, ContentTypesCountForNoOtherTypeThanNone) {
  const UnicodeString uri = UnicodeString::fromUTF8("data:font/woff;base64," + base64(webFont()));
  for (const auto hint : {FS_FILETYPE_HINT_BYTES, FS_FILETYPE_HINT_BYTES2, FS_FILETYPE_HINT_PFM,
                          FS_FILETYPE_HINT_TRUETYPE}) {
    EXPECT_EQ(append(uri, u"One", hint), -1);
    EXPECT_NE(error.getErrorCode(), 0);
  }
  EXPECT_EQ(append(uri, u"One", FS_FILETYPE_WOFF), 0);
}

TEST_F(ExtraFontManager, ContentTypesAreComparedWithoutCaseAndParameters) {
  int number = 0;
  for (const char* type : {"FONT/WOFF", "font/woff;charset=x", "Application/Font-Woff"}) {
    const std::string uri = std::string("data:") + type + ";base64," + base64(webFont());
    EXPECT_EQ(append(UnicodeString::fromUTF8(uri), u"One"), number++) << type << failure();
  }
}

TEST_F(ExtraFontManager, TheSameDataAreTheSameFont) {
  const UnicodeString uri = UnicodeString::fromUTF8("data:font/woff;base64," + base64(webFont()));
  EXPECT_EQ(append(uri, u"One"), 0);
  EXPECT_EQ(append(uri, u"Two"), 0);
  EXPECT_EQ(*manager.getExtraFontFamilies(0), (Names{u"One", u"Two"}));
}

TEST_F(ExtraFontManager, BrokenDataCannotBeOpened) {
  for (const char* uri : {"data:", "data:font/woff;base64", "data:font/woff;base64,d09G*",
                          "data:font/woff;base64,d09GR", "data:font/woff;base64,d0=G"}) {
    EXPECT_EQ(append(uri, u"One"), -1) << uri;
    EXPECT_EQ(error.getErrorCode(), 1931) << uri;
  }
  EXPECT_EQ(append("data:font/woff,", u"One"), -1);
  EXPECT_EQ(error.getErrorCode(), 1921) << "there is something, and it is empty";
  EXPECT_EQ(manager.getFontsCount(), 0);
}

TEST_F(ExtraFontManager, DataCutAnywhereAreAFailureThatIsTold) {
  const std::string whole = "data:font/woff;base64," + base64(webFont());
  for (std::size_t size = 0; size < whole.size(); size += size < 100 ? 1 : 7) {
    EXPECT_EQ(append(UnicodeString::fromUTF8(whole.substr(0, size)), u"One"), -1) << size;
    EXPECT_NE(error.getErrorCode(), 0) << size;
  }
  EXPECT_EQ(manager.getFontsCount(), 0);
  EXPECT_EQ(append(UnicodeString::fromUTF8(whole), u"One"), 0);
}

TEST_F(ExtraFontManager, AFileCutAnywhereIsAFailureThatIsTold) {
  const std::string whole = webFont();
  const std::size_t padding = 3;  // at the most, behind the last table: nobody misses it
  for (std::size_t size = 0; size + padding < whole.size(); size += size < 300 ? 1 : 5) {
    world.file("/d/cut.woff", whole.substr(0, size));
    EXPECT_EQ(append(u"/d/cut.woff", u"One"), -1) << size;
    EXPECT_NE(error.getErrorCode(), 0) << size;
  }
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(ExtraFontManager, WhatIsNoFileCannotBeOpened) {
  world.folder("/d/folder.woff");
  EXPECT_EQ(append(u"/d/folder.woff", u"One"), -1);
  EXPECT_EQ(failure(), "1931 Cannot open font-face font.\n/d/folder.woff");
  EXPECT_EQ(append(u"", u"One"), -1);
  EXPECT_EQ(error.getErrorCode(), 1931);
  EXPECT_EQ(append(u"unknown:scheme", u"One"), -1);
  EXPECT_EQ(error.getErrorCode(), 1931);
}

TEST_F(ExtraFontManager, ATypeThatIsGivenGoesBeforeContentAndExtension) {
  world.file("/d/a.ttf", webFont()).file("/d/b.woff", fontNamed(u"B").build());
  EXPECT_EQ(append(u"/d/a.ttf", u"One", FS_FILETYPE_WOFF), 0) << failure();
  EXPECT_EQ(append(u"/d/b.woff", u"Two", FS_FILETYPE_TRUETYPE), 1) << failure();
}

TEST_F(ExtraFontManager, HintsLetTheFileTell) {
  const std::string openType = qxtest::sampleOpenType(qxtest::sampleCff()).build();
  int number = 0;
  for (const auto hint : {kUnknown, FS_FILETYPE_HINT_BYTES, FS_FILETYPE_HINT_BYTES2,
                          FS_FILETYPE_HINT_PFM, FS_FILETYPE_HINT_TRUETYPE}) {
    const std::string path = "/d/" + std::to_string(hint) + ".TTF";
    world.file(path, openType);
    EXPECT_EQ(append(UnicodeString::fromUTF8(path), u"F", hint), number) << failure();
    EXPECT_EQ(font(static_cast<std::size_t>(number++)).getClassID(), ID_FS_OpenType) << hint;
  }
}

TEST_F(ExtraFontManager, AUriThatCannotBeOpenedIsTold) {
  EXPECT_EQ(append(u"/d/missing.woff", u"One"), -1);
  EXPECT_EQ(failure(), "1931 Cannot open font-face font.\n/d/missing.woff");
}

TEST_F(ExtraFontManager, ATypeWithoutAClassIsTold) {
  world.file("/d/a.woff", webFont()).file("/d/a.xyz", webFont());
  for (const int type : {1, 2, 11, 16, 99, -1})
    EXPECT_EQ(append(u"/d/a.woff", u"One", static_cast<FS_FontFileType>(type)), -1) << type;
  EXPECT_EQ(failure(), "1932 Cannot create font-face font.\n/d/a.woff");
  EXPECT_EQ(append(u"/d/a.xyz", u"One"), -1);
  EXPECT_EQ(failure(), "1932 Cannot create font-face font.\n/d/a.xyz");
}

TEST_F(ExtraFontManager, AFontThatSaysNoMoreIsToldAsUnreadable) {
  world.file("/d/a.ttf", qxtest::sampleOpenType(qxtest::sampleCff()).build());
  EXPECT_EQ(append(u"/d/a.ttf", u"One", FS_FILETYPE_TRUETYPE), -1);
  EXPECT_EQ(failure(), "1933 Cannot read font-face font information.\n/d/a.ttf");
}

TEST_F(ExtraFontManager, WhatTheFontReportsIsTold) {
  EXPECT_EQ(appendFile(u"/d/a.woff", "wOFF", u"One"), -1);
  EXPECT_EQ(failure(), "1921 Font read error.\n/d/a.woff");
  EXPECT_EQ(appendFile(u"/d/b.woff", std::string(44, 'x'), u"One"), -1);
  EXPECT_EQ(failure(), "1928 Font file error: Invalid WOFF header.\n/d/b.woff");
}

TEST_F(ExtraFontManager, AFaceThatCannotBeLoadedIsTold) {
  EXPECT_EQ(appendFile(u"/d/a.woff", WoffBuilder::of(sampleFont().without("cmap")).build(), u"A"),
            -1);
  EXPECT_EQ(failure(), "1928 Font file error: 'cmap' table not found\n/d/a.woff");
  EXPECT_EQ(manager.getFontsCount(), 0);
}

TEST_F(ExtraFontManager, AFailureLeavesNothingAndTheUriCanBeTriedAgain) {
  EXPECT_EQ(appendFile(u"/d/a.woff", "junk", u"One"), -1);
  EXPECT_EQ(manager.getFontsCount(), 0);
  EXPECT_EQ(find(u"One").font, nullptr);
  EXPECT_EQ(appendFile(u"/d/a.woff", webFont(), u"One"), 0);
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(ExtraFontManager, FailuresWithoutAnErrorToFillAreMinusOne) {
  EXPECT_EQ(manager.appendExtraFont(u"/d/missing", kUnknown, u"One", 0, -1, nullptr), -1);
  world.file("/d/a.woff", webFont(u"Inner", 2));
  EXPECT_EQ(manager.appendExtraFont(u"/d/a.woff", kUnknown, u"One", 0, -1, nullptr), 0);
}

TEST_F(ExtraFontManager, AFontThatMayNotBeEmbeddedIsAWarningWithAValidNumber) {
  EXPECT_EQ(appendFile(u"/d/a.woff", webFont(u"Inner", 2), u"One"), 0);
  EXPECT_EQ(failure(), "1945 Unembeddable font-face font.\n/d/a.woff");
  EXPECT_EQ(find(u"One").font, &font(0));
  EXPECT_EQ(appendFile(u"/d/b.woff", webFont(u"Inner", 0x200), u"Two"), 1) << "bitmaps alone";
  EXPECT_EQ(error.getErrorCode(), 1945);
  EXPECT_EQ(appendFile(u"/d/c.woff", webFont(u"Inner", 8), u"Three"), 2) << "for editing";
  EXPECT_EQ(error.getErrorCode(), 0);
}

/// Kept: only web fonts are wrapped, so of any other file nobody asks for its rights.
TEST_F(ExtraFontManager, OfAFontWithoutAWrapperNoRightsAreTold) {
  EXPECT_EQ(appendFile(u"/d/a.ttf", fontNamed(u"Own", 2).build(), u"One"), 0);
  EXPECT_EQ(error.getErrorCode(), 0);
}

/// Kept: its names stand in its set alone, until it is appended under another name.
TEST_F(ExtraFontManager, AFontWithoutAWrapperIsFoundOnceItIsAppendedAgain) {
  EXPECT_EQ(appendFile(u"/d/a.ttf", fontNamed(u"Own").build(), u"One"), 0);
  EXPECT_EQ(*manager.getExtraFontFamilies(0), Names{u"One"});
  EXPECT_EQ(find(u"One").font, nullptr);
  EXPECT_EQ(append(u"/d/a.ttf", u"One"), 0);
  EXPECT_EQ(find(u"One").font, nullptr) << "the name is not new";
  EXPECT_EQ(append(u"/d/a.ttf", u"Two"), 0);
  for (const char16_t* name : {u"One", u"Two", u"Own", u"Own-Regular"})
    EXPECT_EQ(find(name).font, &font(0));
  EXPECT_EQ(font(0).refCount.load(), 1);
}

TEST_F(ExtraFontManager, ACollectionIsLoadedFaceByFace) {
  const std::string bytes =
      qxtest::TtcBuilder().member(fontNamed(u"One")).member(fontNamed(u"Two")).build();
  EXPECT_EQ(appendFile(u"/d/a.ttc", bytes, u"Set"), 0) << failure();
  EXPECT_EQ(font(0).getGlyphID('A', false, 0), 2);
  EXPECT_EQ(font(0).getGlyphID('A', false, 1), 2);
}

TEST_F(ExtraFontManager, DescribesWebFontsByWhatIsDeclared) {
  world.file("/d/a.woff", webFont());
  append(u"/d/a.woff", u"Zeta", kUnknown, 700, 1);
  append(u"/d/a.woff", u"Alpha");
  UnicodeString name;
  int weight = 7;
  bool italic = false;
  int stretch = 7;
  EXPECT_EQ(manager.getExtraFontFaceName(0, &name, &weight, &italic, &stretch), 10);
  EXPECT_EQ(name, UnicodeString("Alpha")) << "the first in order, not the first given";
  EXPECT_EQ(weight, 700);
  EXPECT_TRUE(italic);
  EXPECT_EQ(stretch, 5);
  EXPECT_EQ(manager.getExtraFontFaceName(0, nullptr, nullptr, nullptr, nullptr), 10);
}

TEST_F(ExtraFontManager, DescribesOtherFontsByTheirOwnNameAlone) {
  appendFile(u"/d/a.ttf", fontNamed(u"Own").build(), u"Declared");
  UnicodeString name;
  int weight = 7;
  bool italic = true;
  int stretch = 7;
  EXPECT_EQ(manager.getExtraFontFaceName(0, &name, &weight, &italic, &stretch), 5);
  EXPECT_EQ(name, UnicodeString("Own"));
  EXPECT_EQ(weight, 0);
  EXPECT_FALSE(italic);
  EXPECT_EQ(stretch, 0);
}

TEST_F(ExtraFontManager, AnIndexWithoutAFontResetsTheOutputs) {
  appendFile(u"/d/a.woff", webFont(), u"One");
  for (const int index : {-1, 1, 99}) {
    UnicodeString name(u"x");
    int weight = 7;
    bool italic = true;
    int stretch = 7;
    EXPECT_EQ(manager.getExtraFontFaceName(index, &name, &weight, &italic, &stretch), 0);
    EXPECT_TRUE(name.isEmpty());
    EXPECT_EQ(weight, 0);
    EXPECT_FALSE(italic);
    EXPECT_EQ(stretch, 0);
    EXPECT_EQ(manager.getExtraFontFamilies(index), nullptr);
  }
}

TEST_F(ExtraFontManager, AnEmptyFamilyIsANameAndNoKey) {
  EXPECT_EQ(appendFile(u"/d/a.woff", webFont(), u""), 0);
  EXPECT_EQ(*manager.getExtraFontFamilies(0), Names{u""});
  EXPECT_TRUE(manager.getExtraFonts()->familyTable().empty());
}

TEST_F(ExtraFontManager, WhatIsNotDeclaredIsTheFontsOwn) {
  world.file("/d/a.woff", webFont()).file("/d/b.woff", webFont());
  append(u"/d/a.woff", u"One", kUnknown, 0, -1);
  append(u"/d/b.woff", u"Two", kUnknown, 0, 0);
  EXPECT_EQ(font(0).getFontWeight(0), 400);
  EXPECT_FALSE(font(0).isItalicFont(0));
  EXPECT_FALSE(font(1).isItalicFont(0));
}

TEST_F(ExtraFontManager, ADeclaredWeightAlsoAnswersItsNeighbours) {
  world.file("/d/a.woff", webFont());
  append(u"/d/a.woff", u"One", kUnknown, 700, 0);
  EXPECT_EQ(find(u"One", 600).font, &font(0));
  EXPECT_EQ(find(u"One", 400).font, &font(0));
}

TEST_F(ExtraFontManager, AnotherManagersFontsAreSharedWithTheirNames) {
  appendFile(u"/d/a.woff", webFont(), u"One");
  {
    FS_ExtraFontManager copy(&manager);
    EXPECT_EQ(copy.getFontsCount(), 1);
    EXPECT_EQ(font(0).refCount.load(), 2);
    EXPECT_NE(copy.getExtraFonts(), manager.getExtraFonts());
    EXPECT_EQ(copy.getExtraFonts()->findFont(u"One", makeFontKey(400, false, 5)).font, &font(0));
    EXPECT_EQ(copy.appendExtraFont(u"/d/a.woff", kUnknown, u"Two", 0, -1, &error), 0);
    EXPECT_EQ(*manager.getExtraFontFamilies(0), (Names{u"One", u"Two"}));
    EXPECT_EQ(find(u"Two").font, nullptr);
    EXPECT_EQ(append(u"/d/a.woff", u"Two"), 0);
    EXPECT_EQ(find(u"Two").font, nullptr) << "the name is not new there";
  }
  EXPECT_EQ(font(0).refCount.load(), 1);
}

TEST_F(ExtraFontManager, AssignedManagersNameOnePool) {
  appendFile(u"/d/a.woff", webFont(), u"One");
  auto* borrower = new FS_ExtraFontManager;  // never destroyed: its pool is another's
  const std::unique_ptr<FS_ExtraFontPool> forgotten(borrower->getExtraFonts());
  *borrower = manager;
  EXPECT_EQ(borrower->getExtraFonts(), manager.getExtraFonts());
  ::operator delete(borrower);
}

TEST_F(ExtraFontManager, IsNotCopiedByAccident) {
  EXPECT_FALSE(std::is_copy_constructible_v<FS_ExtraFontManager>) << "two would own one pool";
  EXPECT_TRUE(std::is_copy_assignable_v<FS_ExtraFontManager>);
}

TEST_F(ExtraFontManager, FontsGoWithTheManager) {
  QXPtr<FS_BaseFont> kept;
  {
    FS_ExtraFontManager other;
    world.file("/d/a.woff", webFont());
    ASSERT_EQ(other.appendExtraFont(u"/d/a.woff", kUnknown, u"One", 0, -1, &error), 0);
    kept = other.getExtraFonts()->fonts()[0];
    EXPECT_EQ(kept->refCount.load(), 2);
  }
  EXPECT_EQ(kept->refCount.load(), 1);
}

}  // namespace
}  // namespace QXFontService_NS
