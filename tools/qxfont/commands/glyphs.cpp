#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "qxfontservice/ext/numbering.h"

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

struct GlyphsOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  std::string text;
  bool vertical = false;
  int size = 0;
};

struct GlyphRow {
  int code;
  unsigned short glyph;
  float width;
};

struct GlyphsResult {
  std::vector<GlyphRow> rows;
  float textWidth = 0;
  int firstMissing = -1;
};

/// A Type 1 font knows its glyphs by characters.
GlyphsResult askType1(const fs::FS_FontInfo& font, const icu::UnicodeString& text, int size) {
  GlyphsResult result;
  std::vector<int> characters;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1))
    characters.push_back(text.char32At(i));
  for (const auto& numbered : fs::ext::numberCharacters(font, characters)) {
    const float width = font.getTextWidth(numbered.character, size, false, nullptr);
    result.rows.push_back({numbered.character, numbered.glyph, width});
  }
  result.textWidth = font.getTextWidth(text, size, false, &result.firstMissing);
  return result;
}

GlyphsResult ask(const fs::FS_FontInfo& font, const GlyphsOptions& options) {
  const icu::UnicodeString text = unicode(options.text);
  // Font units are asked for as an em of that many, since a width of size 0 is no sum.
  const int size = options.size != 0 ? options.size : -font.getUnitsPerEm();
  if (font.isType1Font()) return askType1(font, text, size);
  GlyphsResult result;
  std::vector<unsigned short> glyphs(static_cast<std::size_t>(text.length()));
  int count = 0;
  if (!font.getGlyphIDs(text, glyphs.data(), count, options.vertical, &result.firstMissing)) {
    return result;
  }
  std::size_t row = 0;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1), ++row) {
    const unsigned short glyph = glyphs[row];
    result.rows.push_back(
        {text.char32At(i), glyph, font.getGlyphWidth(glyph, options.size, options.vertical)});
  }
  result.textWidth = font.getTextWidth(text, size, options.vertical, nullptr);
  return result;
}

Json resultJson(const GlyphsResult& result) {
  Json json;
  json["glyphs"] = Json::array();
  for (const GlyphRow& row : result.rows) {
    json["glyphs"].push_back(
        {{"code", row.code}, {"glyph", row.glyph}, {"width", number(row.width)}});
  }
  json["text_width"] = number(result.textWidth);
  json["first_missing"] = result.firstMissing;
  return json;
}

void printResult(const GlyphsResult& result) {
  TextTable table({"character", "glyph", "width"});
  for (const GlyphRow& row : result.rows) {
    table.add({fmt::format("{} {}", codePointName(row.code), utf8(icu::UnicodeString(row.code))),
               row.glyph == fs::FS_NO_GLYPH ? "none" : fmt::format("{}", row.glyph),
               fmt::format("{}", row.width)});
  }
  table.print();
  fmt::print("text width {}", result.textWidth);
  if (result.firstMissing >= 0) fmt::print(", first missing at {}", result.firstMissing);
  fmt::print("\n");
}

void glyphs(const GlyphsOptions& options) {
  checkFontOptions(options.font);
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  const GlyphsResult result = ask(*font, options);
  if (options.output.json) {
    printJson(resultJson(result));
  } else {
    printResult(result);
  }
}

}  // namespace

void addGlyphsCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<GlyphsOptions>();
  CLI::App* command = app.add_subcommand("glyphs", "Glyph ids and widths of a text");
  addFontOptions(*command, options->font);
  command->add_option("TEXT", options->text, "the text")->required();
  command->add_flag("--vertical", options->vertical, "vertical forms");
  command->add_option("--size", options->size,
                      "cell height when positive, em when negative, font units when 0");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { glyphs(*options); }; });
}

}  // namespace qxfont
