#pragma once

#include "font/contract/font_folder.h"

namespace QXFontService_NS {

/// Who is told, step by step, of the reading of folders; under the global lock.
class OpeningWatcher {
 public:
  virtual void folderBegun(const FS_FontFolder& folder) = 0;
  /// @param faces 0 for a file that was refused.
  virtual void fileRead(int faces) = 0;

 protected:
  ~OpeningWatcher() = default;
};

namespace opening {

/// Sets the watcher, which stays the caller's; null for none. A failure that waits is dropped.
void setWatcher(OpeningWatcher* watcher);

/// Tell the watcher. What it throws is kept, so that the pools are complete whatever it does, and
/// ends the telling until it has passed.
void tellFolder(const FS_FontFolder& folder);
void tellFile(int faces);

/// Throws what the watcher threw, once.
void passFailure();

}  // namespace opening
}  // namespace QXFontService_NS
