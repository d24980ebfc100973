#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/commands/commands.h"
#include "qxfont/shape/feature_list.h"
#include "qxfont/shape/layout_tag.h"

namespace qxfont {
namespace {

struct FeaturesOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  std::string script;
  std::string language;
};

Json tagsJson(const std::vector<LayoutTag>& tags) {
  Json json = Json::array();
  for (const LayoutTag tag : tags) json.push_back(tagText(tag));
  return json;
}

Json listJson(const FeatureList& list) {
  Json json;
  json["gsub"] = tagsJson(list.gsub);
  json["gpos"] = tagsJson(list.gpos);
  if (!list.isLayout) return json;
  json["gsub_default"] = list.gsubByDefault;
  json["gpos_default"] = list.gposByDefault;
  return json;
}

void printTable(const std::string& table, const std::vector<LayoutTag>& tags, bool byDefault) {
  if (tags.empty()) {
    fmt::print("{}  no lookups\n", table);
    return;
  }
  std::string line;
  for (const LayoutTag tag : tags) line += " " + tagText(tag);
  fmt::print("{} {}{}\n", table, line, byDefault ? "  (default language system)" : "");
}

void features(const FeaturesOptions& options) {
  checkFontOptions(options.font);
  const LayoutTag script = parseTag(options.script, "--script");
  const LayoutTag language = options.language.empty() ? 0 : parseTag(options.language, "--lang");
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  const FeatureList list = featureList(*font, script, language);
  if (options.output.json) {
    printJson(listJson(list));
  } else {
    printTable("GSUB", list.gsub, list.gsubByDefault);
    printTable("GPOS", list.gpos, list.gposByDefault);
  }
}

}  // namespace

void addFeaturesCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<FeaturesOptions>();
  CLI::App* command =
      app.add_subcommand("features", "Layout features of a script, one a lookup, in their order");
  addFontOptions(*command, options->font);
  command->add_option("--script", options->script, "OpenType script tag, such as latn")
      ->type_name("TAG")
      ->required();
  command->add_option("--lang", options->language, "OpenType language tag, such as ROM")
      ->type_name("TAG");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { features(*options); }; });
}

}  // namespace qxfont
