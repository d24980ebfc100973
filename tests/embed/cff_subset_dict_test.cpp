#include "embed/cff_subset_dict.h"

#include <gtest/gtest.h>

#include <sstream>

#include "embed/cff/dict.h"
#include "support/byte_text.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteWriter;
using qxtest::bytesOf;
using qxtest::cffIndex;
using qxtest::DictBuilder;
using qxtest::DictForm;

const std::string kPlaceholder = bytesOf({29, 0, 0, 0, 0});

std::string rewrite(const DictBuilder& dict, DictPlaces& places) {
  return rewriteTopDict(dict.str(), places);
}

TEST(RewriteTopDict, DropsVersionAndEncodingWithTheirLastOperand) {
  DictPlaces places;
  EXPECT_EQ(rewrite(DictBuilder().entry(0, 391).entry(2, 5).numbers({7, 8}).op(16), places),
            DictBuilder().entry(2, 5).number(7).str());
}

// A DICT that ends with a dropped operator must not keep its bytes.
TEST(RewriteTopDict, IsCutWhereItEndsWithADroppedOperator) {
  DictPlaces places;
  EXPECT_EQ(rewrite(DictBuilder().entry(2, 5).entry(16, 1000), places),
            DictBuilder().entry(2, 5).str());
  EXPECT_EQ(rewrite(DictBuilder().op(0).op(16), places), "");
}

TEST(RewriteTopDict, OffsetsBecomePlaceholders) {
  DictPlaces places;
  const std::string out = rewrite(DictBuilder()
                                      .entry(15, 1)
                                      .entry(17, 2000)
                                      .numbers({40, 300})
                                      .op(18)
                                      .entry(0x0C24, 5)
                                      .number(6, DictForm::fourBytes)
                                      .op(0x0C25),
                                  places);
  EXPECT_EQ(out, kPlaceholder + bytesOf({15}) + kPlaceholder + bytesOf({17}) +
                     DictBuilder().number(40).str() + kPlaceholder + bytesOf({18}) + kPlaceholder +
                     bytesOf({12, 36}) + kPlaceholder + bytesOf({12, 37}));
  EXPECT_EQ(places.charset->operand, 0u);
  EXPECT_EQ(places.charset->offset, 1);
  EXPECT_EQ(places.charStrings->operand, 6u);
  EXPECT_EQ(places.charStrings->offset, 2000);
  EXPECT_EQ(places.privateDict->operand, 13u);
  EXPECT_EQ(places.privateDict->offset, 300);
  EXPECT_EQ(places.privateDict->size, 40);
  EXPECT_EQ(places.fdArray->operand, 19u);
  EXPECT_EQ(places.fdSelect->operand, 26u);
}

TEST(RewriteTopDict, CopiesAllElseAsItStands) {
  const DictBuilder dict = DictBuilder()
                               .numbers({391, 392, 0})
                               .op(0x0C1E)
                               .real("0.001")
                               .raw(bytesOf({31, 255}))
                               .op(0x0C07)
                               .numbers({1, 2, 3, 4})
                               .op(5)
                               .op(0x0C12)
                               .entry(0x0C22, 9000)
                               .entry(13, 7)
                               .numbers({1, 2})
                               .op(14);
  DictPlaces places;
  EXPECT_EQ(rewrite(dict, places), dict.str());
  EXPECT_EQ(places.charstringType, 2);
  EXPECT_FALSE(places.charset.has_value());
}

TEST(RewriteTopDict, NotesTheCharstringType) {
  DictPlaces places;
  EXPECT_EQ(rewrite(DictBuilder().entry(0x0C06, 1), places), DictBuilder().entry(0x0C06, 1).str());
  EXPECT_EQ(places.charstringType, 1);
}

// 12 16 and 12 18 are not Encoding and Private, and an 18 inside a number is none.
TEST(RewriteTopDict, TakesTwoByteOperatorsAndNumbersAsOne) {
  const DictBuilder dict =
      DictBuilder().entry(0x0C10, 5).entry(0x0C12, 6).number(0x1212, DictForm::twoBytes).op(3);
  DictPlaces places;
  EXPECT_EQ(rewrite(dict, places), dict.str());
  EXPECT_FALSE(places.privateDict.has_value());
}

