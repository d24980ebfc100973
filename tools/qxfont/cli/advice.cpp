#include "qxfont/cli/advice.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "qxfontservice/error_codes.h"

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;
using fs::ext::OpenedFolder;
using Lines = std::vector<std::string>;

bool hasFonts(const OpenedFolder& folder) {
  return folder.files > 0;
}

std::string folderAdvice(const OpenedFolder& folder) {
  const std::string path = utf8(folder.path);
  std::error_code failed;
  if (!std::filesystem::is_directory(path, failed)) {
    return fmt::format("{} is no folder: correct its path in the configuration", path);
  }
  if (access(path.c_str(), R_OK | X_OK) != 0) {
    return fmt::format("{} cannot be listed: give yourself the right to read it", path);
  }
  return {};
}

bool isConfigurationError(int code) {
  return (code >= fs::FS_ERROR_SERVICE && code <= fs::FS_ERROR_INVALID_EXTENSION) ||
         (code >= fs::FS_ERROR_UNKNOWN_ATTRIBUTE && code <= fs::FS_ERROR_NOT_INTEGER);
}

std::string errorAdvice(const FoundError& error) {
  if (error.file.empty()) return {};
  if (isConfigurationError(error.code)) {
    return fmt::format("correct {}: what it says there is passed over", error.file);
  }
  return fmt::format("replace or remove {}: it is damaged or of a kind that is not read",
                     error.file);
}

std::string lowerExtension(const std::filesystem::path& path) {
  icu::UnicodeString extension = unicode(path.extension().string());
  return utf8(extension.toLower(icu::Locale::getRoot()));
}

bool isMetrics(const std::filesystem::path& path) {
  const std::string extension = lowerExtension(path);
  return extension == ".afm" || extension == ".pfm";
}

bool isProgram(const std::filesystem::path& path) {
  const std::string extension = lowerExtension(path);
  return extension == ".pfb" || extension == ".pfa";
}

/// A file of the same name beside it that would be its partner; empty for none.
std::filesystem::path besideOf(const std::filesystem::path& path) {
  const auto wanted = isMetrics(path) ? isProgram : isMetrics;
  std::error_code failed;
  for (const auto& entry : std::filesystem::directory_iterator(path.parent_path(), failed))
    if (entry.path().stem() == path.stem() && wanted(entry.path())) return entry.path();
  return {};
}

/// Metrics look for a program whose extension is in the letters of their own.
std::string otherCaseAdvice(const std::filesystem::path& metrics,
                            const std::filesystem::path& program) {
  const std::string extension = metrics.extension().string();
  std::filesystem::path renamed = program.filename();
  icu::UnicodeString letters = unicode(program.extension().string());
  const bool isUpper = extension.size() > 1 && extension[1] >= 'A' && extension[1] <= 'Z';
  renamed.replace_extension(utf8(isUpper ? letters.toUpper(icu::Locale::getRoot())
                                         : letters.toLower(icu::Locale::getRoot())));
  return fmt::format("{} has metrics without outlines: call {} {}", metrics.string(),
                     program.filename().string(), renamed.string());
}

std::string unpairedAdvice(const std::string& path) {
  const std::filesystem::path beside = besideOf(path);
  if (!beside.empty())
    return isMetrics(path) ? otherCaseAdvice(path, beside) : otherCaseAdvice(beside, path);
  return isMetrics(path)
             ? fmt::format("{} has metrics without outlines: put its .pfb or .pfa beside it", path)
             : fmt::format("{} is not found without metrics: put its .afm or .pfm beside it", path);
}

void addOnce(Lines& lines, const std::string& line) {
  if (!line.empty() && std::find(lines.begin(), lines.end(), line) == lines.end()) {
    lines.push_back(line);
  }
}

}  // namespace

Findings findingsOfOpening() {
  Findings findings;
  findings.configuration = utf8(fs::ext::openedConfiguration().getLocalPath(true));
  findings.folders = fs::ext::openedFolders();
  for (const fs::ext::OpeningError& error : fs::ext::openingErrors()) {
    findings.errors.push_back({error.error.getErrorCode(), oneLine(error.error.getErrorMessage()),
                               utf8(error.file.getLocalPath(true))});
  }
  for (const fs::QXUri& file : fs::ext::unpairedType1Files()) {
    findings.unpaired.push_back(utf8(file.getLocalPath(true)));
  }
  return findings;
}

void hideConfiguration(Findings& findings) {
  const std::string hidden = std::exchange(findings.configuration, {});
  if (hidden.empty()) return;
  for (FoundError& error : findings.errors) {
    if (error.file == hidden) error.file.clear();
    const std::size_t at = error.message.find(hidden);
    if (at != std::string::npos) error.message.replace(at, hidden.size(), "these folders");
  }
}

Lines adviceFor(const Findings& findings) {
  Lines lines;
  if (std::none_of(findings.folders.begin(), findings.folders.end(), hasFonts)) {
    lines.emplace_back("no font was found: name a folder with --only DIR or --add DIR");
  }
  for (const OpenedFolder& folder : findings.folders) addOnce(lines, folderAdvice(folder));
  for (const FoundError& error : findings.errors) addOnce(lines, errorAdvice(error));
  for (const std::string& file : findings.unpaired) addOnce(lines, unpairedAdvice(file));
  return lines;
}

}  // namespace qxfont
