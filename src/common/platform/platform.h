#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QXCommonNS {

/// What a path leads to, links followed. `none` is also a link that leads nowhere.
enum class FileKind { none, regular, folder, other };

/// Folders that Windows knows by number (CSIDL); other systems have some of them too.
enum class KnownFolder {
  fonts = 20,
  roamingData = 26,
  localData = 28,
  commonData = 35,
  windows = 36,
  system = 37
};

enum class RegistryRoot { currentUser, localMachine };

struct FolderEntry {
  std::string name;
  FileKind kind = FileKind::none;
  bool hidden = false;
  bool system = false;
};

/// Tells whether two paths lead to the same thing.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// A value of a registry key: `data` as it is stored, UTF-16 little endian with its closing zeros
/// for texts.
struct RegistryValue {
  static constexpr unsigned kText = 1;       // REG_SZ
  static constexpr unsigned kMultiText = 7;  // REG_MULTI_SZ

  std::u16string name;
  unsigned type = 0;
  std::vector<std::byte> data;
};

/// The outside world: files, folders, the environment and what the system knows of its fonts.
/// Everything above reaches it through this one interface, so that tests can stand in for it.
///
/// Texts are UTF-8. Any thread may call any operation. None throws but for want of memory.
class FS_Platform {
 public:
  virtual ~FS_Platform() = default;

  /// Opens a regular file of less than 4 GiB for reading, links followed; null for anything else,
  /// without waiting for the other end of a pipe. The stream can seek, and a file that shrinks
  /// meanwhile gives a short read.
  virtual std::unique_ptr<std::istream> openFile(const std::string& path) = 0;
  virtual FileKind fileKind(const std::string& path) = 0;
  /// False, with `out` untouched, where nothing stands at `path`.
  virtual bool identity(const std::string& path, FileIdentity& out) = 0;
  /// Replaces `out` by the entries of a folder, unsorted, without "." and ".."; names that cannot
  /// be told in UTF-8 are left out. False, with `out` empty, when it cannot be listed.
  virtual bool listFolder(const std::string& path, std::vector<FolderEntry>& out) = 0;
  /// False, with `out` untouched, where the system does not know such a folder.
  virtual bool knownFolder(KnownFolder which, std::string& out) = 0;
  /// Where the system's fonts may stand, best first, each with its closing separator; empty where
  /// known folders serve.
  virtual std::vector<std::string> fontFolderCandidates() = 0;
  /// False, with `out` untouched, when the variable is not set.
  virtual bool environment(const char* name, std::string& out) = 0;
  /// Replaces `out` by the values of a key; false, with `out` empty, when there is no such key.
  virtual bool registryValues(RegistryRoot root, std::string_view key,
                              std::vector<RegistryValue>& out) = 0;
  /// Absolute paths of the system's font and metric files where there is no registry to list
  /// them: each once, sorted by UTF-16 code units.
  virtual std::vector<std::string> systemFontFiles() = 0;
  /// The absolute folder, with closing separator, of the loaded module `stem` (no extension), or
  /// of the one that holds this code; empty when it cannot be told.
  virtual std::string modulePath(std::string_view stem) = 0;
  /// A locale, such as "ja_JP", that stands in for ICU's default; empty, as on every real system,
  /// where ICU's own serves.
  virtual std::string localeName() = 0;
};

/// The system's own platform, or what a test has put in its place.
FS_Platform& platform();

/// Puts `replacement` in the place of the system's own platform, for tests; null puts that back.
/// Not while another thread is at work.
void setPlatformForTests(FS_Platform* replacement);

/// The platform of the system this is built for; it lives as long as the process.
FS_Platform& nativePlatform();

}  // namespace QXCommonNS
