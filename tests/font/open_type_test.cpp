#include "font/open_type.h"

#include "embed/cff/cff_info.h"
#include "font/sfnt_fixture.h"
#include "support/cff_builder.h"

namespace QXFontService_NS {
namespace {

using qxtest::CffBuilder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

class OpenType : public qxtest::SfntFixture {
 protected:
  static CffBuilder nameKeyed() {
    CffBuilder cff;
    cff.glyphs.assign(4, "\x0E");
    return cff;
  }
  static CffBuilder cidKeyed() {
    CffBuilder cff = nameKeyed();
    cff.cid = true;
    cff.strings = {"Adobe", "Japan1"};
    cff.privates.resize(1);
    cff.fdSelect = CffBuilder::fdSelect3({{0, 0}}, 4);
    cff.charset = CffBuilder::charsetFormat0({10, 20, 30});
    return cff;
  }
  static SfntBuilder fontOf(CffBuilder cff) {
    SfntBuilder font = sampleFont().without("glyf").without("loca");
    return font.version(SfntBuilder::kOpenType).table("CFF", cff.build());
  }
  QXPtr<FS_OpenType> loadCff(const CffBuilder& cff) {
    auto font = load<FS_OpenType>(fontOf(cff));
    EXPECT_TRUE(good) << message();
    return font;
  }
};

TEST_F(OpenType, IsOfItsClassAndAncestors) {
  const auto font = read<FS_OpenType>(fontOf(nameKeyed()));
  ASSERT_TRUE(font);
  EXPECT_EQ(font->getClassID(), 0x0E4266F1u);
  EXPECT_EQ(font->getClassName(), UnicodeString("FS_OpenType"));
  for (const unsigned id : {0x0E4266F1u, 0xD8D7409Bu, 0x523A46D6u, 0xD18D040Au, 0xDF537371u})
    EXPECT_TRUE(font->isKindOf(id)) << id;
  EXPECT_TRUE(font->isOpenType());
  EXPECT_TRUE(font->isTrueTypeFont());
  EXPECT_FALSE(font->isType1Font());
}

TEST_F(OpenType, CidKeyingShowsOnceTheTablesAreLoaded) {
  const auto font = read<FS_OpenType>(fontOf(cidKeyed()));
  EXPECT_EQ(font->getFontFileType(0), FS_FILETYPE_OPENTYPE);
  EXPECT_TRUE(font->isType1OrNoCID(0));
  EXPECT_FALSE(font->isTrueTypeOrCID(0));
  ASSERT_TRUE(font->loadFontTables(&error, 0, nullptr)) << message();
  EXPECT_EQ(font->getFontFileType(0), FS_FILETYPE_OPENTYPE_CID);
  EXPECT_FALSE(font->isType1OrNoCID(0));
  EXPECT_TRUE(font->isTrueTypeOrCID(0));
}

TEST_F(OpenType, ANameKeyedFontIsOfTypeSeven) {
  const auto font = loadCff(nameKeyed());
  EXPECT_EQ(font->getFontFileType(0), FS_FILETYPE_OPENTYPE);
  EXPECT_TRUE(font->isType1OrNoCID(0));
  EXPECT_FALSE(font->isTrueTypeOrCID(0));
}

TEST_F(OpenType, TheEncodingSchemeTellsOfCodesOfItsOwn) {
  EXPECT_EQ(loadCff(nameKeyed())->getEncodingScheme(0), FS_ENCODING_OTHER);
  CffBuilder encoded = nameKeyed();
  encoded.encoding = std::string("\x00\x02\x41\x42", 4);
  EXPECT_EQ(loadCff(encoded)->getEncodingScheme(0), FS_ENCODING_FONTSPECIFIC);
  EXPECT_EQ(loadCff(cidKeyed())->getEncodingScheme(0), FS_ENCODING_OTHER);
}

TEST_F(OpenType, TheCharacterCollectionIsThatOfACidKeyedFont) {
  FS_CIDSystemInfo info;
  info.Registry = u"before";
  EXPECT_FALSE(loadCff(nameKeyed())->getCIDSystemInfo(info, 0));
  EXPECT_EQ(info.Registry, UnicodeString("before"));
  ASSERT_TRUE(loadCff(cidKeyed())->getCIDSystemInfo(info, 0));
  EXPECT_EQ(info.Registry, UnicodeString("Adobe"));
  EXPECT_EQ(info.Ordering, UnicodeString("Japan1"));
  EXPECT_EQ(info.Supplement, 0);
}

TEST_F(OpenType, ACollectionNeedsBothNames) {
  const auto font = loadCff(cidKeyed());
  FS_CIDSystemInfo info;
  FS_CFFInfo& cff = *font->getCFFFont(0);
  const unsigned short registry = cff.registrySID;
  cff.registrySID = 0;
  EXPECT_FALSE(font->getCIDSystemInfo(info, 0));
  cff.registrySID = registry;
  cff.orderingSID = 0;
  EXPECT_FALSE(font->getCIDSystemInfo(info, 0));
  cff.orderingSID = 900;  // past the last string
  EXPECT_FALSE(font->getCIDSystemInfo(info, 0));
}

TEST_F(OpenType, StringIdsComeFromTheCharset) {
  const auto font = loadCff(cidKeyed());
  EXPECT_EQ(font->getStringID(0, 0), 0);
  EXPECT_EQ(font->getStringID(1, 0), 10);
  EXPECT_EQ(font->getStringID(3, 0), 30);
  EXPECT_EQ(font->getStringID(4, 0), 0);
  EXPECT_EQ(font->getCFFFont(0)->getGIDFromCID(20), 2);
}

TEST_F(OpenType, WithoutItsCffTheAnswersAreNeutral) {
  const auto font = read<FS_OpenType>(fontOf(cidKeyed()));
  FS_CIDSystemInfo info;
  EXPECT_EQ(font->getCFFFont(0), nullptr);
  EXPECT_EQ(font->getStringID(1, 0), 0);
  EXPECT_EQ(font->getEncodingScheme(0), FS_ENCODING_OTHER);
  EXPECT_FALSE(font->getCIDSystemInfo(info, 0));
}

TEST_F(OpenType, TheDescenderIsTheAscenderHereToo) {
  const auto font = read<FS_OpenType>(fontOf(nameKeyed()));
  EXPECT_EQ(font->getTypoDescender(0), font->getTypoAscender(0));
}

}  // namespace
}  // namespace QXFontService_NS
