#include "embed/font_stream.h"

#include <gtest/gtest.h>

#include <sstream>

#include "qxcommon/mem_stream.h"

#include "support/memory_platform.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::QXUri;

QXUri uri(const char* text) {
  return QXUri(text, QXCommonNS::URISTR_USER);
}

class FontStreamTest : public testing::Test {
 protected:
  qxtest::MemoryPlatform world;
  qxtest::PlatformInPlace worldInPlace{world};
};

TEST_F(FontStreamTest, AGivenStreamIsTakenAsItIsAndNotOwned) {
  world.file("/a.ttf", "file");
  std::istringstream given("given");
  const FontStream stream = openFontStream(&given, uri("/a.ttf"));
  EXPECT_EQ(stream.get(), &given);
  EXPECT_FALSE(stream.isOwned());
  EXPECT_EQ(world.counts().opened, 0u);
}

TEST_F(FontStreamTest, AFileIsOpenedAndClosedAgain) {
  world.file("/a.ttf", "file");
  {
    const FontStream stream = openFontStream(nullptr, uri("/a.ttf"));
    ASSERT_NE(stream.get(), nullptr);
    EXPECT_TRUE(stream.isOwned());
    EXPECT_EQ(dynamic_cast<QXMemStream*>(stream.get()), nullptr);
    EXPECT_EQ(stream.get()->get(), 'f');
    EXPECT_EQ(world.counts().closed, 0u);
  }
  EXPECT_EQ(world.counts().opened, 1u);
  EXPECT_EQ(world.counts().closed, 1u);
}

TEST_F(FontStreamTest, WhatIsNoPlainFileIsPutBehindAMemoryStream) {
  const FontStream stream = openFontStream(nullptr, uri("data:;base64,QUJDRA=="));
  ASSERT_NE(dynamic_cast<QXMemStream*>(stream.get()), nullptr);
  EXPECT_TRUE(stream.isOwned());
  stream.get()->seekg(2);
  EXPECT_EQ(stream.get()->get(), 'C');
}

TEST_F(FontStreamTest, WhatCannotBeOpenedGivesNoStream) {
  EXPECT_EQ(openFontStream(nullptr, uri("/none.ttf")).get(), nullptr);
  EXPECT_EQ(openFontStream(nullptr, uri("http://example.com/a.ttf")).get(), nullptr);
  EXPECT_EQ(FontStream().get(), nullptr);
}

TEST_F(FontStreamTest, AReleasedStreamLivesOn) {
  FontStream stream(std::make_unique<std::istringstream>("abc"));
  const std::unique_ptr<std::istream> taken(stream.release());
  EXPECT_FALSE(stream.isOwned());
  EXPECT_EQ(taken->get(), 'a');
}

}  // namespace
}  // namespace QXFontService_NS::embed
