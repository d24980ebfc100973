#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/registry/font_registry.h"
#include "support/memory_platform.h"
#include "support/named_font.h"

namespace qxtest {

/// Opens the service over a world in memory; the registry is destroyed after each test.
class RegistryTest : public ::testing::Test {
 protected:
  static constexpr const char* kVariable = "QX_CONFIG";

  RegistryTest() {
    QXCommonNS::setPlatformForTests(&world);
    world.setEnvironment(kVariable, "/etc/qx/font-config.xml");
  }
  ~RegistryTest() override { QXFontService_NS::resetServiceForTests(); }

  /// Opens over a configuration of these elements, without the system's list.
  QXFontService_NS::FS_FontRegistry& open(const std::string& elements) {
    return openFile("<font-config windows-registry=\"disable\">" + elements + "</font-config>");
  }
  /// Opens over one folder, "/f".
  QXFontService_NS::FS_FontRegistry& openFolder(const std::string& children = {}) {
    return open("<font-folder path=\"/f\">" + children + "</font-folder>");
  }
  QXFontService_NS::FS_FontRegistry& openRecursive() {
    return open("<font-folder path=\"/f\" recursive=\"yes\"/>");
  }
  QXFontService_NS::FS_FontRegistry& openFile(const std::string& xml) {
    world.file("/etc/qx/font-config.xml", xml);
    registry = QXFontService_NS::FS_FontRegistry::open(kVariable, nullptr);
    return *registry;
  }

  /// Destroys the registry and stays in the same world, for a test of many cases.
  void resetRegistry() {
    QXFontService_NS::resetServiceForTests();
    QXCommonNS::setPlatformForTests(&world);
    registry = nullptr;
  }

  /// The files of the fonts in the pool, in the order of loading.
  [[nodiscard]] std::vector<std::string> loaded() const {
    std::vector<std::string> files;
    for (const auto* font : registry->mainPool().fonts()) {
      std::string path;
      files.push_back(font->fileUri().getLocalPath(false).toUTF8String(path));
    }
    return files;
  }

  /// The file that answers a request; empty for none.
  [[nodiscard]] std::string fileOf(const icu::UnicodeString& name, int weight = 400,
                                   bool italic = false, int stretch = 5) const {
    const auto ref =
        registry->findFont(name, QXFontService_NS::makeFontKey(weight, italic, stretch), nullptr);
    std::string path;
    if (ref.font != nullptr) ref.font->fileUri().getLocalPath(false).toUTF8String(path);
    return path;
  }

  [[nodiscard]] std::vector<std::string> errors() const {
    std::vector<std::string> messages;
    for (const auto& error : registry->errors()) {
      std::string text;
      messages.push_back(error.getErrorMessage().toUTF8String(text));
    }
    return messages;
  }

  MemoryPlatform world;
  QXFontService_NS::FS_FontRegistry* registry = nullptr;
};

}  // namespace qxtest
