#include "font/contract/free_type_face.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "qxcommon/lock.h"
#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"
#include "qxcommon/uri.h"

#include "font/contract/font_services.h"
#include "font/contract/plain_font.h"
#include "support/glyf_builder.h"
#include "support/memory_platform.h"
#include "support/sfnt_builder.h"
#include "support/table_builders.h"

namespace QXFontService_NS {
namespace {

using contract::FreeTypeFace;

std::string fontBytes() {
  qxtest::GlyfBuilder glyphs;
  glyphs.empty().square(500);
  qxtest::MetricsBuilder metrics;
  metrics.metrics = {{500, 0}, {600, 50}};
  return qxtest::SfntBuilder()
      .table("glyf", glyphs.glyf())
      .table("head", qxtest::HeadBuilder().build())
      .table("hhea", qxtest::HheaBuilder().build())
      .table("hmtx", metrics.build())
      .table("loca", glyphs.loca())
      .table("maxp", qxtest::MaxpBuilder().build())
      .build();
}

/// A file that is there as long as this object.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& name, const std::string& content)
      : path_(std::filesystem::temp_directory_path() /
              (name + std::to_string(testing::UnitTest::GetInstance()->random_seed()) + "-" +
               testing::UnitTest::GetInstance()->current_test_info()->name())) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TemporaryFile() { remove(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void remove() { std::filesystem::remove(path_); }
  [[nodiscard]] std::string path() const { return path_.string(); }
  [[nodiscard]] QXUri uri() const {
    return QXUri(UnicodeString::fromUTF8(path_.string()), QXCommonNS::URISTR_USER);
  }

 private:
  std::filesystem::path path_;
};

TEST(FreeTypeFace, OpensAFileByItsPath) {
  const TemporaryFile file("qx-face-\u00E4", fontBytes());
  FreeTypeFace face;
  ASSERT_NE(face.open(file.uri(), nullptr, 0), nullptr);
  EXPECT_EQ(face.get()->num_glyphs, 2);
  EXPECT_EQ(face.get()->units_per_EM, 1000);
}

TEST(FreeTypeFace, OpensAFontInMemoryWithoutItsFile) {
  QXMemStream stream(nullptr, 8192, false, true);
  stream += fontBytes();
  FreeTypeFace face;
  ASSERT_NE(face.open(QXUri(), &stream, 0), nullptr);
  stream.remove();  // the face reads from a copy of its own
  EXPECT_EQ(FT_Load_Glyph(face.get(), 1, 0), 0);
}

TEST(FreeTypeFace, OpensADataUriFromMemory) {
  std::string uri = "data:font/ttf,";
  const char* const digits = "0123456789ABCDEF";
  for (const char byte : fontBytes()) {
    const auto value = static_cast<unsigned char>(byte);
    uri += {'%', digits[value >> 4], digits[value & 15]};
  }
  FreeTypeFace face;
  EXPECT_NE(face.open(QXUri(UnicodeString::fromUTF8(uri), QXCommonNS::URISTR_USER), nullptr, 0),
            nullptr);
}

TEST(FreeTypeFace, TellsNullWhereThereIsNothingToOpen) {
  const TemporaryFile noFont("qx-face-", "no font at all");
  const TemporaryFile empty("qx-face-empty-", "");
  QXMemStream emptyStream(nullptr, 8192, false, true);
  FreeTypeFace face;
  EXPECT_EQ(face.open(QXUri(), nullptr, 0), nullptr);
  EXPECT_EQ(face.open(QXUri(u"/nowhere/a.ttf", QXCommonNS::URISTR_USER), nullptr, 0), nullptr);
  EXPECT_EQ(face.open(noFont.uri(), nullptr, 0), nullptr);
  EXPECT_EQ(face.open(empty.uri(), nullptr, 0), nullptr);
  EXPECT_EQ(face.open(QXUri(), &emptyStream, 0), nullptr);
  EXPECT_EQ(face.get(), nullptr);
}

// Behind a path that cannot be opened the service's streams may have a font; what FreeType opens
// and refuses is refused.
TEST(FreeTypeFace, OnlyAPathThatCannotBeOpenedLeadsToTheStream) {
  TemporaryFile file("qx-face-", "no font at all");
  qxtest::MemoryPlatform world;
  world.file(file.path(), fontBytes());
  const qxtest::PlatformInPlace worldInPlace{world};
  FreeTypeFace face;
  EXPECT_EQ(face.open(file.uri(), nullptr, 0), nullptr);
  EXPECT_EQ(world.counts().opened, 0U);
  file.remove();
  EXPECT_NE(face.open(file.uri(), nullptr, 0), nullptr);
  EXPECT_EQ(world.counts().opened, 1U);
}

TEST(FreeTypeFace, ABadIndexTellsNullAndAGoodOneOpensAfterwards) {
  const TemporaryFile file("qx-face-", fontBytes());
  FreeTypeFace face;
  EXPECT_EQ(face.open(file.uri(), nullptr, 5), nullptr);
  EXPECT_NE(face.open(file.uri(), nullptr, 0), nullptr);
}

TEST(FreeTypeFace, CountsTheLibraryAsLongAsItIsOpen) {
  QXMutex guard(&fontServices().renderingLock());
  const contract::FreeTypeLibrary library = contract::freeTypeLibrary();
  ASSERT_NE(library, nullptr);
  EXPECT_EQ(fontServices().freeType(), library.get());
  const long before = library.use_count();
  const TemporaryFile file("qx-face-", fontBytes());
  {
    FreeTypeFace failed;
    failed.open(QXUri(), nullptr, 0);
    EXPECT_EQ(library.use_count(), before);
    FreeTypeFace face;
    ASSERT_NE(face.open(file.uri(), nullptr, 0), nullptr);
    EXPECT_EQ(library.use_count(), before + 1);
  }
  EXPECT_EQ(library.use_count(), before);
}

class NoLibrary final : public FS_FontServices {
 public:
  NoLibrary() { setFontServices(this); }
  ~NoLibrary() { setFontServices(nullptr); }
  bool windowsMetrics() const override { return false; }
  bool reservedMetricsSwitch() const override { return false; }
  bool usePreferredFamily() const override { return true; }
  bool isEudc(int) const override { return false; }
  FS_FontRef eudcDefault(bool) const override { return {}; }
  FT_Library freeType() override { return nullptr; }
  QXLock& renderingLock() override { return lock_; }

 private:
  QXLock lock_;
};

TEST(FreeTypeFace, WithoutTheLibraryThereIsNoFace) {
  const TemporaryFile file("qx-face-", fontBytes());
  NoLibrary services;
  FreeTypeFace face;
  EXPECT_EQ(face.open(file.uri(), nullptr, 0), nullptr);
}

TEST(FreeTypeFace, AFontOpensItsFaceOnceAndKeepsIt) {
  TemporaryFile file("qx-face-", fontBytes());
  const QXPtr<qxtest::PlainFont> font(new qxtest::PlainFont(file.uri()));
  const FT_Face face = font->getFreeTypeFace(0);
  ASSERT_NE(face, nullptr);
  file.remove();
  EXPECT_EQ(font->getFreeTypeFace(0), face);
  EXPECT_EQ(font->getFreeTypeFace(9), face);  // a font with one face does not look at the index
}

TEST(FreeTypeFace, AFontRemembersAFailureForEver) {
  TemporaryFile file("qx-face-", fontBytes());
  const QXUri uri = file.uri();
  file.remove();
  const QXPtr<qxtest::PlainFont> font(new qxtest::PlainFont(uri));
  EXPECT_EQ(font->getFreeTypeFace(0), nullptr);
  const TemporaryFile again("qx-face-", fontBytes());
  ASSERT_TRUE(again.uri().getText() == uri.getText());
  EXPECT_EQ(font->getFreeTypeFace(0), nullptr);
}

}  // namespace
}  // namespace QXFontService_NS
