#include "type1/program/program_char_strings.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/truncation.h"
#include "support/type1_builder.h"
#include "type1/program/post_script_tokens.h"
#include "type1/program/program_parts.h"

namespace QXFontService_NS::type1 {
namespace {

std::string encrypted(const std::string& code, std::size_t leadBytes = 4) {
  return qxtest::type1Encrypted(std::string(leadBytes, '\0') + code, qxtest::kCharStringKey);
}

std::string binary(const std::string& bytes, const std::string& word = "RD") {
  return std::to_string(bytes.size()) + " " + word + " " + bytes;
}

/// "subr number=code ... | glyph=code ...", with "odd" where something is.
std::string told(const ProgramCharStrings& found) {
  std::string text;
  for (const auto& [number, code] : found.subrs) text += std::to_string(number) + "=" + code + " ";
  text += "|";
  for (const auto& [name, code] : found.glyphs) text += " " + name + "=" + code;
  return text + (found.isSound ? "" : " odd");
}

std::string inPrivate(const std::string& text) {
  return told(findCharStrings("", "/Private 8 dict dup begin\n" + text));
}

const std::string kGlyphs =
    "/CharStrings 1 dict dup begin\n/A " + binary(encrypted("x")) + " ND\nend\n";

TEST(PostScriptTokens, StringsProceduresAndCommentsAreSteppedOver) {
  static constexpr char kText[] = "a/b%c (\n12 -3 {d {e} (}) % }\n} (f\\)(g)) [h]<41>>\0i";
  PostScriptTokens tokens(std::string_view(kText, sizeof kText - 1));
  std::string text;
  for (std::string_view token = tokens.next(); !token.empty(); token = tokens.next())
    text.append("<").append(token).append(">");
  EXPECT_EQ(text, "<a></b><12><-3><{d {e} (}) % }\n}><(f\\)(g))><[><h><]><<><41><>><>><i>");
}

TEST(PostScriptTokens, OnlyPlainIntegersAreNumbers) {
  const std::pair<const char*, int> rows[] = {{"12", 12},   {"-3 x", -3},        {"16#1F", -99},
                                              {"1.5", -99}, {"x", -99},          {"", -99},
                                              {"+1", -99},  {"99999999999", -99}};
  for (const auto& [text, number] : rows)
    EXPECT_EQ(PostScriptTokens(text).integer().value_or(-99), number) << text;
}

TEST(ProgramCharStrings, SubroutinesAndGlyphs) {
  EXPECT_EQ(inPrivate("/Subrs 2 array\ndup 0 " + binary(encrypted("a")) + " NP\ndup 1 " +
                      binary(encrypted("b"), "-|") + " noaccess put\nND\n" + kGlyphs),
            "0=a 1=b | A=x");
  EXPECT_EQ(inPrivate("/Subrs [] def\n" + kGlyphs), "| A=x");
  EXPECT_EQ(inPrivate("/CharStrings 1 dict def\nCharStrings begin /A " + binary(encrypted("x")) +
                      " ND end"),
            "| A=x")
      << "defined first, filled later";
}

TEST(ProgramCharStrings, LeadBytesAreThoseThatTheFontStates) {
  EXPECT_EQ(inPrivate("/lenIV 0 def /CharStrings 1 dict begin /A " + binary(encrypted("x", 0)) +
                      " ND end"),
            "| A=x");
  EXPECT_EQ(inPrivate("/lenIV -1 def /CharStrings 1 dict begin /A " + binary("x") + " ND end"),
            "| A=x")
      << "not encrypted";
  EXPECT_EQ(inPrivate("/lenIV 7 def " + kGlyphs), "| odd") << "more than there are bytes";
}

TEST(ProgramCharStrings, KeysCountOnceBehindThePrivateDictionary) {
  const std::string other = "/CharStrings 1 dict begin /B " + binary(encrypted("y")) + " ND end ";
  EXPECT_EQ(inPrivate(kGlyphs + other), "| A=x");
  EXPECT_EQ(told(findCharStrings(other, "/Private 1 dict " + kGlyphs)), "| A=x");
  EXPECT_EQ(told(findCharStrings("/Private 1 dict " + other, kGlyphs)), "| B=y");
  EXPECT_EQ(told(findCharStrings("currentfile eexec /Private 1 dict " + other, "")), "|");
  EXPECT_EQ(inPrivate("closefile " + kGlyphs), "|");
}

TEST(ProgramCharStrings, TextThatOnlyLooksLikeThemDoesNotCount) {
  const std::string other = "/CharStrings 1 dict begin /B 5 RD 12345 ND end";
  for (const std::string& hidden :
       {"(" + other + ")", "{" + other + "}", "% " + other, binary(other) + " x"})
    EXPECT_EQ(inPrivate(hidden + "\n" + kGlyphs), "| A=x") << hidden;
}

TEST(ProgramCharStrings, OddOnesAreToldAsSuch) {
  for (const char* odd :
       {"/CharStrings 1 dict begin /A x RD y", "/CharStrings 1 dict begin /A 16#5 RD 12345 ND end",
        "/CharStrings 1 dict begin /A 500 RD y", "/CharStrings 1 dict begin /A -5 RD y",
        "/Subrs 1 array dup x 5 RD 12345 NP", "/Subrs 16#1 array dup 0 5 RD 12345 NP",
        "/Subrs 1 array dup 0 99 RD x", "/lenIV x def", "99 RD x"}) {
    const std::string text = inPrivate(odd);
    EXPECT_NE(text.find("odd"), std::string::npos) << odd << ": " << text;
  }
}

TEST(ProgramCharStrings, OfAWholeProgramInBothForms) {
  const std::string box = qxtest::type1Box(500, 100);
  qxtest::Type1Builder font;
  font.glyph(".notdef", box).glyph("A", box);
  for (const std::string& bytes : {font.pfb(), font.pfa()}) {
    std::istringstream stream(bytes);
    const ProgramParts parts = readProgramParts(stream);
    EXPECT_EQ(told(findCharStrings(parts.clearText, parts.privatePart)),
              "| .notdef=" + box + " A=" + box);
  }
}

TEST(ProgramCharStrings, BinarySegmentsThatFollowEachOtherAreOnePart) {
  const std::string cipher = qxtest::type1Encrypted("{({(" + kGlyphs, qxtest::kEexecKey);
  std::istringstream stream(qxtest::type1Segment(1, "clear") +
                            qxtest::type1Segment(2, cipher.substr(0, 9)) +
                            qxtest::type1Segment(2, cipher.substr(9)) +
                            qxtest::type1Segment(1, "trailer") + qxtest::type1Segment(2, "x"));
  const ProgramParts parts = readProgramParts(stream);
  EXPECT_EQ(parts.clearText, "clear");
  EXPECT_EQ(parts.privatePart, kGlyphs) << "without the random bytes, which may open anything";
}

TEST(ProgramCharStrings, CutAnywhereTheyEnd) {
  qxtest::Type1Builder font;
  font.glyph(".notdef", qxtest::type1Box(1, 1)).glyph("A", qxtest::type1Box(1, 1));
  qxtest::forEachPrefix(font.privatePart(), [](const std::string& text) {
    EXPECT_LE(findCharStrings("", text).glyphs.size(), 2u);
  });
  qxtest::forEachPrefix(font.pfb(), [](const std::string& bytes) {
    std::istringstream stream(bytes);
    EXPECT_LE(readProgramParts(stream).privatePart.size(), bytes.size());
  });
}

}  // namespace
}  // namespace QXFontService_NS::type1
