#include "embed/cid/cid_prologue.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "embed/cff/dict_entries.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::cid {
namespace {

using QXCommonNS::QXValue;
using qxtest::DictBuilder;

QXValue topDict(const DictBuilder& dict) {
  return cff::parseDict({dict.str().data(), dict.str().size()}, cff::kTopDictEntries);
}

QXValue privateDict(const DictBuilder& dict) {
  return cff::parseDict({dict.str().data(), dict.str().size()}, cff::kPrivateDictEntries);
}

CidPrologue prologueOf(const DictBuilder& top, const DictBuilder& priv) {
  CidPrologue prologue;
  prologue.fontName = "QX1A2B-My_Font";
  prologue.systemInfo = {u"Quillbracken", u"QX1A2B-Subset", 1};
  prologue.topDict = topDict(top);
  prologue.privates = {privateDict(priv)};
  prologue.glyphs = 3;
  prologue.subrs = 4;
  prologue.layout = {1, 2, 2, 12, 40, 10, 20};
  return prologue;
}

const std::string kHead =
    "/CIDInit /ProcSet findresource begin\n"
    "20 dict begin\n"
    "/CIDFontName /QX1A2B-My_Font def\n"
    "/CIDFontType 0 def\n"
    "/CIDSystemInfo 3 dict dup begin\n"
    "/Registry (Quillbracken) def\n"
    "/Ordering (QX1A2B-Subset) def\n"
    "/Supplement 1 def\n"
    "end def\n"
    "/FontBBox [0 0 0 0] def\n"
    "/FontInfo 3 dict dup begin\n"
    "/Nontice () def\n"
    "/Ordering () def\n"
    "/FSType 4 def\n"
    "end def\n"
    "/CIDCount 3 def\n"
    "/GDBytes 2 def\n"
    "/FDBytes 1 def\n"
    "/CIDMapOffset 0 def\n"
    "/PaintType 0 def\n"
    "/FDArray 1 array\n"
    "dup 0\n"
    "%ADOBeginFontDict\n"
    "14 dict begin\n"
    "/FontType 1 def\n"
    "/FontMatrix [0.001 0 0 0.001 0 0] def\n"
    "/PaintType 0 def\n"
    "%ADOBeginPrivateDict\n"
    "/Private 25 dict dup begin\n";

const std::string kTail =
    "/RD {string currentfile exch readstring pop} executeonly def\n"
    "/ND {noaccess def} executeonly def\n"
    "/NP {noaccess put} executeonly def\n"
    "/SubrCount 4 def\n"
    "/SDBytes 2 def\n"
    "/SubrMapOffset 52 def\n"
    "end def\n"
    "%ADOEndPrivateDict\n"
    "currentdict end\n"
    "%ADOEndFontDict\n"
    "put\n"
    "def\n"
    "%%BeginData: /*SIZE OMITTED*/ Binary Bytes\n"
    "(Hex) 82 StartData\n";

std::string expected(const std::string& privateLines) {
  return kHead + privateLines + "/lenIV 0 def\n/MinFeature {16 16} def\n/password 5839 def\n" +
         std::string(kFlexProcedures) + "\n" + kTail;
}

// The misspelled /Nontice and the second, empty /Ordering are in documents already written.
TEST(CidPrologueText, IsTheFixedTextForABareFont) {
  EXPECT_EQ(prologueText(prologueOf({}, {})), expected(""));
}

struct LineCase {
  DictBuilder dict;
  const char* text;
};

// The misspelled /BlueFuss, the endings of the four blue arrays and the two blanks of the stem
// arrays are in documents already written.
TEST(CidPrologueText, PrivateLinesAreWrittenLetterForLetter) {
  const std::vector<LineCase> cases = {
      {DictBuilder().entry(0x0C0B, 2), "/BlueFuss 2 def\n"},
      {DictBuilder().real(".039625").op(0x0C09), "/BlueScale 0.039625 def\n"},
      {DictBuilder().entry(0x0C0A, 0), "/BlueShift 0 def\n"},
      {DictBuilder().numbers({-15, 15, 400, 10}).op(6), "/BlueValues [ -15 15 400 10 ] def\n"},
      {DictBuilder().numbers({-200, 8}).op(7), "/OtherBlues [ -200 8 ] def\n"},
      {DictBuilder().numbers({-15, 15}).op(8), "/FamilyBlues [ -15 15] def\n"},
      {DictBuilder().numbers({-200, 8}).op(9), "/FamilyOtherBlues [ -200 8] def\n"},
      {DictBuilder().entry(10, 40), "/StdHW [ 40 ] def\n"},
      {DictBuilder().real("80.5").op(11), "/StdVW [ 80.5 ] def\n"},
      {DictBuilder().numbers({30, 5, 5}).op(0x0C0C), "/StemSnapH [  30 35 40 ] def\n"},
      {DictBuilder().numbers({70}).real("2.9").op(0x0C0D), "/StemSnapV [  70 72 ] def\n"},
      {DictBuilder().entry(0x0C0E, 1), "/ForceBold true def\n"},
      {DictBuilder().entry(0x0C0E, 0), "/ForceBold false def\n"},
      {DictBuilder().entry(0x0C11, 0), "/LanguageGroup 0 def\n"},
      {DictBuilder().entry(0x0C11, 1), "/LanguageGroup 1 def\n/RndStemUp false def\n"},
      {DictBuilder().real("1.5").op(0x0C11), "/LanguageGroup 1.5 def\n/RndStemUp false def\n"},
      {DictBuilder().entry(0x0C11, 2), "/LanguageGroup 2 def\n"},
      {DictBuilder().real("0.06").op(0x0C12), "/ExpansionFactor 0.06 def\n"},
      {DictBuilder().entry(0x0C13, 5).entry(19, 5).entry(20, 5).entry(21, 5), ""},
  };
  for (const LineCase& test : cases)
    EXPECT_EQ(prologueText(prologueOf({}, test.dict)), expected(test.text)) << test.text;
}

TEST(CidPrologueText, PrivateLinesHaveOneOrder) {
  const DictBuilder dict = DictBuilder()
                               .entry(0x0C12, 1)
                               .entry(0x0C11, 1)
                               .entry(0x0C0E, 1)
                               .entry(0x0C0D, 1)
                               .entry(0x0C0C, 1)
                               .entry(11, 1)
                               .entry(10, 1)
                               .entry(9, 1)
                               .entry(8, 1)
                               .entry(7, 1)
                               .entry(6, 1)
                               .entry(0x0C0A, 1)
                               .entry(0x0C09, 1)
                               .entry(0x0C0B, 1);
  EXPECT_EQ(prologueText(prologueOf({}, dict)),
            expected("/BlueFuss 1 def\n/BlueScale 1 def\n/BlueShift 1 def\n/BlueValues [ 1 ] def\n"
                     "/OtherBlues [ 1 ] def\n/FamilyBlues [ 1] def\n/FamilyOtherBlues [ 1] def\n"
                     "/StdHW [ 1 ] def\n/StdVW [ 1 ] def\n/StemSnapH [  1 ] def\n"
                     "/StemSnapV [  1 ] def\n/ForceBold true def\n/LanguageGroup 1 def\n"
                     "/RndStemUp false def\n/ExpansionFactor 1 def\n"));
}

TEST(CidPrologueText, ArraysWithoutElementsAreEmpty) {
  EXPECT_EQ(prologueText(prologueOf({}, DictBuilder().op(6).op(8).op(0x0C0C))),
            expected("/BlueValues [ ] def\n/FamilyBlues [] def\n/StemSnapH [  ] def\n"));
}

std::string lineOf(const std::string& text, const std::string& key) {
  const std::size_t at = text.find(key);
  return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
}

TEST(CidPrologueText, TakesBoxAndMatrixOfTheTopDict) {
  const std::string text = prologueText(prologueOf(DictBuilder()
                                                       .numbers({-10, -200, 1000})
                                                       .real("900.5")
                                                       .op(5)
                                                       .real("0.0005")
                                                       .numbers({0, 0})
                                                       .real("0.0005")
                                                       .numbers({0, 0})
                                                       .op(0x0C07),
                                                   {}));
  EXPECT_EQ(lineOf(text, "/FontBBox"), "/FontBBox [-10 -200 1000 900.5] def");
  EXPECT_EQ(lineOf(text, "/FontMatrix"), "/FontMatrix [0.0005 0 0 0.0005 0 0] def");
}

TEST(CidPrologueText, ShortBoxAndMatrixGiveTheDefaults) {
  const std::string text = prologueText(
      prologueOf(DictBuilder().numbers({1, 2, 3}).op(5).numbers({1, 0, 0, 1, 0}).op(0x0C07), {}));
  EXPECT_EQ(lineOf(text, "/FontBBox"), "/FontBBox [0 0 0 0] def");
  EXPECT_EQ(lineOf(text, "/FontMatrix"), "/FontMatrix [0.001 0 0 0.001 0 0] def");
}

TEST(CidPrologueText, WritesEveryFontDictWithTheSameMatrixAndSubrs) {
  CidPrologue prologue = prologueOf(DictBuilder().numbers({1, 0, 0, 1, 0, 0}).op(0x0C07), {});
  prologue.privates = {privateDict(DictBuilder().entry(10, 1)),
                       privateDict(DictBuilder().entry(10, 2))};
  const std::string text = prologueText(prologue);
  EXPECT_EQ(lineOf(text, "/FDArray"), "/FDArray 2 array");
  EXPECT_NE(text.find("dup 0\n%ADOBeginFontDict\n"), std::string::npos);
  const std::size_t second = text.find("put\ndup 1\n%ADOBeginFontDict\n");
  ASSERT_NE(second, std::string::npos);
  EXPECT_EQ(lineOf(text.substr(second), "/StdHW"), "/StdHW [ 2 ] def");
  EXPECT_EQ(lineOf(text.substr(second), "/FontMatrix"), "/FontMatrix [1 0 0 1 0 0] def");
  EXPECT_EQ(lineOf(text.substr(second), "/SubrCount"), "/SubrCount 4 def");
}

// The published text; its length and its line ends are known.
TEST(FlexProcedures, AreWhole) {
  EXPECT_EQ(kFlexProcedures.size(), 5034u);
  EXPECT_EQ(std::count(kFlexProcedures.begin(), kFlexProcedures.end(), '\n'), 176);
  EXPECT_EQ(kFlexProcedures.substr(0, 23), "/OtherSubrs\n[systemdict");
  EXPECT_EQ(kFlexProcedures.substr(kFlexProcedures.size() - 14), "] noaccess def");
  // FNV-1a of the text: every byte counts.
  std::uint64_t hash = UINT64_C(0xCBF29CE484222325);
  for (const char c : kFlexProcedures)
    hash = (hash ^ static_cast<unsigned char>(c)) * UINT64_C(0x100000001B3);
  EXPECT_EQ(hash, UINT64_C(0x291F42E55A42ABF4));
}

}  // namespace
}  // namespace QXFontService_NS::cid
