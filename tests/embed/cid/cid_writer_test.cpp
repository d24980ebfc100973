#include "embed/cid/cid_writer.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "embed/cff_subset_fixture.h"
#include "embed/charstring/token_text.h"
#include "embed/charstring/type1_encoder.h"
#include "embed/cid/cid_prologue.h"
#include "support/truncation.h"

namespace QXFontService_NS::cid {
namespace {

using embed::cidKeyedFont;
using embed::contentOf;
using embed::nameKeyedFont;
using embed::OpenedCff;
using qxtest::CffBuilder;
using Gids = std::vector<std::uint16_t>;

struct Written {
  Written(CffBuilder& builder, const Gids& gids, const char16_t* name = u"My Font") {
    OpenedCff font(builder);
    QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
    good = makeCidFontType0(font.source, gids, name, out, fontName, info);
    text = contentOf(out);
  }
  [[nodiscard]] std::string line(const std::string& key) const {
    const std::size_t at = text.find(key);
    return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
  }
  [[nodiscard]] std::string tag() const {
    std::string name;
    fontName.toUTF8String(name);
    return name.substr(0, name.find('-') + 1);
  }

  bool good = false;
  std::string text;
  icu::UnicodeString fontName = u"untouched";
  FS_CIDSystemInfo info;
};

TEST(SubsetTag, IsQxHexAndHyphen) {
  const std::string tag = makeSubsetTag();
  ASSERT_GE(tag.size(), 7u);
  EXPECT_EQ(tag.substr(0, 2), "QX");
  EXPECT_EQ(tag.back(), '-');
  EXPECT_EQ(tag.find_first_not_of("0123456789ABCDEF", 2), tag.size() - 1);
  EXPECT_NE(makeSubsetTag(), tag);
}

// The C library's generator, unseeded in a host, gives 0x0A58 behind this seed.
TEST(SubsetTag, HasFourDigitsAtLeast) {
  std::srand(37325);
  EXPECT_EQ(makeSubsetTag(), "QX0A58-");
  std::srand(1);
  EXPECT_EQ(makeSubsetTag(), "QX6B8B4567-");  // the first of every process
}

TEST(CidFontType0, TellsNameAndCollection) {
  CffBuilder builder = nameKeyedFont(4);
  const Written font(builder, {1, 2});
  ASSERT_TRUE(font.good);
  const icu::UnicodeString tag = icu::UnicodeString::fromUTF8(font.tag());
  EXPECT_EQ(font.fontName, tag + u"My_Font");
  EXPECT_EQ(font.info.Registry, icu::UnicodeString(u"Quillbracken"));
  EXPECT_EQ(font.info.Ordering, tag + u"Subset");
  EXPECT_EQ(font.info.Supplement, 1);
  EXPECT_EQ(font.line("/CIDFontName"), "/CIDFontName /" + font.tag() + "My_Font def");
  EXPECT_EQ(font.line("/Ordering (Q"), "/Ordering (" + font.tag() + "Subset) def");
}

TEST(CidFontType0, OnlyBlanksBecomeUnderscores) {
  CffBuilder builder = nameKeyedFont(4);
  const Written font(builder, {1}, u"a b\tc-(d) e");
  EXPECT_EQ(font.fontName, icu::UnicodeString::fromUTF8(font.tag()) + u"a_b\tc-(d)_e");
}

// The block as the hexadecimal lines have it.
std::string blockOf(const std::string& text) {
  const std::string start = " StartData\n";
  const std::size_t from = text.find(start) + start.size();
  std::string block;
  std::string digits;
  for (std::size_t i = from; text[i] != '>'; ++i) {
    if (text[i] == '\n') continue;
    digits += text[i];
    if (digits.size() < 2) continue;
    block += static_cast<char>(std::stoi(digits, nullptr, 16));
    digits.clear();
  }
  return block;
}

TEST(CidFontType0, BlockHoldsMapsCharstringsAndSubrs) {
  CffBuilder builder = nameKeyedFont(4);
  const Written font(builder, {2, 1, 2});
  EXPECT_EQ(font.line("/CIDCount"), "/CIDCount 4 def");
  EXPECT_EQ(font.line("/SubrCount"), "/SubrCount 4 def");
  const std::string block = blockOf(font.text);
  EXPECT_EQ(font.line("(Hex)"), "(Hex) " + std::to_string(block.size()) + " StartData");
  // CID map: five entries of three bytes; the closing one leads to the map of the Subrs.
  const auto word = [&block](std::size_t at) {
    return static_cast<unsigned char>(block[at]) * 256U + static_cast<unsigned char>(block[at + 1]);
  };
  EXPECT_EQ(word(1), 15u);
  const unsigned subrMap = word(13);
  EXPECT_EQ(font.line("/SubrMapOffset"), "/SubrMapOffset " + std::to_string(subrMap) + " def");
  EXPECT_EQ(word(subrMap), subrMap + 10);
  EXPECT_EQ(word(subrMap + 8), block.size());
  // CIDs 1 and 3 are one glyph.
  EXPECT_EQ(block.substr(word(4), word(7) - word(4)), block.substr(word(10), word(13) - word(10)));
  EXPECT_EQ(font.text.substr(font.text.size() - 12), ">\n%%EndData\n");
}

// Map, two charstrings "0 500 hsbw n hmoveto endchar", map of the Subrs, the four fixed ones.
TEST(CidFontType0, GoldenBlockOfASmallFont) {
  CffBuilder builder = nameKeyedFont(4);
  const Written font(builder, {1});
  const std::string golden =
      "(Hex) 55 StartData\n"
      "0000090000100000179b2c08a15699bd9b2c08a15190630021002c0031003600\n"
      "379eb4f595ec42346644ed229b58f7fe7a9b59c527231b"
      ">\n%%EndData\n";
  ASSERT_GT(font.text.size(), golden.size());
  EXPECT_EQ(font.text.substr(font.text.size() - golden.size()), golden);
}

std::string encoded(const std::string& tokens) {
  std::string bytes = charstring::type1Bytes(charstring::tokensOf(tokens));
  charstring::encryptCharString(bytes);
  return bytes;
}

/// The pieces back to back, and in `map` where each begins and the last one ends, behind `lead`.
std::string packed(const std::vector<std::string>& pieces, std::size_t start, std::string& map,
                   const std::string& leads = "") {
  std::string bytes;
  for (std::size_t i = 0; i <= pieces.size(); ++i) {
    const std::size_t at = start + bytes.size();
    if (!leads.empty()) map += leads[i];
    map += static_cast<char>(at / 256);
    map += static_cast<char>(at % 256);
    if (i < pieces.size()) bytes += pieces[i];
  }
  return bytes;
}

// Each part of the block in its place: CIDs with their Font DICTs, charstrings, the map of the
// Subrs, the four fixed Subrs and the one of a hint replacement.
TEST(CidFontType0, BlockOfACidKeyedFontByteByByte) {
  CffBuilder builder = cidKeyedFont(8);
  builder.glyphs[1] = qxtest::CharStringBuilder()
                          .numbers({1, 2})
                          .op(18)
                          .op(19)
                          .raw("\x80")
                          .number(7)
                          .op(22)
                          .op(14)
                          .str();
  const Written font(builder, {5, 1});
  ASSERT_TRUE(font.good);
  std::string cidMap;
  const std::string charStrings =
      packed({encoded("0 500 hsbw 0 hmoveto endchar"), encoded("0 501 hsbw 5 hmoveto endchar"),
              encoded("0 500 hsbw 1 2 hstem 4 1 3 callothersubr pop callsubr 7 hmoveto endchar")},
             12, cidMap, std::string("\0\1\0\0", 4));
  ASSERT_EQ(cidMap.size(), 12u);
  std::string subrMap;
  const std::string subrs =
      packed({encoded("3 0 callothersubr pop pop setcurrentpoint return"),
              encoded("0 1 callothersubr return"), encoded("0 2 callothersubr return"),
              encoded("return"), encoded("1 2 hstem return")},
             12 + charStrings.size() + 12, subrMap);
  EXPECT_EQ(blockOf(font.text), cidMap + charStrings + subrMap + subrs);
  EXPECT_EQ(font.line("/SubrCount"), "/SubrCount 5 def");
  EXPECT_EQ(font.line("/SubrMapOffset"),
            "/SubrMapOffset " + std::to_string(12 + charStrings.size()) + " def");
}

TEST(CidFontType0, EmptyRequestHoldsNotdef) {
  CffBuilder builder = nameKeyedFont(4);
  const Written font(builder, {});
  ASSERT_TRUE(font.good);
  EXPECT_EQ(font.line("/CIDCount"), "/CIDCount 1 def");
  EXPECT_FALSE(font.tag().empty());
}

TEST(CidFontType0, CidKeyedFontWritesItsFontDicts) {
  CffBuilder builder = cidKeyedFont(8);
  const Written font(builder, {1, 6});
  EXPECT_EQ(font.line("/FDArray"), "/FDArray 2 array");
  const std::string block = blockOf(font.text);
  EXPECT_EQ(block[0], 0);
  EXPECT_EQ(block[3], 0);
  EXPECT_EQ(block[6], 1);
}

TEST(CidFontType0, FailureLeavesEverythingAsItWas) {
  CffBuilder builder = nameKeyedFont(4);
  builder.glyphs[2] = "\x0E";  // a bare endchar has no Type 1 form
  const Written font(builder, {2});
  EXPECT_FALSE(font.good);
  EXPECT_EQ(font.text, "");
  EXPECT_EQ(font.fontName, icu::UnicodeString(u"untouched"));
  EXPECT_TRUE(font.info.Registry.isEmpty());
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  icu::UnicodeString name;
  FS_CIDSystemInfo info;
  EXPECT_FALSE(makeCidFontType0({}, {}, u"", out, name, info));
}

// Two runs differ in nothing but the tag.
TEST(CidFontType0, RunsDifferInTheTagAlone) {
  CffBuilder builder = cidKeyedFont(8);
  const Written first(builder, {1, 6});
  const Written second(builder, {1, 6});
  EXPECT_NE(first.tag(), second.tag());
  std::string text = second.text;
  for (std::size_t at = text.find(second.tag()); at != std::string::npos;
       at = text.find(second.tag(), at + 1))
    text.replace(at, second.tag().size(), first.tag());
  EXPECT_EQ(text, first.text);
}

}  // namespace
}  // namespace QXFontService_NS::cid
