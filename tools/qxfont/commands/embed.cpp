#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
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

/// The file of a page of a Type 1 font: the first one is the output itself, "out.pfb", and the
/// others have their numbers behind its name, "out-2.pfb".
std::string pathOf(const std::string& out, const FormResult& result, const Type1Page& page) {
  if (&page == &result.pages.front()) return out;
  const std::filesystem::path path(out);
  return path.parent_path() /
         fmt::format("{}-{}{}", path.stem().string(), page.page, path.extension().string());
}

/// Pages get names of their own, which the map must not have.
void checkMap(const EmbedOptions& options, const FormResult& result) {
  for (const Type1Page& page : result.pages) {
    if (options.map != pathOf(options.out, result, page)) continue;
    throw ToolError(Status::wrongCall,
                    "a page of the font and its map are to be one file: " + options.map);
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

/// What the document has to call the characters of a Type 1 font: page << 8 | code, and the name
/// that its encoding needs there.
Json characterMapJson(const fs::FS_FontInfo& font, const GlyphChoice& choice) {
  std::vector<int> characters;
  for (const auto& [code, codePoint] : choice.glyphs) characters.push_back(codePoint);
  Json map = Json::array();
  for (const auto& numbered : fs::ext::numberCharacters(font, characters)) {
    Json row;
    if (numbered.glyph != fs::FS_NO_GLYPH) row["glyph"] = numbered.glyph;
    row["id"] = numbered.code;
    row["unicode"] = numbered.character;
    row["width"] = number(numbered.width);
    row["name"] = numbered.name;
    map.push_back(row);
  }
  return map;
}

/// What the document has to call the glyphs, with the character by which each was asked for.
Json mapJson(const fs::FS_FontInfo& font, const Form& form, const FormResult& result,
             const GlyphChoice& choice) {
  if (font.isType1Font()) return characterMapJson(font, choice);
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

Json pagesJson(const FormResult& result, const std::string& out) {
  Json pages = Json::array();
  for (const Type1Page& page : result.pages) {
    pages.push_back({{"page", page.page},
                     {"file", pathOf(out, result, page)},
                     {"bytes", page.program.size()},
                     {"lengths", page.lengths}});
  }
  return pages;
}

Json summaryJson(const fs::FS_FontInfo& font, const Form& form, const FormResult& result,
                 const GlyphChoice& choice, const std::string& out) {
  Json json;
  json["form"] = form.name;
  json["bytes"] = sizeOf(result);
  json["glyphs"] = choice.glyphs.size();
  json["name"] = utf8(font.getPostScriptName(fs::QXLang::LANGID_DEFAULT));
  if (!result.pages.empty()) json["lengths"] = result.pages.front().lengths;
  if (result.pages.size() > 1) json["pages"] = pagesJson(result, out);
  json["map"] = mapJson(font, form, result, choice);
  return json;
}

void addFiles(OutputFiles& files, const std::string& path, const Form& form,
              const FormResult& result) {
  for (const Type1Page& page : result.pages) files.add(pathOf(path, result, page), page.program);
  if (!result.pages.empty()) return;
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

  Service service(options.source, options.font);
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
  const Json summary = summaryJson(*font, form, result, choice, options.out);
  checkMap(options, result);
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
  addRestrictedOption(*command, options->allowRestricted);
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { embed(*options); }; });
}

}  // namespace qxfont
