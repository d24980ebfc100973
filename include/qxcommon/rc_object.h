#pragma once

#include <atomic>

#include "qxcommon/object_base.h"

namespace QXCommonNS {

/// The intrusive, reference-counted base of every font object.
///
/// An object is born with the count 0 and cannot be deleted but by `release()`. Who makes one
/// adds a reference before anything can fail, or the object leaks:
///
///     object->refCount.fetch_add(1);   // own it
///     ...
///     object->release();               // give it up; deletes it when it was the last
///
/// `QXPtr` does both. Counting is atomic: owners may live on different threads.
class QX_EXPORT QXRCObject : public QXObjectBase {
 public:
  /// The id of this class.
  static constexpr unsigned int kClassID = 0xD18D040A;

  [[nodiscard]] unsigned int getClassID() const override;
  [[nodiscard]] bool isKindOf(unsigned int id) const override;
  [[nodiscard]] UnicodeString getClassName() const override;

  /// Gives up one reference and deletes the object when none is left.
  /// @return the new count; at 0 the object is gone.
  int release() const;

  /// The number of references; owners add to it directly, and only `release` takes away.
  mutable std::atomic<int> refCount{0};

 protected:
  QXRCObject();
  ~QXRCObject() override;
};

}  // namespace QXCommonNS
