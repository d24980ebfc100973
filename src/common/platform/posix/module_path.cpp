#include "common/platform/posix/module_path.h"

#include <link.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <vector>

namespace QXCommonNS::posix {
namespace {

std::string currentFolder() {
  std::vector<char> buffer(256);
  while (::getcwd(buffer.data(), buffer.size()) == nullptr) {
    if (errno != ERANGE || buffer.size() > 1 << 20) return {};
    buffer.resize(buffer.size() * 2);
  }
  return std::string(buffer.data()) + '/';
}

// Taken when this code is loaded: a relative path of a loaded object is meant from there, and
// the host may change the current folder later.
const std::string kFolderAtLoad = currentFolder();

std::string_view baseNameOf(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

std::string folderOf(std::string path) {
  if (path.empty()) return {};
  if (path.front() != '/') path.insert(0, kFolderAtLoad);
  path.resize(path.rfind('/') + 1);
  return path;
}

std::string mainProgram() {
  std::vector<char> buffer(1024);
  for (;;) {
    const ssize_t length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length < 0) return {};
    const auto size = static_cast<std::size_t>(length);
    if (size < buffer.size()) return std::string(buffer.data(), size);
    buffer.resize(buffer.size() * 2);
  }
}

struct ModuleSearch {
  std::string_view stem;
  std::uintptr_t here = 0;  // an address inside the object that holds this code
  std::string named;
  std::string holder;  // empty for the main program
};

bool holds(const dl_phdr_info& object, std::uintptr_t address) {
  for (int i = 0; i < object.dlpi_phnum; ++i) {
    const ElfW(Phdr)& part = object.dlpi_phdr[i];
    const std::uintptr_t from = object.dlpi_addr + part.p_vaddr;
    if (part.p_type == PT_LOAD && address >= from && address - from < part.p_memsz) return true;
  }
  return false;
}

int look(dl_phdr_info* object, std::size_t, void* data) {
  auto& search = *static_cast<ModuleSearch*>(data);
  const std::string_view path = object->dlpi_name;
  if (isModuleName(baseNameOf(path), search.stem)) {
    search.named = path;
    return 1;
  }
  if (holds(*object, search.here)) search.holder = path;
  return 0;
}

}  // namespace

bool isModuleName(std::string_view baseName, std::string_view stem) {
  if (baseName.substr(0, 3) == "lib" && stem.substr(0, 3) != "lib") baseName.remove_prefix(3);
  if (baseName.substr(0, stem.size()) != stem) return false;
  const std::string_view rest = baseName.substr(stem.size());
  return rest == ".so" || rest.substr(0, 4) == ".so.";
}

std::string moduleFolder(std::string_view stem) {
  ModuleSearch search;
  search.stem = stem;
  search.here = reinterpret_cast<std::uintptr_t>(&moduleFolder);
  dl_iterate_phdr(look, &search);
  if (!search.named.empty()) return folderOf(search.named);
  return folderOf(search.holder.empty() ? mainProgram() : search.holder);
}

}  // namespace QXCommonNS::posix
