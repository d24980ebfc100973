#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qxfontservice/ext/numbering.h"

#include "qxfont/cli/input_file.h"
#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/output_file.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"
#include "qxfont/embed/form.h"
#include "qxfont/embed/glyph_choice.h"
#include "qxfont/embed/rights.h"

namespace qxfont {
namespace {

struct EmbedOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  std::string form;
  std::string text;
  std::string textFile;
  std::string unicodes;
  std::string gids;
  std::string out;
  std::string map;
  bool allowRestricted = false;
  bool asSpecified = false;
};

bool choosesGlyphs(const EmbedOptions& options) {
  return !options.text.empty() || !options.textFile.empty() || !options.unicodes.empty() ||
         !options.gids.empty();
}

void checkCall(const EmbedOptions& options, const Form& form) {
  checkFontOptions(options.font);
  if (!choosesGlyphs(options) && !form.whole) {
    throw ToolError(Status::wrongCall,
                    fmt::format("which glyphs is the form {} to hold?", form.name),
                    "give --text, --text-file, --unicodes or --gids");
  }
  if (options.map == options.out) {
    throw ToolError(Status::wrongCall, "the font and its map are to be one file: " + options.out);
  }
}

GlyphRequest requestOf(const EmbedOptions& options) {
  GlyphRequest request;
  const auto add = [&](const std::vector<int>& codes) {
    request.codePoints.insert(request.codePoints.end(), codes.begin(), codes.end());
  };
  add(parseText(options.text));
  if (!options.textFile.empty()) add(parseText(readTextFile(options.textFile)));
  if (!options.unicodes.empty()) add(parseUnicodes(options.unicodes));
  if (!options.gids.empty()) request.gids = parseGids(options.gids);
  return request;
}

void tellMissing(const GlyphChoice& choice, const std::string& font) {
  if (choice.missing.empty()) return;
  std::vector<std::string> names;
  for (const int codePoint : choice.missing) names.push_back(codePointName(codePoint));
  const std::string what = fmt::format("{} has no glyph for {}", font, fmt::join(names, ", "));
  if (choice.glyphs.empty()) throw ToolError(Status::noMatch, what);
  fmt::print(stderr, "qxfont: {}\n", shown(what));
}

FormResult write(const fs::FS_FontInfo& font, const Form& form, bool asSpecified,
                 const GlyphChoice& choice) {
  std::vector<unsigned short> gids;
  for (const auto& [gid, codePoint] : choice.glyphs) gids.push_back(gid);
  FormResult result;
  if (writeForm(font, form, asSpecified, gids, result) && !result.bytes.empty()) return result;
  throw ToolError(Status::badFont,
                  fmt::format("{} cannot be written in the form {}",
                              utf8(font.getFontFileName().getLocalPath(true)), form.name));
}

/// What the document has to call the glyphs, with the character by which each was asked for.
Json mapJson(const fs::FS_FontInfo& font, const Form& form, const FormResult& result,
             const GlyphChoice& choice) {
  std::vector<unsigned short> gids;
  for (const auto& [gid, codePoint] : choice.glyphs) {
    if (std::find(result.leftOut.begin(), result.leftOut.end(), gid) == result.leftOut.end())
      gids.push_back(gid);
  }
  Json map = Json::array();
  for (const auto& numbered : fs::ext::numberGlyphs(font, form.numbers, gids)) {
    const auto asked = choice.glyphs.find(numbered.glyph);
    const int codePoint = asked != choice.glyphs.end() ? asked->second : numbered.unicode;
    Json row;
    row["glyph"] = numbered.glyph;
    row["id"] = numbered.id;
    if (codePoint >= 0) row["unicode"] = codePoint;
    row["width"] = number(numbered.width);
    map.push_back(row);
  }
  return map;
}

std::size_t sizeOf(const FormResult& result) {
  std::size_t size = result.bytes.size();
  for (const auto& [gid, bytes] : result.glyphFiles) size += bytes.size();
  return size;
}

Json summaryJson(const fs::FS_FontInfo& font, const Form& form, const FormResult& result,
                 const GlyphChoice& choice) {
  Json json;
  json["form"] = form.name;
  json["bytes"] = sizeOf(result);
  json["glyphs"] = choice.glyphs.size();
  json["name"] = utf8(font.getPostScriptName(fs::QXLang::LANGID_DEFAULT));
  json["map"] = mapJson(font, form, result, choice);
  return json;
}

void addFiles(OutputFiles& files, const std::string& path, const Form& form,
              const FormResult& result) {
  if (!form.folder) return files.add(path, result.bytes);
  files.addFolder(path);
  files.addToFolder("font.sfnt", result.bytes);
  for (const auto& [gid, bytes] : result.glyphFiles) {
    files.addToFolder(fmt::format("glyph{:05}.bin", gid), bytes);
  }
}

void embed(const EmbedOptions& options) {
  const Form& form = formOf(options.form);
  checkCall(options, form);
  GlyphRequest request = requestOf(options);

  Service service(options.source);
  const OpenFont font = openFont(service, options.font);
  if (!hasForm(*font, form, options.asSpecified)) {
    throw ToolError(Status::wrongCall,
                    fmt::format("{} has no form {}", options.font.font, form.name),
                    "it has: " + formNames(*font, options.asSpecified));
  }
  if (form.whole && !choosesGlyphs(options)) request.gids = allGlyphs(*font);
  const GlyphChoice choice = chooseGlyphs(*font, request);
  tellMissing(choice, options.font.font);
  if (!options.allowRestricted) requireRights(*font, !form.whole);

  const FormResult result = write(*font, form, options.asSpecified, choice);
  const Json summary = summaryJson(*font, form, result, choice);
  OutputFiles files;
  addFiles(files, options.out, form, result);
  if (!options.map.empty()) files.add(options.map, jsonText(summary["map"]) + "\n");
  if (options.output.json) {
    printJson(summary);
  } else {
    fmt::print("{}: {} bytes, {} glyphs of {}\n", shown(options.out), sizeOf(result),
               choice.glyphs.size(), shown(summary["name"].get<std::string>()));
  }
  flushOutput();
  files.commit();
}

void addChoiceOptions(CLI::App& command, EmbedOptions& options) {
  command.add_option("--text", options.text, "the glyphs of this text");
  command.add_option("--text-file", options.textFile, "the glyphs of this UTF-8 file")
      ->type_name("FILE");
  command.add_option("--unicodes", options.unicodes, "the glyphs of U+0041,U+4E00-4E0F")
      ->type_name("LIST");
  command.add_option("--gids", options.gids, "glyphs by their ids: 3,5-9")->type_name("LIST");
}

}  // namespace

void addEmbedCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<EmbedOptions>();
  CLI::App* command = app.add_subcommand("embed", "Writes the part of a font that is needed");
  addFontOptions(*command, options->font);
  command->add_option("--form", options->form, "one of " + formNames())->required();
  addChoiceOptions(*command, *options);
  command->add_option("-o,--output", options->out, "the file, or folder, to write")
      ->type_name("FILE")
      ->required();
  command->add_option("--map", options->map, "writes the numbering as JSON")->type_name("FILE");
  command->add_flag("--as-specified", options->asSpecified,
                    "the specified bytes, where those of strict readers are the default");
  command->add_flag("--allow-restricted", options->allowRestricted,
                    "goes on where the font's licence says no");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { embed(*options); }; });
}

}  // namespace qxfont
