#include "qxfont/cli/progress.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace qxfont {
namespace {

constexpr std::chrono::milliseconds kPatience(300);
constexpr std::chrono::milliseconds kPace(100);
constexpr std::size_t kWidth = 24;
constexpr const char* kWipe = "\r\033[K";

}  // namespace

std::string progressLine(const std::string& what, std::size_t done, std::size_t total) {
  const std::size_t filled = total == 0 ? 0 : std::min(done, total) * kWidth / total;
  return fmt::format("{} [{}{}] {}/{}", what, std::string(filled, '#'),
                     std::string(kWidth - filled, '.'), done, total);
}

Progress::Progress(std::string what)
    : what_(std::move(what)),
      terminal_(isatty(STDERR_FILENO) != 0),
      next_(Clock::now() + kPatience) {}

Progress::~Progress() {
  if (drawn_) std::fputs(kWipe, stderr);
}

void Progress::show(std::size_t done, std::size_t total) {
  if (!terminal_ || Clock::now() < next_) return;
  next_ = Clock::now() + kPace;
  drawn_ = true;
  std::fputs((kWipe + progressLine(what_, done, total)).c_str(), stderr);
}

}  // namespace qxfont
