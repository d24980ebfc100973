#include "qxfont/cli/progress.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "qxfont/cli/output.h"

namespace qxfont {
namespace {

constexpr std::chrono::milliseconds kPatience(300);
constexpr std::chrono::milliseconds kPace(100);
constexpr std::size_t kWidth = 24;
constexpr std::size_t kUsualColumns = 80;
constexpr const char* kWipe = "\r\033[K";

std::size_t terminalColumns() {
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualColumns;
}

}  // namespace

std::string cutToColumns(const std::string& line, std::size_t columns) {
  std::string cut = line;
  while (columnsOf(cut) > columns) {
    // Whole characters: the bytes behind a lead byte go with it.
    while (!cut.empty() && (static_cast<unsigned char>(cut.back()) & 0xC0) == 0x80) cut.pop_back();
    cut.pop_back();
  }
  return cut;
}

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
  if (isDue()) draw(progressLine(what_, done, total));
}

bool Progress::isDue() {
  if (!terminal_ || Clock::now() < next_) return false;
  next_ = Clock::now() + kPace;
  return true;
}

void Progress::draw(const std::string& line) {
  drawn_ = true;
  // A line that the terminal breaks could not be wiped again.
  std::fputs((kWipe + cutToColumns(line, terminalColumns() - 1)).c_str(), stderr);
}

}  // namespace qxfont
