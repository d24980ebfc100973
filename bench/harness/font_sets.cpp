#include "harness/font_sets.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string_view>

namespace qxbench {
namespace {

namespace fs = std::filesystem;

/// Whether the first face of a collection has CFF outlines: its directory begins with "OTTO". The
/// library takes no such collection, so that there is nothing to compare.
bool holdsCff(const fs::path& collection) {
  std::ifstream file(collection, std::ios::binary);
  std::array<unsigned char, 4> offset{};
  std::array<char, 4> version{};
  file.seekg(12);
  file.read(reinterpret_cast<char*>(offset.data()), offset.size());
  file.seekg(std::streamoff{offset[0]} << 24 | offset[1] << 16 | offset[2] << 8 | offset[3]);
  file.read(version.data(), version.size());
  return file && std::string_view(version.data(), version.size()) == "OTTO";
}

bool isFont(const fs::path& path) {
  static const std::set<std::string> kinds{".ttf", ".otf", ".ttc"};
  const std::string extension = path.extension().string();
  return kinds.count(extension) != 0 && !(extension == ".ttc" && holdsCff(path));
}

/// Puts a file into a folder: by a second name of the same file where the disk allows it, since
/// following a symbolic link costs as much as opening.
void linkInto(const fs::path& folder, const fs::path& file) {
  const fs::path link = folder / file.filename();
  std::error_code failure;
  fs::create_hard_link(file, link, failure);
  if (failure && !fs::exists(link)) fs::create_symlink(fs::absolute(file), link, failure);
}

/// The font files below a folder, sorted; links are not followed into folders.
Paths fontsBelow(const fs::path& folder) {
  Paths found;
  std::error_code none;
  for (fs::recursive_directory_iterator at(folder, none), end; at != end; at.increment(none)) {
    if (at->is_regular_file(none) && isFont(at->path())) found.push_back(at->path().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace

FontSets::FontSets(const std::string& fetched, const std::string& scratch)
    : fetched_(fetched), scratch_(scratch) {
  fs::remove_all(scratch);
  fs::create_directories(scratch);
  scratch_ = fs::canonical(scratch).string();
  installed_ = fontsBelow("/usr/share/fonts");
  if (!fetched.empty()) {
    many_ = fontsBelow(fetched + "/noto");
    cjk_ = fontsBelow(fetched + "/cjk");
    text_ = fontsBelow(fetched + "/text");
  }
  if (many_.empty()) many_ = installed_;
}

FontSets::Set FontSets::linked(const std::string& name, const Paths& files) const {
  Set set{scratch_ + "/" + name, {}};
  fs::create_directories(set.folder);
  for (const std::string& file : files) {
    linkInto(set.folder, file);
    set.files.push_back(set.folder + "/" + fs::path(file).filename().string());
  }
  return set;
}

FontSets::Set FontSets::every(std::size_t step) const {
  Paths chosen;
  for (std::size_t i = 0; i < many_.size(); i += step) chosen.push_back(many_[i]);
  return linked("every-" + std::to_string(step), chosen);
}

FontSets::Set FontSets::cjk() const {
  return cjk_.empty() ? Set{} : linked("cjk", cjk_);
}

std::string FontSets::file(const std::string& name) const {
  for (const Paths* paths : {&text_, &many_, &cjk_, &installed_}) {
    for (const std::string& path : *paths) {
      if (fs::path(path).filename() == name) return path;
    }
  }
  return {};
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace qxbench
