#include "qxfont/command_first.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>

namespace qxfont {
namespace {

bool takesValue(const CLI::App& app, const std::string& name) {
  const CLI::Option* option = app.get_option_no_throw(name);
  if (option != nullptr) return option->get_items_expected_min() > 0;
  // Groups of options and commands are both applications inside an application.
  const auto inside = app.get_subcommands([](const CLI::App*) { return true; });
  return std::any_of(inside.begin(), inside.end(),
                     [&](const CLI::App* other) { return takesValue(*other, name); });
}

}  // namespace

std::vector<std::string> withCommandFirst(const CLI::App& app, std::vector<std::string> arguments) {
  auto at = arguments.begin();
  while (at != arguments.end() && at->size() > 1 && at->front() == '-' && *at != "--") {
    const bool apart = at->find('=') == std::string::npos && takesValue(app, *at);
    const bool more = std::next(at) != arguments.end();
    at += apart && more ? 2 : 1;
  }
  if (at != arguments.end()) std::rotate(arguments.begin(), at, std::next(at));
  return arguments;
}

}  // namespace qxfont