TEST(RewriteTopDict, OperatorsWithoutOperandsAreNoPlaces) {
  DictPlaces places;
  EXPECT_EQ(rewrite(DictBuilder().op(15).op(17), places), bytesOf({15, 17}));
  EXPECT_FALSE(places.charset.has_value());
  EXPECT_FALSE(places.charStrings.has_value());
}

TEST(FindPlaces, TellsOperandsOfAnUnchangedDict) {
  const DictBuilder dict =
      DictBuilder().entry(16, 5).entry(17, 2000).numbers({40, 300}).op(18).entry(0x0C24, 70000);
  const DictPlaces places = findPlaces(dict.str());
  EXPECT_EQ(places.charStrings->operand, 2u);
  EXPECT_EQ(places.charStrings->offset, 2000);
  EXPECT_EQ(places.privateDict->operand, 7u);
  EXPECT_EQ(places.privateDict->size, 40);
  EXPECT_EQ(places.fdArray->offset, 70000);
}

TEST(TopDictIndex, IsReadWithOneDictOnly) {
  for (const auto& [entries, good] : {std::pair<std::vector<std::string>, bool>{{"dict"}, true},
                                      {{"a", "b"}, false},
                                      {{}, false}}) {
    std::istringstream stream(cffIndex(entries) + "rest");
    std::int64_t position = 0;
    FS_CFFIndexHeader header;
    FS_CFFBytes dict;
    EXPECT_EQ(readTopDictIndex(stream, position, header, dict), good);
    if (!good) continue;
    EXPECT_EQ(dict, "dict");
    EXPECT_EQ(position, 9);
  }
}

TEST(TopDictIndex, IsWrittenWithTheGivenOffSize) {
  ByteWriter out;
  out.u8(9);
  EXPECT_EQ(writeTopDictIndex(out, "dict", 2), 8u);
  const std::string bytes(static_cast<const char*>(static_cast<const void*>(out.view().data())),
                          out.size());
  EXPECT_EQ(bytes, "\x09" + cffIndex({"dict"}, 2));
}

struct PatchCase {
  const char* what;
  std::string before;
  std::int64_t delta;
  std::string after;
};

std::string patched(const std::string& dict, std::int64_t delta) {
  std::vector<std::byte> bytes;
  for (char c : dict) bytes.push_back(static_cast<std::byte>(c));
  const std::size_t size = patchPrivateOffset(bytes, delta);
  std::string out;
  for (std::size_t i = 0; i < size; ++i) out += static_cast<char>(bytes[i]);
  return out;
}

TEST(PatchPrivateOffset, WritesEachFormAsItIs) {
  const std::string size = DictBuilder().number(30).str();
  const std::vector<PatchCase> cases = {
      {"two bytes", size + bytesOf({28, 1, 0, 18}), 6, size + bytesOf({28, 0, 250, 18})},
      {"two bytes, cut", size + bytesOf({28, 1, 0, 18}), -70000,
       size + bytesOf({28, 0x12, 0x70, 18})},
      {"four bytes", size + bytesOf({29, 0, 1, 0, 0, 18}), 1,
       size + bytesOf({29, 0, 0, 255, 255, 18})},
      {"four bytes, upward", size + bytesOf({29, 0, 0, 0, 5, 18}), -1000,
       size + bytesOf({29, 0, 0, 3, 237, 18})},
      // 117 and not 139: kept.
      {"one byte", size + bytesOf({139 + 100, 18}), 40, size + bytesOf({60 + 0x75, 18})},
      {"one byte, cut", size + bytesOf({139 + 100, 18}), -100,
       size + bytesOf({(200 + 0x75) & 255, 18})},
      {"247 form", size + bytesOf({248, 10, 18}), 4, size + bytesOf({248, 6, 18})},
      {"247 form, 108", size + bytesOf({247, 10, 18}), 10, size + bytesOf({247, 0, 18})},
      {"250 form", size + bytesOf({250, 255, 18}), 1, size + bytesOf({250, 254, 18})},
      {"254 form", size + bytesOf({254, 255, 18}), 4, size + bytesOf({254, 255, 18})},
      {"247 form, upward", size + bytesOf({247, 0, 18}), -300, size + bytesOf({248, 44, 18})},
      {"247 form, cut", size + bytesOf({247, 0, 18}), -2000,
       size + bytesOf({(2000 / 256 + 247) & 255, 208, 18})},
      {"251 form", size + bytesOf({251, 0, 18}), 4, size + bytesOf({251, 0, 18})},
      {"real", size + DictBuilder().real("12.5").str() + bytesOf({18}), 2,
       size + bytesOf({10 + 0x75, 0x12, 0xA5, 0xFF, 18})},
  };
  for (const PatchCase& test : cases)
    EXPECT_EQ(patched(test.before, test.delta), test.after) << test.what;
}

