#pragma once

#include <unicode/unistr.h>

#include <map>
#include <memory>
#include <vector>

#include "font/contract/font_folder.h"

namespace QXFontService_NS {

/// The folders that the service knows, in the order of scanning, each under its lower-cased text.
class FontFolders {
 public:
  /// Adds a folder behind `behind`, or at the end where that is null. A folder known already is
  /// not replaced: it only loses its skip-scan mark when the new one was meant to be scanned,
  /// and the answer is null. Otherwise the answer is the folder that now stands in the list.
  FS_FontFolder* add(std::unique_ptr<FS_FontFolder> folder, const FS_FontFolder* behind,
                     bool skipScan);

  /// The folder of that location, or null.
  [[nodiscard]] FS_FontFolder* find(const QXUri& uri) const;

  [[nodiscard]] std::size_t size() const { return list_.size(); }
  [[nodiscard]] bool empty() const { return list_.empty(); }
  [[nodiscard]] FS_FontFolder& operator[](std::size_t index) const { return *list_[index]; }

  void clear();

 private:
  using List = std::vector<std::unique_ptr<FS_FontFolder>>;

  List::iterator placeBehind(const FS_FontFolder* folder);

  std::map<UnicodeString, FS_FontFolder*> byKey_;
  List list_;
};

}  // namespace QXFontService_NS
