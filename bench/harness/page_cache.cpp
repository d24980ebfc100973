#include "harness/page_cache.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

namespace qxbench {
namespace {

/// An opened file with its size; -1 where it cannot be opened.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path) : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    struct stat status {};
    if (number_ >= 0 && ::fstat(number_, &status) == 0)
      size_ = static_cast<std::size_t>(status.st_size);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (number_ >= 0) ::close(number_);
  }
  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] std::size_t size() const { return size_; }

 private:
  int number_;
  std::size_t size_ = 0;
};

std::uint64_t residentBytes(const OpenFile& file) {
  if (file.size() == 0) return 0;
  void* map = ::mmap(nullptr, file.size(), PROT_READ, MAP_SHARED, file.number(), 0);
  if (map == MAP_FAILED) return 0;
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  std::vector<unsigned char> pages((file.size() + page - 1) / page);
  std::uint64_t bytes = 0;
  if (::mincore(map, file.size(), pages.data()) == 0) {
    for (const unsigned char state : pages) bytes += (state & 1U) != 0 ? page : 0;
  }
  ::munmap(map, file.size());
  return bytes;
}

}  // namespace

void dropFromPageCache(const Paths& files) {
  ::sync();
  for (const std::string& path : files) {
    const OpenFile file(path);
    if (file.number() >= 0) (void)::posix_fadvise(file.number(), 0, 0, POSIX_FADV_DONTNEED);
  }
}

std::uint64_t bytesInPageCache(const Paths& files) {
  std::uint64_t bytes = 0;
  for (const std::string& path : files) bytes += residentBytes(OpenFile(path));
  return bytes;
}

ReadCounts readCounts() {
  ReadCounts counts;
  std::ifstream file("/proc/self/io");
  std::string name;
  for (std::uint64_t value = 0; file >> name >> value;) {
    if (name == "rchar:") counts.bytes = value;
    if (name == "syscr:") counts.calls = value;
  }
  return counts;
}

}  // namespace qxbench
