#include "qxcommon/object_base.h"

namespace QXCommonNS {

QXObjectBase::~QXObjectBase() = default;

unsigned int QXObjectBase::getClassID() const {
  return kClassID;
}

bool QXObjectBase::isKindOf(unsigned int id) const {
  return id == kClassID;
}

UnicodeString QXObjectBase::getClassName() const {
  return u"QXObjectBase";
}

}  // namespace QXCommonNS
