#include "qxcommon/empty_string.h"

namespace QXCommonNS {

const UnicodeString QXEmptyString::EMPTY_VALUE;

}  // namespace QXCommonNS
