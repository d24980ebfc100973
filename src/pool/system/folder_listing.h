#pragma once

#include <vector>

#include "common/platform/platform.h"
#include "font/contract/font_folder.h"

namespace QXFontService_NS {

/// One entry of a folder, its name as text.
struct ListedEntry {
  FS_FontFileName name;
  QXCommonNS::FileKind kind;
  bool hidden;
  bool system;

  /// The extension of the lower-cased name with its point; empty without one.
  [[nodiscard]] UnicodeString extension() const;
};

/// A file name with the key that it is looked up by.
FS_FontFileName fileNameOf(const UnicodeString& name);

/// The entries of a folder in the order in which they are taken: by upper-cased UTF-16 units, ties
/// by the units themselves, since "who was found first" decides between fonts and the file
/// system's own order is arbitrary. Empty for a folder that cannot be listed.
std::vector<ListedEntry> listSorted(const FS_FontFolder& folder);

}  // namespace QXFontService_NS
