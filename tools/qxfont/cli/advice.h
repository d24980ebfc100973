#pragma once

#include <string>
#include <vector>

#include "qxfontservice/ext/opening.h"

namespace qxfont {

/// A collected error.
struct FoundError {
  int code = 0;
  std::string message;
  std::string file;  ///< the font or configuration that it is about; empty for neither
};

/// What opening met.
struct Findings {
  std::string configuration;  ///< the file that was read; empty for none
  std::vector<QXFontService_NS::ext::OpenedFolder> folders;
  std::vector<FoundError> errors;
  std::vector<std::string> unpaired;  ///< Type 1 files
};

/// Asks the service, which is open.
Findings findingsOfOpening();

/// Takes the configuration out, for one that the tool wrote itself: people have never seen it.
void hideConfiguration(Findings& findings);

/// What would help, a sentence a finding; empty when all is well.
std::vector<std::string> adviceFor(const Findings& findings);

}  // namespace qxfont
