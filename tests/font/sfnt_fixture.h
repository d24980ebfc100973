#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "qxcommon/error.h"
#include "qxcommon/ptr.h"
#include "qxcommon/uri.h"

#include "font/contract/font_folder.h"
#include "font/open_type.h"
#include "font/services_in_place.h"
#include "font/true_type.h"
#include "support/memory_platform.h"
#include "support/sample_font.h"

namespace qxtest {

/// Fonts in the file "/fonts/a.ttf" of a world in memory.
class SfntFixture : public testing::Test {
 protected:
  using QXError = QXFontService_NS::QXError;
  template <class Font>
  using Ptr = QXFontService_NS::QXPtr<Font>;

  static constexpr char kPath[] = "/fonts/a.ttf";
  static QXFontService_NS::QXUri uri() {
    return QXFontService_NS::QXUri(kPath, QXCommonNS::URISTR_USER);
  }

  /// A font object over `bytes`, read; null where that fails.
  template <class Font = QXFontService_NS::FS_TrueType>
  Ptr<Font> read(const std::string& bytes, QXFontService_NS::FS_FontFolder* folder = nullptr) {
    world.file(kPath, bytes);
    Ptr<Font> font(new Font(uri(), folder));
    std::istringstream stream(bytes);
    error = QXError();
    if (!font->readFont(&error, &stream)) return nullptr;
    return font;
  }
  template <class Font = QXFontService_NS::FS_TrueType>
  Ptr<Font> read(const SfntBuilder& font) {
    return read<Font>(font.build());
  }
  /// The same with its tables loaded from the file; the answer of the load goes to `good`.
  template <class Font = QXFontService_NS::FS_TrueType>
  Ptr<Font> load(const SfntBuilder& builder) {
    Ptr<Font> font = read<Font>(builder);
    if (font) good = font->loadFontTables(&error, 0, nullptr);
    return font;
  }

  std::string message() const {
    std::string text;
    return error.getErrorMessage().toUTF8String(text);
  }

  MemoryPlatform world;
  PlatformInPlace worldInPlace{world};
  ServicesInPlace services;
  QXError error;
  bool good = false;
};

}  // namespace qxtest
