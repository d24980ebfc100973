#include "support/memory_platform.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "common/stream/source_stream.h"
#include "support/registry_text.h"

namespace qxtest {
namespace {

using QXCommonNS::FileIdentity;
using QXCommonNS::FileKind;
using QXCommonNS::FolderEntry;
using QXCommonNS::KnownFolder;
using QXCommonNS::RegistryRoot;
using QXCommonNS::RegistryValue;

constexpr int kMostLinks = 40;

class CountedFile final : public QXCommonNS::stream::RandomSource {
 public:
  CountedFile(std::shared_ptr<const std::string> content, std::shared_ptr<PlatformLog> log)
      : content_(std::move(content)), log_(std::move(log)), size_(content_->size()) {
    note([](PlatformCounts& counts) { ++counts.opened; });
  }
  ~CountedFile() override {
    note([](PlatformCounts& counts) { ++counts.closed; });
  }

  [[nodiscard]] std::uint64_t size() const override { return size_; }
  std::size_t readAt(std::uint64_t offset, std::span<char> out) override {
    std::size_t count = 0;
    if (offset < content_->size()) {
      count = std::min<std::uint64_t>(out.size(), content_->size() - offset);
      std::memcpy(out.data(), content_->data() + offset, count);
    }
    note([count](PlatformCounts& counts) {
      ++counts.reads;
      counts.bytesRead += count;
    });
    return count;
  }

 private:
  template <class Note>
  void note(Note&& take) {
    const std::lock_guard guard(log_->mutex);
    take(log_->counts);
  }

