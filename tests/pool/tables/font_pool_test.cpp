#include "pool/tables/font_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "pool/fake_font.h"
#include "pool/tables/extra_font_pool.h"

namespace QXFontService_NS {
namespace {

QXUri uriOf(const char16_t* text) {
  return QXUri(text, QXCommonNS::URISTR_USER);
}

class FontPool : public testing::Test {
 protected:
  /// Makes a font and enters all its keys; the pool keeps it.
  FS_BaseFont* add(const char16_t* file, const char16_t* family, const FS_FontKey& key = {}) {
    auto* font = new qxtest::FakeFont(file, family, key);
    font->refCount.fetch_add(1);
    pool.keepFont(font);
    pool.addFont({font, 0});
    return font;
  }
  const FS_BaseFont* find(const char16_t* name, const FS_FontKey& key = {}) {
    return pool.findFont(name, key).font;
  }

  FS_FontPool pool;
};

TEST_F(FontPool, AFamilyIsFoundByTheNormalFormOfItsName) {
  const FS_BaseFont* font = add(u"/f/a.ttf", u"Noto Sans-Mono");
  for (const char16_t* name :
       {u"Noto Sans-Mono", u"NOTOSANSMONO", u"no to-sans\u3000mono", u" notosansmono- "})
    EXPECT_EQ(find(name), font);
  for (const char16_t* name : {u"Noto_Sans_Mono", u"Noto Sans", u"@Noto Sans Mono", u"", u" -"})
    EXPECT_EQ(find(name), nullptr);
}

TEST_F(FontPool, FamiliesComeBeforeFiles) {
  const FS_BaseFont* file = add(u"/f/name.ttf", u"Other");
  const FS_BaseFont* family = add(u"/f/b.ttf", u"Name");
  EXPECT_EQ(find(u"name"), family);
  EXPECT_EQ(find(u"name.ttf"), file);
}

TEST_F(FontPool, AFileIsFoundByItsNameAsItIsWithoutRegardToCase) {
  const FS_BaseFont* font = add(u"/f/My Font-1.TTF", u"Family");
  EXPECT_EQ(find(u"my font-1"), font);
  EXPECT_EQ(find(u"MY FONT-1.ttf"), font);
  EXPECT_EQ(find(u"myfont1"), nullptr);
  EXPECT_EQ(find(u"my font-1."), nullptr);
}

TEST_F(FontPool, ADocumentsFontIsNotFoundByItsFile) {
  FS_ExtraFontPool extra;
  auto* font = new qxtest::FakeFont(u"/f/a.ttf", u"Family");
  font->refCount.fetch_add(1);
  extra.keepFont(font);
  extra.addFont({font, 0});
  EXPECT_TRUE(extra.fileTable().empty());
  EXPECT_EQ(extra.findFont(u"a.ttf", {}).font, nullptr);
  EXPECT_EQ(extra.findFont(u"family", {}).font, font);
}

TEST_F(FontPool, AMissLeavesTheCallersFamily) {
  add(u"/f/a.ttf", u"Family");
  FS_FontFamily own;
  FS_FontFamily* out = &own;
  EXPECT_FALSE(pool.findFamily(u"none", out));
  EXPECT_EQ(out, &own);
  EXPECT_TRUE(pool.findFamily(u"family", out));
  EXPECT_EQ(out->size(), 1u);
}

TEST_F(FontPool, TheFirstFontUnderAStyleStaysAndSoDoesTheFilling) {
  const FS_BaseFont* first = add(u"/f/a.ttf", u"Family");
  add(u"/f/b.ttf", u"Family");
  EXPECT_EQ(find(u"family"), first);
  EXPECT_EQ(find(u"family", makeFontKey(300, false, 5)), first);
  add(u"/f/c.ttf", u"Family", makeFontKey(300, false, 5));
  EXPECT_EQ(find(u"family", makeFontKey(300, false, 5)), first) << "the filled entry stands";
}

TEST_F(FontPool, KeysAreEnteredWith400And5ForZero) {
  const FS_BaseFont* font = add(u"/f/a.ttf", u"Family", FS_FontKey{0, 1, 0});
  FS_FontFamily* family = nullptr;
  for (const char16_t* name : {u"family", u"a.ttf", u"a"}) {
    ASSERT_TRUE(pool.findFamily(name, family));
    ASSERT_EQ(family->size(), 1u);
    EXPECT_EQ(family->begin()->first, makeFontKey(400, true, 5));
    EXPECT_EQ(family->begin()->second.font, font);
  }
}

TEST_F(FontPool, NamesThatSayNothingAreNotEntered) {
  const FS_FontRef ref{add(u"/f/a.ttf", u"Family"), 0};
  const auto families = pool.familyTable().size();
  const auto files = pool.fileTable().size();
  for (const char16_t* name : {u"", u" ", u"-", u"\u3000 -"}) pool.addFamilyName(name, ref, {});
  pool.addFamilyNames({u"", u"--"}, ref, {});
  for (const char16_t* uri : {u"", u"data:font/ttf,abc", u"/f/"})
    pool.addFileName(uriOf(uri), ref, {});
  EXPECT_EQ(pool.familyTable().size(), families);
  EXPECT_EQ(pool.fileTable().size(), files);
}

class UniqueNames : public testing::Test {
 protected:
  ~UniqueNames() override { pool.clear(); }

