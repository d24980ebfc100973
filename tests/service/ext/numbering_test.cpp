#include "qxfontservice/ext/numbering.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "qxfontservice/ext/open_file.h"

#include "pool/registry/registry_fixture.h"
#include "support/dfont_builder.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::CffBuilder;
using qxtest::CharStringBuilder;
using qxtest::sampleCff;
using qxtest::sampleCidCff;
using qxtest::sampleOpenType;
using testing::ElementsAre;
using testing::IsEmpty;

using Gids = std::vector<unsigned short>;

class Numbering : public qxtest::RegistryTest {
 protected:
  Numbering() { openFolder(); }
  ~Numbering() override {
    if (font.isCreatedFont()) font.deleteFont();
  }

  void open(const qxtest::SfntBuilder& builder) {
    world.file("/x/a.otf", builder.build());
    ASSERT_TRUE(openFontFile(QXUri(u"/x/a.otf", QXCommonNS::URISTR_USER), 0, font));
  }
  /// "glyph>id" for each row.
  std::vector<std::string> rows(NumberedForm form, const Gids& gids) {
    std::vector<std::string> texts;
    for (const GlyphNumber& number : numberGlyphs(font, form, gids))
      texts.push_back(std::to_string(number.glyph) + ">" + std::to_string(number.id));
    return texts;
  }

  FS_FontInfo font;
};

TEST_F(Numbering, ANameKeyedFontIsNumberedInTheOrderOfItsNames) {
  CffBuilder cff = sampleCff();
  cff.charset = CffBuilder::charsetFormat0({40, 391, 35});
  open(sampleOpenType(cff));
  EXPECT_THAT(rows(NumberedForm::embedFont, {1, 2, 3, 2, 0xFFFF}),
              ElementsAre("3>1", "1>2", "2>3"));
  EXPECT_THAT(rows(NumberedForm::embedFont, {2}), ElementsAre("2>1"));
}

TEST_F(Numbering, NotdefThatIsAskedForIsWrittenAgain) {
  open(sampleOpenType(sampleCff()));
  EXPECT_THAT(rows(NumberedForm::embedFont, {2, 0}), ElementsAre("0>1", "2>2"));
}

TEST_F(Numbering, PartsOfCompositesAreAmongTheGlyphsWritten) {
  CffBuilder cff = sampleCff();
  cff.charset = CffBuilder::charsetFormat0({34, 125, 171});  // A, acute, Aacute
  cff.glyphs[3] = CharStringBuilder().numbers({0, 0, 65, 194}).op(14).str();
  open(sampleOpenType(cff));
  EXPECT_THAT(rows(NumberedForm::embedFont, {3}), ElementsAre("1>1", "2>2", "3>3"));
}

TEST_F(Numbering, GlyphsWithoutNamesOfTheirOwnShareOneNumber) {
  CffBuilder cff = sampleCff();
  cff.charset.clear();
  cff.predefinedCharset = 0;
  open(sampleOpenType(cff));
  EXPECT_THAT(rows(NumberedForm::embedFont, {3, 2}), ElementsAre("3>1"));
}

TEST_F(Numbering, ACidKeyedFontHasGlyphIdsAsCids) {
  open(sampleOpenType(sampleCidCff()));
  EXPECT_THAT(rows(NumberedForm::embedFont, {3, 1}), ElementsAre("1>1", "3>3"));
}

TEST_F(Numbering, CidsOfPostScriptFollowTheCaller) {
  open(sampleOpenType(sampleCff()));
  EXPECT_THAT(rows(NumberedForm::cidFontType0, {3, 0, 1, 0xFFFF, 3}),
              ElementsAre("3>1", "1>2", "3>3"));
}

TEST_F(Numbering, TheOtherFormsKeepGlyphIds) {
  open(sampleOpenType(sampleCff()));
  EXPECT_THAT(rows(NumberedForm::subsetFont, {3, 0xFFFF, 0, 3}), ElementsAre("0>0", "3>3"));
  font.deleteFont();
  open(qxtest::sampleFont());
  EXPECT_THAT(rows(NumberedForm::embedFont, {3, 1}), ElementsAre("1>1", "3>3"));
  EXPECT_THAT(rows(NumberedForm::cidFontType0, {3}), IsEmpty());
}

TEST_F(Numbering, OutlinesInCffDecideWhateverTheFileIsCalled) {
  open(sampleOpenType(sampleCff()).version(qxtest::SfntBuilder::kTrueType));
  EXPECT_THAT(rows(NumberedForm::embedFont, {3}), ElementsAre("3>1"));
}

TEST_F(Numbering, RowsTellCharacterAndWidth) {
  open(sampleOpenType(sampleCff()));
  const auto numbers = numberGlyphs(font, NumberedForm::embedFont, {0, 1, 3});
  ASSERT_EQ(numbers.size(), 3U);
  EXPECT_EQ(numbers[0].unicode, -1);
  EXPECT_EQ(numbers[0].width, 500);
  EXPECT_EQ(numbers[1].unicode, 0x20);
  EXPECT_EQ(numbers[1].width, 250);
  EXPECT_EQ(numbers[2].unicode, 'B');
  EXPECT_EQ(numbers[2].width, 600);
}

TEST_F(Numbering, AMemberOfASuitcaseIsNumberedToo) {
  world.file("/x/a.dfont",
             qxtest::DfontBuilder().resource("sfnt", qxtest::sampleFont().build()).build());
  ASSERT_TRUE(openFontFile(QXUri(u"/x/a.dfont", QXCommonNS::URISTR_USER), 0, font));
  const auto numbers = numberGlyphs(font, NumberedForm::embedFont, {2});
  ASSERT_EQ(numbers.size(), 1U);
  EXPECT_EQ(numbers[0].unicode, 'A');
}

TEST_F(Numbering, GlyphsPastTheEndAndEmptyHandlesHaveNone) {
  open(sampleOpenType(sampleCff()));
  EXPECT_THAT(rows(NumberedForm::embedFont, {4}), IsEmpty());
  EXPECT_THAT(rows(NumberedForm::embedFont, {}), IsEmpty());
  EXPECT_THAT(numberGlyphs(FS_FontInfo(), NumberedForm::embedFont, {1}), IsEmpty());
}

}  // namespace
}  // namespace QXFontService_NS::ext
