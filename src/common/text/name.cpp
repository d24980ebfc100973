#include "qxcommon/name.h"

#include "common/text/name_table.h"

namespace QXCommonNS {

QXName::QXName(const UnicodeString& text) : value_(text::nameTable().intern(text)) {}

const UnicodeString& QXNameTable::getSharedNameString(QXNameEnum value) {
  return text::nameTable().textOf(value);
}

}  // namespace QXCommonNS
