#include <unicode/locid.h>

#include <memory>
#include <optional>
#include <utility>

#include "pool/config/config_report.h"
#include "pool/config/config_values.h"
#include "pool/config/macros.h"
#include "pool/config/read_config.h"
#include "pool/config/read_file_options.h"

namespace QXFontService_NS::config {
namespace {

/// The error that keeps a folder out, or nothing.
std::optional<FS_ERROR> refusal(const QXUri& uri, const FontFolders& folders) {
  if (!uri.isFile()) return FS_ERROR_NO_FILE_PATH;
  if (!uri.isAbsolute()) return FS_ERROR_RELATIVE_PATH;
  if (folders.find(uri) != nullptr) return FS_ERROR_ALREADY_REGISTERED;
  return std::nullopt;
}

bool isChild(int word) {
  switch (word) {
    case kFontAlias:
    case kFontEntry:
    case kFontExclude:
    case kGlyphList:
    case kSkipGlyphnameMapping:
    case kUseZeroGlyphId:
      return true;
    default:
      return false;
  }
}

/// Reads what a child without children says; its end tag comes later.
bool readOptions(ConfigSource& source, int word, FS_FontFolder& folder) {
  switch (word) {
    case kFontEntry:
      return readFontEntry(source, folder);
    case kFontExclude:
      return readFontExclude(source, folder);
    case kGlyphList:
      return readGlyphList(source, folder);
    case kSkipGlyphnameMapping:
      return readSkipGlyphnameMapping(source, folder);
    case kUseZeroGlyphId:
      return readUseZeroGlyphId(source, folder);
    default:
      throwUnexpectedStart(source);
      return false;
  }
}

/// Reads the children up to the end tag of the folder. The end tags of its own children pass
/// whether or not one of that name is open: files of that shape are in use.
bool readChildren(ConfigSource& source, FS_FontFolder& folder) {
  bool insideChild = false;
  for (Event event = source.next(); event != Event::finished; event = source.next()) {
    const int word = source.word();
    if (event == Event::end) {
      if (word == kFontFolder) return true;
      if (!isChild(word)) throwUnexpectedEnd(source);
      insideChild = false;
      continue;
    }
    if (insideChild) throwUnexpectedStart(source);
    insideChild = word != kFontAlias;
    const bool goOn =
        word == kFontAlias ? readFontAlias(source, folder) : readOptions(source, word, folder);
    if (!goOn) return false;
  }
  return false;
}

}  // namespace

bool readFontFolder(ConfigSource& source, const char* homeEnvName, ConfigTarget target) {
  UnicodeString path = source.attribute(kPath).trim();
  if (path.isEmpty()) return reportEmpty(source, kFontFolder, kPath);
  path = FS_ExpandMacros(path, homeEnvName, target.settings.winFontsUsed);

  const QXUri uri(path, QXCommonNS::URISTR_USER);
  const std::optional<FS_ERROR> error = refusal(uri, target.folders);
  if (error && !reportValue(source, *error, kFontFolder, kPath, path)) return false;

  auto folder = std::make_unique<FS_FontFolder>(uri.getText(), static_cast<unsigned char>(0),
                                                isAffirmative(source.attribute(kRecursive)));
  // A folder that is refused is read all the same, into an object of its own, for its errors.
  if (error) return readChildren(source, *folder);
  return readChildren(source, *target.folders.add(std::move(folder), nullptr, false));
}

}  // namespace QXFontService_NS::config
