#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qxfont {

/// Where fonts come from: options of every command.
struct SourceOptions {
  std::string config;                  ///< a configuration file
  std::vector<std::string> only;       ///< nothing but these folders
  std::vector<std::string> add;        ///< further folders, added after opening
  std::vector<std::string> documents;  ///< FILE[=FAMILY[:WEIGHT[:italic]]]
};

/// Which face a command is about.
struct FontOptions {
  std::string font;  ///< a name, or a path
  int weight = 0;    ///< 0: normal
  bool italic = false;
  int stretch = 0;  ///< 0: normal
  int face = 0;     ///< member of a collection, for a path
};

/// How a command prints.
struct OutputOptions {
  bool json = false;
  bool ndjson = false;
};

void addSourceOptions(CLI::App& command, SourceOptions& options);
void addFontOptions(CLI::App& command, FontOptions& options);
/// The same without the font itself, for commands that take several.
void addStyleOptions(CLI::App& command, FontOptions& options);
void addJsonOption(CLI::App& command, OutputOptions& options);
void addNdjsonOption(CLI::App& command, OutputOptions& options);
/// For commands that embed: whether to go on where a licence forbids it.
void addRestrictedOption(CLI::App& command, bool& allowed);

}  // namespace qxfont
