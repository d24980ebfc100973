#include "font/contract/outline_lock.h"

#include "qxcommon/lock.h"

namespace QXFontService_NS {

QXLock& FS_OutlineLock() {
  // Never destroyed: a host's static handles may still draw while the process ends.
  static QXLock& lock = *new QXLock;
  return lock;
}

}  // namespace QXFontService_NS
