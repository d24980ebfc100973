#include "qxfont/commands/commands.h"

namespace qxfont {

void addCommands(CLI::App& app, Chosen& chosen) {
  addListCommand(app, chosen);
  addMatchCommand(app, chosen);
  addInfoCommand(app, chosen);
  addDumpCommand(app, chosen);
  addGlyphsCommand(app, chosen);
  addFeaturesCommand(app, chosen);
  addShapeCommand(app, chosen);
  addOutlineCommand(app, chosen);
  addEmbedCommand(app, chosen);
  addTypesetCommand(app, chosen);
  addSpecimenCommand(app, chosen);
  addScanCommand(app, chosen);
  addDoctorCommand(app, chosen);
}

}  // namespace qxfont
