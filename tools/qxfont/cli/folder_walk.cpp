#include "qxfont/cli/folder_walk.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace qxfont {
namespace {

namespace files = std::filesystem;

/// A walk that keeps the folders yet to be listed in a list of its own: however deep they nest, no
/// stack grows.
class Walk {
 public:
  FolderContent run(const std::string& folder) {
    waiting_.push_back(folder);
    while (!waiting_.empty()) {
      const std::string next = std::move(waiting_.back());
      waiting_.pop_back();
      if (isNew(next)) list(next);
    }
    std::sort(content_.files.begin(), content_.files.end());
    std::sort(content_.unreadable.begin(), content_.unreadable.end());
    return std::move(content_);
  }

 private:
  bool isNew(const std::string& folder) {
    struct stat facts {};
    if (stat(folder.c_str(), &facts) != 0) return true;  // the listing tells why
    return known_.emplace(facts.st_dev, facts.st_ino).second;
  }

  void list(const std::string& folder) {
    std::error_code failed;
    files::directory_iterator entry(folder, failed);
    for (; !failed && entry != files::directory_iterator(); entry.increment(failed)) {
      std::error_code ignored;
      auto& kind = entry->is_directory(ignored) ? waiting_ : content_.files;
      kind.push_back(entry->path().string());
    }
    if (failed) content_.unreadable.push_back(folder);
  }

  std::vector<std::string> waiting_;
  std::set<std::pair<dev_t, ino_t>> known_;
  FolderContent content_;
};

}  // namespace

FolderContent walkFolder(const std::string& folder) {
  return Walk().run(folder);
}

}  // namespace qxfont
