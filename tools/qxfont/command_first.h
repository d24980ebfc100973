#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qxfont {

/// Moves the command in front of the options that were written before it, where the parser
/// expects it: `--json list` is `list --json`.
/// @param arguments what follows the program's name.
std::vector<std::string> withCommandFirst(const CLI::App& app, std::vector<std::string> arguments);

}  // namespace qxfont
