#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/registry/font_registry.h"
#include "service/errors/error_sink.h"
#include "support/memory_platform.h"

namespace qxtest {

/// What reading a configuration came to.
struct ConfigOutcome {
  int thrown = 0;  ///< code of the error that ended the reading, 0 for none
  std::string thrownText;
  std::vector<std::string> collected;  ///< messages, in order
};

/// Reads configurations from a world in memory into a registry of its own.
class ConfigTest : public ::testing::Test, private QXFontService_NS::ErrorSink {
 protected:
  static constexpr const char* kVariable = "QX_CONFIG";
  static constexpr const char* kPath = "/etc/qx/font-config.xml";

  ConfigTest() : inPlace_(world) {
    world.setEnvironment(kVariable, kPath);
    world.addFontFolderCandidate("/usr/share/fonts/");
    QXFontService_NS::setErrorSink(this);
  }
  ~ConfigTest() override { QXFontService_NS::setErrorSink(nullptr); }

  /// Reads `xml` as the configuration file.
  ConfigOutcome read(const std::string& xml, const char* homeEnvName = nullptr) {
    world.file(kPath, xml);
    return readVariable(kVariable, homeEnvName);
  }

  /// Reads what the variable leads to.
  ConfigOutcome readVariable(const char* variable, const char* homeEnvName = nullptr) {
    collected_.clear();
    registry = std::make_unique<QXFontService_NS::FS_FontRegistry>();
    ConfigOutcome outcome;
    try {
      registry->readConfig(variable, homeEnvName);
    } catch (const QXCommonNS::QXError& error) {
      outcome.thrown = error.getErrorCode();
      error.getErrorMessage().toUTF8String(outcome.thrownText);
    }
    outcome.collected = collected_;
    return outcome;
  }

  /// Reads elements inside a root; the folder that they need stands behind them.
  ConfigOutcome readInRoot(const std::string& elements) {
    return read("<font-config>" + elements + "<font-folder path=\"/last\"/></font-config>");
  }

  /// Reads children of the folder "/f".
  ConfigOutcome readInFolder(const std::string& children) {
    return read("<font-config><font-folder path=\"/f\">" + children +
                "</font-folder></font-config>");
  }

  /// Whether the reading got to the end of what `readInRoot` reads.
  [[nodiscard]] bool reachedEnd() const {
    return registry->folders().find(QXCommonNS::QXUri(u"/last", QXCommonNS::URISTR_USER)) !=
           nullptr;
  }

  [[nodiscard]] QXFontService_NS::FS_FontFolder& folder(const char16_t* path = u"/f") const {
    return *registry->folders().find(QXCommonNS::QXUri(path, QXCommonNS::URISTR_USER));
  }
  [[nodiscard]] QXFontService_NS::FS_FontFileOptions& options(const char16_t* file) const {
    return folder().fileOptions.at(file);
  }

  MemoryPlatform world;
  std::unique_ptr<QXFontService_NS::FS_FontRegistry> registry;

 private:
  void append(const QXCommonNS::QXError& error) override {
    std::string text;
    collected_.push_back(error.getErrorMessage().toUTF8String(text));
  }

  PlatformInPlace inPlace_;
  std::vector<std::string> collected_;
};

/// A message of the collected kind that ends with the file.
inline std::string inFile(const std::string& message) {
  return message + " in /etc/qx/font-config.xml";
}

}  // namespace qxtest
