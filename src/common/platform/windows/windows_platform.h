#pragma once

#include "common/platform/platform.h"

namespace QXCommonNS::windows {

/// Windows: known folders and a registry tell where the fonts are.
class WindowsPlatform final : public FS_Platform {
 public:
  std::unique_ptr<std::istream> openFile(const std::string& path) override;
  FileKind fileKind(const std::string& path) override;
  bool identity(const std::string& path, FileIdentity& out) override;
  bool listFolder(const std::string& path, std::vector<FolderEntry>& out) override;
  bool knownFolder(KnownFolder which, std::string& out) override;
  std::vector<std::string> fontFolderCandidates() override;
  bool environment(const char* name, std::string& out) override;
  bool registryValues(RegistryRoot root, std::string_view key,
                      std::vector<RegistryValue>& out) override;
  std::vector<std::string> systemFontFiles() override;
  std::string modulePath(std::string_view stem) override;
  std::string localeName() override;
};

}  // namespace QXCommonNS::windows
