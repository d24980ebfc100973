#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace qxfont {

/// The exit statuses of the tool.
enum class Status : int {
  done = 0,
  noMatch = 1,        ///< nothing answers the request
  wrongCall = 2,      ///< the command line makes no sense
  badFont = 3,        ///< a font is unreadable or damaged
  notAllowed = 4,     ///< the font's licence forbids embedding
  configuration = 5,  ///< the service could not be opened
  notWritten = 6,     ///< the output could not be written
  interrupted = 130
};

/// Ends a command: one line for people on what went wrong and where, and, where it helps, a hint.
class ToolError : public std::runtime_error {
 public:
  ToolError(Status status, const std::string& message, std::string hint = {})
      : std::runtime_error(message), status_(status), hint_(std::move(hint)) {}

  [[nodiscard]] Status status() const { return status_; }
  [[nodiscard]] const std::string& hint() const { return hint_; }

 private:
  Status status_;
  std::string hint_;
};

}  // namespace qxfont
