#include "common/platform/windows/regular_file.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "common/limits.h"
#include "common/platform/windows/wide_text.h"
#include "common/stream/source_stream.h"

namespace QXCommonNS::windows {
namespace {

class FileHandle {
 public:
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  FileHandle(FileHandle&& other) noexcept
      : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  FileHandle& operator=(FileHandle&&) = delete;
  ~FileHandle() {
    if (isOpen()) ::CloseHandle(handle_);
  }
  [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE handle() const { return handle_; }

 private:
  HANDLE handle_;
};

// Others may go on writing, renaming and deleting: a font is never locked by being listed.
FileHandle openHandle(const std::string& path, DWORD access, DWORD flags) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return FileHandle(::CreateFileW(widePath(path).c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                  flags, nullptr));
}

class RegularFile final : public stream::RandomSource {
 public:
  RegularFile(FileHandle file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  [[nodiscard]] std::uint64_t size() const override { return size_; }

  std::size_t readAt(std::uint64_t offset, std::span<char> out) override {
    if (offset >= size_) return 0;
    const std::uint64_t wanted = std::min<std::uint64_t>(out.size(), size_ - offset);
    std::uint64_t done = 0;
    while (done < wanted) {
      const DWORD came = readOnce(offset + done, out.data() + done, wanted - done);
      if (came == 0) break;
      done += came;
    }
    return static_cast<std::size_t>(done);
  }

 private:
  DWORD readOnce(std::uint64_t offset, char* out, std::uint64_t count) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    const auto wanted = static_cast<DWORD>(std::min<std::uint64_t>(count, 1u << 30));
    DWORD came = 0;
    return ::ReadFile(file_.handle(), out, wanted, &came, &place) != 0 ? came : 0;
  }

  FileHandle file_;
  std::uint64_t size_;
};

}  // namespace

std::unique_ptr<std::istream> openRegularFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) return nullptr;
  FileHandle file = openHandle(path, GENERIC_READ, FILE_ATTRIBUTE_NORMAL);
  LARGE_INTEGER length{};
  if (!file.isOpen() || ::GetFileType(file.handle()) != FILE_TYPE_DISK) return nullptr;
  if (::GetFileSizeEx(file.handle(), &length) == 0) return nullptr;
  const auto size = static_cast<std::uint64_t>(length.QuadPart);
  if (size > limits::kMostFileBytes) return nullptr;
  return std::make_unique<stream::SourceStream>(
      std::make_unique<RegularFile>(std::move(file), size));
}

// A folder opens with backup semantics only, and without any right to its content.
bool identityOfPath(const std::string& path, FileIdentity& out) {
  if (path.find('\0') != std::string::npos) return false;
  const FileHandle file = openHandle(path, 0, FILE_FLAG_BACKUP_SEMANTICS);
  BY_HANDLE_FILE_INFORMATION known{};
  if (!file.isOpen() || ::GetFileInformationByHandle(file.handle(), &known) == 0) return false;
  out.device = known.dwVolumeSerialNumber;
  out.node = std::uint64_t{known.nFileIndexHigh} << 32 | known.nFileIndexLow;
  return true;
}

}  // namespace QXCommonNS::windows
