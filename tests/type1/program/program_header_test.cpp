#include "type1/program/program_header.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/type1_builder.h"
#include "type1/text/post_script_string.h"

namespace QXFontService_NS::type1 {
namespace {

/// "" on success, else code and detail.
std::string pfb(const std::string& bytes, ProgramHeader& header) {
  std::istringstream stream(bytes);
  const auto failure = readPfbHeader(stream, header);
  return failure ? std::to_string(failure->code) + " " + failure->detail : "";
}

ProgramHeader pfbOf(const std::string& text) {
  ProgramHeader header;
  EXPECT_EQ(pfb(qxtest::type1Segment(1, text), header), "");
  return header;
}

std::string pfa(const std::string& text, ProgramHeader& header) {
  std::istringstream stream(text);
  const auto failure = readPfaHeader(stream, header);
  return failure ? std::to_string(failure->code) + " " + failure->detail : "";
}

TEST(PfbHeader, keysBehindASlash) {
  const ProgramHeader header = pfbOf(
      "%!PS\n/FontName /Made-Bold def\r\n/FullName (Made \\(Bold\\)) readonly def\r"
      "/FamilyName (Made) readonly def\n/Weight (Bold) readonly def\n/ItalicAngle -12.5 def\n"
      "/UnderlinePosition -100 def\n/UnderlineThickness 50 def\n"
      "/FontBBox{-168 -281 1000.5 924}readonly def\n/Encoding StandardEncoding def\n");
  EXPECT_EQ(header.fontName, "Made-Bold");
  EXPECT_EQ(header.fullName, "Made (Bold)");
  EXPECT_EQ(header.familyName, "Made");
  EXPECT_EQ(header.weightName, "Bold");
  EXPECT_EQ(header.weight, 700);
  EXPECT_EQ(header.italicAngle, -12.5F);
  EXPECT_EQ(header.underlinePosition, -100);
  EXPECT_EQ(header.underlineThickness, 50);
  EXPECT_EQ(header.fontBBox, (std::array<float, 4>{-168, -281, 1000.5F, 924}));
  EXPECT_TRUE(header.standardEncoding);
  EXPECT_FALSE(header.customEncoding);
}

TEST(PfbHeader, defaults) {
  const ProgramHeader header = pfbOf("");
  EXPECT_EQ(header.weight, 400);
  EXPECT_TRUE(header.standardEncoding);
  EXPECT_FALSE(header.customEncoding);
}

TEST(PfbHeader, isFixedPitchIsNotTheKeyThatFontsWrite) {
  EXPECT_FALSE(pfbOf("/isFixedPitch true def\n").isFixedPitch);
  EXPECT_TRUE(pfbOf("/IsFixedPitch true def\n").isFixedPitch);
  EXPECT_FALSE(pfbOf("/IsFixedPitch truely def\n").isFixedPitch);
}

TEST(PfbHeader, keysThatDoNotCount) {
  EXPECT_EQ(pfbOf(" /FontName /A def\n").fontName, "");
  EXPECT_EQ(pfbOf("/FontName2 /A def\n").fontName, "2");  // the run of letters is the key
  EXPECT_EQ(pfbOf("/FontInfo 1 dict begin /FontName /A def\n").fontName, "");
  EXPECT_EQ(pfbOf(std::string("/FontName /A def\n\0/FontName /B def\n", 36)).fontName, "A");
}

TEST(PfbHeader, encodings) {
  const struct {
    const char* text;
    const char* name;
    bool standard, custom;
  } rows[] = {{"/Encoding StandardEncoding def\n", "StandardEncoding", true, false},
              {"/Encoding ISOLatin1Encoding def\n", "ISOLatin1Encoding", false, true},
              {"/Encoding 256 array\n0 1 255 {} for\ndup 65 /A put\n", "", true, true},
              {"/Encoding 256 array\n", "", true, false},
              {"dup 65 /A put\n/Encoding StandardEncoding def\n", "StandardEncoding", true, true}};
  for (const auto& row : rows) {
    const ProgramHeader header = pfbOf(row.text);
    EXPECT_EQ(header.encodingName, row.name) << row.text;
    EXPECT_EQ(header.standardEncoding, row.standard) << row.text;
    EXPECT_EQ(header.customEncoding, row.custom) << row.text;
  }
}

TEST(PfbHeader, failures) {
  const std::string sound = qxtest::type1Segment(1, "abc");
  ProgramHeader header;
  for (std::size_t size = 0; size < 6; ++size)
    EXPECT_EQ(pfb(sound.substr(0, size), header), "1921 ");
  EXPECT_EQ(pfb(sound.substr(0, 8), header), "1928 SegmentData read error");
  EXPECT_EQ(pfb(std::string(1, '\0') + sound.substr(1), header), "1928 Header bad signature: 00");
  EXPECT_EQ(pfb("\x80\x02" + sound.substr(2), header), "1928 Header bad segmentType: 02");
  EXPECT_EQ(pfb(std::string("\x80\x01\xFF\xFF\xFF\xFF", 6) + "abc", header),
            "1928 SegmentData read error");
  EXPECT_EQ(pfb(qxtest::type1Segment(1, "x\n/FontBBox {1 2 3} def\ny"), header),
            "1928 /FontBBox {1 2 3} def");
  EXPECT_EQ(pfb(qxtest::type1Segment(1, "/FontBBox 1 2 3 4 def"), header),
            "1928 /FontBBox 1 2 3 4 def");
}

TEST(PfbHeader, theLastEncodingCounts) {
  const ProgramHeader header = pfbOf("/Encoding ISOLatin1Encoding def\n/Encoding 256 array\n");
  EXPECT_EQ(header.encodingName, "");
  EXPECT_TRUE(header.standardEncoding);
  EXPECT_FALSE(header.customEncoding);
}

TEST(PfbHeader, textBehindAZeroDoesNotCount) {
  EXPECT_EQ(pfbOf(std::string("/FullName (A) def\n\0/FullName (B) def\n", 37)).fullName, "A");
}

TEST(PfaHeader, onlyBareKeysCount) {
  ProgramHeader header;
  EXPECT_EQ(pfa(qxtest::Type1Builder().header("/Weight (Bold) def").pfa(), header), "");
  EXPECT_EQ(header.fontName, "");
  EXPECT_EQ(header.weight, 400);
  EXPECT_TRUE(header.standardEncoding);
  EXPECT_EQ(pfa("  FontName /A def\nWeight (Bold)\nFontBBox [1 2 3 4]\nEncoding  Own \n"
                "IsFixedPitch true \nItalicAngle 3",
                header),
            "");
  EXPECT_EQ(header.fontName, "A");
  EXPECT_EQ(header.weight, 700);
  EXPECT_EQ(header.fontBBox[3], 4);
  EXPECT_EQ(header.encodingName, "Own");
  EXPECT_FALSE(header.standardEncoding);
  EXPECT_TRUE(header.customEncoding);
  EXPECT_TRUE(header.isFixedPitch);
  EXPECT_EQ(header.italicAngle, 3);
}

TEST(PfaHeader, endsAtTheWordOfThePrivatePart) {
  ProgramHeader header;
  EXPECT_EQ(pfa("FontName /A\nx currentfile eexec\nFontName /B\n", header), "");
  EXPECT_EQ(header.fontName, "A");
  EXPECT_EQ(pfa("FontName /currentfile\nFontName /C\n", header), "");
  EXPECT_EQ(header.fontName, "C");  // the word counts on lines without a key
}

TEST(PfaHeader, aBoxOfThreeFails) {
  ProgramHeader header;
  EXPECT_EQ(pfa("FontBBox {1 2 3}\n", header), "1928 ");
  EXPECT_EQ(pfa("Encoding\n", header), "");
  EXPECT_TRUE(header.standardEncoding);
}

TEST(PostScriptValue, stringsAndNames) {
  EXPECT_EQ(postScriptValue("(a (b) c) def"), "a (b) c");
  EXPECT_EQ(postScriptValue("(a\\)\\n\\101\\q)"), "a)\nAq");
  EXPECT_EQ(postScriptValue("(open"), "open");
  EXPECT_EQ(postScriptValue("(a\\"), "a");
  EXPECT_EQ(postScriptValue("  /Name def"), "/Name");
  EXPECT_EQ(postScriptValue(""), "");
}

}  // namespace
}  // namespace QXFontService_NS::type1
