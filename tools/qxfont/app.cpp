#include "qxfont/app.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "qxfontservice/ext/versions.h"

#include "qxfont/cli/output.h"
#include "qxfont/cli/removal.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/command_first.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

int exitCode(Status status) {
  return static_cast<int>(status);
}

std::string versionText() {
  std::string text = "qxfont " QXFONT_VERSION;
  for (const auto& library : QXFontService_NS::ext::libraryVersions()) {
    text += fmt::format("\n  {} {}", library.name, library.version);
  }
  return text;
}

/// Errors go where nobody may listen any more: that is no reason to fail in another way.
void say(const std::string& line) {
  std::fputs((line + "\n").c_str(), stderr);
}

int tell(Status status, const std::string& what, const std::string& hint = {}) {
  say("qxfont: " + shown(what));
  if (!hint.empty()) say("hint: " + shown(hint));
  return exitCode(status);
}

/// Ends as a filter does whose reader went away: without a word.
int endBrokenPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
  return exitCode(Status::notWritten);
}

int runCommand(const std::function<void()>& command) {
  try {
    command();
    flushOutput();
    return exitCode(Status::done);
  } catch (const ToolError& error) {
    return tell(error.status(), error.what(), error.hint());
  } catch (const std::system_error& error) {
    if (error.code().value() == EPIPE) return endBrokenPipe();
    return tell(Status::notWritten, "cannot write standard output: " + error.code().message());
  } catch (const std::bad_alloc&) {
    return tell(Status::badFont, "not enough memory");
  } catch (const std::exception& error) {
    return tell(Status::badFont, error.what());
  }
}

/// Help and version are no errors; all else that the parser refuses is a wrong call.
int tellParseResult(const CLI::App& app, const CLI::ParseError& result) {
  if (result.get_exit_code() != 0) {
    return tell(Status::wrongCall, result.what(), "see qxfont --help, or qxfont COMMAND --help");
  }
  return runCommand([&] {
    std::ostringstream text;
    app.exit(result, text, text);
    fmt::print("{}", text.str());
  });
}

/// A word in the place of the command that is none, of which the parser would not speak.
void requireCommand(const CLI::App& app, const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments.front().rfind('-', 0) == 0) return;
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  if (std::find(names.begin(), names.end(), arguments.front()) != names.end()) return;
  throw ToolError(Status::wrongCall, "there is no command '" + arguments.front() + "'",
                  fmt::format("commands: {}", fmt::join(names, ", ")));
}

std::vector<std::string> reversed(std::vector<std::string> arguments) {
  std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the back
  return arguments;
}

}  // namespace

int run(int argc, char** argv) {
  watchSignals();
  CLI::App app{"Finds fonts, tells about them, sets text in them and embeds them.", "qxfont"};
  app.set_version_flag("--version", versionText, "versions of qxfont and of what it runs on");
  app.require_subcommand(1);
  app.fallthrough();

  std::function<void()> chosen;
  addCommands(app, chosen);
  try {
    const std::vector<std::string> given(argv + 1, argv + argc);
    const std::vector<std::string> arguments = withCommandFirst(app, given);
    requireCommand(app, arguments);
    app.parse(reversed(arguments));
  } catch (const CLI::ParseError& result) {
    return tellParseResult(app, result);
  } catch (const ToolError& error) {
    return tell(error.status(), error.what(), error.hint());
  }
  return runCommand(chosen);
}

}  // namespace qxfont
