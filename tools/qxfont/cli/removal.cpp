#include "qxfont/cli/removal.h"

#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "qxfont/cli/status.h"

namespace qxfont {
namespace {

struct Pending {
  std::recursive_mutex mutex;
  std::vector<std::string> paths;
};

/// Never destroyed: a signal may come while the program ends.
Pending& pending() {
  static Pending* const all = new Pending;
  return *all;
}

void removePath(const std::string& path) {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

[[noreturn]] void endInterrupted() {
  const auto held = holdSignals();
  std::for_each(pending().paths.rbegin(), pending().paths.rend(), removePath);
  _exit(static_cast<int>(Status::interrupted));
}

}  // namespace

Removal::Removal(std::string path) : path_(std::move(path)) {
  const auto held = holdSignals();
  pending().paths.push_back(path_);
}

Removal::Removal(Removal&& other) noexcept : path_(std::exchange(other.path_, {})) {}

Removal::~Removal() {
  if (path_.empty()) return;
  removePath(path_);
  keep();
}

void Removal::keep() {
  const auto held = holdSignals();
  auto& paths = pending().paths;
  const auto found = std::find(paths.begin(), paths.end(), path_);
  if (found != paths.end()) paths.erase(found);
  path_.clear();
}

void watchSignals() {
  static sigset_t ending;
  sigemptyset(&ending);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ending, number);
  // A thread of its own takes them: unlike a handler it may use files and memory.
  pthread_sigmask(SIG_BLOCK, &ending, nullptr);
  std::thread([] {
    int number = 0;
    if (sigwait(&ending, &number) == 0) endInterrupted();
  }).detach();
  std::signal(SIGPIPE, SIG_IGN);
}

std::unique_lock<std::recursive_mutex> holdSignals() {
  return std::unique_lock(pending().mutex);
}

}  // namespace qxfont
