#include "harness/peak.h"

#include <malloc.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <string>

namespace qxbench {
namespace {

/// A line of the process' status, in bytes.
double statusOf(const std::string& wanted) {
  std::ifstream file("/proc/self/status");
  for (std::string name; file >> name;) {
    double kilobytes = 0;
    if (name == wanted && file >> kilobytes) return kilobytes * 1024;
    file.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  }
  return 0;
}

/// Lets the kernel count the most resident pages from now on.
bool resetPeak() {
  std::ofstream file("/proc/self/clear_refs");
  file << "5" << std::flush;
  return file.good();
}

}  // namespace

double peakBytes(const std::function<void()>& work) {
  malloc_trim(0);
  if (!resetPeak()) return 0;
  const double before = statusOf("VmRSS:");
  work();
  return std::max(0.0, statusOf("VmHWM:") - before);
}

}  // namespace qxbench
