#pragma once

#include <unicode/unistr.h>

#include <istream>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "qxcommon/error.h"
#include "qxfontservice/font_file_type.h"

#include "common/platform/platform.h"
#include "font/contract/base_font.h"
#include "font/contract/font_folder.h"
#include "pool/registry/registry_services.h"
#include "pool/registry/type1_files.h"
#include "pool/settings/font_folders.h"
#include "pool/settings/service_settings.h"
#include "pool/tables/font_pool.h"

namespace QXFontService_NS {

using QXCommonNS::QXError;

/// Flags of `FS_FontRegistry::loadFont`.
enum LoadFlag : int {
  kLoadEudc = 1,        ///< an end-user-defined font: kept out of the name tables
  kLoadSystemList = 8,  ///< found in the system's list
};

/// All that the service knows of fonts: its settings, its folders and its two pools. One for the
/// process, made at the first public call that needs it and living to the end of the process.
///
/// Everything here runs under the global lock.
class FS_FontRegistry {
 public:
  FS_FontRegistry();
  ~FS_FontRegistry();
  FS_FontRegistry(const FS_FontRegistry&) = delete;
  FS_FontRegistry& operator=(const FS_FontRegistry&) = delete;

  /// Brings the process-wide registry up, or gives the one that stands.
  ///
  /// The pointer is stored before anything is read, so a registry whose configuration failed
  /// stays as far as it got: later calls find it and go on with it. What the configuration
  /// throws passes to the caller; errors of the later steps are collected and end those steps.
  ///
  /// With a `target` only the configuration is read, into that object; null when it failed.
  static FS_FontRegistry* open(const char* envName, FS_FontRegistry* target);

  /// The registry if it stands, else null; opens nothing.
  static FS_FontRegistry* current();

  void readConfig(const char* envName, const char* homeEnvName);

  /// Finds a face in the alias pool, then in the main pool; a null ref when neither has it.
  /// `fromAlias`, where given, becomes true on an alias hit and is left alone otherwise.
  FS_FontRef findFont(const UnicodeString& name, const FS_FontKey& key, bool* fromAlias);

  /// Reads a file for its names and style and keeps it.
  ///
  /// @return the font, owned by the main pool; null when the file cannot be opened, is of no
  ///   known kind or is refused. A font that wraps another (a web font) is given back unread, in
  ///   no pool, with one reference that the caller releases.
  FS_BaseFont* loadFont(FS_FontFolder& folder, const FS_FontFileName& name, int flags);

  /// The same for callers that have no use for a web font: whether the file was loaded. An
  /// unread one counts and is released.
  bool loadPoolFont(FS_FontFolder& folder, const FS_FontFileName& name, int flags);

  /// Scans every folder that is not marked to be skipped, subfolders and aliases included.
  void scanFolders();

  /// Reads a key of the system's font list: one value a font, its text an absolute path.
  void scanSystemList(QXCommonNS::RegistryRoot root, std::string_view key);

  /// The folder that holds a single file found elsewhere, made and kept out of scans if new.
  FS_FontFolder& folderForFile(const QXUri& file);

  /// Adds a folder at run time, without its subfolders, and loads its fonts.
  /// @return the number of files loaded; 0 for a folder known already.
  int addFontFolderPath(const QXUri& folder);

  /// Makes the font object for a file type; null for a type without a class. Reads nothing.
  static FS_BaseFont* createFontObject(FS_FontFolder* folder, const QXUri& uri,
                                       FS_FontFileType type);

  [[nodiscard]] ServiceSettings& settings() { return settings_; }
  [[nodiscard]] FontFolders& folders() { return folders_; }
  [[nodiscard]] FS_FontPool& mainPool() { return mainPool_; }
  [[nodiscard]] FS_FontPool& aliasPool() { return aliasPool_; }
  [[nodiscard]] std::vector<QXError>& errors() { return errors_; }
  [[nodiscard]] RegistryServices& services() { return services_; }
  [[nodiscard]] Type1Files& type1Files() { return type1Files_; }

  /// Collects an error with the file that it is about, which may be empty.
  void collectError(const QXError& error, const QXUri& file);

  /// The file of a collected error, by its index; empty where none is known.
  [[nodiscard]] QXUri errorFile(std::size_t index) const;

 private:
  void openPools();
  void fallBackToSystem(const char* envName);
  void readEudc();
  void loadListed(const UnicodeString& path);

  ServiceSettings settings_;
  FontFolders folders_;
  FS_FontPool mainPool_;
  FS_FontPool aliasPool_;
  std::vector<QXError> errors_;
  std::map<std::size_t, QXUri> errorFiles_;  // by index in errors_
  Type1Files type1Files_;
  RegistryServices services_;
};

/// The location of a file that a listing gave: the name is joined as it stands, since any
/// character but the separator may be part of it.
QXUri fileUriIn(const FS_FontFolder& folder, const FS_FontFileName& name);

/// Whether the configuration of its folder keeps a file out.
bool isExcluded(const FS_FontFolder& folder, const FS_FontFileName& name);

/// The style under which an alias stands; what it does not give counts as 400, upright and 5.
FS_FontKey styleOf(const FS_FontAlias& alias);

/// Destroys the registry as the end of the process would, and puts the platform back. No handle
/// may outlive it. For the fixtures of tests; not exported.
void resetServiceForTests();

}  // namespace QXFontService_NS
