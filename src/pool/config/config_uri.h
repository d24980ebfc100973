#pragma once

#include <unicode/unistr.h>

#include "qxcommon/uri.h"

namespace QXFontService_NS {

/// The location of the configuration file.
///
/// `envName` names an environment variable that may hold its path; null, empty, unset or too long
/// a value means "font-config.xml". A relative path stands beside the service's own module, never
/// in the current folder.
QXCommonNS::QXUri FS_ConfigUri(const char* envName);

/// The value of that variable, empty where there is none.
icu::UnicodeString configVariable(const char* envName);

}  // namespace QXFontService_NS
