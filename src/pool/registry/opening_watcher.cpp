#include "pool/registry/opening_watcher.h"

#include <exception>
#include <utility>

#include "pool/tables/global_lock.h"

namespace QXFontService_NS::opening {
namespace {

OpeningWatcher* theWatcher = nullptr;
std::exception_ptr theFailure;

template <class Tell>
void tell(Tell&& tellWatcher) {
  if (theWatcher == nullptr || theFailure) return;
  try {
    tellWatcher(*theWatcher);
  } catch (...) {
    theFailure = std::current_exception();
  }
}

}  // namespace

void setWatcher(OpeningWatcher* watcher) {
  const QXMutex guard(&FS_GlobalLock());
  theWatcher = watcher;
  theFailure = nullptr;
}

void tellFolder(const FS_FontFolder& folder) {
  tell([&](OpeningWatcher& watcher) { watcher.folderBegun(folder); });
}

void tellFile(int faces) {
  tell([=](OpeningWatcher& watcher) { watcher.fileRead(faces); });
}

void passFailure() {
  std::exception_ptr failure;
  {
    const QXMutex guard(&FS_GlobalLock());
    failure = std::exchange(theFailure, nullptr);
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace QXFontService_NS::opening
