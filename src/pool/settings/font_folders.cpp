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
  auto place = std::find_if(list_.begin(), list_.end(),
                            [behind](const auto& other) { return other.get() == behind; });
  if (place != list_.end()) ++place;
  return list_.insert(place, std::move(folder))->get();
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
