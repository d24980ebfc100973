#include "qxfont/command_first.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

using Arguments = std::vector<std::string>;

struct Case {
  const char* what;
  Arguments given;
  Arguments wanted;
};

TEST(CommandFirst, findsTheCommandBehindItsOptions) {
  CLI::App app;
  app.set_version_flag("--version", "1");
  Chosen chosen;
  addCommands(app, chosen);
  const Case cases[] = {
      {"nothing", {}, {}},
      {"in front already", {"list", "--json"}, {"list", "--json"}},
      {"a flag before", {"--json", "list", "Lato"}, {"list", "--json", "Lato"}},
      {"an option with a value", {"--only", "list", "list"}, {"list", "--only", "list"}},
      {"a value behind =", {"--only=list", "match"}, {"match", "--only=list"}},
      {"a short option", {"-o", "f", "embed", "Lato"}, {"embed", "-o", "f", "Lato"}},
      {"options only", {"--version"}, {"--version"}},
      {"a value that is missing", {"--only"}, {"--only"}},
      {"an unknown option", {"--foo", "list"}, {"list", "--foo"}},
      {"no command", {"--", "x"}, {"--", "x"}},
  };
  for (const Case& one : cases) EXPECT_EQ(withCommandFirst(app, one.given), one.wanted) << one.what;
}

}  // namespace
}  // namespace qxfont
