#include <string>
#include <thread>

#include "support/byte_text.h"
#include "type1/eexec/eexec.h"
#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::bytesOf;
using qxtest::Embedded;
using qxtest::Type1Builder;

const std::string kBox = qxtest::type1Box(500, 100);

std::string encrypted(const std::string& plain) {
  return qxtest::type1Encrypted(plain, qxtest::kEexecKey);
}

/// A program with segments, as the writer must make it.
std::string segments(const std::string& clear, const std::string& plain,
                     const std::string& trailer) {
  return qxtest::type1Segment(1, clear) + qxtest::type1Segment(2, encrypted(plain)) +
         qxtest::type1Segment(1, trailer) + bytesOf({0x80, 3});
}

std::string entry(const std::string& name, const std::string& charString) {
  const std::string bytes =
      qxtest::type1Encrypted(std::string(4, '\0') + charString, qxtest::kCharStringKey);
  return "/" + name + " " + std::to_string(bytes.size()) + " RD " + bytes + " ND\n";
}

/// The font program that a document gets.
class Type1Embed : public qxtest::Type1Test {
 protected:
  static Type1Builder letters() {
    Type1Builder font;
    font.glyph("A", kBox).glyph(".notdef", kBox).glyph("B", kBox).glyph("grave", kBox);
    font.glyph("Agrave", qxtest::type1Accent(60, 65, 193)).glyph("Euro", kBox);
    return font;
  }
  static AfmBuilder metrics() {
    AfmBuilder file;
    file.glyph(65, 500, "A").glyph(66, 500, "B").glyph(193, 333, "grave");
    file.glyph(-1, 500, "Agrave").glyph(-1, 500, "Euro");
    return file;
  }
  FS_Type1AFM& withSegments(const Type1Builder& font) {
    world.file("/f/a.pfb", font.pfb());
    return afm(metrics());
  }
  /// The private part of `letters` with these glyphs only.
  static std::string privateOf(const std::string& count, const std::string& entries) {
    std::string plain = letters().privatePart();
    const std::size_t begin = plain.find("6 dict dup begin");
    const std::size_t end = plain.find("end\nend\nreadonly");
    return plain.replace(begin, end - begin, count + " dict dup begin\n" + entries);
  }
  /// The charstring names of an embedded program, "3: .notdef A B".
  static std::string glyphsOf(const Embedded& made) {
    if (!made.done) return "false";
    std::string bytes = made.bytes.substr(static_cast<std::size_t>(made.length1) + 12,
                                          static_cast<std::size_t>(made.length2));
    type1::decryptEexec(bytes);
    const std::size_t at = bytes.find("/CharStrings ") + 13;
    std::string text = bytes.substr(at, bytes.find(' ', at) - at) + ":";
    std::size_t position = bytes.find('\n', at) + 1;
    std::vector<type1::CharStringEntry> entries;
    type1::CharStringIndex index;
    type1::readCharStringEntries(bytes, position, 1000, entries, index);
    for (const auto& found : entries) text += " " + found.name;
    return text;
  }
};

TEST_F(Type1Embed, OrdinaryCodesOfPageZeroAreThoseOfTheStandardEncoding) {
  auto& font = withSegments(letters());
  EXPECT_EQ(font.getType1CharCode('A', 0), 65);
  const Embedded made = embed(font, 0, "A");
  ASSERT_TRUE(made.done);
  EXPECT_EQ(made.bytes, segments(letters().clearText(),
                                 privateOf("2", entry("A", kBox) + entry(".notdef", kBox)),
                                 letters().trailer()));
  EXPECT_EQ(made.length1, static_cast<int>(letters().clearText().size()));
  EXPECT_EQ(made.length3, static_cast<int>(letters().trailer().size()));
  EXPECT_EQ(made.bytes.size(),
            static_cast<std::size_t>(made.length1 + made.length2 + made.length3) + 20);
}

TEST_F(Type1Embed, TwoRunsGiveTheSameBytes) {
  auto& font = withSegments(letters());
  EXPECT_EQ(embed(font, 0, "AB").bytes, embed(font, 0, "AB").bytes);
  EXPECT_EQ(embed(font, 0, "AB").bytes, embed(font, 0, "BA").bytes) << "in the order of the file";
}

TEST_F(Type1Embed, GivenCodesNameTheGlyphsOfAnyPage) {
  auto& font = withSegments(letters());
  ASSERT_EQ(font.getType1CharCode(0x20AC, 0), 128);
  EXPECT_EQ(glyphsOf(embed(font, 0, "\x80")), "2: .notdef Euro");
  EXPECT_EQ(glyphsOf(embed(font, 0,
                           "\x80"
                           "B")),
            "3: .notdef B Euro")
      << "a page that is known still has the standard encoding";
}

