#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qxfontservice/ext/inspect.h"

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

struct DumpOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  std::string what;
};

/// A line of a table: its key, what people read in its place, and its value.
struct DumpRow {
  std::string key;
  std::string shown;
  int value = 0;
};
using DumpRows = std::vector<DumpRow>;

/// A table that can be dumped.
struct Table {
  const char* name;
  const char* keyTitle;
  const char* valueTitle;
  DumpRows (*rows)(const fs::FS_FontInfo& font);
};

std::string numbered(int number) {
  return fmt::format("{}", number);
}

DumpRows cmapRows(const fs::FS_FontInfo& font) {
  DumpRows rows;
  for (const auto& [code, glyph] : fs::ext::characterMap(font))
    rows.push_back({numbered(code), codePointName(code), glyph});
  return rows;
}

/// A Type 1 font measures characters.
DumpRows characterWidthRows(const fs::FS_FontInfo& font) {
  DumpRows rows;
  for (const auto& [code, width] : fs::ext::characterWidths(font))
    rows.push_back({numbered(code), codePointName(code), static_cast<int>(std::lround(width))});
  return rows;
}

DumpRows widthRows(const fs::FS_FontInfo& font) {
  if (font.isType1Font()) return characterWidthRows(font);
  DumpRows rows;
  for (const unsigned short width : fs::ext::advances(font)) {
    const std::string glyph = fmt::format("{}", rows.size());
    rows.push_back({glyph, glyph, width});
  }
  return rows;
}

/// Pairs are for horizontal text or for vertical, never for both.
DumpRows kernRows(const fs::FS_FontInfo& font) {
  DumpRows rows;
  for (const bool vertical : {false, true}) {
    for (const auto& [left, right, value] : fs::ext::kernPairs(font, vertical)) {
      const std::string pair = fmt::format("{},{}", left, right);
      rows.push_back({pair, pair, value});
    }
  }
  return rows;
}

DumpRows classRows(const fs::FS_FontInfo& font) {
  DumpRows rows;
  for (const auto& [glyph, glyphClass] : fs::ext::glyphClasses(font))
    rows.push_back({numbered(glyph), numbered(glyph), glyphClass});
  return rows;
}

DumpRows variationRows(const fs::FS_FontInfo& font) {
  DumpRows rows;
  for (const auto& [code, selector, glyph] : fs::ext::variationSequences(font)) {
    rows.push_back({fmt::format("{},{}", code, selector),
                    fmt::format("{} {}", codePointName(code), codePointName(selector)), glyph});
  }
  return rows;
}

constexpr std::array<Table, 5> kTables{{
    {"cmap", "character", "glyph", cmapRows},
    {"widths", "glyph", "advance", widthRows},
    {"kern", "pair", "value", kernRows},
    {"classes", "glyph", "class", classRows},
    {"variations", "sequence", "glyph", variationRows},
}};

std::string tableNames() {
  std::vector<std::string> names;
  for (const Table& table : kTables) names.emplace_back(table.name);
  return fmt::format("{}", fmt::join(names, ", "));
}

const Table& tableOf(const std::string& name) {
  const auto* found = std::find_if(kTables.begin(), kTables.end(),
                                   [&](const Table& table) { return name == table.name; });
  if (found != kTables.end()) return *found;
  throw ToolError(Status::wrongCall, fmt::format("there is no table '{}' to dump", name),
                  "tables: " + tableNames());
}

/// One object; its keys are put in unseen, since they are known to differ.
Json rowsJson(const DumpRows& rows) {
  Json json = Json::object();
  auto& object = json.get_ref<Json::object_t&>();
  object.reserve(rows.size());
  for (const DumpRow& row : rows) object.push_back(std::make_pair(row.key, Json(row.value)));
  return json;
}

void printLines(const DumpRows& rows) {
  for (const DumpRow& row : rows) fmt::print("{{\"{}\":{}}}\n", row.key, row.value);
}

void printText(const Table& table, const DumpRows& rows) {
  TextTable text({table.keyTitle, table.valueTitle});
  for (const DumpRow& row : rows) text.add({row.shown, numbered(row.value)});
  text.print();
}

void dump(const DumpOptions& options) {
  const Table& table = tableOf(options.what);
  checkFontOptions(options.font);
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  const DumpRows rows = table.rows(*font);
  if (options.output.ndjson) {
    printLines(rows);
  } else if (options.output.json) {
    printJson(rowsJson(rows));
  } else {
    printText(table, rows);
  }
}

}  // namespace

void addDumpCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<DumpOptions>();
  CLI::App* command = app.add_subcommand("dump", "A whole table of a font as the service sees it");
  addFontOptions(*command, options->font);
  command->add_option("WHAT", options->what, "one of " + tableNames())->required();
  addJsonOption(*command, options->output);
  addNdjsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { dump(*options); }; });
}

}  // namespace qxfont
