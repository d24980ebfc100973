#include "pool/config/macros.h"

#include <array>
#include <string>

#include "common/platform/platform.h"
#include "pool/system/system_font_folder.h"

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;
using QXCommonNS::KnownFolder;
using QXCommonNS::platform;

const char16_t* const kWinFonts = u"@@WINFONTS@@";
const char16_t* const kHome = u"@@HOME@@";

struct FolderMacro {
  const char16_t* text;
  KnownFolder folder;
};

constexpr std::array kFolderMacros = {
    FolderMacro{u"@@APPDATA@@", KnownFolder::roamingData},
    FolderMacro{u"@@LOCALAPPDATA@@", KnownFolder::localData},
    FolderMacro{u"@@PROGRAMDATA@@", KnownFolder::commonData},
};

bool holds(const UnicodeString& text, const char16_t* macro) {
  return text.indexOf(UnicodeString(macro)) >= 0;
}

void replace(UnicodeString& text, const char16_t* macro, const UnicodeString& by) {
  if (!by.isEmpty()) text.findAndReplace(UnicodeString(macro), by);
}

UnicodeString knownFolder(KnownFolder which) {
  std::string path;
  return platform().knownFolder(which, path) ? UnicodeString::fromUTF8(path) : UnicodeString();
}

UnicodeString environment(const char* name) {
  std::string value;
  return platform().environment(name, value) ? UnicodeString::fromUTF8(value) : UnicodeString();
}

}  // namespace

UnicodeString FS_ExpandMacros(const UnicodeString& path, const char* homeEnvName,
                              bool& winFontsUsed) {
  UnicodeString text = path;
  if (holds(text, kWinFonts)) {
    winFontsUsed = true;
    replace(text, kWinFonts, systemFontFolder());
  }
  for (const FolderMacro& macro : kFolderMacros) {
    if (holds(text, macro.text)) replace(text, macro.text, knownFolder(macro.folder));
  }
  if (homeEnvName != nullptr && holds(text, kHome)) replace(text, kHome, environment(homeEnvName));
  return text;
}

}  // namespace QXFontService_NS
