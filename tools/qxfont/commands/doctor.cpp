#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "qxfontservice/ext/opening.h"

#include "qxfont/cli/advice.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

struct DoctorOptions {
  SourceOptions source;
  OutputOptions output;
};

Json foldersJson(const Findings& findings) {
  Json rows = Json::array();
  for (const fs::ext::OpenedFolder& folder : findings.folders) {
    rows.push_back({{"path", utf8(folder.path)}, {"files", folder.files}, {"faces", folder.faces}});
  }
  return rows;
}

Json errorsJson(const Findings& findings) {
  Json rows = Json::array();
  for (const FoundError& error : findings.errors) {
    rows.push_back({{"code", error.code}, {"message", error.message}});
  }
  return rows;
}

Json findingsJson(const Findings& findings) {
  Json json;
  if (!findings.configuration.empty()) json["config"] = findings.configuration;
  json["folders"] = foldersJson(findings);
  json["errors"] = errorsJson(findings);
  json["advice"] = adviceFor(findings);
  return json;
}

void printFolders(const Findings& findings) {
  TextTable table({"folder", "files", "faces"});
  for (const fs::ext::OpenedFolder& folder : findings.folders) {
    table.add(
        {utf8(folder.path), fmt::format("{}", folder.files), fmt::format("{}", folder.faces)});
  }
  table.print();
}

void printErrors(const Findings& findings) {
  fmt::print("\n{} collected errors\n", findings.errors.size());
  for (const FoundError& error : findings.errors) {
    fmt::print("  {} {}\n", error.code, shown(error.message));
    if (!error.file.empty()) fmt::print("       {}\n", shown(error.file));
  }
}

void printUnpaired(const Findings& findings) {
  fmt::print("\n{} unpaired Type 1 files\n", findings.unpaired.size());
  for (const std::string& file : findings.unpaired) fmt::print("  {}\n", shown(file));
}

void printText(const Findings& findings) {
  fmt::print("configuration  {}\n\n",
             findings.configuration.empty() ? "none" : shown(findings.configuration));
  printFolders(findings);
  printErrors(findings);
  printUnpaired(findings);
  fmt::print("\n");
  for (const std::string& line : adviceFor(findings)) fmt::print("advice: {}\n", shown(line));
}

void doctor(const DoctorOptions& options) {
  const Service service(options.source, Service::Warnings::untold);
  Findings findings = findingsOfOpening();
  if (!options.source.only.empty()) hideConfiguration(findings);
  if (options.output.json) {
    printJson(findingsJson(findings));
  } else {
    printText(findings);
  }
}

}  // namespace

void addDoctorCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<DoctorOptions>();
  CLI::App* command =
      app.add_subcommand("doctor", "What opening the service met, and what would help");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { doctor(*options); }; });
}

}  // namespace qxfont
