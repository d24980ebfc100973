#include <gtest/gtest.h>

#include <string>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/cid_system_info.h"

#include "service/service_test.h"
#include "support/sample_open_type.h"

namespace QXFontService_NS {
namespace {

using qxtest::CffBuilder;
using qxtest::sampleCff;
using qxtest::sampleCidCff;
using qxtest::sampleOpenType;

using Gids = std::vector<unsigned short>;

/// Fonts with CFF outlines as a host meets them: through the handle, from files.
class FontInfoCff : public qxtest::ServiceTest {
 protected:
  ~FontInfoCff() override { info.deleteFont(); }

  void open(const CffBuilder& cff) {
    info.deleteFont();
    world.file("/doc/a.otf", sampleOpenType(cff).build());
    ASSERT_TRUE(info.createFont(QXUri(u"/doc/a.otf", QXCommonNS::URISTR_USER)));
  }
  /// What a form writes, or "false".
  template <class Form>
  static std::string formOf(Form form) {
    QXMemStream out(nullptr, 8192, false, true);
    if (!form(out)) return "false";
    std::string bytes(out.length(), '\0');
    out.seekg(0);
    out.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
  }

  FS_FontInfo info;
};

TEST_F(FontInfoCff, ANameKeyedFontTellsWhatItIs) {
  open(sampleCff());
  EXPECT_EQ(info.getFontFileType(), FS_FILETYPE_OPENTYPE);
  EXPECT_TRUE(info.isType1OrNoCID());
  EXPECT_FALSE(info.isTrueTypeOrCID());
  EXPECT_EQ(info.getEncodingScheme(), FS_ENCODING_OTHER);
  EXPECT_EQ(info.getStringID(2), 34);
  EXPECT_EQ(info.getGlyphIDfromCID(34), 2);
  EXPECT_EQ(info.getGlyphIDfromCID(0), FS_NO_GLYPH);
  FS_CIDSystemInfo collection;
  EXPECT_FALSE(info.getCIDSystemInfo(collection));
  EXPECT_TRUE(info.canEmbedFont());
}

TEST_F(FontInfoCff, ACidKeyedFontTellsWhatItIs) {
  open(sampleCidCff());
  EXPECT_EQ(info.getFontFileType(), FS_FILETYPE_OPENTYPE_CID);
  EXPECT_EQ(static_cast<int>(info.getFontFileType()), 8);
  EXPECT_FALSE(info.isType1OrNoCID());
  EXPECT_TRUE(info.isTrueTypeOrCID());
  EXPECT_EQ(info.getGlyphIDfromCID(35), 3);
  EXPECT_EQ(info.getGlyphIDfromCID(36), FS_NO_GLYPH);
  FS_CIDSystemInfo collection;
  ASSERT_TRUE(info.getCIDSystemInfo(collection));
  EXPECT_TRUE(collection.Registry == u"Adobe");
  EXPECT_TRUE(collection.Ordering == u"Japan1");
}

TEST_F(FontInfoCff, ItsFormsAreThoseOfTheFont) {
  open(sampleCff());
  CffBuilder cff = sampleCff();
  EXPECT_EQ(formOf([&](auto& out) { return info.getEmbedFontStream(out); }), cff.build());
  const std::string bare = formOf([&](auto& out) { return info.getEmbedFont(Gids{2}, out); });
  EXPECT_EQ(bare.substr(0, 4), std::string("\1\0\4\3", 4));
  EXPECT_EQ(formOf([&](auto& out) { return info.getType1EmbedFont(Gids{2}, out); }), bare);
  EXPECT_EQ(formOf([&](auto& out) { return info.makeSubsetFont({2}, out); }).substr(0, 4), "OTTO");
  const unsigned int list[] = {0x68656164, 0};
  EXPECT_EQ(formOf([&](auto& out) { return info.getEmbedFont({}, out, list); }).at(5), 2);
  UnicodeString name;
  FS_CIDSystemInfo collection;
  const std::string text = formOf(
      [&](auto& out) { return info.makePostScriptCIDFontType0({2}, out, name, collection); });
  EXPECT_EQ(text.substr(0, 34), "/CIDInit /ProcSet findresource beg");
  EXPECT_TRUE(name.endsWith(u"-QX_Sample-Regular"));
}

TEST_F(FontInfoCff, ItGivesOutType1Codes) {
  open(sampleCff());
  EXPECT_EQ(info.getType1CharCode('B'), 0x80);
  EXPECT_EQ(info.getType1GlyphIDCode(2), 0x81);
  ASSERT_NE(info.getType1CMapArray(0), nullptr);
  EXPECT_EQ(info.getType1CMapArray(0)->size(), 2U);
  unsigned char code = 0;
  std::string name;
  ASSERT_TRUE(info.getType1CMapPair(0, 1, code, name));
  EXPECT_EQ(code, 0x81);
  EXPECT_EQ(name, "A");
  EXPECT_TRUE(info.getType1GlyphName(0, 'A', name));
  EXPECT_FALSE(info.getType1GlyphName(1, 'A', name));
}

TEST_F(FontInfoCff, AFontWhoseCffDoesNotReadIsNotMade) {
  CffBuilder cff = sampleCff();
  cff.charset = "\x03";
  world.file("/doc/a.otf", sampleOpenType(cff).build());
  EXPECT_FALSE(info.createFont(QXUri(u"/doc/a.otf", QXCommonNS::URISTR_USER)));
  EXPECT_EQ(info.getError().getErrorCode(), 1921);
}

TEST_F(FontInfoCff, NoExceptionOfTheWritersReachesTheHost) {
  CffBuilder cff = sampleCidCff();
  cff.fdSelect = CffBuilder::fdSelect0({0, 0, 1, 1});
  open(cff);
  UnicodeString name = u"untouched";
  FS_CIDSystemInfo collection;
  QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(info.makePostScriptCIDFontType0({3}, out, name, collection));
  EXPECT_TRUE(name == u"untouched");
}

}  // namespace
}  // namespace QXFontService_NS