  /// Makes a font, kept by the pool, and gives the name under which it was entered.
  std::string enter(const char16_t* family, const char16_t* postScript,
                    const char16_t* prefix = u"", const FS_FontKey& key = {}) {
    font = new qxtest::FakeFont(u"/e/gaiji.tte", family, key);
    pool.keepFont(font);
    font->setPostScriptName(postScript);
    pool.addFontUnique(font, prefix);
    std::string name;
    return font->getPostScriptName(QXLang::LANGID_DEFAULT, 0).toUTF8String(name);
  }

  FS_FontPool pool;
  qxtest::FakeFont* font = nullptr;
};

TEST_F(UniqueNames, AreCountedFromZeroWithoutRegardToCaseAndBlanks) {
  EXPECT_EQ(enter(u"F", u"Name"), "Name");
  EXPECT_EQ(enter(u"F", u"Name"), "Name0");
  EXPECT_EQ(enter(u"F", u"NA-ME"), "NA-ME1") << "the table knows NAME and NAME0";
  EXPECT_EQ(enter(u"F", u"Name0"), "Name00");
  EXPECT_EQ(pool.familyTable().size(), 4u);
}

TEST_F(UniqueNames, HaveThePrefixInFrontAndTheCounterBehind) {
  EXPECT_EQ(enter(u"F", u"Name", u"V"), "VName");
  EXPECT_EQ(enter(u"F", u"Name", u"V"), "VName0");
  EXPECT_EQ(pool.findFont(u"vname0", {}).font, font);
}

TEST_F(UniqueNames, OfAFontCalled00AreItsFamilys) {
  EXPECT_EQ(enter(u"Gaiji", u"00"), "Gaiji");
  EXPECT_EQ(enter(u"Gaiji", u"00", u"V"), "VGaiji") << "the prefix comes after";
  EXPECT_EQ(enter(u"Gaiji", u"000"), "000") << "that text alone";
}

TEST_F(UniqueNames, StandUnderTheStyleWith400And5ForZero) {
  enter(u"F", u"Name", u"", FS_FontKey{0, 1, 0});
  FS_FontFamily* family = nullptr;
  ASSERT_TRUE(pool.findFamily(u"Name", family));
  ASSERT_EQ(family->size(), 1u);
  EXPECT_EQ(family->begin()->first, makeFontKey(400, true, 5));
  EXPECT_EQ(family->begin()->second.entry, 0);
}

TEST_F(UniqueNames, WithoutAnyTextAreGivenAndNotEntered) {
  EXPECT_EQ(enter(u"", u""), "");
  EXPECT_EQ(enter(u"", u"00"), "");
  EXPECT_TRUE(pool.familyTable().empty());
  EXPECT_EQ(pool.findFont(u"", {}).font, nullptr);
}

TEST_F(FontPool, HoldsOneReferenceAFontUntilItIsCleared) {
  FS_BaseFont* font = add(u"/f/a.ttf", u"Family");
  EXPECT_EQ(font->refCount.load(), 1);
  font->refCount.fetch_add(1);
  pool.clear();
  EXPECT_EQ(font->refCount.load(), 1);
  EXPECT_EQ(find(u"family"), nullptr);
  EXPECT_EQ(find(u"a.ttf"), nullptr);
  font->release();
}

/// Texts that ICU's hash, which looks at every other unit of them, cannot tell apart.
UnicodeString textOfOneIcuHash(int number) {
  UnicodeString text(64, UChar32{u'A'}, 64);
  for (int place = 1; number != 0; number /= 26, place += 2)
    text.setCharAt(place, static_cast<char16_t>(u'A' + number % 26));
  return text;
}

TEST_F(FontPool, NamesThatAFontChoseDoNotMeetInOnePlaceOfATable) {
  constexpr int kNames = 20'000;
  ASSERT_EQ(textOfOneIcuHash(1).hashCode(), textOfOneIcuHash(kNames - 1).hashCode());
  const FS_FontRef ref{add(u"/f/a.ttf", u"Family"), 0};
  std::set<UnicodeString> names;
  for (int i = 0; i < kNames; ++i) names.insert(textOfOneIcuHash(i));
  pool.addFamilyNames(names, ref, {});
  const auto& table = pool.familyTable();
  std::size_t longest = 0;
  for (std::size_t i = 0; i < table.bucket_count(); ++i)
    longest = std::max(longest, table.bucket_size(i));
  EXPECT_GT(table.size(), std::size_t{kNames});
  EXPECT_LT(longest, 24u);
}

}  // namespace
}  // namespace QXFontService_NS
