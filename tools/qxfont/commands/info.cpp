#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "qxfont/cli/font_facts.h"
#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

struct InfoOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
};

std::string plain(const Json& value) {
  if (value.is_string()) return shown(value.get<std::string>());
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
  return value.dump();
}

std::string titleOf(std::string key) {
  for (char& c : key) c = c == '_' ? ' ' : c;
  return key;
}

void printFacts(const std::string& title, const Json& facts) {
  fmt::print("{}\n", title);
  for (const auto& [key, value] : facts.items()) {
    fmt::print("  {:<20} {}\n", titleOf(key), plain(value));
  }
}

void printCodePages(const fs::FS_FontInfo& font) {
  const fs::FS_CodePageRange pages = font.getCodePageRangeBitFields();
  fmt::print("code pages\n  {:<20} {:08X} {:08X}\n", "bits", pages.bits0, pages.bits1);
}

void printText(const Json& info) {
  for (const auto& [language, names] : info["names"].items()) {
    printFacts(language == "0" ? "names" : "names in language " + language, names);
  }
  for (const char* part : {"style", "embedding", "metrics"}) printFacts(part, info[part]);
}

void info(const InfoOptions& options) {
  checkFontOptions(options.font);
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  const Json facts = fontFacts(*font);
  if (options.output.json) {
    printJson(facts);
  } else {
    printText(facts);
    printCodePages(*font);
  }
}

}  // namespace

void addInfoCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<InfoOptions>();
  CLI::App* command = app.add_subcommand("info", "Names, style, embedding and metrics of a face");
  addFontOptions(*command, options->font);
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { info(*options); }; });
}

}  // namespace qxfont
