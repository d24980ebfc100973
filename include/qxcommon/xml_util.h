#pragma once

#include "qxcommon/export.h"
#include "qxcommon/ptr.h"
#include "qxcommon/uri.h"
#include "qxcommon/xml_parser.h"

namespace QXCommonNS {

/// Makes XML parsers.
class QX_EXPORT QXXmlUtil {
 public:
  /// A new parser, to be opened on a document. `info` is reserved and may be null.
  static QXPtr<QXXmlParser> createXmlParser(const QXUri::ContentInfo* info);
};

}  // namespace QXCommonNS
