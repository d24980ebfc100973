#include <unicode/locid.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "common/limits.h"
#include "common/platform/platform.h"
#include "font/contract/file_type_rule.h"
#include "pool/registry/font_registry.h"
#include "pool/registry/opening_watcher.h"
#include "pool/system/folder_listing.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::FileIdentity;
using QXCommonNS::FileKind;
using QXCommonNS::FolderEntry;
using QXCommonNS::platform;

/// Font programs are no fonts by themselves, so they are noted here and not where fonts are read.
void noteType1File(FS_FontRegistry& registry, const FS_FontFolder& folder, const ListedEntry& entry,
                   const UnicodeString& extension) {
  if (type1RoleOf(extension) == Type1Role::none || isExcluded(folder, entry.name)) return;
  registry.type1Files().note(fileUriIn(folder, entry.name));
}

/// One walk over the registry's folders. The list grows while it goes on: subfolders go right
/// behind their parent, so they are scanned before the next folder that was named.
class FolderScan {
 public:
  explicit FolderScan(FS_FontRegistry& registry) : registry_(registry) {}

  void run() {
    FontFolders& folders = registry_.folders();
    for (std::size_t i = 0; i < folders.size(); ++i) {
      if (folders[i].skipScan == 0) scan(folders[i]);
    }
  }

 private:
  /// The identities of a folder and of those above it, by which a circle of links is noticed.
  using Trail = std::vector<FileIdentity>;

  void scan(FS_FontFolder& folder) {
    opening::tellFolder(folder);
    const FS_FontFolder* last = &folder;
    const std::vector<ListedEntry> entries = listSorted(folder);
    registry_.mainPool().expectFonts(entries.size());
    for (const ListedEntry& entry : entries) {
      if (entry.kind == FileKind::regular && !entry.system) {
        loadFile(folder, entry);
      } else if (entry.kind == FileKind::folder && folder.recursive != 0) {
        if (const FS_FontFolder* added = addSubfolder(folder, entry, last)) last = added;
      }
    }
    enterAliases(folder);
  }

  void loadFile(FS_FontFolder& folder, const ListedEntry& entry) {
    const UnicodeString extension = entry.extension();
    noteType1File(registry_, folder, entry, extension);
    const FS_FontFileType type = fontFileTypeOfExtension(extension);
    // Web fonts in folders are no fonts of the pool: documents bring them along.
    if (type == FS_FILETYPE_UNKNOWN || type == FS_FILETYPE_WOFF) return;
    if (!isExcluded(folder, entry.name)) registry_.loadPoolFont(folder, entry.name, 0);
  }

  const FS_FontFolder* addSubfolder(const FS_FontFolder& parent, const ListedEntry& entry,
                                    const FS_FontFolder* behind) {
    if (entry.hidden || entry.system || foldersLeft_ == 0) return nullptr;
    auto folder = std::make_unique<FS_FontFolder>(parent.getText() + entry.name.name,
                                                  static_cast<unsigned char>(0), true);
    Trail trail = trailOf(parent);
    if (!extendTrail(trail, *folder)) return nullptr;
    const FS_FontFolder* added = registry_.folders().add(std::move(folder), behind, false);
    if (added == nullptr) return nullptr;  // known already, so it is scanned once in any case
    --foldersLeft_;
    trails_[added] = std::move(trail);
    return added;
  }

  const Trail& trailOf(const FS_FontFolder& folder) {
    Trail& trail = trails_[&folder];
    if (trail.empty()) (void)extendTrail(trail, folder);
    return trail;
  }

  /// Adds the folder's own identity; false for one that stands among its ancestors, or too deep.
  static bool extendTrail(Trail& trail, const FS_FontFolder& folder) {
    FileIdentity identity{};
    std::string path;
    if (!platform().identity(folder.getLocalPath(false).toUTF8String(path), identity)) return false;
    const bool circle = std::find(trail.begin(), trail.end(), identity) != trail.end();
    if (circle || trail.size() >= QXCommonNS::limits::kMostFolderDepth) return false;
    trail.push_back(identity);
    return true;
  }

  void enterAliases(const FS_FontFolder& folder) {
    for (const auto& [file, record] : folder.aliases) {
      auto& files = registry_.mainPool().fileTable();
      const auto family = files.find(file.lowerName);
      if (family == files.end() || family->second.empty() || record.aliases.empty()) continue;
      FS_FontRef ref = matchFont(family->second, family->second.begin()->first);
      ref.entry = static_cast<short>(record.entry);
      for (const FS_FontAlias& alias : record.aliases) enterAlias(alias, ref);
    }
  }

  void enterAlias(const FS_FontAlias& alias, const FS_FontRef& ref) {
    registry_.aliasPool().addFamilyName(alias.familyName, ref, styleOf(alias));
  }

  FS_FontRegistry& registry_;
  std::map<const FS_FontFolder*, Trail> trails_;
  std::size_t foldersLeft_ = QXCommonNS::limits::kMostFolders;
};

}  // namespace

FS_FontKey styleOf(const FS_FontAlias& alias) {
  constexpr int kNotGiven = -1;
  const int weight = alias.weight == kNotGiven ? 0 : alias.weight;
  return makeFontKey(weight, alias.italic == 1, alias.stretch);
}

void FS_FontRegistry::scanFolders() {
  FolderScan(*this).run();
}

int FS_FontRegistry::addFontFolderPath(const QXUri& uri) {
  if (folders_.find(uri) != nullptr) return 0;
  FS_FontFolder* folder = folders_.add(
      std::make_unique<FS_FontFolder>(uri.getText(), static_cast<unsigned char>(0), false), nullptr,
      false);
  if (folder == nullptr) return 0;
  opening::tellFolder(*folder);
  int count = 0;
  for (const ListedEntry& entry : listSorted(*folder)) {
    if (entry.kind != FileKind::regular || entry.system) continue;
    const UnicodeString extension = entry.extension();
    noteType1File(*this, *folder, entry, extension);
    if (fontFileTypeOfExtension(extension) == FS_FILETYPE_UNKNOWN) continue;
    if (loadPoolFont(*folder, entry.name, 0)) ++count;
  }
  return count;
}

}  // namespace QXFontService_NS
