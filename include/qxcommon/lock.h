#pragma once

#include <mutex>

#include "qxcommon/export.h"
#include "qxcommon/thread_annotations.h"

namespace QXCommonNS {

class QXMutex;

/// A lock that its owner may take again: opening the service holds the global lock while the
/// lookups that it calls take it too. It is taken and given back by a `QXMutex` only.
class QX_EXPORT QX_CAPABILITY("lock") QXLock {
 public:
  QXLock();
  ~QXLock();
  QXLock(const QXLock&) = delete;
  QXLock& operator=(const QXLock&) = delete;

 private:
  friend class QXMutex;
  std::recursive_mutex mutex_;
};

/// A guard: holds a lock from its construction to its end.
///
///     QXMutex guard(&lock);
class QX_EXPORT QX_SCOPED_CAPABILITY QXMutex {
 public:
  /// Waits for the lock and takes it.
  /// @param lock borrowed; it must outlive the guard. With null nothing is guarded.
  explicit QXMutex(QXLock* lock) QX_ACQUIRE(lock);
  ~QXMutex() QX_RELEASE();
  QXMutex(const QXMutex&) = delete;
  QXMutex& operator=(const QXMutex&) = delete;

 private:
  void lock();

  QXLock* lock_;
};

}  // namespace QXCommonNS
