#include <memory>
#include <string>
#include <vector>

#include "common/platform/platform.h"
#include "font/contract/file_type_rule.h"
#include "pool/registry/font_registry.h"
#include "pool/registry/opening_watcher.h"
#include "pool/system/folder_listing.h"
#include "pool/system/registry_text.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::platform;
using QXCommonNS::RegistryRoot;
using QXCommonNS::RegistryValue;
using QXCommonNS::bytes::ByteView;

/// A list of texts starts with a one-letter marker and its zero; the metric file comes next.
constexpr std::size_t kMarkerSize = 4;

/// The text of a font list's value; empty for a type that is no text.
UnicodeString listedPath(const RegistryValue& value) {
  const ByteView data(value.data);
  if (value.type == RegistryValue::kText) return registryText(data);
  if (value.type == RegistryValue::kMultiText) return registryText(data.from(kMarkerSize));
  return {};
}

bool isMetricFile(FS_FontFileType type) {
  return type == FS_FILETYPE_TYPE1_AFM || type == FS_FILETYPE_TYPE1_PFM;
}

QXUri folderOf(const QXUri& file) {
  return QXUri(file.getBaseString(), QXCommonNS::URISTR_FOLDER);
}

/// The part of the platform's own list that stands for a key: metric files for that of Type 1
/// fonts, all others for the fonts'. Files of a folder that is scanned anyhow are left out.
std::vector<UnicodeString> platformList(const FontFolders& folders, bool metricFiles) {
  std::vector<UnicodeString> paths;
  for (const std::string& path : platform().systemFontFiles()) {
    const QXUri uri(UnicodeString::fromUTF8(path), QXCommonNS::URISTR_USER);
    const FS_FontFileType type = fontFileTypeOfExtension(uri.getExtension());
    if (type == FS_FILETYPE_UNKNOWN || type == FS_FILETYPE_WOFF) continue;
    if (isMetricFile(type) != metricFiles) continue;
    const FS_FontFolder* folder = folders.find(folderOf(uri));
    if (folder == nullptr || folder->skipScan != 0) paths.push_back(uri.getText());
  }
  return paths;
}

}  // namespace

void FS_FontRegistry::scanSystemList(RegistryRoot root, std::string_view key) {
  std::vector<RegistryValue> values;
  if (platform().registryValues(root, key, values)) {
    for (const RegistryValue& value : values) loadListed(listedPath(value));
    return;
  }
  // Where there is no registry the list would bring in every font of the system: it is wanted by
  // a host without a configuration, and by a configuration that asks for it.
  if (!settings_.configUri.isEmpty() && !settings_.systemListAsked) return;
  const bool metricFiles = key.find("Type 1") != std::string_view::npos;
  for (const UnicodeString& path : platformList(folders_, metricFiles)) loadListed(path);
}

void FS_FontRegistry::loadListed(const UnicodeString& path) {
  const QXUri uri(path, QXCommonNS::URISTR_USER);
  // Bare names, as most entries have, belong to the system's folder, which the configuration
  // names.
  if (!uri.isAbsolute() || !uri.isFile() || !uri.isFileExists()) return;
  if (fontFileTypeOfExtension(uri.getExtension()) == FS_FILETYPE_UNKNOWN) return;

  FS_FontFolder& folder = folderForFile(uri);
  const FS_FontFileName name = fileNameOf(uri.getFileName());
  if (isExcluded(folder, name)) return;
  opening::tellFolder(folder);
  type1Files_.note(uri);
  loadPoolFont(folder, name, kLoadSystemList);
}

FS_FontFolder& FS_FontRegistry::folderForFile(const QXUri& file) {
  const QXUri location = folderOf(file);
  if (FS_FontFolder* known = folders_.find(location)) return *known;
  return *folders_.add(
      std::make_unique<FS_FontFolder>(location.getText(), static_cast<unsigned char>(0), false),
      nullptr, true);
}

}  // namespace QXFontService_NS
