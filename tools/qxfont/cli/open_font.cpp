#include "qxfont/cli/open_font.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>
#include <utility>

#include "qxfont/cli/near_names.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfontservice/ext/open_file.h"

namespace qxfont {
namespace {

fs::QXUri uriOf(const std::string& path) {
  std::error_code failed;
  const auto absolute = std::filesystem::absolute(path, failed);
  return fs::QXUri(unicode(failed ? path : absolute.string()), QXCommonNS::URISTR_USER);
}

OpenFont openPath(const FontOptions& options) {
  fs::FS_FontInfo info;
  if (!fs::ext::openFontFile(uriOf(options.font), options.face, info)) {
    throw ToolError(Status::badFont, oneLine(info.getError().getErrorMessage()));
  }
  return OpenFont(info, true);
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
  const std::string reason = oneLine(info.getError().getErrorMessage());
  throw ToolError(Status::badFont, !reason.empty() ? reason
                                                   : fmt::format("the font of {} cannot be loaded",
                                                                 utf8(file.getLocalPath(true))));
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

bool isPath(const std::string& font) {
  std::error_code ignored;
  return font.find('/') != std::string::npos || std::filesystem::exists(font, ignored);
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
