#include "qxfontservice/ext/subset_font.h"

#include <gtest/gtest.h>

#include <string>

#include "qxcommon/ptr.h"
#include "qxfontservice/ext/open_file.h"

#include "font/contract/plain_font.h"
#include "font/written_form.h"
#include "pool/registry/registry_fixture.h"
#include "service/font_info_access.h"
#include "support/dfont_builder.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "support/ttc_builder.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::formOf;
using qxtest::sampleCff;
using qxtest::sampleFont;
using qxtest::sampleOpenType;

constexpr std::uint32_t kSoundFont = 0xB1B0AFBA;

class ConformingSubset : public qxtest::RegistryTest {
 protected:
  ConformingSubset() { openFolder(); }
  ~ConformingSubset() override {
    if (font.isCreatedFont()) font.deleteFont();
  }

  void open(const std::string& bytes, const char* path = "/x/a.ttf") {
    if (font.isCreatedFont()) font.deleteFont();
    world.file(path, bytes);
    ASSERT_TRUE(openFontFile(QXUri(path, QXCommonNS::URISTR_USER), 0, font));
  }
  std::string subset(const std::vector<unsigned short>& gids) {
    return formOf([&](auto& out) { return makeConformingSubsetFont(font, gids, out); });
  }

  FS_FontInfo font;
};

TEST_F(ConformingSubset, OfATrueTypeFontIsSumUpRightWithAllTables) {
  open(sampleFont().table("DSIG", "signed").build());
  const std::string bytes = subset({1});
  EXPECT_EQ(qxtest::tagsOf(bytes), "OS/2 cmap glyf head hhea hmtx loca maxp name post ");
  EXPECT_EQ(qxtest::tableChecksum(bytes), kSoundFont);
  EXPECT_EQ(subset({1}), bytes);
}

TEST_F(ConformingSubset, OfAllGlyphsIsTheFont) {
  open(sampleFont().build());
  EXPECT_EQ(subset({3, 2, 1, 0xFFFF}), sampleFont().build());
}

TEST_F(ConformingSubset, OfAFontWithCffHasItsOffsetsRight) {
  open(sampleOpenType(sampleCff()).build(), "/x/a.otf");
  const std::string bytes = subset({2});
  EXPECT_EQ(qxtest::tagsOf(bytes), "CFF  OS/2 cmap head hhea hmtx maxp name post ");
  EXPECT_EQ(qxtest::tableChecksum(bytes), kSoundFont);
  open(bytes, "/x/again.otf");
  EXPECT_EQ(subset({2}), bytes);
}

TEST_F(ConformingSubset, CanBeReadAgain) {
  open(sampleFont().build());
  open(subset({2}), "/x/again.ttf");
  EXPECT_EQ(font.getGlyphID('A', false), 2);
  EXPECT_EQ(font.getGlyphWidth(3, 0, false), 600);
}

TEST_F(ConformingSubset, OfAMemberIsThatOfTheSameFontAlone) {
  const qxtest::SfntBuilder other = sampleFont().without("kern").table("extr", "a");
  open(other.build());
  const std::string alone = subset({2});
  font.deleteFont();
  world.file("/x/a.ttc", qxtest::TtcBuilder().member(sampleFont()).member(other).build());
  ASSERT_TRUE(openFontFile(QXUri(u"/x/a.ttc", QXCommonNS::URISTR_USER), 1, font));
  EXPECT_EQ(subset({2}), alone);
  font.deleteFont();
  world.file("/x/a.dfont", qxtest::DfontBuilder()
                               .resource("sfnt", sampleFont().build())
                               .resource("sfnt", other.build())
                               .build());
  ASSERT_TRUE(openFontFile(QXUri(u"/x/a.dfont", QXCommonNS::URISTR_USER), 1, font));
  EXPECT_EQ(subset({2}), alone);
}

TEST_F(ConformingSubset, GlyphsThatTheFontLacksAreNoGlyphs) {
  open(sampleFont().build());
  EXPECT_EQ(subset({4, 900}), subset({}));
  open(sampleOpenType(sampleCff()).build(), "/x/a.otf");
  EXPECT_EQ(subset({4}), "false");
}

TEST_F(ConformingSubset, NothingIsWrittenOfAFontThatCannotBeReadAnyMore) {
  const std::string whole = sampleFont().build();
  open(whole);
  world.file("/x/a.ttf", whole.substr(0, whole.size() / 2));
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(makeConformingSubsetFont(font, {1, 2, 3}, out));
  EXPECT_EQ(out.length(), 0U);
  world.remove("/x/a.ttf");
  EXPECT_EQ(subset({1}), "false");
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(ConformingSubset, OtherFontsAndEmptyHandlesHaveNone) {
  EXPECT_EQ(subset({1}), "false");
  const QXPtr<qxtest::PlainFont> plain(
      new qxtest::PlainFont(QXUri(u"/x/plain", QXCommonNS::URISTR_USER)));
  FS_FontInfo handle;
  FontInfoAccess::set(handle, plain.get(), 0);
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(makeConformingSubsetFont(handle, {1}, out));
}

}  // namespace
}  // namespace QXFontService_NS::ext
