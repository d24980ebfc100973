#include "type1/charstrings/rewrite_char_strings.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/type1_builder.h"

namespace QXFontService_NS::type1 {
namespace {

using qxtest::Type1Builder;

/// Codes that are the capitals of their letters, and others by a map.
class Names final : public CodeNames {
 public:
  explicit Names(std::map<int, std::string> more = {}) : more_(std::move(more)) {}
  [[nodiscard]] std::string nameOf(unsigned char code) const override {
    const auto found = more_.find(code);
    if (found != more_.end()) return found->second;
    return code >= 'A' && code <= 'Z' ? std::string(1, static_cast<char>(code)) : "";
  }

 private:
  std::map<int, std::string> more_;
};

std::string entryText(const std::string& name, const std::string& charString) {
  const std::string bytes =
      qxtest::type1Encrypted(std::string(4, '\0') + charString, qxtest::kCharStringKey);
  return "/" + name + " " + std::to_string(bytes.size()) + " RD " + bytes + " ND\n";
}

const std::string kBox = qxtest::type1Box(50, 10);

Type1Builder letters() {
  Type1Builder font;
  font.glyph("A", kBox).glyph(".notdef", kBox).glyph("B", kBox).glyph("grave", kBox);
  font.glyph("Agrave", qxtest::type1Accent(60, 65, 193)).glyph("C", kBox);
  return font;
}

/// The names of the glyphs that a subset for these codes has, in their order, and its count.
std::string subset(const std::string& plain, const std::vector<unsigned char>& codes,
                   const Names& names = Names()) {
  std::string output;
  if (!rewriteCharStrings(plain, output, WantedCodes{codes, &names})) return "false";
  const std::size_t at = output.find("/CharStrings ") + 13;
  std::string text = output.substr(at, output.find('\n', at) - at) + ":";
  std::size_t position = output.find('\n', at) + 1;
  std::vector<CharStringEntry> entries;
  CharStringIndex index;
  readCharStringEntries(output, position, 1000, entries, index);
  for (const CharStringEntry& entry : entries) text += " " + entry.name;
  return text;
}

TEST(RewriteCharStrings, keepsTheWantedGlyphsAndNotdef) {
  const std::string plain = letters().privatePart();
  EXPECT_EQ(subset(plain, {'B', 'C'}), "3 dict dup begin: .notdef B C");
  EXPECT_EQ(subset(plain, {}), "1 dict dup begin: .notdef");
  EXPECT_EQ(subset(plain, {'Z'}), "1 dict dup begin: .notdef");
  EXPECT_EQ(subset(plain, {'B', 'B'}), "2 dict dup begin: .notdef B");
}

TEST(RewriteCharStrings, anAccentBringsItsParts) {
  const Names names({{200, "Agrave"}});
  EXPECT_EQ(subset(letters().privatePart(), {200}, names),
            "4 dict dup begin: A .notdef grave Agrave");
}

TEST(RewriteCharStrings, partsOfPartsAreNotFollowed) {
  Type1Builder font;
  font.glyph(".notdef", kBox).glyph("A", qxtest::type1Accent(50, 66, 67));
  font.glyph("B", kBox).glyph("C", kBox).glyph("grave", kBox);
  font.glyph("Agrave", qxtest::type1Accent(60, 65, 193));
  EXPECT_EQ(subset(font.privatePart(), {200}, Names({{200, "Agrave"}})),
            "4 dict dup begin: .notdef A grave Agrave");
}

TEST(RewriteCharStrings, anAccentThatCameInAsAPartBringsNoPartsOfItsOwn) {
  Type1Builder font;
  font.glyph(".notdef", kBox).glyph("A", qxtest::type1Accent(50, 66, 67));
  font.glyph("B", kBox).glyph("C", kBox).glyph("grave", kBox);
  font.glyph("Agrave", qxtest::type1Accent(60, 65, 193));
  const Names names({{200, "Agrave"}});
  EXPECT_EQ(subset(font.privatePart(), {200, 'A'}, names),
            "4 dict dup begin: .notdef A grave Agrave");
  EXPECT_EQ(subset(font.privatePart(), {'A', 200}, names),
            "6 dict dup begin: .notdef A B C grave Agrave");
}

TEST(RewriteCharStrings, codesOfAccentsThatNameNoGlyphBringNothing) {
  const std::string plain(qxtest::type1Number(7) + "\x0C\x06");
  for (const std::string& accent :
       {qxtest::type1Accent(60, 300, 193), qxtest::type1Accent(60, -5, 300),
        qxtest::type1Accent(60, 128, 255), plain, plain.substr(1), qxtest::type1Accent(60, 0, 0)}) {
    Type1Builder font;
    font.glyph(".notdef", kBox).glyph("A", kBox).glyph("grave", kBox).glyph("Agrave", accent);
    const std::string kept = subset(font.privatePart(), {200}, Names({{200, "Agrave"}}));
    EXPECT_EQ(kept.substr(0, kept.find("grave")), accent == qxtest::type1Accent(60, 300, 193)
                                                      ? "3 dict dup begin: .notdef "
                                                      : "2 dict dup begin: .notdef A");
  }
}

/// Names that count how often they are asked for.
class CountedNames final : public CodeNames {
 public:
  [[nodiscard]] std::string nameOf(unsigned char) const override {
    ++asked;
    return "B";
  }
  mutable int asked = 0;
};

TEST(RewriteCharStrings, aCodeIsLookedUpOnceHoweverOftenItIsListed) {
  const CountedNames names;
  const std::vector<unsigned char> codes(100'000, 'x');
  std::string output;
  ASSERT_TRUE(rewriteCharStrings(letters().privatePart(), output, WantedCodes{codes, &names}));
  EXPECT_EQ(names.asked, 1);
}

TEST(RewriteCharStrings, anAccentWhosePartIsMissing) {
  Type1Builder font;
  font.glyph(".notdef", kBox).glyph("Agrave", qxtest::type1Accent(60, 65, 193));
  EXPECT_EQ(subset(font.privatePart(), {200}, Names({{200, "Agrave"}})),
            "2 dict dup begin: .notdef Agrave");
}

TEST(RewriteCharStrings, aCharStringLongerThanAnyStringIsCopiedButHasNoParts) {
  const std::string accent = qxtest::type1Accent(60, 65, 193);
  const auto fontOf = [&](std::size_t length) {
    Type1Builder font;
    font.glyph(".notdef", kBox).glyph("A", kBox).glyph("grave", kBox);
    return font.glyph("Agrave", accent + std::string(length - 4 - accent.size(), '\x0E'));
  };
  const Names names({{200, "Agrave"}});
  EXPECT_EQ(subset(fontOf(65535).privatePart(), {200}, names),
            "4 dict dup begin: .notdef A grave Agrave");
  EXPECT_EQ(subset(fontOf(65536).privatePart(), {200}, names), "2 dict dup begin: .notdef Agrave");
}

TEST(RewriteCharStrings, aCountBeyondAllNumbersIsACapToo) {
  EXPECT_EQ(subset(letters().count("99999999999999999999").privatePart(), {'B'}),
            "2 dict dup begin: .notdef B");
}

TEST(RewriteCharStrings, codesFrom128AreNotNegative) {
  EXPECT_EQ(subset(letters().privatePart(), {255}, Names({{255, "B"}})),
            "2 dict dup begin: .notdef B");
}

TEST(RewriteCharStrings, aFirstEntryIsFoundAsAPart) {
  // Entries count from 1, so that 0 is free to mean none.
  Type1Builder font;
  font.glyph("A", kBox).glyph("grave", kBox).glyph("Agrave", qxtest::type1Accent(60, 65, 193));
  EXPECT_EQ(subset(font.privatePart(), {200}, Names({{200, "Agrave"}})),
            "3 dict dup begin: A grave Agrave");
}

TEST(RewriteCharStrings, cutAnywhereItEndsAndInventsNothing) {
  const std::string plain = letters().privatePart();
  for (std::size_t size = 0; size < plain.size(); ++size) {
    std::string output;
    const Names names;
    const std::vector<unsigned char> codes{'B'};
    rewriteCharStrings(plain.substr(0, size), output, WantedCodes{codes, &names});
    EXPECT_LE(output.size(), size + 20);
  }
}

TEST(RewriteCharStrings, withoutCodesAllGlyphsGo) {
  const std::string plain = letters().privatePart();
  std::string output;
  ASSERT_TRUE(rewriteCharStrings(plain, output, std::nullopt));
  EXPECT_EQ(output, plain);
}

TEST(RewriteCharStrings, nothingElseChanges) {
  const std::string plain = letters().privatePart();
  std::string output;
  const Names names;
  const std::vector<unsigned char> codes{'B'};
  ASSERT_TRUE(rewriteCharStrings(plain, output, WantedCodes{codes, &names}));
  const std::size_t begin = plain.find("6 dict dup begin");
  const std::size_t end = plain.find("end\nend\nreadonly");
  EXPECT_EQ(output, plain.substr(0, begin) + "2 dict dup begin\n" + entryText(".notdef", kBox) +
                        entryText("B", kBox) + plain.substr(end));
}

TEST(RewriteCharStrings, aCountThatIsTooHighLosesNothing) {
  const std::string plain = letters().count("99").privatePart();
  EXPECT_EQ(subset(plain, {'B'}), "2 dict dup begin: .notdef B");
  std::string output;
  ASSERT_TRUE(rewriteCharStrings(plain, output, std::nullopt));
  EXPECT_NE(output.find("6 dict dup begin\n"), std::string::npos);
  EXPECT_NE(output.find("end\nend\nreadonly"), std::string::npos);
}

TEST(RewriteCharStrings, aCountThatIsTooLowLeavesTheRestBehind) {
  const std::string plain = letters().count("2").privatePart();
  std::string output;
  ASSERT_TRUE(rewriteCharStrings(plain, output, std::nullopt));
  EXPECT_EQ(output, plain);
}

TEST(RewriteCharStrings, duplicateNames) {
  Type1Builder font;
  font.glyph(".notdef", kBox).glyph("A", kBox).glyph("A", qxtest::type1Box(60, 20));
  const std::string plain = font.privatePart();
  EXPECT_EQ(subset(plain, {'A'}), "2 dict dup begin: .notdef A");
  std::string output;
  ASSERT_TRUE(rewriteCharStrings(plain, output, std::nullopt));
  EXPECT_EQ(output, plain);
}

TEST(RewriteCharStrings, howTheDictionaryMustOpen) {
  const struct {
    const char* text;
    bool opens;
  } rows[] = {{"/CharStrings 1 dict dup begin\n", true},
              {"/CharStrings   1   dict dup begin \r\n", true},
              {"/CharStrings1 dict dup begin\n", true},
              {"/CharStrings 1\ndict dup begin\n", false},
              {"/CharStrings 1", false},
              {"/CharStrings 0 dict dup begin\n", false},
              {"/CharStrings x dict dup begin\n", false},
              {"/CharStrings 1x dict dup begin\n", false},
              {"/CharStrings -1 dict dup begin\n", false},
              {"/CharStrings 1 dict begin\n", false},
              {"/Charstrings 1 dict dup begin\n", false},
              {"", false}};
  for (const auto& row : rows) {
    std::string output;
    const std::string plain = row.text + entryText("A", kBox) + "end\n";
    EXPECT_EQ(rewriteCharStrings(plain, output, std::nullopt), row.opens) << row.text;
  }
}

TEST(CharStringEntries, damagedEntriesEndTheRead) {
  const std::string sound = entryText("A", kBox);
  for (const std::string& bad :
       {std::string("B 4 RD abcd ND\n"), std::string("/B -4 RD abcd ND\n"),
        std::string("/B x RD abcd ND\n"), std::string("/B 99999999999999999999 RD abcd ND\n"),
        std::string("/B 400 RD abcd ND\n"), std::string("/B"), std::string("/B 4"),
        std::string()}) {
    std::vector<CharStringEntry> entries;
    CharStringIndex index;
    std::size_t position = 0;
    readCharStringEntries(sound + bad, position, 10, entries, index);
    EXPECT_EQ(entries.size(), 1u) << bad;
    EXPECT_EQ(position, sound.size()) << bad;
  }
}

TEST(CharStringEntries, anyWordAndAnyEndOfALineWill) {
  std::vector<CharStringEntry> entries;
  CharStringIndex index;
  std::size_t position = 0;
  const std::string text =
      "/A 4 -| \x20"
      "bcd |-\r\n/B 4 x abcd noaccess def\r/C 4 RD abcdND\nend";
  readCharStringEntries(text, position, 10, entries, index);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(text.substr(position), "end");
  EXPECT_EQ(index.at("C"), 3u);
  EXPECT_EQ(entries[0].length, text.find("/B"));
}

}  // namespace
}  // namespace QXFontService_NS::type1
