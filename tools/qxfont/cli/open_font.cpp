#include "qxfont/cli/open_font.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "qxfontservice/ext/open_file.h"

#include "qxfont/cli/near_names.h"
#include "qxfont/cli/paths.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

ToolError unreadable(const std::string& path, const QXCommonNS::QXError& reason) {
  const std::string text = oneLine(reason.getErrorMessage());
  return ToolError(Status::badFont, text.empty() ? "the font " + path + " cannot be read" : text);
}

/// A file that opens, but not at this face, is not at fault itself.
bool opensAtAll(const fs::QXUri& file) {
  fs::FS_FontInfo info;
  const bool opens = fs::ext::openFontFile(file, 0, info);
  if (opens) info.deleteFont();
  return opens;
}

bool isFontProgram(const std::string& path) {
  icu::UnicodeString extension = unicode(std::filesystem::path(path).extension().string());
  extension.toLower(icu::Locale::getRoot());
  return extension == u".pfb" || extension == u".pfa";
}

OpenFont openPath(const FontOptions& options) {
  const fs::QXUri file = uriOfPath(options.font);
  fs::FS_FontInfo info;
  if (fs::ext::openFontFile(file, options.face, info)) return OpenFont(info, true);
  if (options.face > 0 && opensAtAll(file)) {
    throw ToolError(Status::noMatch, fmt::format("{} has no face {}", options.font, options.face),
                    "faces are counted from 0");
  }
  ToolError error = unreadable(options.font, info.getError());
  if (!isFontProgram(options.font)) throw error;
  throw ToolError(error.status(), error.what(),
                  "a Type 1 font is opened by its metrics, the .afm or .pfm file beside it");
}

OpenFont openName(Service& service, const FontOptions& options) {
  fs::FS_FontInfo info;
  if (info.createFont(unicode(options.font), options.weight, options.italic, options.stretch,
                      service.documentFonts())) {
    return OpenFont(info, false);
  }
  const fs::QXUri file =
      fs::FS_FontInfo::getFontFolderPath(unicode(options.font), options.weight, options.italic,
                                         options.stretch, service.documentFonts(), nullptr);
  if (file.isEmpty()) throw noSuchFont(service, options.font);
  throw unreadable(utf8(file.getLocalPath(true)), info.getError());
}

}  // namespace

OpenFont::~OpenFont() {
  if (owned_) info_.deleteFont();
}

OpenFont::OpenFont(OpenFont&& other) noexcept
    : info_(other.info_), owned_(std::exchange(other.owned_, false)) {}

OpenFont& OpenFont::operator=(OpenFont&& other) noexcept {
  std::swap(info_, other.info_);
  std::swap(owned_, other.owned_);
  return *this;
}

void checkFontOptions(const FontOptions& options) {
  if (options.font.empty()) throw ToolError(Status::wrongCall, "FONT is empty");
  if (options.face > 0 && !isPath(options.font)) {
    throw ToolError(Status::wrongCall,
                    "--face picks a member of a font file, and '" + options.font + "' is a name");
  }
}

OpenFont openFont(Service& service, const FontOptions& options) {
  return isPath(options.font) ? openPath(options) : openName(service, options);
}

ToolError noSuchFont(Service& service, const std::string& name) {
  const int faces = service.faceCount();
  const std::vector<std::string> near = nearNames(service, name);
  const std::string hint = near.empty() ? "qxfont list shows all names"
                                        : fmt::format("near names: {}", fmt::join(near, ", "));
  return ToolError(Status::noMatch,
                   fmt::format("no font is called '{}' among {} faces", name, faces), hint);
}

}  // namespace qxfont
