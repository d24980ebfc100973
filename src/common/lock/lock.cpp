#include "qxcommon/lock.h"

namespace QXCommonNS {

QXLock::QXLock() = default;
QXLock::~QXLock() = default;

// The analysis cannot follow the lock through its own implementation.
QX_NO_THREAD_ANALYSIS QXMutex::QXMutex(QXLock* lock) : lock_(lock) {
  this->lock();
}

QX_NO_THREAD_ANALYSIS QXMutex::~QXMutex() {
  if (lock_ != nullptr) lock_->mutex_.unlock();
}

void QXMutex::lock() {
  if (lock_ != nullptr) lock_->mutex_.lock();
}

}  // namespace QXCommonNS
