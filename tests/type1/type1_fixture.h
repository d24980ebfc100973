#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"

#include "font/contract/font_folder.h"
#include "support/afm_builder.h"
#include "support/memory_platform.h"
#include "support/pfm_builder.h"
#include "support/type1_builder.h"
#include "type1/type1_afm.h"
#include "type1/type1_pfa.h"
#include "type1/type1_pfb.h"
#include "type1/type1_pfm.h"

namespace qxtest {

inline icu::UnicodeString units(const std::string& text) {
  return icu::UnicodeString::fromUTF8(text);
}

inline std::string utf8(const icu::UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

inline QXCommonNS::QXUri uriOf(const std::string& path) {
  return QXCommonNS::QXUri(units(path), QXCommonNS::URISTR_USER);
}

/// The bytes of a stream.
inline std::string bytesIn(QXCommonNS::QXMemStream& stream) {
  std::string bytes(stream.length(), '\0');
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

/// A program that a document embeds.
struct Embedded {
  bool done = false;
  std::string bytes;
  int length1 = -1, length2 = -1, length3 = -1;
};

/// Type 1 fonts in a folder "/f/" of a world in memory.
class Type1Test : public ::testing::Test {
 protected:
  Type1Test() : inPlace_(world) { world.folder("/f"); }

  /// Makes a font of a file; it is not read.
  template <class Font>
  Font& make(const std::string& path) {
    auto* font = new Font(uriOf(path), &folder);
    fonts_.emplace_back(font);
    return *font;
  }
  /// Reads the metrics of "/f/a.afm"; its program, if any, stands beside it already.
  QXFontService_NS::FS_Type1AFM& afm(const AfmBuilder& file) {
    world.file("/f/a.afm", file.build());
    auto& font = make<QXFontService_NS::FS_Type1AFM>("/f/a.afm");
    EXPECT_TRUE(font.readFont(&error, nullptr));
    return font;
  }
  QXFontService_NS::FS_Type1PFM& pfm(const PfmBuilder& file) {
    world.file("/f/a.pfm", file.build());
    auto& font = make<QXFontService_NS::FS_Type1PFM>("/f/a.pfm");
    EXPECT_TRUE(font.readFont(&error, nullptr));
    return font;
  }
  /// A font program without metrics.
  template <class Program>
  Program& program(const std::string& path) {
    auto* font = new Program(uriOf(path), &folder, nullptr);
    fonts_.emplace_back(font);
    return *font;
  }
  /// What the configuration says of a file.
  QXFontService_NS::FS_FontFileOptions& options(const std::string& file) {
    return folder.fileOptions[units(file)];
  }
  void glyphList(const std::string& text) {
    world.file("/f/list.txt", text);
    options("a.afm").glyphList = uriOf("/f/list.txt");
    options("a.pfm").glyphList = uriOf("/f/list.txt");
  }
  [[nodiscard]] std::string message() const { return utf8(error.getErrorMessage()); }

  template <class Font>
  static Embedded embed(Font& font, unsigned char page, const std::string& codes) {
    Embedded made;
    QXCommonNS::QXMemStream out(nullptr, 4096, false, true);
    made.done = font.getType1EmbedFont(page, codes.data(), static_cast<int>(codes.size()), out,
                                       made.length1, made.length2, made.length3, 0);
    made.bytes = bytesIn(out);
    return made;
  }
  template <class Font>
  static Embedded embedAll(Font& font) {
    Embedded made;
    QXCommonNS::QXMemStream out(nullptr, 4096, false, true);
    made.done = font.getType1FontStream(out, made.length1, made.length2, made.length3, 0);
    made.bytes = bytesIn(out);
    return made;
  }

  MemoryPlatform world;
  QXFontService_NS::FS_FontFolder folder{u"/f", 0, false};
  QXCommonNS::QXError error;

 private:
  PlatformInPlace inPlace_;
  std::vector<QXCommonNS::QXPtr<QXFontService_NS::FS_BaseFont>> fonts_;
};

}  // namespace qxtest
