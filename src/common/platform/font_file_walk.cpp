#include "common/platform/font_file_walk.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "common/limits.h"

namespace QXCommonNS {
namespace {

constexpr std::array<std::string_view, 6> kExtensions = {".ttf",   ".ttc", ".otf",
                                                         ".dfont", ".afm", ".pfm"};

char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isFontFileName(std::string_view name) {
  const std::size_t point = name.rfind('.');
  if (point == std::string_view::npos) return false;
  std::string extension(name.substr(point));
  std::transform(extension.begin(), extension.end(), extension.begin(), lowered);
  return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

// U+E000 to U+FFFF come behind the surrogates in UTF-16, and before four-byte forms in UTF-8.
int codeUnitRank(char c) {
  const int byte = static_cast<unsigned char>(c);
  return byte == 0xEE || byte == 0xEF ? byte + 0x10 : byte;
}

bool precedesByCodeUnits(const std::string& a, const std::string& b) {
  return std::lexicographical_compare(
      a.begin(), a.end(), b.begin(), b.end(),
      [](char left, char right) { return codeUnitRank(left) < codeUnitRank(right); });
}

std::string joined(const std::string& folder, const std::string& name) {
  return folder.empty() || folder.back() == '/' ? folder + name : folder + '/' + name;
}

class FontFileWalk {
 public:
  explicit FontFileWalk(FS_Platform& platform) : platform_(platform) {}

  // Goes at most `kMostFolderDepth` calls deep.
  void visit(const std::string& folder) {
    FileIdentity identity;
    if (!mayEnter() || !platform_.identity(folder, identity)) return;
    if (std::find(ancestors_.begin(), ancestors_.end(), identity) != ancestors_.end()) return;
    ++visited_;
    ancestors_.push_back(identity);
    takeEntries(folder);
    ancestors_.pop_back();
  }

  std::vector<std::string> takeFiles() {
    std::sort(files_.begin(), files_.end(), precedesByCodeUnits);
    files_.erase(std::unique(files_.begin(), files_.end()), files_.end());
    return std::move(files_);
  }

 private:
  [[nodiscard]] bool mayEnter() const {
    return ancestors_.size() < limits::kMostFolderDepth && visited_ < limits::kMostFolders;
  }

  void takeEntries(const std::string& folder) {
    std::vector<FolderEntry> entries;
    platform_.listFolder(folder, entries);
    for (const FolderEntry& entry : entries) {
      if (entry.system) continue;
      if (entry.kind == FileKind::folder && !entry.hidden) visit(joined(folder, entry.name));
      if (entry.kind == FileKind::regular && isFontFileName(entry.name))
        files_.push_back(joined(folder, entry.name));
    }
  }

  FS_Platform& platform_;
  std::vector<FileIdentity> ancestors_;
  std::size_t visited_ = 0;
  std::vector<std::string> files_;
};

}  // namespace

std::vector<std::string> listFontFiles(FS_Platform& platform,
                                       const std::vector<std::string>& folders) {
  FontFileWalk walk(platform);
  for (const std::string& folder : folders) walk.visit(folder);
  return walk.takeFiles();
}

}  // namespace QXCommonNS
