#pragma once

#include "qxcommon/lock.h"

namespace QXFontService_NS {

using QXCommonNS::QXLock;
using QXCommonNS::QXMutex;

/// The lock over the registry's creation and all pool lookups and insertions. Recursive, since
/// opening holds it while the lookups that it calls take it again, and since the callback of an
/// enumeration runs under it. First in the lock order: nothing that holds another lock of the
/// service may ask for it.
QXLock& FS_GlobalLock();

}  // namespace QXFontService_NS
