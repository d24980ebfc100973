#pragma once

#include <unicode/locid.h>
#include <unicode/unistr.h>

// Names of the common layer that the service's interface uses without their namespace.
// Declarations only: a header that needs a complete type includes that type's own header.

namespace QXCommonNS {
class QXError;
class QXLang;
class QXLock;
class QXMemStream;
class QXMutex;
class QXName;
class QXObjectBase;
class QXRCObject;
class QXTokenizer;
class QXUnicodeRange;
class QXUri;
class QXUtil;
class QXValue;
class QXXmlParser;
template <class T>
class QXPtr;
}  // namespace QXCommonNS

namespace QXFontService_NS {
using icu::Locale;
using icu::UnicodeString;

using QXCommonNS::QXError;
using QXCommonNS::QXLang;
using QXCommonNS::QXLock;
using QXCommonNS::QXMemStream;
using QXCommonNS::QXMutex;
using QXCommonNS::QXName;
using QXCommonNS::QXObjectBase;
using QXCommonNS::QXPtr;
using QXCommonNS::QXRCObject;
using QXCommonNS::QXTokenizer;
using QXCommonNS::QXUnicodeRange;
using QXCommonNS::QXUri;
using QXCommonNS::QXUtil;
using QXCommonNS::QXValue;
using QXCommonNS::QXXmlParser;
}  // namespace QXFontService_NS
