#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "qxfont/cli/file_type_name.h"
#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

struct ListOptions {
  SourceOptions source;
  OutputOptions output;
  std::string name;
};

int collectRow(fs::FS_FontResourceType type, const fs::FS_EnumLogFontEx* font,
               const fs::FS_NewTextMetricEx*, void* rows) {
  Json row;
  row["family"] = utf8(font->getFaceName());
  row["full_name"] = utf8(font->getFullName());
  row["weight"] = font->getWeight();
  row["italic"] = font->isItalic();
  row["resource_type"] = static_cast<int>(type);
  row["file_type"] = static_cast<int>(font->getFontFileType());
  row["embed_status"] = static_cast<int>(font->getEmbedStatus());
  row["flags"] = static_cast<int>(font->getFontFlags());
  static_cast<Json*>(rows)->push_back(row);
  return 0;
}

void printText(const Json& rows) {
  TextTable table({"family", "weight", "slant", "full name", "kind"});
  for (const Json& row : rows) {
    table.add({row["family"], fmt::format("{}", row["weight"].get<int>()),
               row["italic"].get<bool>() ? "italic" : "", row["full_name"],
               fileTypeName(row["file_type"].get<int>())});
  }
  table.print();
}

void list(const ListOptions& options) {
  Service service(options.source);
  Json rows = Json::array();
  fs::FS_EnumFontFamilies(unicode(options.name), collectRow, &rows, &service.documentManager(), 0);
  if (rows.empty() && !options.name.empty()) throw noSuchFont(service, options.name);
  if (options.output.json || options.output.ndjson) {
    printRows(rows, options.output);
  } else {
    printText(rows);
  }
}

}  // namespace

void addListCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<ListOptions>();
  CLI::App* command = app.add_subcommand("list", "All faces, or those of one family");
  command->add_option("NAME", options->name, "a family; @NAME: its faces with vertical forms");
  addJsonOption(*command, options->output);
  addNdjsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { list(*options); }; });
}

}  // namespace qxfont
