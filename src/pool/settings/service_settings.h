#pragma once

#include <unicode/unistr.h>

#include <map>

#include "qxcommon/uri.h"

#include "pool/settings/eudc_set.h"

namespace QXFontService_NS {

using icu::UnicodeString;
using QXCommonNS::QXUri;

/// What the configuration file sets, with the values that hold before any reading.
struct ServiceSettings {
  QXUri configUri;               ///< empty when no file was read
  bool windowsNames = false;     ///< name-processing-mode; kept, and read by nothing
  bool systemList = true;        ///< windows-registry
  bool systemListAsked = false;  ///< the file says windows-registry enable in so many words
  bool eudcMapping = true;       ///< eudc-processing mapping
  bool eudcRangeConfigured = false;
  EudcSet eudcSet;
  QXUri eudcSystemDefault;
  std::map<UnicodeString, QXUri> eudcMap;  ///< family name to file; linked in key order
  bool windowsMetrics = false;             ///< otf-metrics-mode
  bool usePreferredFamily = true;
  bool winFontsUsed = false;  ///< a path held "@@WINFONTS@@"
};

}  // namespace QXFontService_NS
