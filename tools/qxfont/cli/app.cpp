#include "qxfont/cli/app.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <exception>
#include <functional>

#include "qxfont/cli/status.h"
#include "qxfont/commands/commands.h"
#include "qxfontservice/ext/versions.h"

namespace qxfont {
namespace {

int exitCode(Status status) { return static_cast<int>(status); }

std::string versionText() {
  std::string text = "qxfont " QXFONT_VERSION "\n";
  for (const auto& library : QXFontService_NS::ext::libraryVersions()) {
    text += fmt::format("  {} {}\n", library.name, library.version);
  }
  return text;
}

void tell(const ToolError& error) {
  fmt::print(stderr, "qxfont: {}\n", error.what());
  if (!error.hint().empty()) fmt::print(stderr, "hint: {}\n", error.hint());
}

int runCommand(const std::function<void()>& command) {
  try {
    command();
  } catch (const ToolError& error) {
    tell(error);
    return exitCode(error.status());
  } catch (const std::exception& error) {
    fmt::print(stderr, "qxfont: {}\n", error.what());
    return exitCode(Status::badFont);
  }
  return std::fflush(stdout) == 0 ? exitCode(Status::done) : exitCode(Status::notWritten);
}

/// Help and version are no errors; all else that the parser refuses is a wrong call.
int tellParseResult(const CLI::App& app, const CLI::ParseError& result) {
  if (result.get_exit_code() == 0) return app.exit(result);
  fmt::print(stderr, "qxfont: {}\n", result.what());
  fmt::print(stderr, "hint: qxfont --help, or qxfont COMMAND --help\n");
  return exitCode(Status::wrongCall);
}

}  // namespace

int run(int argc, char** argv) {
  CLI::App app{"Finds fonts, tells about them, sets text in them and embeds them.", "qxfont"};
  app.set_version_flag("--version", versionText);
  app.require_subcommand(1);
  app.fallthrough();

  std::function<void()> chosen;
  addCommands(app, chosen);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& result) {
    return tellParseResult(app, result);
  }
  return runCommand(chosen);
}

}  // namespace qxfont
