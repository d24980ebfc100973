#include "pool/tables/global_lock.h"

namespace QXFontService_NS {

QXLock& FS_GlobalLock() {
  // Never destroyed: host threads may outlive the static objects of the library.
  static QXLock& lock = *new QXLock;
  return lock;
}

namespace {

/// Made at load time, before any call.
const QXLock& globalLockAtLoad = FS_GlobalLock();

}  // namespace
}  // namespace QXFontService_NS
