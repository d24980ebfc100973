#include "qxfont/cli/output_file.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "qxfont/cli/status.h"

namespace qxfont {
namespace {

namespace files = std::filesystem;

[[noreturn]] void failToWrite(const std::string& path, const std::string& why) {
  throw ToolError(Status::notWritten, fmt::format("cannot write {}: {}", path, why));
}

/// Where a file really goes: a link stays a link, and its file is replaced.
std::string resolved(const std::string& path) {
  std::error_code failed;
  if (!files::is_symlink(path, failed)) return path;
  const files::path target = files::canonical(path, failed);
  return failed ? path : target.string();
}

void requirePlace(const std::string& path) {
  std::error_code failed;
  const files::path parent = files::path(path).parent_path();
  if (!parent.empty() && !files::is_directory(parent, failed)) {
    failToWrite(path, "there is no folder " + parent.string());
  }
}

/// A device, a pipe or a folder is nothing that a file could be moved over.
void requireFilePlace(const std::string& path) {
  requirePlace(path);
  std::error_code failed;
  const auto there = files::status(path, failed);
  if (files::is_directory(there)) failToWrite(path, "it is a folder");
  if (files::exists(there) && !files::is_regular_file(there)) {
    failToWrite(path, "it is no regular file");
  }
}

void requireFolderPlace(const std::string& path) {
  requirePlace(path);
  std::error_code failed;
  if (!files::exists(path, failed)) return;
  if (!files::is_directory(path, failed)) failToWrite(path, "it is no folder");
  if (!files::is_empty(path, failed)) failToWrite(path, "the folder is not empty");
}

std::string partOf(const std::string& target) {
  return fmt::format("{}.part{}", target, getpid());
}

std::string withoutSlash(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

void writeFile(const std::string& path, std::string_view bytes, const std::string& target) {
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out.flush()) failToWrite(target, std::strerror(errno));
}

}  // namespace

void OutputFiles::add(const std::string& path, std::string_view bytes) {
  const std::string target = resolved(path);
  requireFilePlace(target);
  const std::string part = partOf(target);
  parts_.push_back({part, target, Removal(part)});
  writeFile(part, bytes, target);
}

void OutputFiles::addFolder(const std::string& path) {
  const std::string target = withoutSlash(path);
  requireFolderPlace(target);
  const std::string part = partOf(target);
  parts_.push_back({part, target, Removal(part)});
  std::error_code failed;
  if (!files::create_directory(part, failed)) failToWrite(path, failed.message());
}

void OutputFiles::addToFolder(const std::string& name, std::string_view bytes) {
  const Part& folder = parts_.back();
  writeFile(folder.path + "/" + name, bytes, folder.target + "/" + name);
}

void OutputFiles::commit() {
  const auto held = holdSignals();
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    std::error_code failed;
    files::rename(parts_[i].path, parts_[i].target, failed);
    if (!failed) continue;
    for (std::size_t done = 0; done < i; ++done) files::remove_all(parts_[done].target, failed);
    failToWrite(parts_[i].target, "it cannot be replaced");
  }
  for (Part& part : parts_) part.removal.keep();
}

}  // namespace qxfont
