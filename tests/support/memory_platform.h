#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/platform/platform.h"

namespace qxtest {

/// What was asked of a `MemoryPlatform`. Streams count up to their end, which may come later than
/// that of the platform.
struct PlatformCounts {
  std::size_t opened = 0;
  std::size_t closed = 0;
  std::size_t reads = 0;
  std::uint64_t bytesRead = 0;
  std::size_t listings = 0;
};

/// What a platform and its streams, which may live longer, note of their use on any thread.
struct PlatformLog {
  std::mutex mutex;
  PlatformCounts counts;
  std::vector<std::string> openedPaths;
};

/// A small world in memory for tests: a tree of files, an environment and a registry.
///
/// Paths are absolute and have `/` as separator; folders on the way to a file make themselves.
/// Any thread may ask it; it is built and changed by one thread while no other asks.
/// `MemoryPlatform world; world.file("/fonts/a.ttf", bytes).hidden("/fonts/a.ttf");`
class MemoryPlatform : public QXCommonNS::FS_Platform {
 public:
  MemoryPlatform();
  ~MemoryPlatform() override;

  // The tree.
  MemoryPlatform& file(const std::string& path, std::string content);
  MemoryPlatform& folder(const std::string& path);
  /// Something that is neither file nor folder, such as a pipe.
  MemoryPlatform& special(const std::string& path);
  /// A link; `target` is absolute, and need not be there.
  MemoryPlatform& link(const std::string& path, const std::string& target);
  MemoryPlatform& hidden(const std::string& path);
  MemoryPlatform& system(const std::string& path);
  /// A file or folder that is there, but cannot be opened.
  MemoryPlatform& unreadable(const std::string& path);
  /// Cuts the file, for streams that are open already too.
  MemoryPlatform& cut(const std::string& path, std::size_t size);
  MemoryPlatform& remove(const std::string& path);

  // What the system knows.
  MemoryPlatform& setEnvironment(const std::string& name, const std::string& value);
  MemoryPlatform& setKnownFolder(QXCommonNS::KnownFolder which, const std::string& path);
  MemoryPlatform& addFontFolderCandidate(const std::string& path);
  MemoryPlatform& addSystemFontFile(const std::string& path);
  MemoryPlatform& setModulePath(const std::string& folder);
  MemoryPlatform& setLocaleName(const std::string& name);
  /// Adds keys to the registry from a text like that of a `.reg` file:
  ///     [HKEY_LOCAL_MACHINE\Software\Fonts]
  ///     "Arial (TrueType)"="arial.ttf"
  ///     "Optima (Type 1)"=multi:"T","C:\\a.pfm","C:\\a.pfb"
  ///     "Count"=type 4:01 00 00 00
  /// In quotes, `\` is an ordinary character. A line that is none of these ends the program.
  MemoryPlatform& registry(std::string_view text);

  [[nodiscard]] PlatformCounts counts() const;
  [[nodiscard]] std::size_t openStreams() const;
  /// The paths that were opened, in order.
  [[nodiscard]] std::vector<std::string> openedPaths() const;
  void resetCounts();

  // FS_Platform
  std::unique_ptr<std::istream> openFile(const std::string& path) override;
  QXCommonNS::FileKind fileKind(const std::string& path) override;
  bool identity(const std::string& path, QXCommonNS::FileIdentity& out) override;
  bool listFolder(const std::string& path, std::vector<QXCommonNS::FolderEntry>& out) override;
  bool knownFolder(QXCommonNS::KnownFolder which, std::string& out) override;
  std::vector<std::string> fontFolderCandidates() override;
  bool environment(const char* name, std::string& out) override;
  bool registryValues(QXCommonNS::RegistryRoot root, std::string_view key,
                      std::vector<QXCommonNS::RegistryValue>& out) override;
  std::vector<std::string> systemFontFiles() override;
  std::string modulePath(std::string_view stem) override;
  std::string localeName() override;

 private:
  struct Node {
    QXCommonNS::FileKind kind = QXCommonNS::FileKind::folder;
    std::shared_ptr<std::string> content;
    std::string target;  // of a link
    bool hidden = false;
    bool system = false;
    bool unreadable = false;
    std::uint64_t number = 0;
  };

  Node& make(const std::string& path, QXCommonNS::FileKind kind);
  Node& at(const std::string& path);
  /// The real path of `path`, links followed; nothing where it leads nowhere.
  [[nodiscard]] std::optional<std::string> resolved(const std::string& path) const;
  [[nodiscard]] const Node* find(const std::string& path) const;

  std::map<std::string, Node> nodes_;
  std::uint64_t lastNumber_ = 0;
  std::shared_ptr<PlatformLog> log_;
  std::map<std::string, std::string> environment_;
  std::map<QXCommonNS::KnownFolder, std::string> knownFolders_;
  std::vector<std::string> fontFolderCandidates_;
  std::vector<std::string> systemFontFiles_;
  std::map<std::string, std::vector<QXCommonNS::RegistryValue>> registry_;  // by lower-cased key
  std::string modulePath_ = "/service/";
  std::string localeName_ = "en_US";
};

/// Puts a platform in the place of the system's own as long as it lives.
class PlatformInPlace {
 public:
  explicit PlatformInPlace(QXCommonNS::FS_Platform& platform) {
    QXCommonNS::setPlatformForTests(&platform);
  }
  PlatformInPlace(const PlatformInPlace&) = delete;
  PlatformInPlace& operator=(const PlatformInPlace&) = delete;
  ~PlatformInPlace() { QXCommonNS::setPlatformForTests(nullptr); }
};

}  // namespace qxtest
