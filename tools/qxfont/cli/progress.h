#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace qxfont {

/// A bar on standard error for work that takes a moment: only on a terminal, only after 0.3 s, and
/// wiped at the end.
class Progress {
 public:
  /// @param what is being done, such as "setting".
  explicit Progress(std::string what);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Tells how far the work is; cheap enough to call for every item.
  void show(std::size_t done, std::size_t total);

  /// Whether a line is to be drawn now: on a terminal, after the first wait, at a calm pace.
  [[nodiscard]] bool isDue();
  /// Draws a line over the one before it, cut to the terminal's width.
  void draw(const std::string& line);

 private:
  using Clock = std::chrono::steady_clock;

  std::string what_;
  bool terminal_;
  bool drawn_ = false;
  Clock::time_point next_;
};

/// As much of a line as fits in so many columns.
std::string cutToColumns(const std::string& line, std::size_t columns);

/// The line that is drawn: "setting [#####.....] 12/24".
std::string progressLine(const std::string& what, std::size_t done, std::size_t total);

}  // namespace qxfont
