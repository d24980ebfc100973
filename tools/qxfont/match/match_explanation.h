#pragma once

#include <string>
#include <vector>

#include "qxfontservice/ext/match.h"

#include "qxfont/cli/options.h"
#include "qxfont/cli/service.h"

namespace qxfont {

/// Finds the face that the options name and why it is the one; of a path, which names its face
/// itself, no pool is asked.
/// @throws ToolError `noMatch` for a name without a face, `badFont` for a file that cannot be read.
fs::ext::MatchReport matchReport(Service& service, const FontOptions& options);

/// Words for programs.
const char* matchPoolName(fs::ext::MatchPool pool);
const char* matchTableName(fs::ext::MatchTable table);
const char* matchStepName(fs::ext::MatchStep step);

/// "Lato-Bold (weight 700, width 5)", as it is read.
std::string matchedFace(const fs::ext::MatchFace& face);

/// "/fonts/a.ttc, face 1", as it is read.
std::string matchedFile(const fs::ext::MatchFace& face);

/// A line of an explanation.
struct ExplanationLine {
  std::string label;  ///< empty: more of the line above
  std::string text;   ///< as it is read: names of fonts and files may hold anything
};

/// Where the face was found, by which step, which gaps of its family are filled, and which faces
/// lost its place to it.
std::vector<ExplanationLine> explanationOf(const fs::ext::MatchReport& report);

}  // namespace qxfont