TEST_F(Type1Embed, AnAccentBringsItsParts) {
  auto& font = withSegments(letters());
  ASSERT_EQ(font.getType1CharCode(0xC0, 0), 128);
  EXPECT_EQ(glyphsOf(embed(font, 0, "\x80")), "4: A .notdef grave Agrave");
}

TEST_F(Type1Embed, CodesThatNoMapKnowsAddNothing) {
  auto& font = withSegments(letters());
  EXPECT_EQ(glyphsOf(embed(font, 0, "\x80\x01Z")), "1: .notdef");
  EXPECT_EQ(glyphsOf(embed(font, 0, "")), "1: .notdef");
}

TEST_F(Type1Embed, AnUnknownPageHasNoStandardEncoding) {
  EXPECT_EQ(glyphsOf(embed(withSegments(letters()), 1, "AB")), "1: .notdef");
}

TEST_F(Type1Embed, AnEncodingOfTheProgramCountsOnEveryPage) {
  auto& font = withSegments(letters().encoding({{1, "B"}}));
  EXPECT_EQ(glyphsOf(embed(font, 0, "\x01")), "2: .notdef B");
  EXPECT_EQ(glyphsOf(embed(font, 7, "\x01")), "2: .notdef B");
}

TEST_F(Type1Embed, DirectCodesAreThoseOfTheProgram) {
  options("a.afm").skipGlyphnameMapping = true;
  auto& font = withSegments(letters().encoding({{65, "B"}}));
  EXPECT_EQ(font.getType1CharCode(65, 0), 65);
  EXPECT_EQ(glyphsOf(embed(font, 0, "A")), "2: .notdef B");
}

TEST_F(Type1Embed, WithAGlyphListTheProgramsOwnCodesComeFirst) {
  glyphList("4E00;B\n");
  auto& font = withSegments(letters().encoding({{65, "Euro"}}));
  EXPECT_EQ(font.getType1CharCode(0x4E00, 0), 66);
  EXPECT_EQ(glyphsOf(embed(font, 0, "A")), "2: .notdef Euro");
  EXPECT_EQ(glyphsOf(embed(font, 3, "A")), "2: .notdef Euro") << "by the encoding elsewhere";
}

TEST_F(Type1Embed, AllGlyphsGoThroughTheRewriterToo) {
  Type1Builder font = letters();
  font.count("9 ");  // "/CharStrings 9  dict dup begin"
  auto& metricFont = withSegments(font);
  const Embedded made = embedAll(metricFont);
  ASSERT_TRUE(made.done);
  EXPECT_EQ(glyphsOf(made), "6: A .notdef B grave Agrave Euro");
  EXPECT_EQ(made.bytes, segments(font.clearText(), letters().privatePart(), letters().trailer()));
}

TEST_F(Type1Embed, ATextBecomesSegments) {
  world.file("/f/a.pfa", letters().lineEnd("\r\n").pfa());
  auto& font = afm(metrics());
  const Embedded made = embed(font, 0, "B");
  ASSERT_TRUE(made.done);
  EXPECT_EQ(made.bytes, segments(letters().lineEnd("\r").clearText(),
                                 privateOf("2", entry(".notdef", kBox) + entry("B", kBox)),
                                 letters().lineEnd("\r\n").trailer()))
      << "line ends of the clear text become CR, those of the trailer stay";
}

TEST_F(Type1Embed, OfATextNoEncodingIsKnown) {
  world.file("/f/a.pfa", letters().encoding({{1, "B"}}).pfa());
  options("a.afm").skipGlyphnameMapping = true;
  auto& font = afm(metrics());
  EXPECT_EQ(glyphsOf(embed(font, 0, "\x01")), "1: .notdef");
  EXPECT_EQ(glyphsOf(embed(font, 0, "A")), "2: A .notdef") << "but the standard one";
}

TEST_F(Type1Embed, WithoutCodesAllGlyphsOfAnyPageGo) {
  auto& font = withSegments(letters());
  QXMemStream out(nullptr, 4096, false, true);
  int lengths[3] = {};
  EXPECT_TRUE(font.getType1EmbedFont(9, nullptr, 5, out, lengths[0], lengths[1], lengths[2], 0));
  EXPECT_EQ(qxtest::bytesIn(out), embedAll(font).bytes);
}

TEST_F(Type1Embed, ANegativeCountIsNone) {
  auto& font = withSegments(letters());
  QXMemStream out(nullptr, 4096, false, true);
  int lengths[3] = {};
  EXPECT_TRUE(font.getType1EmbedFont(0, "A", -1, out, lengths[0], lengths[1], lengths[2], 0));
  EXPECT_EQ(qxtest::bytesIn(out), embed(font, 0, "").bytes);
}

