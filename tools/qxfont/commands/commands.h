#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace qxfont {

/// A command stores what it is to do here when the command line chose it.
using Chosen = std::function<void()>;

void addListCommand(CLI::App& app, Chosen& chosen);
void addMatchCommand(CLI::App& app, Chosen& chosen);
void addInfoCommand(CLI::App& app, Chosen& chosen);
void addDumpCommand(CLI::App& app, Chosen& chosen);
void addGlyphsCommand(CLI::App& app, Chosen& chosen);
void addFeaturesCommand(CLI::App& app, Chosen& chosen);
void addShapeCommand(CLI::App& app, Chosen& chosen);
void addOutlineCommand(CLI::App& app, Chosen& chosen);
void addEmbedCommand(CLI::App& app, Chosen& chosen);
void addTypesetCommand(CLI::App& app, Chosen& chosen);
void addSpecimenCommand(CLI::App& app, Chosen& chosen);
void addScanCommand(CLI::App& app, Chosen& chosen);
void addDoctorCommand(CLI::App& app, Chosen& chosen);

/// All commands, in the order in which the help shows them.
void addCommands(CLI::App& app, Chosen& chosen);

}  // namespace qxfont
