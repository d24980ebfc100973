#include "pool/settings/font_folders.h"

#include <unicode/locid.h>

#include <algorithm>
#include <utility>

namespace QXFontService_NS {
namespace {

/// Closing separator or not, capitals or not: one folder.
UnicodeString folderKey(const QXUri& uri) {
  QXUri folder(uri);
  UnicodeString text = folder.toDirectory();
  return text.toLower(icu::Locale::getRoot());
}

}  // namespace

FS_FontFolder* FontFolders::add(std::unique_ptr<FS_FontFolder> folder, const FS_FontFolder* behind,
                                bool skipScan) {
  folder->skipScan = static_cast<unsigned char>(skipScan);
  const auto [known, isNew] = byKey_.insert({folderKey(*folder), folder.get()});
  if (!isNew) {
    if (!skipScan) known->second->skipScan = 0;
    return nullptr;
  }
  return list_.insert(placeBehind(behind), std::move(folder))->get();
}

FontFolders::List::iterator FontFolders::placeBehind(const FS_FontFolder* folder) {
  if (folder == nullptr) return list_.end();
  // From the back: only what waits to be scanned stands behind the folder of a scan.
  const auto found = std::find_if(list_.rbegin(), list_.rend(),
                                  [folder](const auto& other) { return other.get() == folder; });
  return found == list_.rend() ? list_.end() : found.base();
}

FS_FontFolder* FontFolders::find(const QXUri& uri) const {
  const auto known = byKey_.find(folderKey(uri));
  return known == byKey_.end() ? nullptr : known->second;
}

void FontFolders::clear() {
  byKey_.clear();
  list_.clear();
}

}  // namespace QXFontService_NS
