#include "qxfont/cli/service.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "qxfontservice/ext/open_file.h"

#include "qxfont/cli/document_font.h"
#include "qxfont/cli/folder_configuration.h"
#include "qxfont/cli/opening_progress.h"
#include "qxfont/cli/paths.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

/// The variable whose name the tool passes to the service.
constexpr const char* kVariable = "QXFONT_CONFIG";

void writeText(const std::string& file, const std::string& text) {
  std::ofstream out(file);
  out << text;
  if (!out.flush()) throw ToolError(Status::notWritten, "cannot write " + file);
}

/// A configuration that is named but missing would be passed over without a word.
void requireConfigured() {
  const std::string named = std::getenv(kVariable);
  if (named.empty() || !fs::FS_GetFontConfigPath(kVariable, false).isEmpty()) return;
  throw ToolError(Status::configuration, fmt::format("there is no configuration {}", named),
                  fmt::format("the variable {} names it", kVariable));
}

std::string withoutPath(std::string text, const std::string& path) {
  const std::size_t at = text.find(path);
  return at == std::string::npos ? text : text.replace(at, path.size(), "these folders");
}

/// The family that a font file names itself; empty when it cannot be read.
std::string ownFamily(const std::string& file) {
  fs::FS_FontInfo font;
  if (!fs::ext::openFontFile(uriOfPath(file), 0, font))
    return std::filesystem::path(file).stem().string();
  const std::string family = utf8(font.getFamilyName(fs::QXLang::LANGID_DEFAULT));
  font.deleteFont();
  return family;
}

int countFace(fs::FS_FontResourceType, const fs::FS_EnumLogFontEx*, const fs::FS_NewTextMetricEx*,
              void* count) {
  ++*static_cast<int*>(count);
  return 0;
}

}  // namespace

void requireFolder(const std::string& folder) {
  std::error_code failed;
  if (!std::filesystem::is_directory(folder, failed)) {
    throw ToolError(Status::wrongCall, "no such folder: " + folder);
  }
}

Service::Service(const SourceOptions& options, Warnings warnings)
    : Service(options, warnings, SystemFonts::taken) {}

Service::Service(const SourceOptions& options, const FontOptions& font)
    : Service(options, Warnings::told,
              isPath(font.font) ? SystemFonts::leftOut : SystemFonts::taken) {}

Service::Service(const SourceOptions& options, Warnings warnings, SystemFonts systemFonts) {
  std::vector<DocumentFont> documents;
  for (const std::string& text : options.documents) documents.push_back(parseDocumentFont(text));
  for (const std::string& folder : options.only) requireFolder(folder);
  for (const std::string& folder : options.add) requireFolder(folder);

  {
    const OpeningProgressBar bar;
    open(options, systemFonts);
    for (const std::string& folder : options.add) addFolder(folder);
  }
  for (const DocumentFont& document : documents) addDocument(document);
  if (warnings == Warnings::told) tellWarnings();
}

void Service::open(const SourceOptions& options, SystemFonts systemFonts) {
  if (!options.only.empty()) return openOnly(options.only);
  if (!options.config.empty()) return openConfiguration(options.config);
  // A name alone would make the service look beside its module for a configuration.
  if (std::getenv(kVariable) == nullptr) {
    return systemFonts == SystemFonts::taken ? openWith(nullptr) : openWithoutFonts();
  }
  requireConfigured();
  openWith(kVariable);
}

void Service::openConfiguration(const std::string& file) {
  std::error_code failed;
  if (!std::filesystem::is_regular_file(file, failed) || access(file.c_str(), R_OK) != 0) {
    throw ToolError(Status::configuration, "cannot read the configuration " + file);
  }
  setenv(kVariable, absolutePath(file).c_str(), 1);
  openWith(kVariable);
}

void Service::openOnly(const std::vector<std::string>& folders) {
  temporary_.emplace();
  openFolders(folders);
}

/// A configuration wants a folder: one without fonts is the tool's own.
void Service::openWithoutFonts() {
  temporary_.emplace();
  openFolders({temporary_->path()});
}

void Service::openFolders(const std::vector<std::string>& folders) {
  const std::string file = temporary_->path() + "/font-config.xml";
  writeText(file, folderConfiguration(folders));
  setenv(kVariable, file.c_str(), 1);
  try {
    openWith(kVariable);
  } catch (const ToolError& error) {
    // People gave folders; they have never seen the file that stands for them.
    throw ToolError(error.status(),
                    fmt::format("no fonts can be taken from {}: {}", fmt::join(folders, ", "),
                                withoutPath(error.what(), file)));
  }
}

void Service::openWith(const char* variable) {
  fs::QXError error;
  if (fs::FontServiceOpen(variable, &error) != fs::FS_ERROR_NONE) {
    throw ToolError(Status::configuration, oneLine(error.getErrorMessage()),
                    "a configuration is chosen with --config FILE, single folders with --only DIR");
  }
}

void Service::addFolder(const std::string& folder) {
  fs::FS_AddFontFolderPath(uriOfPath(folder));
}

void Service::addDocument(const DocumentFont& font) {
  const std::string family = font.style.font.empty() ? ownFamily(font.file) : font.style.font;
  fs::QXError error;
  const int number = manager_.appendExtraFont(
      unicode(absolutePath(font.file)), fs::FS_FILETYPE_UNKNOWN, unicode(family), font.style.weight,
      font.style.italic ? 1 : -1, &error);
  if (number < 0) throw ToolError(Status::badFont, oneLine(error.getErrorMessage()));
  if (error.getErrorCode() != fs::FS_ERROR_NONE)
    fmt::print(stderr, "qxfont: {}\n", oneLine(error.getErrorMessage()));
  if (manager_.getExtraFontFaceName(number, nullptr, nullptr, nullptr, nullptr) !=
      fs::FS_FILETYPE_WOFF) {
    fmt::print(stderr, "qxfont: {} is no web font: it is listed, but no name finds it\n",
               shown(font.file));
  }
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