  std::shared_ptr<const std::string> content_;
  std::shared_ptr<PlatformLog> log_;
  std::uint64_t size_;  // as it was when the file was opened
};

// "/a//b/./c/" as "/a/b/c"; the root is empty.
std::string plain(const std::string& path) {
  std::string result;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    const std::string part = path.substr(start, end - start);
    if (part == "..") {
      result.resize(std::min(result.rfind('/'), result.size()));
    } else if (!part.empty() && part != ".") {
      result += '/' + part;
    }
    start = end + 1;
  }
  return result;
}

std::string parentOf(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

}  // namespace

MemoryPlatform::MemoryPlatform() : log_(std::make_shared<PlatformLog>()) {
  nodes_[""];
}
MemoryPlatform::~MemoryPlatform() = default;

MemoryPlatform::Node& MemoryPlatform::make(const std::string& path, FileKind kind) {
  const std::string key = plain(path);
  if (!key.empty() && nodes_.count(parentOf(key)) == 0) folder(parentOf(key));
  Node& node = nodes_[key];
  node.kind = kind;
  if (node.number == 0) node.number = ++lastNumber_;
  return node;
}

MemoryPlatform::Node& MemoryPlatform::at(const std::string& path) {
  return nodes_.at(plain(path));
}

MemoryPlatform& MemoryPlatform::file(const std::string& path, std::string content) {
  make(path, FileKind::regular).content = std::make_shared<std::string>(std::move(content));
  return *this;
}

MemoryPlatform& MemoryPlatform::folder(const std::string& path) {
  make(path, FileKind::folder);
  return *this;
}

MemoryPlatform& MemoryPlatform::special(const std::string& path) {
  make(path, FileKind::other);
  return *this;
}

MemoryPlatform& MemoryPlatform::link(const std::string& path, const std::string& target) {
  make(path, FileKind::none).target = plain(target);
  return *this;
}

MemoryPlatform& MemoryPlatform::hidden(const std::string& path) {
  at(path).hidden = true;
  return *this;
}

MemoryPlatform& MemoryPlatform::system(const std::string& path) {
  at(path).system = true;
  return *this;
}

MemoryPlatform& MemoryPlatform::unreadable(const std::string& path) {
  at(path).unreadable = true;
  return *this;
}

MemoryPlatform& MemoryPlatform::cut(const std::string& path, std::size_t size) {
  at(path).content->resize(size);
  return *this;
}

MemoryPlatform& MemoryPlatform::remove(const std::string& path) {
  nodes_.erase(plain(path));
  return *this;
}

MemoryPlatform& MemoryPlatform::setEnvironment(const std::string& name, const std::string& value) {
  environment_[name] = value;
  return *this;
}

MemoryPlatform& MemoryPlatform::setKnownFolder(KnownFolder which, const std::string& path) {
  knownFolders_[which] = path;
  return *this;
}

MemoryPlatform& MemoryPlatform::addFontFolderCandidate(const std::string& path) {
  fontFolderCandidates_.push_back(path);
  return *this;
}

MemoryPlatform& MemoryPlatform::addSystemFontFile(const std::string& path) {
  systemFontFiles_.push_back(path);
  return *this;
}

MemoryPlatform& MemoryPlatform::setModulePath(const std::string& folder) {
  modulePath_ = folder;
  return *this;
}

MemoryPlatform& MemoryPlatform::setLocaleName(const std::string& name) {
  localeName_ = name;
  return *this;
}

MemoryPlatform& MemoryPlatform::registry(std::string_view text) {
  registry_.merge(readRegistryText(text));
  return *this;
}

PlatformCounts MemoryPlatform::counts() const {
  const std::lock_guard guard(log_->mutex);
  return log_->counts;
}

std::size_t MemoryPlatform::openStreams() const {
  const PlatformCounts now = counts();
  return now.opened - now.closed;
}

std::vector<std::string> MemoryPlatform::openedPaths() const {
  const std::lock_guard guard(log_->mutex);
  return log_->openedPaths;
}

void MemoryPlatform::resetCounts() {
  const std::lock_guard guard(log_->mutex);
  log_->counts = {};
  log_->openedPaths.clear();
}

std::optional<std::string> MemoryPlatform::resolved(const std::string& path) const {
  std::string rest = plain(path);
  std::string done;
  for (int links = 0; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/', 1), rest.size());
    done += rest.substr(0, end);
    rest.erase(0, end);
    const auto node = nodes_.find(done);
    if (node == nodes_.end()) return std::nullopt;
    if (node->second.target.empty()) continue;
    if (++links > kMostLinks) return std::nullopt;
    rest.insert(0, node->second.target);
    done.clear();
  }
  return done;
}

const MemoryPlatform::Node* MemoryPlatform::find(const std::string& path) const {
  const std::optional<std::string> real = resolved(path);
  if (!real) return nullptr;
  const auto node = nodes_.find(*real);
  return node == nodes_.end() ? nullptr : &node->second;
}

std::unique_ptr<std::istream> MemoryPlatform::openFile(const std::string& path) {
  const Node* node = find(path);
  if (node == nullptr || node->kind != FileKind::regular || node->unreadable) return nullptr;
  {
    const std::lock_guard guard(log_->mutex);
    log_->openedPaths.push_back(path);
  }
  return std::make_unique<QXCommonNS::stream::SourceStream>(
      std::make_unique<CountedFile>(node->content, log_));
}

FileKind MemoryPlatform::fileKind(const std::string& path) {
  const Node* node = find(path);
  return node != nullptr ? node->kind : FileKind::none;
}

bool MemoryPlatform::identity(const std::string& path, FileIdentity& out) {
  const Node* node = find(path);
  if (node == nullptr) return false;
  out = {1, node->number};
  return true;
}

bool MemoryPlatform::listFolder(const std::string& path, std::vector<FolderEntry>& out) {
  {
    const std::lock_guard guard(log_->mutex);
    ++log_->counts.listings;
  }
  out.clear();
  const std::optional<std::string> real = resolved(path);
  const Node* folder = find(path);
  if (folder == nullptr || folder->kind != FileKind::folder || folder->unreadable) return false;
  // All that lies below stands together, so a listing costs nothing for the rest of the world.
  const std::string below = *real + "/";
  for (auto at = nodes_.lower_bound(below); at != nodes_.end(); ++at) {
    const auto& [key, node] = *at;
    if (key.compare(0, below.size(), below) != 0) break;
    if (parentOf(key) != *real) continue;
    out.push_back({key.substr(below.size()), fileKind(key), node.hidden, node.system});
  }
  std::reverse(out.begin(), out.end());  // so that nobody takes the listing for sorted
  return true;
}

bool MemoryPlatform::knownFolder(KnownFolder which, std::string& out) {
  const auto known = knownFolders_.find(which);
  if (known == knownFolders_.end()) return false;
  out = known->second;
  return true;
}

std::vector<std::string> MemoryPlatform::fontFolderCandidates() {
  return fontFolderCandidates_;
}

bool MemoryPlatform::environment(const char* name, std::string& out) {
  const auto variable = environment_.find(name);
  if (variable == environment_.end()) return false;
  out = variable->second;
  return true;
}

bool MemoryPlatform::registryValues(RegistryRoot root, std::string_view key,
                                    std::vector<RegistryValue>& out) {
  out.clear();
  const std::string_view rootName =
      root == RegistryRoot::localMachine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\";
  const auto found = registry_.find(loweredKey(std::string(rootName).append(key)));
  if (found == registry_.end()) return false;
  out = found->second;
  return true;
}

std::vector<std::string> MemoryPlatform::systemFontFiles() {
  return systemFontFiles_;
}

std::string MemoryPlatform::modulePath(std::string_view) {
  return modulePath_;
}

std::string MemoryPlatform::localeName() {
  return localeName_;
}

}  // namespace qxtest