TEST_F(Type1Embed, ATextWithoutATrailerHasALastSegmentOfNothing) {
  std::string text = letters().pfa();
  text.resize(text.size() - letters().trailer().size());
  world.file("/f/a.pfa", text);
  const Embedded made = embedAll(afm(metrics()));
  ASSERT_TRUE(made.done);
  EXPECT_EQ(made.length3, 0);
  EXPECT_EQ(made.bytes.substr(made.bytes.size() - 8), bytesOf({0x80, 1, 0, 0, 0, 0, 0x80, 3}));
}

TEST_F(Type1Embed, ATextWithoutAPrivatePartIsAllClearText) {
  world.file("/f/a.pfa", "%!PS\nA\n");
  const Embedded made = embedAll(afm(metrics()));
  EXPECT_FALSE(made.done);
  EXPECT_EQ(made.length1, 7);
  EXPECT_EQ(made.bytes, bytesOf({0x80, 1, 7, 0, 0, 0}) + "%!PS\rA\r" + bytesOf({0x80, 2}));
  EXPECT_EQ(made.length3, -1) << "not written";
}

TEST_F(Type1Embed, SegmentsNeedAllFourParts) {
  const std::string whole = letters().pfb();
  auto& font = withSegments(letters());
  ASSERT_TRUE(embed(font, 0, "A").done);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    world.file("/f/a.pfb", whole.substr(0, size));
    EXPECT_FALSE(embed(font, 0, "A").done) << size;
  }
}

TEST_F(Type1Embed, KindsOfSegmentsAreCopiedUnread) {
  std::string odd = letters().pfb();
  auto& font = withSegments(letters());
  odd[1] = 7;
  odd[6 + letters().clearText().size()] = 'x';
  world.file("/f/a.pfb", odd);
  const Embedded made = embed(font, 0, "A");
  ASSERT_TRUE(made.done);
  EXPECT_EQ(made.bytes[1], 7);
  EXPECT_EQ(made.bytes[6 + letters().clearText().size()], 'x');
}

TEST_F(Type1Embed, APrivatePartInTwoSegmentsComesOutDamaged) {
  // Kept: the second binary segment is taken for the trailer.
  const std::string cipher = encrypted(letters().privatePart());
  const std::size_t half = cipher.size() - 20;
  world.file("/f/a.pfb", qxtest::type1Segment(1, letters().clearText()) +
                             qxtest::type1Segment(2, cipher.substr(0, half)) +
                             qxtest::type1Segment(2, cipher.substr(half)) +
                             qxtest::type1Segment(1, letters().trailer()) + bytesOf({0x80, 3}));
  const Embedded made = embedAll(afm(metrics()));
  EXPECT_TRUE(made.done);
  EXPECT_EQ(made.length3, 20);
}

TEST_F(Type1Embed, LengthsAtExtremesFail) {
  const std::string sound = letters().pfb();
  auto& font = withSegments(letters());
  const std::size_t second = 6 + letters().clearText().size();
  for (const std::size_t header : {std::size_t{0}, second}) {
    for (const char* length : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F", "\0\0\0\x80"}) {
      std::string bytes = sound;
      bytes.replace(header + 2, 4, std::string(length, 4));
      world.file("/f/a.pfb", bytes);
      EXPECT_FALSE(embed(font, 0, "A").done);
    }
  }
}

TEST_F(Type1Embed, ThePlainTextIsEncryptedAgainWithItsOwnLeadBytes) {
  std::string plain = letters().privatePart();
  plain.replace(0, 4, "LEAD");
  world.file("/f/a.pfb", segments(letters().clearText(), plain, letters().trailer()));
  const Embedded made = embedAll(afm(metrics()));
  ASSERT_TRUE(made.done);
  EXPECT_EQ(made.bytes, segments(letters().clearText(), plain, letters().trailer()));
}

TEST_F(Type1Embed, CodesAreGivenAndEmbeddedOnManyThreads) {
  auto& font = withSegments(letters());
  const auto work = [&] {
    for (int i = 0; i < 20; ++i) {
      EXPECT_EQ(font.getType1CharCode('A', 0), 65);
      font.getType1CharCode(0x20AC, 0);
      font.getType1CharCode(0xC0, 0);
      font.getTextWidth(u"AB", -1000, false, nullptr, 0);
      font.getGlyphID('A', false, 0);
      EXPECT_TRUE(embed(font, 0, "A").done);
      font.getPostScriptName(QXLang::LANGID_DEFAULT, 0);
    }
  };
  std::thread first(work);
  std::thread second(work);
  first.join();
  second.join();
  ASSERT_NE(font.getType1CMapArray(0, 0), nullptr);
  EXPECT_EQ(font.getType1CMapArray(0, 0)->size(), 2u);
}

}  // namespace
}  // namespace QXFontService_NS
