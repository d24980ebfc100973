#pragma once

#include <mutex>
#include <string>

namespace qxfont {

/// A file or folder that is removed, with all that stands in it, at the end of a scope and also
/// when a signal ends the program: what a command was about to make never stays behind half made.
class Removal {
 public:
  explicit Removal(std::string path);
  ~Removal();
  Removal(Removal&& other) noexcept;
  Removal& operator=(Removal&&) = delete;
  Removal(const Removal&) = delete;
  Removal& operator=(const Removal&) = delete;

  /// What stands there is to stay.
  void keep();

 private:
  std::string path_;  // empty: nothing to remove
};

/// Makes SIGINT, SIGTERM and SIGHUP end the program with status 130, after all removals; writing
/// into a broken pipe becomes an error like any other. Call it before any other thread starts.
void watchSignals();

/// As long as this is held no signal ends the program.
[[nodiscard]] std::unique_lock<std::recursive_mutex> holdSignals();

}  // namespace qxfont
