#include "pool/registry/font_registry.h"

#include <cstdlib>
#include <utility>

#include "pool/config/config_report.h"
#include "pool/config/config_uri.h"
#include "pool/config/read_config.h"
#include "pool/registry/eudc_loader.h"
#include "pool/registry/opening_watcher.h"
#include "pool/system/system_eudc.h"
#include "pool/system/system_font_folder.h"
#include "pool/tables/global_lock.h"
#include "service/errors/config_error.h"
#include "service/errors/error_sink.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::RegistryRoot;

constexpr std::string_view kSystemFontsKey =
    "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
constexpr std::string_view kType1FontsKey =
    "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Type 1 Installer\\Type 1 Fonts";

constexpr int kFirstPrivateUse = 0xE000;
constexpr int kLastPrivateUse = 0xF8FF;

FS_FontRegistry* theRegistry = nullptr;

/// Whose configuration is being read; errors of it are about that file.
FS_FontRegistry* theReader = nullptr;

/// Makes an object the reader for the time of a scope.
class ReadingConfiguration {
 public:
  explicit ReadingConfiguration(FS_FontRegistry& reader)
      : outer_(std::exchange(theReader, &reader)) {}
  ~ReadingConfiguration() { theReader = outer_; }
  ReadingConfiguration(const ReadingConfiguration&) = delete;
  ReadingConfiguration& operator=(const ReadingConfiguration&) = delete;

 private:
  FS_FontRegistry* outer_;
};

/// Collected errors go to the process-wide list, whichever object was being read.
class RegistryErrorSink final : public ErrorSink {
 public:
  void append(const QXError& error) override {
    const QXMutex guard(&FS_GlobalLock());
    if (theRegistry == nullptr) return;
    theRegistry->collectError(error,
                              theReader != nullptr ? theReader->settings().configUri : QXUri());
  }
};

RegistryErrorSink theErrorSink;

void destroyRegistry() {
  const QXMutex guard(&FS_GlobalLock());
  setErrorSink(nullptr);
  setFontServices(nullptr);
  delete theRegistry;
  theRegistry = nullptr;
}

void makeRegistry() {
  static const int registered = std::atexit(destroyRegistry);
  (void)registered;
  theRegistry = new FS_FontRegistry;
  setErrorSink(&theErrorSink);
  setFontServices(&theRegistry->services());
}

FS_FontRegistry* readInto(FS_FontRegistry& target, const char* envName) {
  try {
    target.readConfig(envName, nullptr);
    return &target;
  } catch (const QXError& error) {
    target.errors().push_back(error);
    return nullptr;
  }
}

}  // namespace

FS_FontRegistry::FS_FontRegistry() : services_(settings_) {}

FS_FontRegistry::~FS_FontRegistry() {
  folders_.clear();
  mainPool_.clear();
}

FS_FontRegistry* FS_FontRegistry::current() {
  return theRegistry;
}

FS_FontRegistry* FS_FontRegistry::open(const char* envName, FS_FontRegistry* target) {
  // No look at the pointer without the lock: another thread may be in the middle of scanning.
  const QXMutex guard(&FS_GlobalLock());
  if (target != nullptr) return readInto(*target, envName);
  if (theRegistry != nullptr) return theRegistry;
  makeRegistry();
  theRegistry->readConfig(envName, nullptr);
  try {
    theRegistry->openPools();
  } catch (const QXError& error) {
    theRegistry->errors_.push_back(error);
  }
  return theRegistry;
}

void FS_FontRegistry::openPools() {
  scanFolders();
  if (settings_.systemList) {
    scanSystemList(RegistryRoot::localMachine, kSystemFontsKey);
    scanSystemList(RegistryRoot::localMachine, kType1FontsKey);
  }
  if (settings_.eudcMapping) {
    readEudc();
  } else {
    settings_.eudcSet.clear();  // ranges of the configuration count for nothing without mapping
  }
}

void FS_FontRegistry::readEudc() {
  if (settings_.systemList) readSystemEudc(settings_, systemFontFolder());
  if (!settings_.eudcRangeConfigured) settings_.eudcSet.add(kFirstPrivateUse, kLastPrivateUse);
  EudcLoader loader(*this);
  loader.loadDefault();
  loader.linkFamilies();
}

void FS_FontRegistry::readConfig(const char* envName, const char* homeEnvName) {
  const ReadingConfiguration reading(*this);
  settings_.configUri = envName != nullptr && *envName != '\0' ? FS_ConfigUri(envName) : QXUri();
  UnicodeString path = settings_.configUri.getLocalPath(false);
  if (!settings_.configUri.isEmpty() && settings_.configUri.isFileExists()) {
    config::ConfigSource source(settings_.configUri);
    config::readConfigFile(source, homeEnvName, {settings_, folders_});
  } else {
    fallBackToSystem(envName);
  }
  if (folders_.empty()) {
    FS_ConfigError(FS_ERROR_NO_FONT_FOLDER, path, UnicodeString(), UnicodeString(),
                   UnicodeString());
  }
}

void FS_FontRegistry::fallBackToSystem(const char* envName) {
  settings_.configUri = QXUri();
  settings_.windowsNames = true;
  const UnicodeString folder = systemFontFolder();
  if (folder.isEmpty()) {
    FS_ConfigError(FS_ERROR_CONFIG_NOT_FOUND, configVariable(envName), UnicodeString(),
                   UnicodeString(), UnicodeString());
  }
  folders_.add(std::make_unique<FS_FontFolder>(folder, static_cast<unsigned char>(0), false),
               nullptr, false);
  settings_.systemList = true;
  settings_.eudcMapping = true;
}

FS_FontRef FS_FontRegistry::findFont(const UnicodeString& name, const FS_FontKey& key,
                                     bool* fromAlias) {
  const FS_FontRef alias = aliasPool_.findFont(name, key);
  if (alias.font == nullptr) return mainPool_.findFont(name, key);
  if (fromAlias != nullptr) *fromAlias = true;
  return alias;
}

void FS_FontRegistry::collectError(const QXError& error, const QXUri& file) {
  if (!file.isEmpty()) errorFiles_[errors_.size()] = file;
  errors_.push_back(error);
}

QXUri FS_FontRegistry::errorFile(std::size_t index) const {
  const auto found = errorFiles_.find(index);
  return found == errorFiles_.end() ? QXUri() : found->second;
}

void resetServiceForTests() {
  destroyRegistry();
  opening::setWatcher(nullptr);
  QXCommonNS::setPlatformForTests(nullptr);
}

}  // namespace QXFontService_NS
