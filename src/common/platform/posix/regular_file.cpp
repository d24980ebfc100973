#include "common/platform/posix/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "common/limits.h"
#include "common/stream/source_stream.h"

namespace QXCommonNS::posix {
namespace {

class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

// Without mapping: a mapped file that is cut short kills the process that looks at it.
class RegularFile final : public stream::RandomSource {
 public:
  RegularFile(FileDescriptor file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  [[nodiscard]] std::uint64_t size() const override { return size_; }

  std::size_t readAt(std::uint64_t offset, std::span<char> out) override {
    if (offset >= size_) return 0;
    const std::size_t wanted = std::min<std::uint64_t>(out.size(), size_ - offset);
    std::size_t done = 0;
    while (done < wanted) {
      const ssize_t came = ::pread(file_.number(), out.data() + done, wanted - done,
                                   static_cast<off_t>(offset + done));
      if (came < 0 && errno == EINTR) continue;
      if (came <= 0) break;
      done += static_cast<std::size_t>(came);
    }
    return done;
  }

 private:
  FileDescriptor file_;
  std::uint64_t size_;
};

// O_NONBLOCK, for a pipe named like a font would be waited for.
int openToRead(const std::string& path) {
  int number = -1;
  do {
    number = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  } while (number < 0 && errno == EINTR);
  return number;
}

}  // namespace

std::unique_ptr<std::istream> openRegularFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) return nullptr;
  FileDescriptor file(openToRead(path));
  struct stat status {};
  if (file.number() < 0 || ::fstat(file.number(), &status) != 0) return nullptr;
  if (!S_ISREG(status.st_mode)) return nullptr;
  const auto size = static_cast<std::uint64_t>(status.st_size);
  if (size > limits::kMostFileBytes) return nullptr;
  return std::make_unique<stream::SourceStream>(
      std::make_unique<RegularFile>(std::move(file), size));
}

}  // namespace QXCommonNS::posix
