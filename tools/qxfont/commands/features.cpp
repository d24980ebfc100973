#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/commands/commands.h"
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

using Info = std::shared_ptr<fs::FS_GSUBGPOSInfo>;

Json tagsOf(const Info& info, unsigned int (*tagAt)(const fs::FS_GSUBGPOSInfo*, int)) {
  Json tags = Json::array();
  for (int i = 0; const LayoutTag tag = tagAt(info.get(), i); ++i) tags.push_back(tagText(tag));
  return tags;
}

Json resultJson(const Info& info) {
  using Font = fs::FS_FontInfo;
  Json json;
  json["gsub"] = tagsOf(info, &Font::getGSUBFeatureTag);
  json["gpos"] = tagsOf(info, &Font::getGPOSFeatureTag);
  json["gsub_default"] = Font::isGSUBDefaultLangSys(info.get());
  json["gpos_default"] = Font::isGPOSDefaultLangSys(info.get());
  return json;
}

void printTable(const std::string& table, const Json& tags, bool byDefault) {
  if (tags.empty()) {
    fmt::print("{}  no lookups\n", table);
    return;
  }
  std::string line;
  for (const Json& tag : tags) line += " " + tag.get<std::string>();
  fmt::print("{} {}{}\n", table, line, byDefault ? "  (default language system)" : "");
}

void features(const FeaturesOptions& options) {
  checkFontOptions(options.font);
  const LayoutTag script = parseTag(options.script, "--script");
  const LayoutTag language = options.language.empty() ? 0 : parseTag(options.language, "--lang");
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  const Info info(font->getGSUBGPOSInfo(script, language), &fs::FS_FontInfo::deleteGSUBGPOSInfo);
  Json json{{"gsub", Json::array()}, {"gpos", Json::array()}};
  if (info) json = resultJson(info);
  if (options.output.json) {
    printJson(json);
  } else {
    printTable("GSUB", json["gsub"], json.value("gsub_default", false));
    printTable("GPOS", json["gpos"], json.value("gpos_default", false));
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
