#pragma once

#include <string>
#include <vector>

namespace qxbench {

/// A face as the service lists it.
struct ListedFace {
  std::string family;
  int weight = 0;
  bool italic = false;
};

/// All faces of the opened service.
std::vector<ListedFace> listedFaces();

}  // namespace qxbench
