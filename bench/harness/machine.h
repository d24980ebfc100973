#pragma once

#include <string>
#include <vector>

namespace qxbench {

/// What a figure depends on besides the code.
struct Machine {
  std::string processor;
  int cores = 0;
  double load = 0;  ///< of the last minute when the bench began
  std::string system;
  std::string compiler;
};
Machine thisMachine();

/// Name and version of what is measured against, as the libraries tell them at run time.
struct PeerVersion {
  std::string name;
  std::string version;
};
std::vector<PeerVersion> peerVersions();

}  // namespace qxbench
