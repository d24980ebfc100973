#include "qxfont/cli/options.h"

#include <CLI/CLI.hpp>

namespace qxfont {

void addSourceOptions(CLI::App& command, SourceOptions& options) {
  auto* group = command.add_option_group("Where fonts come from");
  auto* config =
      group->add_option("--config", options.config,
                        "a configuration file (else the variable QXFONT_CONFIG, else the system)");
  config->type_name("FILE");
  group->add_option("--only", options.only, "nothing but this folder, with its subfolders")
      ->type_name("DIR")
      ->allow_extra_args(false)
      ->excludes(config);
  group->add_option("--add", options.add, "this folder too, without its subfolders")
      ->type_name("DIR")
      ->allow_extra_args(false);
  group->add_option("--document", options.documents, "a font that the document brings along")
      ->type_name("FILE[=FAMILY[:WEIGHT[:italic]]]")
      ->allow_extra_args(false);
}

void addFontOptions(CLI::App& command, FontOptions& options) {
  command
      .add_option("FONT", options.font,
                  "a family, full, PostScript or file name, or the path of a font file")
      ->required();
  addStyleOptions(command, options);
}

void addStyleOptions(CLI::App& command, FontOptions& options) {
  command.add_option("--weight", options.weight, "weight from 1 to 1000 (normal: 400)")
      ->check(CLI::Range(1, 1000));
  command.add_flag("--italic", options.italic, "the italic face");
  command.add_option("--stretch", options.stretch, "width class from 1 to 9 (normal: 5)")
      ->check(CLI::Range(1, 9));
  command.add_option("--face", options.face, "member of a font file, from 0")
      ->check(CLI::Range(0, 65535));
}

void addJsonOption(CLI::App& command, OutputOptions& options) {
  command.add_flag("--json", options.json, "one JSON document on standard output");
}

void addRestrictedOption(CLI::App& command, bool& allowed) {
  command.add_flag("--allow-restricted", allowed, "goes on where a font's licence says no");
}

void addNdjsonOption(CLI::App& command, OutputOptions& options) {
  command.add_flag("--ndjson", options.ndjson, "a JSON document a line");
}

}  // namespace qxfont