TEST(PatchPrivateOffset, TwoByteOperandThatFitsOneMakesTheDictShorter) {
  const std::string before =
      DictBuilder().number(30).raw(bytesOf({247, 10, 18})).entry(0x0C26, 391).str();
  const std::string after =
      DictBuilder().number(30).raw(bytesOf({107 + 0x75, 18})).entry(0x0C26, 391).str();
  EXPECT_EQ(patched(before, 11), after);
}

TEST(PatchPrivateOffset, GoesOnBehindAShortenedOperand) {
  const std::string one = DictBuilder().number(30).raw(bytesOf({247, 10, 18})).str();
  const std::string other = DictBuilder().number(30).raw(bytesOf({28, 1, 0, 18})).str();
  EXPECT_EQ(patched(one + one + other, 11),
            DictBuilder().number(30).raw(bytesOf({107 + 0x75, 18})).str() +
                DictBuilder().number(30).raw(bytesOf({107 + 0x75, 18})).str() +
                DictBuilder().number(30).raw(bytesOf({28, 0, 245, 18})).str());
}

TEST(PatchPrivateOffset, LeavesOtherOperatorsAlone) {
  const std::string dict =
      DictBuilder().entry(0x0C12, 500).number(0x1212, DictForm::twoBytes).op(17).op(18).str();
  EXPECT_EQ(patched(dict, 5), dict);
}

TEST(CopyFontDicts, ShiftsEveryPrivateAndKeepsTheOffsets) {
  const std::string a = DictBuilder().number(30).number(1000, DictForm::fourBytes).op(18).str();
  const std::string b = DictBuilder().number(31).number(1040, DictForm::twoBytes).op(18).str();
  std::istringstream stream(cffIndex({a, b}) + "rest");
  std::int64_t position = 0;
  ByteWriter out;
  ASSERT_TRUE(copyFontDicts(stream, position, 100, out));
  const std::string a2 = DictBuilder().number(30).number(900, DictForm::fourBytes).op(18).str();
  const std::string b2 = DictBuilder().number(31).number(940, DictForm::twoBytes).op(18).str();
  const std::string bytes(static_cast<const char*>(static_cast<const void*>(out.view().data())),
                          out.size());
  EXPECT_EQ(bytes, cffIndex({a2, b2}));
  EXPECT_EQ(position, static_cast<std::int64_t>(bytes.size()));
}

// The INDEX then tells of one byte more than there is: kept.
TEST(CopyFontDicts, ShortenedDictLeavesTheOffsetsAsTheyWere) {
  const std::string dict = DictBuilder().number(30).raw(bytesOf({247, 10, 18})).str();
  std::istringstream stream(cffIndex({dict}));
  std::int64_t position = 0;
  ByteWriter out;
  ASSERT_TRUE(copyFontDicts(stream, position, 11, out));
  EXPECT_EQ(out.size(), cffIndex({dict}).size() - 1);
  EXPECT_EQ(out.view().u8(4), 1 + dict.size());
}

}  // namespace
}  // namespace QXFontService_NS::embed
