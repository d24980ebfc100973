#include "pool/system/system_font_folder.h"

#include <array>
#include <string>
#include <vector>

#include "qxcommon/uri.h"

#include "common/platform/platform.h"

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;
using QXCommonNS::FileKind;
using QXCommonNS::KnownFolder;
using QXCommonNS::platform;
using QXCommonNS::QXUri;

struct Probe {
  KnownFolder folder;
  const char16_t* file;
};

/// The last one starts at the root of the drive: systems of old had no known folder at all.
constexpr std::array kProbes = {
    Probe{KnownFolder::fonts, u"arial.ttf"},
    Probe{KnownFolder::system, u"..\\Fonts\\arial.ttf"},
    Probe{KnownFolder::windows, u"Fonts\\arial.ttf"},
    Probe{KnownFolder::windows, u"\\WINDOWS\\Fonts\\arial.ttf"},
};

UnicodeString asDirectory(const std::string& path) {
  QXUri folder(UnicodeString::fromUTF8(path), QXCommonNS::URISTR_FOLDER);
  return folder.toDirectory();
}

UnicodeString firstExisting(const std::vector<std::string>& candidates) {
  for (const std::string& path : candidates) {
    if (platform().fileKind(path) == FileKind::folder) return asDirectory(path);
  }
  return {};
}

QXUri probeUri(const Probe& probe) {
  std::string folder;
  if (!platform().knownFolder(probe.folder, folder)) return {};
  return QXUri(QXUri(asDirectory(folder), QXCommonNS::URISTR_FOLDER), probe.file,
               QXCommonNS::URISTR_USER);
}

}  // namespace

UnicodeString systemFontFolder() {
  const std::vector<std::string> candidates = platform().fontFolderCandidates();
  if (!candidates.empty()) return firstExisting(candidates);

  for (const Probe& probe : kProbes) {
    const QXUri uri = probeUri(probe);
    if (uri.isFileExists()) return uri.getBaseString();
  }
  return probeUri(kProbes.front()).getBaseString();
}

}  // namespace QXFontService_NS
