#pragma once

#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

namespace qxbench {

/// A request by family and weight, in the spelling of either side.
struct FamilyRequest {
  std::string family;
  icu::UnicodeString name;
  int weight = 0;
};

/// One request for each upright face of the opened service that its family answers exactly, in an
/// order that has nothing to do with that of the files.
std::vector<FamilyRequest> requestsForFaces();

/// One request a family, of a weight that none of its faces has nor rounds to.
std::vector<FamilyRequest> requestsForGaps();

/// Asks as an application does; false when no face answers.
bool create(const FamilyRequest& request);

}  // namespace qxbench
