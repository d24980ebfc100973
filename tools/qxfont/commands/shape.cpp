#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"
#include "qxfont/shape/layout_shaper.h"

namespace qxfont {
namespace {

struct ShapeOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  std::string text;
  std::string script;
  std::string language;
  std::string features;
  bool rightToLeft = false;
  bool vertical = false;
  bool trace = false;
};

using Glyphs = std::vector<ShapedGlyph>;

/// "36@0 57@1+(10,-5)": glyph, cluster, and the move of one that stands aside.
std::string glyphsText(const Glyphs& glyphs) {
  std::string text;
  for (const ShapedGlyph& glyph : glyphs) {
    if (!text.empty()) text += ' ';
    text += fmt::format("{}@{}+{}", glyph.gid, glyph.cluster, glyph.advance);
    if (glyph.dx != 0 || glyph.dy != 0) text += fmt::format("({},{})", glyph.dx, glyph.dy);
  }
  return text;
}

/// Steps stand on standard error beside JSON, which is one document.
void printTrace(std::FILE* out, const LookupTrace& trace) {
  const std::string index = trace.index < 0 ? "" : fmt::format(" {}", trace.index);
  fmt::print(out, "{}{} {}: {}\n", trace.table, index, tagText(trace.feature),
             glyphsText(trace.glyphs));
}

ShapeRequest requestOf(const ShapeOptions& options) {
  ShapeRequest request;
  request.script = parseTag(options.script, "--script");
  if (!options.language.empty()) request.language = parseTag(options.language, "--lang");
  if (!options.features.empty()) request.features = parseTags(options.features, "--features");
  request.rightToLeft = options.rightToLeft;
  request.vertical = options.vertical;
  std::FILE* out = options.output.json ? stderr : stdout;
  if (options.trace) {
    request.trace = [out](const LookupTrace& trace) { printTrace(out, trace); };
  }
  return request;
}

Json resultJson(const Glyphs& glyphs) {
  Json json = Json::array();
  for (const ShapedGlyph& glyph : glyphs) {
    json.push_back({{"g", glyph.gid},
                    {"cl", glyph.cluster},
                    {"ax", glyph.advance},
                    {"dx", glyph.dx},
                    {"dy", glyph.dy}});
  }
  return json;
}

void printResult(const Glyphs& glyphs) {
  TextTable table({"glyph", "cluster", "advance", "dx", "dy"});
  for (const ShapedGlyph& glyph : glyphs) {
    table.add({std::to_string(glyph.gid), std::to_string(glyph.cluster),
               std::to_string(glyph.advance), std::to_string(glyph.dx), std::to_string(glyph.dy)});
  }
  table.print();
}

void shape(const ShapeOptions& options) {
  checkFontOptions(options.font);
  ShapeRequest request = requestOf(options);
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  if (font->isType1Font()) {
    throw ToolError(Status::wrongCall, options.font.font + " has no OpenType layout",
                    "it is a Type 1 font: qxfont glyphs and qxfont typeset take it");
  }
  const icu::UnicodeString text = unicode(options.text);
  Glyphs glyphs = LayoutShaper(*font, std::move(request)).shape(text, 0, text.length());
  if (options.rightToLeft) std::reverse(glyphs.begin(), glyphs.end());
  if (options.output.json) {
    printJson(resultJson(glyphs));
  } else {
    printResult(glyphs);
  }
}

}  // namespace

void addShapeCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<ShapeOptions>();
  CLI::App* command = app.add_subcommand(
      "shape", "Glyphs and positions of a text by OpenType layout, as they are drawn");
  addFontOptions(*command, options->font);
  command->add_option("TEXT", options->text, "the text")->required();
  command->add_option("--script", options->script, "OpenType script tag, such as latn")
      ->type_name("TAG")
      ->required();
  command->add_option("--lang", options->language, "OpenType language tag, such as ROM")
      ->type_name("TAG");
  command
      ->add_option("--features", options->features,
                   "these features and no others, with commas; without it those that all text "
                   "wants")
      ->type_name("TAG,...");
  command->add_flag("--rtl", options->rightToLeft, "from right to left");
  command->add_flag("--vertical", options->vertical, "downward, with vertical forms");
  command->add_flag("--trace", options->trace,
                    "each lookup that changed something: glyph@cluster+advance(dx,dy)");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { shape(*options); }; });
}

}  // namespace qxfont
