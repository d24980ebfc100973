#include "qxfontservice/ext/web_font.h"

#include <gtest/gtest.h>

#include <string>

#include "qxfontservice/ext/open_file.h"
#include "qxfontservice/ext/subset_font.h"

#include "pool/registry/registry_fixture.h"
#include "support/dfont_builder.h"
#include "support/sample_open_type.h"
#include "support/ttc_builder.h"
#include "support/woff_builder.h"

namespace QXFontService_NS::ext {
namespace {

using QXCommonNS::QXMemStream;
using qxtest::sampleFont;
using qxtest::WoffBuilder;

std::string bytesIn(QXMemStream& stream) {
  stream.clear();
  stream.seekg(0);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class ConformingWebFont : public qxtest::RegistryTest {
 protected:
  ConformingWebFont() { openFolder(); }
  ~ConformingWebFont() override {
    if (font.isCreatedFont()) font.deleteFont();
  }

  void open(const char16_t* path, const std::string& bytes, int face = 0) {
    std::string name;
    world.file(icu::UnicodeString(path).toUTF8String(name), bytes);
    ASSERT_TRUE(openFontFile(QXUri(path, QXCommonNS::URISTR_USER), face, font));
  }
  /// What is written for glyph 2, or "false".
  template <class Operation>
  std::string written(Operation operation) {
    QXMemStream out(nullptr, 8192, false, true);
    const bool done = operation(font, {2}, out);
    EXPECT_TRUE(done || out.length() == 0U);
    return done ? bytesIn(out) : "false";
  }

  FS_FontInfo font;
};

TEST_F(ConformingWebFont, PacksTheConformingSubset) {
  const std::string openType = qxtest::sampleOpenType(qxtest::sampleCff()).build();
  for (const auto& [path, bytes] :
       {std::pair(u"/x/a.ttf", sampleFont().build()), std::pair(u"/x/b.otf", openType)}) {
    open(path, bytes);
    const std::string subset = written(makeConformingSubsetFont);
    ASSERT_NE(subset, "false");
    EXPECT_EQ(written(makeConformingWebFont), WoffBuilder::of(subset).build());
    font.deleteFont();
  }
}

TEST_F(ConformingWebFont, IsReadBackAsTheSubset) {
  open(u"/x/a.ttf", sampleFont().build());
  const std::string subset = written(makeConformingSubsetFont);
  const std::string web = written(makeConformingWebFont);
  font.deleteFont();
  open(u"/x/back.woff", web);
  QXMemStream stream(nullptr, 8192, false, true);
  EXPECT_TRUE(font.getEmbedFontStream(stream));
  EXPECT_EQ(bytesIn(stream), subset);
}

TEST_F(ConformingWebFont, IsWrittenOfMembersAndOfWebFontsToo) {
  open(u"/x/a.ttf", sampleFont().build());
  const std::string expected = written(makeConformingWebFont);
  font.deleteFont();
  open(u"/x/a.woff", WoffBuilder::of(sampleFont()).build());
  EXPECT_EQ(written(makeConformingWebFont), expected);
  font.deleteFont();
  open(u"/x/a.ttc", qxtest::TtcBuilder().member(sampleFont()).member(sampleFont()).build(), 1);
  EXPECT_EQ(written(makeConformingWebFont), expected);
  font.deleteFont();
  open(u"/x/a.dfont", qxtest::DfontBuilder().resource("sfnt", sampleFont().build()).build());
  EXPECT_EQ(written(makeConformingWebFont), expected);
}

TEST_F(ConformingWebFont, OfAnEmptyHandleThereIsNone) {
  EXPECT_EQ(written(makeConformingWebFont), "false");
}

}  // namespace
}  // namespace QXFontService_NS::ext
