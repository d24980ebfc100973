#include "qxfontservice/ext/match.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"
#include "qxfont/match/match_explanation.h"

namespace qxfont {
namespace {

using fs::ext::FilledSlot;
using fs::ext::MatchFace;
using fs::ext::MatchReport;

struct MatchOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  bool explain = false;
};

Json faceJson(const MatchFace& face) {
  Json json;
  json["family"] = utf8(face.family);
  json["postscript_name"] = utf8(face.postScriptName);
  json["weight"] = face.weight;
  json["italic"] = face.italic;
  json["stretch"] = face.stretch;
  json["file"] = utf8(face.file.getLocalPath(true));
  json["entry"] = face.entry;
  json["file_type"] = static_cast<int>(face.fileType);
  return json;
}

Json explanationJson(const MatchReport& report) {
  Json json;
  json["table"] = matchTableName(report.table);
  json["key"] = utf8(report.key);
  json["filled"] = Json::array();
  for (const FilledSlot& slot : report.filled) {
    json["filled"].push_back({{"weight", slot.weight},
                              {"italic", slot.italic},
                              {"postscript_name", utf8(slot.face.postScriptName)}});
  }
  json["losers"] = Json::array();
  for (const MatchFace& loser : report.losers) json["losers"].push_back(faceJson(loser));
  return json;
}

Json reportJson(const MatchReport& report, bool explain) {
  Json json = faceJson(report.face);
  if (report.pool == fs::ext::MatchPool::none) return json;  // a path: nothing was looked up
  json["pool"] = matchPoolName(report.pool);
  json["step"] = matchStepName(report.step);
  if (explain) json.update(explanationJson(report));
  return json;
}

void printLine(const std::string& label, const std::string& text) {
  fmt::print("  {:<8} {}\n", label.empty() ? "" : label + ":", shown(text));
}

void printReport(const MatchReport& report, bool explain) {
  fmt::print("{}\n", shown(matchedFace(report.face)));
  printLine("file", matchedFile(report.face));
  if (!explain) return;
  for (const ExplanationLine& line : explanationOf(report)) printLine(line.label, line.text);
}

void match(const MatchOptions& options) {
  checkFontOptions(options.font);
  Service service(options.source);
  const MatchReport report = matchReport(service, options.font);
  if (options.output.json) {
    printJson(reportJson(report, options.explain));
  } else {
    printReport(report, options.explain);
  }
}

}  // namespace

void addMatchCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<MatchOptions>();
  CLI::App* command = app.add_subcommand("match", "The face that answers a request");
  addFontOptions(*command, options->font);
  command->add_flag("--explain", options->explain, "how it was found, and what lost to it");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { match(*options); }; });
}

}  // namespace qxfont
