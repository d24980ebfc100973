#include "qxfontservice/ext/match.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <string>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/paths.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

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

constexpr std::array kPools = {"none", "extra", "alias", "main"};
constexpr std::array kTables = {"none", "family", "file"};
constexpr std::array kSteps = {"none", "exact", "stretch", "upright", "rounded", "filled"};
constexpr std::array kStepTexts = {"nothing",
                                   "weight, slant and width as asked",
                                   "weight and slant as asked, in normal width",
                                   "the upright face of that weight stands in for its italic",
                                   "the weight rounded up to a hundred",
                                   "no face has this style: the nearest one fills the gap"};

template <class Texts, class Value>
const char* textOf(const Texts& texts, Value value) {
  return texts[static_cast<std::size_t>(value)];
}

std::string fileOf(const MatchFace& face) {
  return utf8(face.file.getLocalPath(true));
}

Json faceJson(const MatchFace& face) {
  Json json;
  json["family"] = utf8(face.family);
  json["postscript_name"] = utf8(face.postScriptName);
  json["weight"] = face.weight;
  json["italic"] = face.italic;
  json["stretch"] = face.stretch;
  json["file"] = fileOf(face);
  json["entry"] = face.entry;
  json["file_type"] = static_cast<int>(face.fileType);
  return json;
}

Json explanationJson(const MatchReport& report) {
  Json json;
  json["table"] = textOf(kTables, report.table);
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
  json["pool"] = textOf(kPools, report.pool);
  json["step"] = textOf(kSteps, report.step);
  if (explain) json.update(explanationJson(report));
  return json;
}

/// A document's font has no name but the one that the document declares.
std::string nameOf(const MatchFace& face) {
  return shown(face.postScriptName.isEmpty() ? face.family : face.postScriptName);
}

std::string faceText(const MatchFace& face) {
  return fmt::format("{} (weight {}{}, width {})", nameOf(face), face.weight,
                     face.italic ? ", italic" : "", face.stretch);
}

void printFilled(const MatchReport& report) {
  if (report.filled.empty()) return;
  fmt::print("  filled:  {} styles that no face has, taken by the nearest:\n",
             report.filled.size());
  for (const FilledSlot& slot : report.filled) {
    fmt::print("           {}{} -> {}\n", slot.weight, slot.italic ? " italic" : "",
               nameOf(slot.face));
  }
}

void printExplanation(const MatchReport& report) {
  if (report.pool == fs::ext::MatchPool::none) {
    fmt::print("  found:   by its path, no name was looked up\n");
    return;
  }
  fmt::print("  found:   in the {} pool, {} table, as '{}'\n", textOf(kPools, report.pool),
             textOf(kTables, report.table), shown(report.key));
  fmt::print("  step:    {}: {}\n", textOf(kSteps, report.step), textOf(kStepTexts, report.step));
  printFilled(report);
  for (const MatchFace& loser : report.losers) {
    fmt::print("  behind:  {} in {} has the same name and style and was found later\n",
               faceText(loser), shown(fileOf(loser)));
  }
}

void printReport(const MatchReport& report, bool explain) {
  fmt::print("{}\n", faceText(report.face));
  fmt::print("  file:    {}{}\n", shown(fileOf(report.face)),
             report.face.entry > 0 ? fmt::format(", face {}", report.face.entry) : "");
  if (explain) printExplanation(report);
}

/// A path names its face itself: no pool is asked.
MatchReport reportOfPath(Service& service, const FontOptions& options) {
  const OpenFont font = openFont(service, options);
  MatchReport report;
  report.face.file = font->getFontFileName();
  report.face.entry = font->getEntry();
  report.face.fileType = font->getFontFileType();
  report.face.family = font->getFamilyName(fs::QXLang::LANGID_DEFAULT);
  report.face.postScriptName = font->getPostScriptName(fs::QXLang::LANGID_DEFAULT);
  font->getFontStyle(&report.face.weight, &report.face.italic, &report.face.stretch);
  return report;
}

MatchReport reportOfName(Service& service, const FontOptions& options) {
  MatchReport report;
  if (!fs::ext::explainMatch(unicode(options.font), options.weight, options.italic, options.stretch,
                             service.documentFonts(), report)) {
    throw noSuchFont(service, options.font);
  }
  return report;
}

void match(const MatchOptions& options) {
  checkFontOptions(options.font);
  Service service(options.source);
  const MatchReport report = isPath(options.font.font) ? reportOfPath(service, options.font)
                                                       : reportOfName(service, options.font);
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
