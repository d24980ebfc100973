#include "qxfont/cli/service.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "qxfont/cli/font_style.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

/// The variable whose name the tool passes to the service.
constexpr const char* kVariable = "QXFONT_CONFIG";

std::string xmlEscaped(const std::string& text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

std::string absolutePath(const std::string& path) {
  std::error_code failed;
  const auto absolute = std::filesystem::absolute(path, failed);
  return failed ? path : absolute.string();
}

void requireFolder(const std::string& folder) {
  std::error_code failed;
  if (!std::filesystem::is_directory(folder, failed)) {
    throw ToolError(Status::wrongCall, "no such folder: " + folder);
  }
}

/// A configuration of nothing but the folders given.
void writeConfiguration(const std::string& file, const std::vector<std::string>& folders) {
  std::ofstream out(file);
  out << "<font-config windows-registry=\"disable\">\n";
  for (const std::string& folder : folders) {
    out << "  <font-folder path=\"" << xmlEscaped(absolutePath(folder))
        << "\" recursive=\"yes\"/>\n";
  }
  out << "</font-config>\n";
  if (!out.flush()) throw ToolError(Status::notWritten, "cannot write " + file);
}

int countFace(fs::FS_FontResourceType, const fs::FS_EnumLogFontEx*, const fs::FS_NewTextMetricEx*,
              void* count) {
  ++*static_cast<int*>(count);
  return 0;
}

}  // namespace

Service::Service(const SourceOptions& options) {
  open(options);
  for (const std::string& folder : options.add) addFolder(folder);
  for (const std::string& document : options.documents) addDocument(document);
  tellWarnings();
}

void Service::open(const SourceOptions& options) {
  if (!options.only.empty()) {
    openOnly(options.only);
  } else if (!options.config.empty()) {
    if (access(options.config.c_str(), R_OK) != 0) {
      throw ToolError(Status::configuration, "cannot read the configuration " + options.config);
    }
    setenv(kVariable, absolutePath(options.config).c_str(), 1);
    openWith(kVariable);
  } else {
    // A name alone would make the service look beside its module for a configuration.
    openWith(std::getenv(kVariable) != nullptr ? kVariable : nullptr);
  }
}

void Service::openOnly(const std::vector<std::string>& folders) {
  for (const std::string& folder : folders) requireFolder(folder);
  temporary_.emplace();
  const std::string file = temporary_->path() + "/font-config.xml";
  writeConfiguration(file, folders);
  setenv(kVariable, file.c_str(), 1);
  openWith(kVariable);
}

void Service::openWith(const char* variable) {
  fs::QXError error;
  if (fs::FontServiceOpen(variable, &error) != fs::FS_ERROR_NONE) {
    throw ToolError(Status::configuration, oneLine(error.getErrorMessage()),
                    "a configuration is chosen with --config FILE, single folders with --only DIR");
  }
}

void Service::addFolder(const std::string& folder) {
  requireFolder(folder);
  fs::FS_AddFontFolderPath(
      fs::QXUri(unicode(absolutePath(folder)), QXCommonNS::URISTR_USER));
}

void Service::addDocument(const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::string file = text.substr(0, equals);
  const FontStyle style =
      equals == std::string::npos ? FontStyle{} : parseFontStyle(text.substr(equals + 1));
  const std::string family =
      style.font.empty() ? std::filesystem::path(file).stem().string() : style.font;
  fs::QXError error;
  const int number =
      manager_.appendExtraFont(unicode(absolutePath(file)), fs::FS_FILETYPE_UNKNOWN,
                               unicode(family), style.weight, style.italic ? 1 : -1, &error);
  if (number < 0) throw ToolError(Status::badFont, oneLine(error.getErrorMessage()));
}

void Service::tellWarnings() {
  const int count = fs::FS_GetFontError(nullptr, 0);
  if (count > 0) {
    fmt::print(stderr, "{} {}, see qxfont doctor\n", count, count == 1 ? "warning" : "warnings");
  }
}

int Service::faceCount() {
  int count = 0;
  fs::FS_EnumFontFamilies(icu::UnicodeString(), countFace, &count, &manager_, 0);
  return count;
}

}  // namespace qxfont
