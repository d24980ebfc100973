#include "qxcommon/rc_object.h"

namespace QXCommonNS {

QXRCObject::QXRCObject() = default;
QXRCObject::~QXRCObject() = default;

unsigned int QXRCObject::getClassID() const {
  return kClassID;
}

bool QXRCObject::isKindOf(unsigned int id) const {
  return id == kClassID || QXObjectBase::isKindOf(id);
}

UnicodeString QXRCObject::getClassName() const {
  return u"QXRCObject";
}

int QXRCObject::release() const {
  // Acquire, too: the thread that deletes must see what the other owners did before.
  const int left = refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (left == 0) delete this;
  return left;
}

}  // namespace QXCommonNS
